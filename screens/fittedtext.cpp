// SPDX-FileCopyrightText: 2026 The rawificontrol authors
// SPDX-License-Identifier: MIT
#include "fittedtext.h"

#include "qtcompat.h"

FittedText fitText(const QString& text, QFont font, int width, int largest, int smallest)
{
    for (int pixels = largest; pixels >= smallest; --pixels) {
        font.setPixelSize(pixels);
        if (raTextWidth(QFontMetrics(font), text) <= width) {
            return {text, font};
        }
    }
    return {QFontMetrics(font).elidedText(text, Qt::ElideRight, width), font};
}
