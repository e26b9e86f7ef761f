// SPDX-FileCopyrightText: 2026 The rawificontrol authors
// SPDX-License-Identifier: MIT
#include "stopsignals.h"

#include <QCoreApplication>

StopSignals::StopSignals() : m_notifier(m_pipe.descriptor(), QSocketNotifier::Read)
{
    QObject::connect(&m_notifier, SIGNAL(activated(int)), QCoreApplication::instance(), SLOT(quit()));
}
