// SPDX-FileCopyrightText: 2026 The rawificontrol authors
// SPDX-License-Identifier: MIT
#ifndef RAWIFICTL_EXITSTATUS_H
#define RAWIFICTL_EXITSTATUS_H

/** What the program ends with; part of its interface. */
enum ExitStatus {
    Done = 0,
    Failed = 1,
    WrongUsage = 2,
    NotFound = 3, ///< no access point in reach, no such saved network, no link
};

#endif
