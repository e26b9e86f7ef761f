// SPDX-FileCopyrightText: 2026 The rawificontrol authors
// SPDX-License-Identifier: MIT
#include "racirclewait.h"

#include <QPainter>
#include <QTimer>

namespace {

const int Interval = 100;
const double DesignSize = 140.0;
const int Dots = 11; // the last one lies on the first, which is invisible
const int DotAngle = 36;

} // namespace

RaCircleWait::RaCircleWait(QWidget* parent) : RaBaseWidget(nullptr), m_color(Qt::black), m_timer(new QTimer)
{
    Q_UNUSED(parent);
    setWindowFlags(Qt::FramelessWindowHint);
    setAccessibleName(tr("Please wait"));
    connect(m_timer, SIGNAL(timeout()), this, SLOT(update()));
    m_timer->start(Interval);
}

RaCircleWait::~RaCircleWait()
{
    delete m_timer;
}

void RaCircleWait::setColor(QColor color)
{
    if (m_color != color) {
        m_color = color;
        update();
    }
}

void RaCircleWait::setClockwiseRotate(bool clockwise)
{
    if (m_clockwise != clockwise) {
        m_clockwise = clockwise;
        update();
    }
}

void RaCircleWait::setRotateDelta(int delta)
{
    if (m_rotateDelta != delta) {
        m_rotateDelta = delta;
        update();
    }
}

void RaCircleWait::paintEvent(QPaintEvent*)
{
    QPainter painter(this);
    painter.setRenderHint(QPainter::Antialiasing);
    painter.setPen(Qt::black);
    painter.setBrush(Qt::SolidPattern);
    painter.drawRect(rect());
    painter.translate(width() / 2, height() / 2);
    const double scale = qMin(width(), height()) / DesignSize;
    painter.scale(scale, scale);
    painter.rotate(m_rotateAngle);
    drawRaCircleWait(painter);

    // The step is brought below a turn first, so that no step, however large, overflows the sum.
    const int step = m_rotateDelta % 360;
    m_rotateAngle = (m_clockwise ? m_rotateAngle + step : m_rotateAngle - step) % 360;
}

void RaCircleWait::drawRaCircleWait(QPainter& painter)
{
    painter.save();
    painter.setPen(Qt::NoPen);
    QColor color = m_color;
    for (int i = 0; i < Dots; ++i) {
        color.setAlphaF(i / 10.0);
        painter.setBrush(color);
        painter.drawEllipse(30, -10, 20, 20);
        painter.rotate(DotAngle);
    }
    painter.restore();
}
