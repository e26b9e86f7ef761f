// SPDX-FileCopyrightText: 2026 The rawificontrol authors
// SPDX-License-Identifier: MIT
#include "commands.h"
#include "statuswatch.h"
#include "stopsignals.h"

#include <rawificontrol.h>

#include <QCoreApplication>

namespace {

const int watchInterval = 2000; // ms

} // namespace

int statusCommand(Output& output, const Arguments& arguments)
{
    if (arguments.has("--watch")) {
        StatusWatch watch(output, arguments.interval > 0 ? arguments.interval : watchInterval);
        const StopSignals stop;
        return QCoreApplication::exec();
    }
    const LinkStatus status = readLinkStatus();
    output.document(describe(status));
    if (!status.known) {
        output.error(QLatin1String("the supplicant does not answer"));
        return Failed;
    }
    output.line(QLatin1String("state    ")
                + output.painted(status.connected ? Output::Green : Output::Yellow, visible(status.state.toUtf8())));
    if (!status.connected) {
        return NotFound;
    }
    output.line(QLatin1String("network  ") + visible(status.name));
    output.line(QLatin1String("bssid    ") + visible(status.bssid.toUtf8()));
    output.line(QLatin1String("address  ") + visible(status.address.toUtf8()));
    return Done;
}
