// SPDX-FileCopyrightText: 2026 The rawificontrol authors
// SPDX-License-Identifier: MIT
#include "rawifiservice.h"

#include "fakesystem.h"
#include "referencekey.h"
#include "supplicant.h"

#include <QtTest>
#include <random>

// What the library writes into the configuration, the real supplicant must read back as the same bytes.

namespace {

const char configFile[] = "/etc/wpa_supplicant.conf";

/** The value of the first line with this key, as it stands in the configuration. */
QByteArray valueIn(const QByteArray& file, const QByteArray& key)
{
    for (const QByteArray& line : file.split('\n')) {
        if (line.startsWith('\t' + key + '=')) {
            return line.mid(line.indexOf('=') + 1);
        }
    }
    return QByteArray();
}

/** The bytes that a value of the supplicant's own means. */
QByteArray bytesOf(const QByteArray& value)
{
    return value.startsWith('"') ? value.mid(1, value.size() - 2) : QByteArray::fromHex(value);
}

class RandomBytes
{
public:
    unsigned upTo(unsigned last) { return m_random() % (last + 1); }

    /** Bytes of one of three kinds, in turn: those that matter to a configuration, printable, any but NUL. */
    QByteArray next(unsigned shortest, unsigned longest)
    {
        const QByteArray awkward = "\"#\"# \\a}P='$%{";
        const unsigned kind = m_count++ % 3;
        QByteArray bytes;
        for (unsigned left = shortest + upTo(longest - shortest); left > 0; --left) {
            bytes += kind == 0   ? awkward.at(static_cast<int>(upTo(static_cast<unsigned>(awkward.size()) - 1)))
                     : kind == 1 ? static_cast<char>(32 + upTo(94))
                                 : static_cast<char>(1 + upTo(254));
        }
        return bytes;
    }

private:
    std::mt19937 m_random{20261121};
    unsigned m_count = 0;
};

} // namespace

class TestSupplicantReadBack : public QObject
{
    Q_OBJECT
private Q_SLOTS:
    void initTestCase();

    void names_data();
    void names();
    void randomNames();
    void namesAreLiteralWhereverThatReadsBack();
    void passphrases_data();
    void passphrases();
    void randomPassphrases();
    void passphrasesAreLiteralWhereverThatReadsBack();
    void rawKey();
    void wepKeys_data();
    void wepKeys();
    void randomWepKeys();
    void openNetwork();

private:
    QByteArray nameReadBack();
    QByteArray savedValue(const QByteArray& key);
    void checkName(const QByteArray& name);
    void checkPassphrase(const QByteArray& passphrase);
    void checkWepKey(const QByteArray& key);

    RaWifiService m_service{0, nullptr};
    Supplicant m_supplicant;
    RandomBytes m_random;
};

void TestSupplicantReadBack::initTestCase()
{
    if (!Supplicant::isAvailable()) {
        QSKIP(qPrintable(QString::fromLatin1("no supplicant in %1: run device/vm/prepare")
                             .arg(Supplicant::whereItIsLookedFor())));
    }
    QCOMPARE(m_service.changeWpaConfigfile3("first", nullptr), 0);
    QCOMPARE(m_supplicant.start(), QByteArray());
}

/** The name that the supplicant has after reading the configuration; empty when it refuses that. */
QByteArray TestSupplicantReadBack::nameReadBack()
{
    return m_supplicant.request("RECONFIGURE") == "OK\n" ? bytesOf(m_supplicant.request("GET_NETWORK 0 ssid"))
                                                         : QByteArray();
}

/** A secret, which the supplicant tells nobody, as it writes it into a configuration of its own. */
QByteArray TestSupplicantReadBack::savedValue(const QByteArray& key)
{
    if (m_supplicant.request("RECONFIGURE") != "OK\n") {
        return "refused";
    }
    m_supplicant.request("SET update_config 1");
    return m_supplicant.request("SAVE_CONFIG") == "OK\n" ? valueIn(fakesystem::readFile(configFile), key)
                                                         : QByteArray("not saved");
}

void TestSupplicantReadBack::checkName(const QByteArray& name)
{
    QCOMPARE(m_service.changeWpaConfigfile(name.constData(), "password"), 0);
    QCOMPARE(nameReadBack().toHex(), name.toHex());
}

