// SPDX-FileCopyrightText: 2026 The rawificontrol authors
// SPDX-License-Identifier: MIT
#include "raicons.h"

#include "ratheme.h"

#include <QPainter>
#include <QPainterPath>

namespace {

/** The painter set up for a drawing on a square of 24 units centred in an area, with 2 units of air on each
   side; put back at the end of life. */
class IconCanvas
{
public:
    IconCanvas(QPainter* painter, const QRectF& area) : m_painter(painter)
    {
        const qreal side = qMin(area.width(), area.height());
        painter->save();
        painter->setRenderHint(QPainter::Antialiasing);
        painter->translate(area.center());
        painter->scale(side / 28.0, side / 28.0);
        stroke(2);
    }
    ~IconCanvas() { m_painter->restore(); }

    void stroke(qreal width)
    {
        m_painter->setPen(QPen(RaTheme::text(), width, Qt::SolidLine, Qt::RoundCap, Qt::RoundJoin));
        m_painter->setBrush(Qt::NoBrush);
    }
    void fill()
    {
        m_painter->setPen(Qt::NoPen);
        m_painter->setBrush(RaTheme::text());
    }

private:
    Q_DISABLE_COPY(IconCanvas)
    QPainter* m_painter;
};

} // namespace

void raDrawBackMark(QPainter* painter, const QRectF& area)
{
    IconCanvas canvas(painter, area);
    canvas.stroke(2.75);
    const QPointF chevron[] = {QPointF(3, -7.5), QPointF(-4.5, 0), QPointF(3, 7.5)};
    painter->drawPolyline(chevron, 3);
}

void raDrawLoudspeaker(QPainter* painter, const QRectF& area, int waves)
{
    IconCanvas canvas(painter, area);
    const qreal left = waves > 0 ? -10 : -6;
    QPainterPath body;
    body.moveTo(left, -3);
    body.lineTo(left + 4, -3);
    body.lineTo(left + 9, -7.5);
    body.lineTo(left + 9, 7.5);
    body.lineTo(left + 4, 3);
    body.lineTo(left, 3);
    body.closeSubpath();
    canvas.stroke(1.5);
    painter->setBrush(RaTheme::text());
    painter->drawPath(body);

    canvas.stroke(2);
    for (int wave = 0; wave < waves; ++wave) {
        const qreal radius = 4 + 4 * wave;
        painter->drawArc(QRectF(left + 10 - radius, -radius, 2 * radius, 2 * radius), -50 * 16, 100 * 16);
    }
}

void raDrawSun(QPainter* painter, const QRectF& area, double strength)
{
    IconCanvas canvas(painter, area);
    const qreal disc = 3.25 + 1.25 * strength;
    const qreal rayStart = disc + 2.75;
    const qreal rayEnd = rayStart + 0.25 + 3 * strength;
    canvas.fill();
    painter->drawEllipse(QPointF(0, 0), disc, disc);
    canvas.stroke(2);
    for (int ray = 0; ray < 8; ++ray) {
        painter->drawLine(QPointF(rayStart, 0), QPointF(rayEnd, 0));
        painter->rotate(45);
    }
}
