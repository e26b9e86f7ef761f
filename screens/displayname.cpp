// SPDX-FileCopyrightText: 2026 The rawificontrol authors
// SPDX-License-Identifier: MIT
#include "displayname.h"

namespace {

const int longestName = 20;

bool isUnseen(ushort c)
{
    return c < 0x20 || (c >= 0x7f && c <= 0x9f)         // controls
           || (c >= 0x2028 && c <= 0x202e)              // separators, embeddings, overrides
           || c == 0x061c || c == 0x200e || c == 0x200f // direction marks
           || (c >= 0x2066 && c <= 0x2069);             // isolates
}

} // namespace

QString displayName(const QByteArray& bytes)
{
    QString name = QString::fromUtf8(bytes.constData(), bytes.size());
    if (name.toUtf8() != bytes) {
        name = QString::fromLocal8Bit(bytes.constData(), bytes.size());
    }
    for (int i = 0; i < name.size(); ++i) {
        if (name.at(i).isHighSurrogate() && i + 1 < name.size() && name.at(i + 1).isLowSurrogate()) {
            ++i;
        } else if (isUnseen(name.at(i).unicode()) || name.at(i).isHighSurrogate() || name.at(i).isLowSurrogate()) {
            name[i] = QChar(QChar::ReplacementCharacter);
        }
    }
    return name;
}

QString displayName(const APData& record)
{
    return displayName(QByteArray(record.essid, static_cast<int>(qstrnlen(record.essid, sizeof record.essid))));
}

QString shortenedName(const QString& name)
{
    if (name.size() <= longestName) {
        return name;
    }
    const bool splitsPair = name.at(longestName - 1).isHighSurrogate();
    return name.left(longestName - (splitsPair ? 1 : 0)) + QLatin1String("...");
}
