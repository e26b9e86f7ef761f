// SPDX-FileCopyrightText: 2026 The rawificontrol authors
// SPDX-License-Identifier: MIT
#ifndef RAWIFI_SCRIPTMARKER_H
#define RAWIFI_SCRIPTMARKER_H

#include "devicepaths.h"

#include <cstdio>

/** Before a script: takes away the marker that a scan leaves behind, which would vouch for this script's end. */
inline void dropStaleMarker()
{
    std::remove(devicepaths::scriptMarker);
}

#endif
