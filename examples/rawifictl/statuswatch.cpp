// SPDX-FileCopyrightText: 2026 The rawificontrol authors
// SPDX-License-Identifier: MIT
#include "statuswatch.h"

namespace {

QString inWords(const Output& output, const LinkStatus& status)
{
    if (!status.known) {
        return output.painted(Output::Red, QLatin1String("the supplicant does not answer"));
    }
    if (!status.connected) {
        return output.painted(Output::Yellow, visible(status.state.toUtf8()));
    }
    return output.painted(Output::Green, visible(status.state.toUtf8())) + QLatin1String("  ")
           + visible(status.bssid.toUtf8()) + QLatin1String("  ") + visible(status.address.toUtf8())
           + QLatin1String("  ") + visible(status.name);
}

} // namespace

StatusWatch::StatusWatch(Output& output, int interval) : m_output(output)
{
    m_timer.setInterval(interval);
    m_timer.setSingleShot(true); // counts from the end of a look, however long that takes
    connect(&m_timer, SIGNAL(timeout()), this, SLOT(look()));
    look();
}

void StatusWatch::look()
{
    const LinkStatus status = readLinkStatus();
    const QJsonObject description = describe(status);
    if (description != m_shown) {
        m_shown = description;
        m_output.document(description);
        m_output.line(inWords(m_output, status));
    }
    m_timer.start();
}
