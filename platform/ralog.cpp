// SPDX-FileCopyrightText: 2026 The rawificontrol authors
// SPDX-License-Identifier: MIT
#include "ralog.h"

#include <cstdarg>
#include <cstdio>
#include <cstdlib>
#include <cstring>
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

/** How many bytes from \a i on are one control character: 2 for those beyond ASCII, which begin with C2 in UTF-8. */
std::size_t controlLength(const std::string& message, std::size_t i)
{
    const auto byteAt = [&message](std::size_t place) { return static_cast<unsigned char>(message[place]); };
    if (byteAt(i) < 0x20 || byteAt(i) == 0x7f) {
        return 1;
    }
    const bool isBeyondAscii =
        byteAt(i) == 0xc2 && i + 1 < message.size() && byteAt(i + 1) >= 0x80 && byteAt(i + 1) <= 0x9f;
    return isBeyondAscii ? 2 : 0;
}

void appendVisibly(std::string& line, const std::string& message)
{
    for (std::size_t i = 0; i < message.size();) {
        std::size_t hidden = controlLength(message, i);
        if (hidden == 0) {
            line += message[i++];
        }
        for (; hidden > 0; --hidden) {
            char escape[5];
            std::snprintf(escape, sizeof escape, "\\x%02x", static_cast<unsigned char>(message[i++]));
            line += escape;
        }
    }
}

} // namespace

bool raLogsSecrets()
{
    static const bool isAllowed = [] {
        const char* const value = std::getenv("RAWIFI_LOG_SECRETS");
        return !value || std::strcmp(value, "0") != 0;
    }();
    return isAllowed;
}

const char* raSecret(const char* secret)
{
    return raLogsSecrets() ? secret : "***";
}

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
    std::string message = formatted(format, arguments);
    va_end(arguments);

    const std::size_t formatLength = std::strlen(format);
    const bool endsWithBreak = formatLength > 0 && format[formatLength - 1] == '\n' && !message.empty();
    if (endsWithBreak) {
        message.pop_back();
    }
    std::string text = prefix;
    appendVisibly(text, message);
    text += endsWithBreak ? "\n\033[0m\n" : "\033[0m\n";
    std::fwrite(text.data(), 1, text.size(), stderr);
}
