// SPDX-FileCopyrightText: 2026 The rawificontrol authors
// SPDX-License-Identifier: MIT
#ifndef RAWIFICTL_PASSWORD_H
#define RAWIFICTL_PASSWORD_H

#include <QByteArray>

/** The first line of standard input, at most 255 bytes of it. */
QByteArray lineFromInput();

/** Asks on the terminal, without echo. Empty without a terminal. */
QByteArray askPassword();

#endif
