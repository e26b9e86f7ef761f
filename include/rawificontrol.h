// SPDX-FileCopyrightText: 2026 The rawificontrol authors
// SPDX-License-Identifier: MIT
#ifndef RAWIFICONTROL_H
#define RAWIFICONTROL_H

// The umbrella: every public class, record, function and global of the library.

#include "raglobalfun.h"
#include "ravirtualkeyboard.h"
#include "ravirtualkeyboard_btn.h"
#include "rawifidata.h"
#include "rawifiglobals.h"
#include "rawifimonitor.h"
#include "rawifirecords.h"
#include "rawifiservice.h"

#include <QCopChannel>

#endif
