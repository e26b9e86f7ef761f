// SPDX-FileCopyrightText: 2026 The rawificontrol authors
// SPDX-License-Identifier: MIT
#include "ralog.h"

#include <cstdarg>
#include <cstdio>
#include <ctime>
#include <string>
#include <sys/syscall.h>
#include <unistd.h>

namespace {

__attribute__((format(printf, 1, 0))) std::string formatted(const char* format, va_list arguments)
{
    va_list again;
    va_copy(again, arguments);
    char brief[512];
    const int length = std::vsnprintf(brief, sizeof brief, format, arguments);
    std::string text;
    if (length >= static_cast<int>(sizeof brief)) {
        text.resize(static_cast<std::size_t>(length) + 1);
        std::vsnprintf(&text[0], text.size(), format, again);
        text.resize(static_cast<std::size_t>(length));
    } else if (length > 0) {
        text.assign(brief, static_cast<std::size_t>(length));
    }
    va_end(again);
    return text;
}

void appendVisibly(std::string& line, const std::string& message)
{
    for (std::size_t i = 0; i < message.size(); ++i) {
        const unsigned char byte = static_cast<unsigned char>(message[i]);
        const bool closingBreak = byte == '\n' && i + 1 == message.size();
        if ((byte < 0x20 || byte == 0x7f) && !closingBreak) {
            char escape[5];
            std::snprintf(escape, sizeof escape, "\\x%02x", byte);
            line += escape;
        } else {
            line += message[i];
        }
    }
}

} // namespace

void raLog(RaLogLevel level, const char* file, int line, const char* function, const char* format, ...)
{
    const bool debug = level == RaLogLevel::Debug;
    const std::time_t now = std::time(nullptr);
    std::tm local = std::tm();
    localtime_r(&now, &local);

    char prefix[256];
    std::snprintf(prefix, sizeof prefix, "\033[%dm[%02d:%02d:%02d tid:%ld %c/LOG]  [%s: %d : (%s)]  ",
                  debug ? 32 : 33, local.tm_hour, local.tm_min, local.tm_sec,
                  static_cast<long>(syscall(SYS_gettid)), debug ? 'D' : 'W', file, line, function);

    va_list arguments;
    va_start(arguments, format);
    const std::string message = formatted(format, arguments);
    va_end(arguments);

    std::string text = prefix;
    appendVisibly(text, message);
    text += "\033[0m\n";
    std::fwrite(text.data(), 1, text.size(), stderr);
}
