// SPDX-FileCopyrightText: 2026 The rawificontrol authors
// SPDX-License-Identifier: MIT
#ifndef RAWIFI_RAWIFIPROCESSINGWND_H
#define RAWIFI_RAWIFIPROCESSINGWND_H

#include "rawifi_export.h"

#include <QString>
#include <QWidget>

class QLabel;
class RaCircleWait;

/**
 * A panel of 320 by 170 pixels with a spinner above a text of one or two lines, for the embedding
 * application. Always made without a parent: whoever creates it gives it one with setParent(), or deletes it.
 * GUI thread only.
 */
class RAWIFI_EXPORT RaWifiProcessingWnd : public QWidget
{
    Q_OBJECT
public:
    /** \a parent is ignored. */
    RaWifiProcessingWnd(QWidget* parent, QString text);
    ~RaWifiProcessingWnd() override;

private:
    Q_DISABLE_COPY(RaWifiProcessingWnd)

    RaCircleWait* m_spinner;
    QLabel* m_label;
};

#endif
