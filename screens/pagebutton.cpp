// SPDX-FileCopyrightText: 2026 The rawificontrol authors
// SPDX-License-Identifier: MIT
#include "pagebutton.h"

#include "fittedtext.h"
#include "rafocus.h"
#include "ratheme.h"

#include <QKeyEvent>
#include <QPainter>

namespace {

const int cornerRadius = 10;
const int textPixels = 18;
const int smallestTextPixels = 11;
const int sideMargin = 4; // the style sheet's padding, and the gap beside the icon

} // namespace

PageButton::PageButton(const QString& text, QWidget* parent) : QPushButton(text, parent)
{
    QFont textFont = parent->font();
    textFont.setPixelSize(textPixels);
    setFont(textFont);
    QPalette colours = palette();
    colours.setColor(QPalette::ButtonText, RaTheme::text());
    setPalette(colours);
    setStyleSheet(QLatin1String("QPushButton{border:0px groove gray;border-radius:10px;padding:2px 4px}"
                                "QPushButton{background-color:rgb(54,54,54)}"));
    setFocusPolicy(Qt::TabFocus);
}

void PageButton::paintEvent(QPaintEvent* event)
{
    QPushButton::paintEvent(event);
    QPainter painter(this);
    painter.setRenderHint(QPainter::Antialiasing);
    if (isDown()) {
        painter.setPen(Qt::NoPen);
        painter.setBrush(QColor(255, 255, 255, 70));
        painter.drawRoundedRect(rect(), cornerRadius, cornerRadius);
    }
    if (raShowsFocus(this)) {
        raDrawFocusMark(&painter, rect(), cornerRadius);
    }
}

void PageButton::resizeEvent(QResizeEvent* event)
{
    QPushButton::resizeEvent(event);
    const int iconRoom = icon().isNull() ? 0 : iconSize().width() + sideMargin;
    setFont(fitText(text(), font(), width() - 2 * sideMargin - iconRoom, textPixels, smallestTextPixels).font);
}

void PageButton::keyPressEvent(QKeyEvent* event)
{
    if (raIsActivation(event)) {
        click();
    } else {
        QPushButton::keyPressEvent(event);
    }
}
