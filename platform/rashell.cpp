// SPDX-FileCopyrightText: 2026 The rawificontrol authors
// SPDX-License-Identifier: MIT
#include "rashell.h"

#include "ralog.h"
#include "raworkerthread.h"

#include <arpa/inet.h>
#include <cctype>
#include <cerrno>
#include <cstdarg>
#include <cstdio>
#include <cstdlib>
#include <cstring>
#include <ctime>

int raRunCommand(const char* command)
{
    int status = 0;
    {
        const RaWorkerThread::Interruptible interruptible;
        status = std::system(command);
    }
    if (status == -1) {
        RA_WARN("cannot run a shell: %s", std::strerror(errno));
    }
    return status;
}

int raRunCommandF(const char* format, ...)
{
    char command[256];
    va_list arguments;
    va_start(arguments, format);
    const int length = std::vsnprintf(command, sizeof command, format, arguments);
    va_end(arguments);
    if (length < 0 || length >= static_cast<int>(sizeof command)) {
        RA_WARN("command line too long, not run");
        return -1;
    }
    return raRunCommand(command);
}

void raSleepMs(int milliseconds)
{
    const RaWorkerThread::Interruptible interruptible;
    timespec left = {milliseconds / 1000, (milliseconds % 1000) * 1000000L};
    while (nanosleep(&left, &left) == -1 && errno == EINTR) {
    }
}

bool raIsMacAddress(const char* text)
{
    if (std::strlen(text) != 17) {
        return false;
    }
    for (int i = 0; i < 17; ++i) {
        const bool right = i % 3 == 2 ? text[i] == ':' : std::isxdigit(static_cast<unsigned char>(text[i])) != 0;
        if (!right) {
            return false;
        }
    }
    return true;
}

bool raIsIpv4Address(const char* text)
{
    in_addr address;
    return inet_pton(AF_INET, text, &address) == 1;
}
