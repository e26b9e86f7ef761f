// SPDX-FileCopyrightText: 2026 The rawificontrol authors
// SPDX-License-Identifier: MIT
#ifndef RAWIFI_STEPPEDWORKERS_H
#define RAWIFI_STEPPEDWORKERS_H

#include "latch.h"

#include <QByteArray>
#include <QTimer>
#include <functional>
#include <memory>
#include <mutex>

/**
 * Stops a manager's workers before each of their commands and waits, until the test lets them go on: so a schedule of
 * the test's own decides how far each has come when something else happens. Sees whether two were at work at once.
 *
 * GUI thread, one at a time, made while no worker runs. Takes the hooks of fakesystem, and pthread_create(3), to know
 * which threads there are.
 */
class SteppedWorkers
{
public:
    enum Side { Worker, DhcpStage };

    SteppedWorkers();
    ~SteppedWorkers();
    SteppedWorkers(const SteppedWorkers&) = delete;
    SteppedWorkers& operator=(const SteppedWorkers&) = delete;

    /** From now on workers stop. To be called again after each fakesystem::reset(). */
    void begin();

    bool isAnyAlive() const;
    /** Whether a worker that has stopped is to go on. */
    bool stands(Side side) const;
    /** Lets a worker that has stopped go on to its next command or wait. False when none has stopped. */
    bool letGo(Side side);
    /** Handles events until every worker there is has stopped. False when one has not within 20 seconds. */
    bool settle();
    /** Handles events until every worker has ended; from now on none is stopped. False as above. */
    bool finish();

    /** The first thing that two workers have done at the same time; empty when none. */
    QByteArray collision() const;
    /** The commands and waits of all workers so far. */
    int pointCount() const;

private:
    struct Visit;

    void stopAt(const QByteArray& entry);
    void watch(Side side, int number, const QByteArray& entry);
    bool untilTrue(const std::function<bool()>& isTrue);

    QTimer m_clock;
    mutable std::mutex m_mutex;
    bool m_isStopping = false;
    std::shared_ptr<Latch> m_gates[2]; ///< that of the worker that stands there
    int m_workers = 0;                 ///< that have been seen so far
    int m_scriptsBy = 0;               ///< the last of them that has run a script
    int m_points = 0;
    QByteArray m_collision;
};

#endif
