// SPDX-FileCopyrightText: 2026 The rawificontrol authors
// SPDX-License-Identifier: MIT
#include "signalpipe.h"

#include <csignal>
#include <cstdio>
#include <cstdlib>
#include <fcntl.h>
#include <unistd.h>

namespace {

const int stopping[] = {SIGINT, SIGTERM, SIGHUP, SIGQUIT};

int pipeEnds[2] = {-1, -1};
volatile std::sig_atomic_t last = 0;

void note(int signal)
{
    last = signal;
    const char byte = 0;
    if (write(pipeEnds[1], &byte, 1) < 0) {
        return; // full: it is readable already
    }
}

void handleBy(void (*handler)(int))
{
    for (const int signal : stopping) {
        std::signal(signal, handler);
    }
}

} // namespace

SignalPipe::SignalPipe()
{
    if (pipe2(pipeEnds, O_CLOEXEC | O_NONBLOCK) != 0) {
        std::perror("rawifictl: pipe");
        std::exit(1);
    }
    last = 0;
    handleBy(note);
}

SignalPipe::~SignalPipe()
{
    handleBy(SIG_DFL);
    close(pipeEnds[0]);
    close(pipeEnds[1]);
}

int SignalPipe::descriptor() const
{
    return pipeEnds[0];
}

int SignalPipe::caught() const
{
    return last;
}
