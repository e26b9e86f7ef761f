// SPDX-FileCopyrightText: 2026 The rawificontrol authors
// SPDX-License-Identifier: MIT
#ifndef RAWIFICTL_COMMANDS_H
#define RAWIFICTL_COMMANDS_H

#include "arguments.h"
#include "output.h"

int scanCommand(Output& output, const Arguments& arguments);
int joinCommand(Output& output, const Arguments& arguments);
int statusCommand(Output& output, const Arguments& arguments);
int savedCommand(Output& output, const Arguments& arguments);
int forgetCommand(Output& output, const Arguments& arguments);
/** Watches the link until it is lost, for the polls that were asked for, or until a signal. */
int monitorCommand(Output& output, const Arguments& arguments);
/** Says what the device lacks, and what to do about it. */
int doctorCommand(Output& output, const Arguments& arguments);

#endif