void TestSupplicantReadBack::checkPassphrase(const QByteArray& passphrase)
{
    QCOMPARE(m_service.changeWpaConfigfile("home", passphrase.constData()), 0);
    const bool literal = valueIn(fakesystem::readFile(configFile), "psk").startsWith('"');
    const QByteArray expected = literal ? '"' + passphrase + '"' : referenceKey(passphrase, "home");
    QCOMPARE(savedValue("psk").toHex(), expected.toHex());
}

void TestSupplicantReadBack::checkWepKey(const QByteArray& key)
{
    QCOMPARE(m_service.changeWpaConfigfile2("home", key.constData(), 1), 0);
    const bool digits = key.size() == 10 || key.size() == 26;
    QCOMPARE(bytesOf(savedValue("wep_key1")).toHex(), digits ? key.toLower() : key.toHex());
}

void TestSupplicantReadBack::names_data()
{
    QTest::addColumn<QByteArray>("name");
    QTest::newRow("plain") << QByteArray("home");
    QTest::newRow("one byte") << QByteArray("h");
    QTest::newRow("32 bytes") << QByteArray(32, 'h');
    QTest::newRow("quote") << QByteArray("\"");
    QTest::newRow("quotes around") << QByteArray("\"home\"");
    QTest::newRow("hash") << QByteArray("#home");
    QTest::newRow("quote, then hash") << QByteArray("ho\"me#1");
    QTest::newRow("two quotes, then hash") << QByteArray("\"\"#");
    QTest::newRow("hash, then quote") << QByteArray("#\"");
    QTest::newRow("line break and a setting") << QByteArray("a\"\n}\nupdate_config=1\n#");
    QTest::newRow("carriage return") << QByteArray("home\r");
    QTest::newRow("tab") << QByteArray("\thome");
    QTest::newRow("all low control characters")
        << QByteArray("\1\2\3\4\5\6\7\x8\x9\xa\xb\xc\xd\xe\xf\x10\x11\x12\x13\x14\x15\x16\x17\x18\x19\x1a\x1b\x1c\x1d\x1e\x1f\x7f");
    QTest::newRow("blanks around") << QByteArray("  home  ");
    QTest::newRow("closing brace") << QByteArray("}");
    QTest::newRow("looks like hexadecimal") << QByteArray("686f6d65");
    QTest::newRow("looks like an escaped value") << QByteArray("P\"\\x41\"");
    QTest::newRow("backslashes") << QByteArray("\\x41\\n\\");
    QTest::newRow("looks like a setting") << QByteArray("bssid=02:00:00:00:00:01");
    QTest::newRow("shell characters") << QByteArray("$(reboot)`reboot`;|&");
    QTest::newRow("format characters") << QByteArray("%s%n%1");
    QTest::newRow("Chinese") << QByteArray("\xe4\xb8\xad\xe6\x96\x87\xe7\xbd\x91\xe7\xbb\x9c");
    QTest::newRow("invalid UTF-8") << QByteArray("\xff\xfe\xc0\x80");
}

void TestSupplicantReadBack::names()
{
    QFETCH(QByteArray, name);
    checkName(name);
}

void TestSupplicantReadBack::randomNames()
{
    for (int i = 0; i < 300 && !QTest::currentTestFailed(); ++i) {
        checkName(m_random.next(1, 32));
    }
}

void TestSupplicantReadBack::namesAreLiteralWhereverThatReadsBack()
{
    for (int i = 0; i < 300; ++i) {
        QByteArray name;
        for (unsigned left = 1 + m_random.upTo(7); left > 0; --left) {
            name += "\"#a"[m_random.upTo(2)];
        }
        QCOMPARE(m_service.changeWpaConfigfile(name.constData(), "password"), 0);
        const bool literal = valueIn(fakesystem::readFile(configFile), "ssid") == '"' + name + '"';
        fakesystem::writeFile(configFile, "ctrl_interface=/var/run/wpa_supplicant\nnetwork={\n\tssid=\"" + name + "\"\n}\n");
        QVERIFY2((nameReadBack() == name) == literal, name.constData());
    }
}

