// SPDX-FileCopyrightText: 2026 The rawificontrol authors
// SPDX-License-Identifier: MIT
#ifndef RAWIFI_RABASEWIDGET_H
#define RAWIFI_RABASEWIDGET_H

#include "rawifi_export.h"

#include <QWidget>

/** A page's content: a widget that answers the Up and Down keys of its page. GUI thread only. */
class RAWIFI_EXPORT RaBaseWidget : public QWidget
{
    Q_OBJECT
public:
    explicit RaBaseWidget(QWidget* parent = nullptr); ///< Owned by \a parent, if any.
    ~RaBaseWidget() override;

    /** The page's Up key was pressed. Does nothing here. */
    virtual void keyUp();
    /** The page's Down key was pressed. Does nothing here. */
    virtual void keyDown();

private:
    Q_DISABLE_COPY(RaBaseWidget)
};

#endif
