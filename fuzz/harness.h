// SPDX-FileCopyrightText: 2026 The rawificontrol authors
// SPDX-License-Identifier: MIT
#ifndef RAWIFI_FUZZ_HARNESS_H
#define RAWIFI_FUZZ_HARNESS_H

#include <QByteArray>
#include <cstddef>
#include <cstdint>
#include <cstdio>
#include <cstdlib>

/** What every fuzzer defines; see libFuzzer's documentation. */
extern "C" int LLVMFuzzerTestOneInput(const uint8_t* data, std::size_t size);

/** A finding unless \a holds. */
inline void require(bool holds)
{
    if (!holds) {
        std::abort();
    }
}

/** Whether a record's field is a text that ends within it. */
template<std::size_t N>
bool isText(const char (&field)[N])
{
    for (const char letter : field) {
        if (letter == '\0') {
            return true;
        }
    }
    return false;
}

inline void writeFile(const char* path, const void* bytes, std::size_t size)
{
    std::FILE* const file = std::fopen(path, "w");
    require(file != nullptr);
    std::fwrite(bytes, 1, size, file);
    std::fclose(file);
}

inline QByteArray readFile(const char* path)
{
    QByteArray bytes;
    if (std::FILE* const file = std::fopen(path, "r")) {
        char part[4096];
        while (const std::size_t size = std::fread(part, 1, sizeof part, file)) {
            bytes.append(part, static_cast<int>(size));
        }
        std::fclose(file);
    }
    return bytes;
}

#endif
