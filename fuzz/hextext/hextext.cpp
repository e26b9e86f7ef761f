// SPDX-FileCopyrightText: 2026 The rawificontrol authors
// SPDX-License-Identifier: MIT

// A name in hexadecimal digits, and what a row makes of any name.

#include "harness.h"

#include "displayname.h"
#include "raitempushbtn.h"

extern "C" int LLVMFuzzerTestOneInput(const uint8_t* data, std::size_t size)
{
    const QByteArray bytes(reinterpret_cast<const char*>(data), static_cast<int>(size));
    const QString text = HexQString_to_QString(QString::fromUtf8(bytes));
    require(text.size() <= bytes.size());
    const QString name = displayName(bytes);
    for (const QChar letter : name) {
        require(letter.unicode() >= 0x20 && letter.unicode() != 0x7f && letter.category() != QChar::Other_Control);
    }
    require(shortenedName(name).size() <= 23);
    return 0;
}
