// SPDX-FileCopyrightText: 2026 The rawificontrol authors
// SPDX-License-Identifier: MIT
#ifndef RAWIFICTL_NETWORKS_H
#define RAWIFICTL_NETWORKS_H

#include "output.h"

#include <rawificontrol.h>

/** Whether \a network, a name or a BSSID, means \a ap. */
bool isCalled(const APData& ap, const QByteArray& network);

QJsonObject describe(const APData& ap);
/** The same as a row of a table, for a person. */
QString tableRow(const Output& output, const APData& ap);

#endif
