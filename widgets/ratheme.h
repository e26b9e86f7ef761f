// SPDX-FileCopyrightText: 2026 The rawificontrol authors
// SPDX-License-Identifier: MIT
#ifndef RAWIFI_RATHEME_H
#define RAWIFI_RATHEME_H

#include <QColor>

/** The colours that all pages share. */
namespace RaTheme {

inline QColor background()
{
    return QColor(0x1e, 0x21, 0x29);
}
inline QColor row()
{
    return QColor(54, 54, 54);
}
inline QColor separator()
{
    return QColor(74, 74, 74);
}
inline QColor accent()
{
    return QColor(248, 129, 133);
}
inline QColor text()
{
    return QColor(255, 255, 255);
}
inline QColor secondaryText()
{
    return QColor(0xbd, 0xc8, 0xe2);
}

} // namespace RaTheme

#endif
