// SPDX-FileCopyrightText: 2026 The rawificontrol authors
// SPDX-License-Identifier: MIT
#ifndef RAWIFI_KEYGLYPH_H
#define RAWIFI_KEYGLYPH_H

class QColor;
class QPainter;
class QRectF;

/** A drawing that a key shows when it has neither a text nor a picture to show. */
enum class RaKeyGlyph { None, Shift, Backspace, Space, NextPage };

/** Draws \a glyph in \a color in the middle of \a area; no glyph is wider than 26 or higher than 20 pixels.
 */
void raPaintKeyGlyph(QPainter* painter, RaKeyGlyph glyph, const QRectF& area, const QColor& color);

#endif
