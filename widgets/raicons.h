// SPDX-FileCopyrightText: 2026 The rawificontrol authors
// SPDX-License-Identifier: MIT
#ifndef RAWIFI_RAICONS_H
#define RAWIFI_RAICONS_H

class QPainter;
class QRectF;

// Drawings in white that stand in where a picture is missing. Each is centred in its area and scales with it.

void raDrawBackMark(QPainter* painter, const QRectF& area);
/** A loudspeaker with \a waves sound waves, 0 to 2. */
void raDrawLoudspeaker(QPainter* painter, const QRectF& area, int waves);
/** A sun whose disc and rays grow with \a strength, 0 to 1. */
void raDrawSun(QPainter* painter, const QRectF& area, double strength);

#endif
