// SPDX-FileCopyrightText: 2026 The rawificontrol authors
// SPDX-License-Identifier: MIT
#ifndef RAWIFICTL_STOPSIGNALS_H
#define RAWIFICTL_STOPSIGNALS_H

#include "signalpipe.h"

#include <QSocketNotifier>

/** As long as it lives, SIGINT, SIGTERM and SIGHUP end the event loop with 0. One at a time. */
class StopSignals
{
public:
    StopSignals();

private:
    SignalPipe m_pipe;
    QSocketNotifier m_notifier;
};

#endif
