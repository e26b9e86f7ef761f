// SPDX-FileCopyrightText: 2026 The rawificontrol authors
// SPDX-License-Identifier: MIT

// What does a host with the page cost beyond a program of the same toolkit that shows nothing but a text, in time to the
// first paint and in memory? The programs are those of the directory "startup"; an empty one is there for comparison.

#include "figure.h"

#include <algorithm>
#include <cstdio>
#include <cstdlib>
#include <cstring>
#include <libgen.h>
#include <string>
#include <vector>

namespace {

const int rounds = 15;

struct Start
{
    double paintMs = 0;
    double memoryMib = 0;
};

// The library says things of its own on the way.
bool saysPainted(std::FILE* said)
{
    char line[256];
    while (std::fgets(line, sizeof line, said)) {
        if (std::strcmp(line, "painted\n") == 0) {
            return true;
        }
    }
    return false;
}

Start start(const std::string& program)
{
    Start result;
    std::FILE* said = nullptr;
    bool isPainted = false;
    result.paintMs = onceNanoseconds([&] {
                         said = popen(("exec " + program).c_str(), "r");
                         isPainted = said && saysPainted(said);
                     })
                     / 1e6;
    long kibibytes = 0;
    if (!isPainted || std::fscanf(said, "%ld", &kibibytes) != 1 || pclose(said) != 0) {
        std::fprintf(stderr, "%s does not say what it should\n", program.c_str());
        std::exit(1);
    }
    result.memoryMib = static_cast<double>(kibibytes) / 1024;
    return result;
}

double median(std::vector<double> values)
{
    std::nth_element(values.begin(), values.begin() + rounds / 2, values.end());
    return values[rounds / 2];
}

struct Starts
{
    std::vector<double> paints;
    std::vector<double> memories;

    void add(const Start& one)
    {
        paints.push_back(one.paintMs);
        memories.push_back(one.memoryMib);
    }
};

} // namespace

int main(int, char** argv)
{
    setenv("QT_QPA_PLATFORM", "offscreen", 0);
    const std::string here = dirname(argv[0]);
    const char* const names[] = {"empty", "text", "page"};
    Starts starts[3];
    for (int round = -1; round < rounds; ++round) {
        for (int i = 0; i < 3; ++i) {
            const Start one = start(here + "/startup_" + names[i]);
            if (round >= 0) { // everything is in the system's cache by then
                starts[i].add(one);
            }
        }
    }
    double paint[3];
    double memory[3];
    for (int i = 0; i < 3; ++i) {
        paint[i] = median(starts[i].paints);
        memory[i] = median(starts[i].memories);
        std::printf("%-5s first paint after %.1f ms, memory %.2f MiB\n", names[i], paint[i], memory[i]);
    }
    printFigure("first paint with the page open, of a program's with a text", paint[2] / paint[1], 1.3, "times");
    printFigure("memory with 50 networks and the keyboard, beyond a text", memory[2] - memory[1], 6.0, "MiB");
    return 0;
}
