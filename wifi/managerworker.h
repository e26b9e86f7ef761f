// SPDX-FileCopyrightText: 2026 The rawificontrol authors
// SPDX-License-Identifier: MIT
#ifndef RAWIFI_MANAGERWORKER_H
#define RAWIFI_MANAGERWORKER_H

#include <atomic>

class RaWifiManager;

/**
 * The one worker of the process: scanning or joining, each start cancelling the worker before it. GUI thread, unless
 * said otherwise.
 */
namespace managerworker {

/** False when the system gives no thread; then no worker is left. */
bool startScan(RaWifiManager* manager);

/** The same for joining; the network and the manager are those of g_PassParam. */
bool startConnect();

/** The page no longer waits for the scan that may be running: its end is not announced. */
void dropScan();

/**
 * For a worker itself: whether another one has been started since, or its scan dropped. The mark lives as long as
 * the worker. Null on any other thread.
 */
const std::atomic<bool>* outdatedMark();

/** Returns once no worker runs. */
void cancelAndWait();

} // namespace managerworker

#endif
