// SPDX-FileCopyrightText: 2026 The rawificontrol authors
// SPDX-License-Identifier: MIT

// A name and a password: what is written for the supplicant means the same bytes by the supplicant's own rules of
// reading (wpa_supplicant.conf(5)), and stands in one network of the file.

#include "harness.h"

#include "rawifiservice.h"

#include <QList>

namespace {

const char configFile[] = "/etc/wpa_supplicant.conf";

/** A line as the supplicant takes it: quotes pair off from the left, and a # outside of a pair begins a comment. */
QByteArray effective(const QByteArray& line)
{
    bool isQuoted = false;
    int length = 0;
    for (; length < line.size() && (isQuoted || line.at(length) != '#'); ++length) {
        isQuoted = isQuoted != (line.at(length) == '"');
    }
    return line.left(length).trimmed();
}

QByteArray meaning(const QByteArray& value)
{
    return value.size() >= 2 && value.startsWith('"') && value.endsWith('"') ? value.mid(1, value.size() - 2)
                                                                             : QByteArray::fromHex(value);
}

/** What stands as it is reads as this. */
QByteArray plain(const QByteArray& value)
{
    return effective("x=" + value).mid(2);
}

/** The settings of the file as it stands now, in the order of its lines. */
class Settings
{
public:
    Settings()
    {
        const QByteArray text = readFile(configFile);
        for (const QByteArray& line : text.split('\n')) {
            m_lines << effective(line);
        }
        m_isClosed = text.trimmed().endsWith('}');
    }

    QList<QByteArray> valuesOf(const QByteArray& key) const
    {
        QList<QByteArray> values;
        for (const QByteArray& line : m_lines) {
            if (line.startsWith(key + '=')) {
                values << line.mid(key.size() + 1);
            }
        }
        return values;
    }

    bool areOneNetworkOf(const QByteArray& name) const
    {
        const QList<QByteArray> names = valuesOf("ssid");
        return m_isClosed && valuesOf("network").size() == 1 && names.size() == 1 && meaning(names.first()) == name;
    }

private:
    QList<QByteArray> m_lines;
    bool m_isClosed;
};

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const uint8_t* data, std::size_t size)
{
    static RaWifiService service(1, nullptr);
    const QByteArray input(reinterpret_cast<const char*>(data), static_cast<int>(size));
    const int middle = input.indexOf('\0');
    const QByteArray name = input.left(middle < 0 ? 32 : middle).left(32).constData();
    const QByteArray secret = middle < 0 ? QByteArray("password") : QByteArray(input.mid(middle + 1).constData());
    std::remove(configFile);

    if (service.changeWpaConfigfile(name.constData(), secret.constData()) == 0) {
        const Settings settings;
        const QList<QByteArray> keys = settings.valuesOf("psk");
        require(settings.areOneNetworkOf(name) && keys.size() == 1);
        // From 64 bytes on it is taken for a key and stands as it is, else as a text or, where that could not be read
        // back, as the 64 digits of its key.
        const QByteArray& key = keys.first();
        require(secret.size() >= 64   ? key == plain(secret)
                : key.startsWith('"') ? meaning(key) == secret
                                      : key.size() == 64);
    }
    std::remove(configFile);
    const int keyIndex = static_cast<int>(size % 4);
    if (service.changeWpaConfigfile2(name.constData(), secret.constData(), keyIndex) == 0) {
        const Settings settings;
        const QList<QByteArray> keys = settings.valuesOf("wep_key" + QByteArray::number(keyIndex));
        require(settings.areOneNetworkOf(name) && keys.size() == 1);
        // A text has as many bytes as a key; all else is taken for its digits and stands as it is.
        const bool isText = secret.size() == 5 || secret.size() == 13 || secret.size() == 16;
        require(isText ? meaning(keys.first()) == secret : keys.first() == plain(secret));
    }
    std::remove(configFile);
    if (service.changeWpaConfigfile3(name.constData(), secret.constData()) == 0) {
        require(Settings().areOneNetworkOf(name));
    }
    return 0;
}
