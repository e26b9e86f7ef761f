// SPDX-FileCopyrightText: 2026 The rawificontrol authors
// SPDX-License-Identifier: MIT
#include "password.h"

#include "signalpipe.h"

#include <csignal>
#include <cstdio>
#include <fcntl.h>
#include <poll.h>
#include <termios.h>
#include <unistd.h>

namespace {

QByteArray firstLine(int descriptor)
{
    char line[256];
    std::size_t length = 0;
    while (length < sizeof line - 1 && read(descriptor, line + length, 1) == 1 && line[length] != '\n') {
        ++length;
    }
    return QByteArray(line, static_cast<int>(length));
}

/** Ends without a line when a signal comes. */
QByteArray lineWithoutEcho(int terminal, const termios& usual, const SignalPipe& signals)
{
    termios silent = usual;
    silent.c_lflag &= ~static_cast<tcflag_t>(ECHO);
    tcsetattr(terminal, TCSAFLUSH, &silent);
    dprintf(terminal, "Password: ");
    pollfd sources[] = {{terminal, POLLIN, 0}, {signals.descriptor(), POLLIN, 0}};
    while (poll(sources, 2, -1) < 0) { // a handler has run: the pipe tells
    }
    const QByteArray line = signals.caught() == 0 ? firstLine(terminal) : QByteArray();
    tcsetattr(terminal, TCSAFLUSH, &usual);
    dprintf(terminal, "\n");
    return line;
}

} // namespace

QByteArray lineFromInput()
{
    return firstLine(STDIN_FILENO);
}

QByteArray askPassword()
{
    const int terminal = open("/dev/tty", O_RDWR | O_NOCTTY | O_CLOEXEC);
    termios usual;
    if (terminal < 0 || tcgetattr(terminal, &usual) != 0) {
        return QByteArray();
    }
    int caught = 0;
    QByteArray password;
    void (*const suspending)(int) = std::signal(SIGTSTP, SIG_IGN); // or the shell would get a terminal without echo
    {
        const SignalPipe signals;
        password = lineWithoutEcho(terminal, usual, signals);
        caught = signals.caught();
    }
    std::signal(SIGTSTP, suspending);
    close(terminal);
    if (caught != 0) {
        std::raise(caught); // the terminal is as it was
    }
    return password;
}
