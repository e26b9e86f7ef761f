// SPDX-FileCopyrightText: 2026 The rawificontrol authors
// SPDX-License-Identifier: MIT
#ifndef RAWIFI_SCREENFONTS_H
#define RAWIFI_SCREENFONTS_H

#include <QFont>

// GUI thread only.

/** The host's font; the application's as long as the host has not given one. */
QFont screenFont();
/** The same in another size. */
QFont screenFont(int pixels);

/** The font of the password page: the device's own where it has one, else the screen font. */
QFont passwordPageFont();

#endif
