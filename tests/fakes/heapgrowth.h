// SPDX-FileCopyrightText: 2026 The rawificontrol authors
// SPDX-License-Identifier: MIT
#ifndef RAWIFI_HEAPGROWTH_H
#define RAWIFI_HEAPGROWTH_H

#include "capturedoutput.h"

#include <QCoreApplication>
#include <algorithm>
#include <limits>
#include <malloc.h>

/** Less than the smallest object for each of the 1000 times; the toolkit's caches come and go below it. */
const long HeapNoise = 48 * 1024;

/**
 * By how many bytes the heap grows while \a work runs 1000 times, after 50 times for what is kept for good. What
 * other threads take counts only in one arena without caches: GLIBC_TUNABLES=glibc.malloc.arena_max=1 and
 * glibc.malloc.tcache_count=0. A sanitizer has a heap of its own: 0 then, and the leak sanitizer judges when the process
 * ends.
 */
template<typename Work>
long heapGrowth(Work work)
{
    const auto repeat = [&work](int times) {
        for (int i = 0; i < times; ++i) {
            work();
            QCoreApplication::processEvents();
        }
    };
    long growth = 0;
    capturedOutput(stderr, [&] {
        repeat(50);
#if defined(__SANITIZE_ADDRESS__) || defined(__SANITIZE_THREAD__)
        repeat(1000);
#else
        growth = std::numeric_limits<long>::max();
        for (int round = 0; round < 3; ++round) { // a cache of the toolkit grows now and then, a leak every time
            const size_t before = mallinfo2().uordblks;
            repeat(1000);
            growth = std::min(growth, static_cast<long>(mallinfo2().uordblks) - static_cast<long>(before));
            if (growth < HeapNoise) {
                break;
            }
        }
#endif
    });
    return growth;
}

#endif
