// SPDX-FileCopyrightText: 2026 The rawificontrol authors
// SPDX-License-Identifier: MIT
#ifndef RAWIFI_FITTEDTEXT_H
#define RAWIFI_FITTEDTEXT_H

#include <QFont>
#include <QString>

/** A line of text and the font in which it is not wider than its place. */
struct FittedText
{
    QString text;
    QFont font;
};

/** Makes \a font as large as \a width pixels allow, within both pixel sizes; only below the smallest it elides. */
FittedText fitText(const QString& text, QFont font, int width, int largest, int smallest);

#endif
