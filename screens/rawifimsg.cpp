// SPDX-FileCopyrightText: 2026 The rawificontrol authors
// SPDX-License-Identifier: MIT
#include "rawifimsg.h"

#include <QPainter>
#include <QTextOption>

namespace {

const int SideMargin = 8;

} // namespace

RaWifiMsg::RaWifiMsg(QWidget* parent) : RaBaseWidget(nullptr)
{
    Q_UNUSED(parent);
    setWindowFlags(Qt::FramelessWindowHint);
}

RaWifiMsg::~RaWifiMsg() {}

void RaWifiMsg::paintEvent(QPaintEvent*)
{
    if (accessibleName() != m_text) {
        setAccessibleName(m_text); // the owner sets the text without a call, so it is seen here first
    }
    QPainter painter(this);
    painter.setRenderHint(QPainter::Antialiasing);
    painter.setPen(Qt::black);
    painter.setBrush(Qt::SolidPattern);
    painter.drawRect(rect());

    QFont textFont = font();
    textFont.setPixelSize(14);
    painter.setFont(textFont);
    painter.setPen(Qt::white);
    QTextOption layout(Qt::AlignCenter);
    layout.setWrapMode(QTextOption::WrapAtWordBoundaryOrAnywhere);
    painter.drawText(QRectF(rect().adjusted(SideMargin, 0, -SideMargin, 0)), m_text, layout);
}
