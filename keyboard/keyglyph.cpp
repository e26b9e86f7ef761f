// SPDX-FileCopyrightText: 2026 The rawificontrol authors
// SPDX-License-Identifier: MIT
#include "keyglyph.h"

#include <QPainter>
#include <QPainterPath>
#include <QPolygonF>

namespace {

// The middle of every outline is the origin.
QPainterPath outline(RaKeyGlyph glyph)
{
    QPainterPath path;
    switch (glyph) {
    case RaKeyGlyph::None:
        break;
    case RaKeyGlyph::Shift: {
        QPolygonF arrow;
        arrow << QPointF(0, -9) << QPointF(9, 0) << QPointF(4, 0) << QPointF(4, 8) << QPointF(-4, 8) << QPointF(-4, 0)
              << QPointF(-9, 0);
        path.addPolygon(arrow);
        path.closeSubpath();
        break;
    }
    case RaKeyGlyph::Backspace: {
        QPolygonF tag;
        tag << QPointF(-11, 0) << QPointF(-4, -7) << QPointF(10, -7) << QPointF(10, 7) << QPointF(-4, 7);
        path.addPolygon(tag);
        path.closeSubpath();
        path.moveTo(0, -3);
        path.lineTo(6, 3);
        path.moveTo(6, -3);
        path.lineTo(0, 3);
        break;
    }
    case RaKeyGlyph::Space:
        path.moveTo(-12, 0);
        path.lineTo(-12, 5);
        path.lineTo(12, 5);
        path.lineTo(12, 0);
        break;
    case RaKeyGlyph::NextPage:
        path.moveTo(-10, 0);
        path.lineTo(10, 0);
        path.moveTo(3, -7);
        path.lineTo(10, 0);
        path.lineTo(3, 7);
        break;
    }
    return path;
}

} // namespace

void raPaintKeyGlyph(QPainter* painter, RaKeyGlyph glyph, const QRectF& area, const QColor& color)
{
    painter->save();
    painter->setRenderHint(QPainter::Antialiasing);
    painter->setPen(QPen(color, 2, Qt::SolidLine, Qt::RoundCap, Qt::RoundJoin));
    painter->setBrush(Qt::NoBrush);
    painter->translate(area.center());
    painter->drawPath(outline(glyph));
    painter->restore();
}
