// SPDX-FileCopyrightText: 2026 The rawificontrol authors
// SPDX-License-Identifier: MIT
#ifndef RAWIFI_HEAPGROWTH_H
#define RAWIFI_HEAPGROWTH_H

#include "capturedoutput.h"

#include <QCoreApplication>
#include <algorithm>
#include <cstddef>
#include <limits>
#if defined(__SANITIZE_ADDRESS__) || defined(__SANITIZE_THREAD__)
extern "C" std::size_t __sanitizer_get_current_allocated_bytes(); // their heap is one of their own
#else
#    include <malloc.h>
#endif

/**
 * Less than the smallest piece of the C library's heap on 64 bits (32 bytes) for each of the 1000 times; the toolkit's
 * caches come and go below it. A sanitizer counts what was asked for: there, smaller objects are for its leak check.
 */
const long HeapNoise = 32 * 1000;

inline long heapInUse()
{
#if defined(__SANITIZE_ADDRESS__) || defined(__SANITIZE_THREAD__)
    return static_cast<long>(__sanitizer_get_current_allocated_bytes());
#else
    return static_cast<long>(mallinfo2().uordblks);
#endif
}

/**
 * By how many bytes the heap grows while \a work runs 1000 times, after 50 times for what is kept for good. What
 * other threads take counts only in one arena without caches: GLIBC_TUNABLES=glibc.malloc.arena_max=1 and
 * glibc.malloc.tcache_count=0.
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
    long growth = std::numeric_limits<long>::max();
    capturedOutput(stderr, [&] {
        repeat(50);
        for (int round = 0; round < 3; ++round) { // a cache of the toolkit grows now and then, a leak every time
            const long before = heapInUse();
            repeat(1000);
            growth = std::min(growth, heapInUse() - before);
            if (growth < HeapNoise) {
                break;
            }
        }
    });
    return growth;
}

#endif
