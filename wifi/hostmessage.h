// SPDX-FileCopyrightText: 2026 The rawificontrol authors
// SPDX-License-Identifier: MIT
#ifndef RAWIFI_HOSTMESSAGE_H
#define RAWIFI_HOSTMESSAGE_H

class QString;

/** Sends one payload to the host. The data are the text's bytes alone, although the message names a QString. */
void sendToMainProcess(const QString& payload);

#endif
