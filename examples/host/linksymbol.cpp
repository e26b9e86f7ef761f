// SPDX-FileCopyrightText: 2026 The rawificontrol authors
// SPDX-License-Identifier: MIT
#include "linksymbol.h"

#include <QPainter>

namespace {

const int levels = 4; // a dot and three arcs
const int ringPitch = 28;
const int lineWidth = 11;
const QColor lit(248, 129, 133);
const QColor dark(54, 58, 68);

} // namespace

LinkSymbol::LinkSymbol(QWidget* parent) : QWidget(parent)
{
    setFixedSize(160, 120);
}

void LinkSymbol::setLevel(int level)
{
    if (level != m_level) {
        m_level = level;
        update();
    }
}

void LinkSymbol::paintEvent(QPaintEvent*)
{
    QPainter painter(this);
    painter.setRenderHint(QPainter::Antialiasing);
    const QPointF centre(width() / 2.0, height() - 14.0);
    for (int ring = 0; ring < levels; ++ring) {
        const QColor colour = ring < m_level ? lit : dark;
        if (ring == 0) {
            painter.setPen(Qt::NoPen);
            painter.setBrush(colour);
            painter.drawEllipse(centre, lineWidth * 0.8, lineWidth * 0.8);
            continue;
        }
        const qreal radius = ring * ringPitch + 4;
        painter.setPen(QPen(colour, lineWidth, Qt::SolidLine, Qt::RoundCap));
        painter.drawArc(QRectF(centre.x() - radius, centre.y() - radius, 2 * radius, 2 * radius), 45 * 16, 90 * 16);
    }
}
