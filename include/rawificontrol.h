// SPDX-FileCopyrightText: 2026 The rawificontrol authors
// SPDX-License-Identifier: MIT
#ifndef RAWIFICONTROL_H
#define RAWIFICONTROL_H

// The umbrella: every public class, record, function and global of the library.

#include <QCopChannel>

#endif
