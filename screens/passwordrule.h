// SPDX-FileCopyrightText: 2026 The rawificontrol authors
// SPDX-License-Identifier: MIT
#ifndef RAWIFI_PASSWORDRULE_H
#define RAWIFI_PASSWORDRULE_H

#include "rawifirecords.h"

#include <QString>

/**
 * Why \a password cannot be the one of \a network, as a tip for the user; empty when it can. A password is printable
 * Latin-1 text of up to 199 characters; for WPA up to 63, or 64 hexadecimal digits. None is too short.
 */
QString passwordObjection(const APData& network, const QString& password);

#endif
