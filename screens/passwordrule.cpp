// SPDX-FileCopyrightText: 2026 The rawificontrol authors
// SPDX-License-Identifier: MIT
#include "passwordrule.h"

#include "qtcompat.h"

#include <cctype>

namespace {

const int longestPassword = int(sizeof APData::psk) - 1;
const int longestPassphrase = 63;
const int keyDigits = 64;

bool isPrintableLatin1(const QString& text)
{
    for (const QChar c : text) {
        if (c.unicode() > 0xff || !c.isPrint()) {
            return false;
        }
    }
    return true;
}

bool isHexadecimal(const QString& text)
{
    for (const char c : text.toLatin1()) {
        if (!std::isxdigit(static_cast<unsigned char>(c))) {
            return false;
        }
    }
    return true;
}

int longest(const APData& network, const QString& password)
{
    switch (network.encry[0]) {
    case WPA_PSK:
    case WPA2_PSK:
        return isHexadecimal(password) ? keyDigits : longestPassphrase;
    default:
        return longestPassword;
    }
}

} // namespace

QString passwordObjection(const APData& network, const QString& password)
{
    if (!isPrintableLatin1(password)) {
        return raTranslateUtf8("RaWifiInputWnd", QT_TRANSLATE_NOOP_UTF8("RaWifiInputWnd", "密码中不能有这个字符"));
    }
    const int limit = longest(network, password);
    if (password.size() > limit) {
        return raTranslateUtf8("RaWifiInputWnd", QT_TRANSLATE_NOOP_UTF8("RaWifiInputWnd", "密码最多%1个字符"))
            .arg(limit);
    }
    return QString();
}
