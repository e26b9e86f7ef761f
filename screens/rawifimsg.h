// SPDX-FileCopyrightText: 2026 The rawificontrol authors
// SPDX-License-Identifier: MIT
#ifndef RAWIFI_RAWIFIMSG_H
#define RAWIFI_RAWIFIMSG_H

#include "rabasewidget.h"

#include <QString>

/**
 * A black panel with one message in its middle, in as many lines as it needs. GUI thread only.
 * Always made without a parent: whoever creates it gives it one with setParent(), or deletes it.
 */
class RAWIFI_EXPORT RaWifiMsg : public RaBaseWidget
{
    Q_OBJECT
public:
    /** \a parent is ignored. The message is empty. */
    explicit RaWifiMsg(QWidget* parent);
    ~RaWifiMsg() override;

    /** What the next repaint shows; set by the owner, who then shows the panel or calls update(). */
    QString m_text;

protected:
    void paintEvent(QPaintEvent* event) override;

private:
    Q_DISABLE_COPY(RaWifiMsg)
};

#endif
