// SPDX-FileCopyrightText: 2026 The rawificontrol authors
// SPDX-License-Identifier: MIT
#ifndef RAWIFI_FIGURE_H
#define RAWIFI_FIGURE_H

#include <algorithm>
#include <chrono>
#include <cstdio>
#include <vector>

/** Time of one call of \a work in nanoseconds. */
template<typename Work>
double onceNanoseconds(Work work)
{
    const auto start = std::chrono::steady_clock::now();
    work();
    return std::chrono::duration<double, std::nano>(std::chrono::steady_clock::now() - start).count();
}

/**
 * Median time of one call of \a work in nanoseconds, over \a rounds calls after one that warms up. After each call
 * \a tidy, which is not timed, makes room for the next.
 */
template<typename Work, typename Tidy>
double medianNanoseconds(int rounds, Work work, Tidy tidy)
{
    work();
    tidy();
    std::vector<double> times;
    for (int i = 0; i < rounds; ++i) {
        times.push_back(onceNanoseconds(work));
        tidy();
    }
    std::nth_element(times.begin(), times.begin() + rounds / 2, times.end());
    return times[static_cast<std::size_t>(rounds / 2)];
}

/** The same for what leaves nothing behind. */
template<typename Work>
double medianNanoseconds(int rounds, Work work)
{
    return medianNanoseconds(rounds, work, [] {});
}

/** Prints one figure beside its limit. */
inline void printFigure(const char* what, double value, double limit, const char* unit)
{
    std::printf("%-66s %10.3f %s (limit %.3f)%s\n", what, value, unit, limit, value > limit ? "  OVER THE LIMIT" : "");
}

#endif
