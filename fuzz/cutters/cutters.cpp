// SPDX-FileCopyrightText: 2026 The rawificontrol authors
// SPDX-License-Identifier: MIT

// The cutters of fields, flags and numbers: the first two bytes are the position and the separator, the rest the line.

#include "harness.h"

#include "raglobalfun.h"

#include <cstring>

namespace {

const int lineSize = 256;

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const uint8_t* data, std::size_t size)
{
    if (size < 2) {
        return 0;
    }
    const int pos = static_cast<signed char>(data[0]);
    const char separator = static_cast<char>(data[1]);
    char line[lineSize] = "";
    std::memcpy(line, data + 2, size - 2 < lineSize - 1 ? size - 2 : lineSize - 1);

    char first[lineSize] = "";
    char second[lineSize] = "";
    getDefineIntValue(line, pos, first, separator);
    require(isText(first));
    getDefineStrValue(line, pos, first);
    require(isText(first));
    getDefineStrValue(line, pos, first, separator, pos + 40);
    require(isText(first));
    getEncryTypeValue(line, pos, first, second, separator, '[', ']');
    require(isText(first) && isText(second));
    const int kind = getEncryValue(line);
    char management[100] = "";
    getkeymgmtByEncryValue(kind, management);
    require(isText(management));
    const int level = calculateSignalLevel(pos, 5);
    require(level >= 0 && level <= 4);
    return 0;
}
