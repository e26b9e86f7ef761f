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

/** Length of the UTF-8 sequence at \a i; 1 for a single byte and for whatever is no UTF-8. */
std::size_t sequenceLength(const std::string& text, std::size_t i)
{
    const unsigned char first = static_cast<unsigned char>(text[i]);
    const std::size_t length = first < 0xc2 || first > 0xf4 ? 1 : first >= 0xf0 ? 4 : first >= 0xe0 ? 3 : 2;
    for (std::size_t next = i + 1; next < i + length; ++next) {
        if (next >= text.size() || (text[next] & 0xc0) != 0x80) {
            return 1;
        }
    }
    return length;
}

/** ASCII's control characters, and those beyond: as U+0080 to U+009F, and as bytes that an 8-bit terminal obeys. */
bool isControl(const std::string& text, std::size_t i, std::size_t length)
{
    const unsigned char first = static_cast<unsigned char>(text[i]);
    if (length == 1) {
        return first < 0x20 || first == 0x7f || (first >= 0x80 && first <= 0x9f);
    }
    return first == 0xc2 && static_cast<unsigned char>(text[i + 1]) <= 0x9f;
}

void appendVisibly(std::string& line, const std::string& message)
{
    std::size_t length = 0;
    for (std::size_t i = 0; i < message.size(); i += length) {
        length = sequenceLength(message, i);
        if (!isControl(message, i, length)) {
            line.append(message, i, length);
            continue;
        }
        for (std::size_t k = i; k < i + length; ++k) {
            char escape[5];
            std::snprintf(escape, sizeof escape, "\\x%02x", static_cast<unsigned char>(message[k]));
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
    std::snprintf(prefix, sizeof prefix, "\033[%dm[%02d:%02d:%02d tid:%ld %c/LOG]  [%s: %d : (%s)]  ", debug ? 32 : 33,
                  local.tm_hour, local.tm_min, local.tm_sec, static_cast<long>(syscall(SYS_gettid)), debug ? 'D' : 'W',
                  file, line, function);

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
