// SPDX-FileCopyrightText: 2026 The rawificontrol authors
// SPDX-License-Identifier: MIT
#include "recordtext.h"

namespace {

const ushort byteBase = 0xdc00;

bool isEscapedByte(QChar c)
{
    return c.unicode() >= byteBase + 0x80 && c.unicode() <= byteBase + 0xff;
}

bool holdsEscapedBytes(const QString& text)
{
    for (int i = 0; i < text.size(); ++i) {
        const bool secondOfPair = i > 0 && text.at(i - 1).isHighSurrogate();
        if (isEscapedByte(text.at(i)) && !secondOfPair) {
            return true;
        }
    }
    return false;
}

} // namespace

APData freshRecord()
{
    APData record;
    std::memset(&record, 0, sizeof record);
    record.encry[0] = NOENCRY;
    record.encry[1] = NOENCRY;
    record.orderbynum = 999;
    return record;
}

QString textFromBytes(const QByteArray& bytes)
{
    const QString text = QString::fromUtf8(bytes.constData(), bytes.size());
    if (text.toUtf8() == bytes) {
        return text;
    }
    QString escaped;
    for (int i = 0; i < bytes.size(); ++i) {
        const uchar byte = static_cast<uchar>(bytes.at(i));
        escaped += QChar(static_cast<ushort>(byte < 0x80 ? byte : byteBase + byte));
    }
    return escaped;
}

QByteArray bytesFromText(const QString& text)
{
    if (!holdsEscapedBytes(text)) {
        return text.toUtf8();
    }
    QByteArray bytes;
    for (int i = 0; i < text.size(); ++i) {
        bytes += static_cast<char>(text.at(i).unicode() & 0xff);
    }
    return bytes;
}
