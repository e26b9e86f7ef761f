// SPDX-FileCopyrightText: 2026 The rawificontrol authors
// SPDX-License-Identifier: MIT
#ifndef RAWIFI_RASWITCHWIDGET_H
#define RAWIFI_RASWITCHWIDGET_H

#include "rabasewidget.h"

#include <QRect>
#include <QString>

class RaSwitchButton;

/**
 * A row of 320 by 60 pixels with a text, a smaller second text below it (either may be empty) and a switch on
 * the right. GUI thread only.
 */
class RAWIFI_EXPORT RaSwitchWidget : public RaBaseWidget
{
    Q_OBJECT
public:
    RaSwitchWidget(QWidget* parent, QString text1, QString text2); ///< Owned by \a parent; the switch is off.
    ~RaSwitchWidget() override;

    /** Does nothing. */
    void keyUp() override;

    /** The row's switch, for its state and its checkedChanged(bool); owned by the row. */
    RaSwitchButton* switchButton() const { return m_switch; }

    QSize sizeHint() const override;

protected:
    void resizeEvent(QResizeEvent* event) override;
    void paintEvent(QPaintEvent* event) override;

private:
    Q_DISABLE_COPY(RaSwitchWidget)

    QString m_text1;
    QString m_text2;
    QRect m_text1Rect;
    QRect m_text2Rect;
    RaSwitchButton* m_switch;
};

#endif
