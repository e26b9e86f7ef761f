// SPDX-FileCopyrightText: 2026 The rawificontrol authors
// SPDX-License-Identifier: MIT
#ifndef RAWIFI_FIGURE_H
#define RAWIFI_FIGURE_H

#include <algorithm>
#include <chrono>
#include <cstdio>
#include <vector>

/** Median time of one call of \a work in nanoseconds, over \a rounds calls after one that warms up. */
template<typename Work>
double medianNanoseconds(int rounds, Work work)
{
    work();
    std::vector<double> times;
    for (int i = 0; i < rounds; ++i) {
        const auto start = std::chrono::steady_clock::now();
        work();
        times.push_back(std::chrono::duration<double, std::nano>(std::chrono::steady_clock::now() - start).count());
    }
    std::nth_element(times.begin(), times.begin() + rounds / 2, times.end());
    return times[static_cast<std::size_t>(rounds / 2)];
}

/** Prints one figure beside its limit. */
inline void printFigure(const char* what, double value, double limit, const char* unit)
{
    std::printf("%-66s %10.3f %s (limit %.3f)%s\n", what, value, unit, limit, value > limit ? "  OVER THE LIMIT" : "");
}

#endif
