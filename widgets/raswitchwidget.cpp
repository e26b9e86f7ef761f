// SPDX-FileCopyrightText: 2026 The rawificontrol authors
// SPDX-License-Identifier: MIT
#include "raswitchwidget.h"

#include "raswitchbutton.h"
#include "ratheme.h"

#include <QPainter>

namespace {

const int TextLeft = 35;
const int TextRight = 224;

void drawText(QPainter* painter, const QRect& area, int pixelSize, const QColor& color, const QString& text)
{
    QFont font = painter->font();
    font.setPixelSize(pixelSize);
    painter->setFont(font);
    painter->setPen(color);
    painter->drawText(area, Qt::AlignLeft | Qt::AlignVCenter,
                      QFontMetrics(font).elidedText(text, Qt::ElideRight, area.width()));
}

} // namespace

RaSwitchWidget::RaSwitchWidget(QWidget* parent, QString text1, QString text2)
    : RaBaseWidget(parent),
      m_text1(text1),
      m_text2(text2),
      m_switch(new RaSwitchButton(this))
{
    m_switch->setGeometry(QRect(QPoint(235, 15), QPoint(294, 44)));
    m_switch->setButtonStyle(RaSwitchButton::ButtonStyle_Round);
    m_switch->setBgColor(QColor(30, 33, 41), QColor(248, 129, 133));
    m_switch->setSliderColor(QColor(100, 100, 100), QColor(Qt::white));
    m_switch->setAccessibleName(text1.isEmpty() ? text2 : text1);
}

RaSwitchWidget::~RaSwitchWidget() {}

void RaSwitchWidget::keyUp() {}

QSize RaSwitchWidget::sizeHint() const
{
    return QSize(320, 60);
}

void RaSwitchWidget::resizeEvent(QResizeEvent* event)
{
    RaBaseWidget::resizeEvent(event);
    const QRect all(QPoint(TextLeft, 0), QPoint(TextRight, height() - 1));
    const bool two = !m_text1.isEmpty() && !m_text2.isEmpty();
    const int upper = height() * 55 / 100;
    m_text1Rect = two ? QRect(all.left(), height() / 10, all.width(), upper - height() / 10) : all;
    m_text2Rect = two ? QRect(all.left(), upper, all.width(), height() - height() / 10 - upper) : all;
}

void RaSwitchWidget::paintEvent(QPaintEvent*)
{
    QPainter painter(this);
    painter.fillRect(rect(), RaTheme::background());
    painter.fillRect(rect().adjusted(0, 0, 0, -1), QColor(QLatin1String("#363636"))); // a line parts the rows
    drawText(&painter, m_text1Rect, 18, RaTheme::text(), m_text1);
    drawText(&painter, m_text2Rect, 13, RaTheme::secondaryText(), m_text2);
}
