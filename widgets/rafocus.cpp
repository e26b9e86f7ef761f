// SPDX-FileCopyrightText: 2026 The rawificontrol authors
// SPDX-License-Identifier: MIT
#include "rafocus.h"

#include "ratheme.h"

#include <QKeyEvent>
#include <QPainter>
#include <QWidget>

bool raIsActivation(const QKeyEvent* event)
{
    if (event->isAutoRepeat()) {
        return false;
    }
    switch (event->key()) {
    case Qt::Key_Space:
    case Qt::Key_Return:
    case Qt::Key_Enter:
    case Qt::Key_Select:
        return true;
    default:
        return false;
    }
}

bool raShowsFocus(const QWidget* widget)
{
    return widget->hasFocus() && widget->window()->testAttribute(Qt::WA_KeyboardFocusChange);
}

void raDrawFocusMark(QPainter* painter, const QRectF& area, double radius)
{
    painter->save();
    painter->setRenderHint(QPainter::Antialiasing);
    painter->setBrush(Qt::NoBrush);
    painter->setPen(QPen(RaTheme::background(), 3.5));
    painter->drawRoundedRect(area.adjusted(1.75, 1.75, -1.75, -1.75), radius - 1.75, radius - 1.75);
    painter->setPen(QPen(RaTheme::text(), 2));
    painter->drawRoundedRect(area.adjusted(1, 1, -1, -1), radius - 1, radius - 1);
    painter->restore();
}
