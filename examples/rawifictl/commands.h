// SPDX-FileCopyrightText: 2026 The rawificontrol authors
// SPDX-License-Identifier: MIT
#ifndef RAWIFICTL_COMMANDS_H
#define RAWIFICTL_COMMANDS_H

#include "output.h"

/** What a join needs beyond what the scan tells. */
struct JoinRequest
{
    QByteArray network;      ///< name or BSSID
    QByteArray password;     ///< empty: the saved one, or none
    bool sharedAuth = false; ///< WEP: shared instead of open authentication
    int keyIndex = 0;        ///< WEP: 0 to 3
};

// Each returns the program's exit status: 0 done, 1 not.
int scanCommand(Output& output);
int joinCommand(Output& output, const JoinRequest& request);
int statusCommand(Output& output);
int savedCommand(Output& output);
int forgetCommand(Output& output, const QByteArray& network);
/** Watches the link until it is lost, or for \a polls polls (0: no limit) every \a interval milliseconds. */
int monitorCommand(Output& output, int interval, int polls);

#endif