void TestSupplicantReadBack::passphrases_data()
{
    QTest::addColumn<QByteArray>("passphrase");
    QTest::newRow("8 characters") << QByteArray("password");
    QTest::newRow("63 characters") << QByteArray(63, 'p');
    QTest::newRow("quotes around") << QByteArray("\"password\"");
    QTest::newRow("quote, then hash") << QByteArray("password\"password#");
    QTest::newRow("two quotes, then hash") << QByteArray("\"password\"#");
    QTest::newRow("hash") << QByteArray("#password#");
    QTest::newRow("tab") << QByteArray("pass\tword");
    QTest::newRow("delete") << QByteArray("password\x7f");
    QTest::newRow("blanks around") << QByteArray("   password   ");
    QTest::newRow("Chinese") << QByteArray("\xe4\xb8\xad\xe6\x96\x87\xe4\xb8\xad\xe6\x96\x87");
    QTest::newRow("external reference") << QByteArray("ext:password");
}

void TestSupplicantReadBack::passphrases()
{
    QFETCH(QByteArray, passphrase);
    checkPassphrase(passphrase);
}

void TestSupplicantReadBack::randomPassphrases()
{
    for (int i = 0; i < 200 && !QTest::currentTestFailed(); ++i) {
        const QByteArray passphrase = m_random.next(8, 63);
        if (!passphrase.contains('\n') && !passphrase.contains('\r')) { // refused, and tested elsewhere
            checkPassphrase(passphrase);
        }
    }
}

void TestSupplicantReadBack::passphrasesAreLiteralWhereverThatReadsBack()
{
    for (int i = 0; i < 200; ++i) {
        QByteArray passphrase = "password"; // a tail cut off leaves a passphrase that is long enough, but another
        for (unsigned left = 1 + m_random.upTo(7); left > 0; --left) {
            passphrase += "\"#a"[m_random.upTo(2)];
        }
        QCOMPARE(m_service.changeWpaConfigfile("home", passphrase.constData()), 0);
        const QByteArray quoted = '"' + passphrase + '"';
        const bool literal = valueIn(fakesystem::readFile(configFile), "psk") == quoted;
        fakesystem::writeFile(configFile, "ctrl_interface=/var/run/wpa_supplicant\nnetwork={\n\tssid=\"home\"\n\tpsk=" + quoted
                                              + "\n}\n");
        QVERIFY2((savedValue("psk") == quoted) == literal, passphrase.constData());
    }
}

void TestSupplicantReadBack::rawKey()
{
    const QByteArray digits = referenceKey("password", "IEEE");
    QCOMPARE(m_service.changeWpaConfigfile("IEEE", digits.constData()), 0);
    QCOMPARE(savedValue("psk"), digits);
}

void TestSupplicantReadBack::wepKeys_data()
{
    QTest::addColumn<QByteArray>("key");
    QTest::newRow("5 characters") << QByteArray("abcde");
    QTest::newRow("13 characters") << QByteArray("abcdefghijklm");
    QTest::newRow("16 characters") << QByteArray("abcdefghijklmnop");
    QTest::newRow("10 digits") << QByteArray("0102FFaa05");
    QTest::newRow("26 digits") << QByteArray(26, 'f');
    QTest::newRow("quote, then hash") << QByteArray("a\"#bc");
    QTest::newRow("control characters") << QByteArray("\1\2\3\4\5");
}

void TestSupplicantReadBack::wepKeys()
{
    QFETCH(QByteArray, key);
    checkWepKey(key);
}

void TestSupplicantReadBack::randomWepKeys()
{
    const unsigned lengths[] = {5, 13, 16};
    for (int i = 0; i < 150 && !QTest::currentTestFailed(); ++i) {
        const unsigned length = lengths[i / 3 % 3];
        const QByteArray key = m_random.next(length, length);
        if (!key.contains('\n') && !key.contains('\r')) { // refused, and tested elsewhere
            checkWepKey(key);
        }
    }
}

void TestSupplicantReadBack::openNetwork()
{
    QCOMPARE(m_service.changeWpaConfigfile3("cafe \"#1\"", nullptr), 0);
    QCOMPARE(nameReadBack(), QByteArray("cafe \"#1\""));
    QCOMPARE(m_supplicant.request("GET_NETWORK 0 key_mgmt"), QByteArray("NONE"));
}

QTEST_GUILESS_MAIN(TestSupplicantReadBack)
#include "tst_supplicantreadback.moc"
