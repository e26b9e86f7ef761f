// SPDX-FileCopyrightText: 2026 The rawificontrol authors
// SPDX-License-Identifier: MIT
#ifndef RAWIFI_RAFOCUS_H
#define RAWIFI_RAFOCUS_H

class QKeyEvent;
class QPainter;
class QRectF;
class QWidget;

/** Whether \a event is the press of a key that works a control like a tap does: space, enter or select. */
bool raIsActivation(const QKeyEvent* event);

/** Whether \a widget has the focus and the user moves the focus by keys; a finger needs no focus mark. */
bool raShowsFocus(const QWidget* widget);

/** Draws the focus mark just inside \a area; it stands out on light and dark ground alike. */
void raDrawFocusMark(QPainter* painter, const QRectF& area, double radius);

#endif
