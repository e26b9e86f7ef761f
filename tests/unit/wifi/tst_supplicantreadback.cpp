// SPDX-FileCopyrightText: 2026 The rawificontrol authors
// SPDX-License-Identifier: MIT
#include "rawifiservice.h"

#include "fakesystem.h"
#include "filecommands.h"
#include "referencekey.h"
#include "supplicant.h"
#include "testsize.h"

#include <QtTest>
#include <algorithm>
#include <random>

// What the library writes into the configuration, the real supplicant must read back as the same bytes.
// RAWIFI_SEED=N in the environment draws other random pairs.

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

/** The same for the same seed on every machine. */
class RandomBytes
{
public:
    explicit RandomBytes(unsigned seed) : m_random(seed) {}

    unsigned upTo(unsigned last) { return m_random() % (last + 1); }

    QByteArray from(const QByteArray& letters, unsigned length)
    {
        QByteArray bytes;
        while (length-- > 0) {
            bytes += letters.at(static_cast<int>(upTo(static_cast<unsigned>(letters.size()) - 1)));
        }
        return bytes;
    }

    /** One in four of those that matter to a configuration. */
    QByteArray printable(unsigned length)
    {
        return upTo(3) == 0 ? from("\"#\"# \\a}P='$%{", length) : between(' ', '~', length);
    }

    /** 1 to 32 bytes: printable or any at all. */
    QByteArray name()
    {
        const unsigned length = 1 + upTo(31);
        return upTo(1) == 0 ? printable(length) : between(0, 255, length);
    }

    /** Mostly printable, now and then whatever a line can hold. */
    QByteArray password(unsigned length)
    {
        return upTo(9) != 0 ? printable(length) : between(1, 255, length).replace('\n', 'n').replace('\r', 'r');
    }

private:
    QByteArray between(unsigned first, unsigned last, unsigned length)
    {
        QByteArray bytes;
        while (length-- > 0) {
            bytes += static_cast<char>(first + upTo(last - first));
        }
        return bytes;
    }

    std::mt19937 m_random;
};

unsigned seed()
{
    bool isGiven = false;
    const int given = qEnvironmentVariableIntValue("RAWIFI_SEED", &isGiven);
    return isGiven ? static_cast<unsigned>(given) : 20261121u;
}

enum Kind { Passphrase, HexKey, WepText, WepDigits, Open };

/** A network as a page hands it to the writer, with a password that its kind takes. */
struct Network
{
    Kind kind;
    QByteArray name;
    QByteArray password;
    int wepIndex;

    /** The name as it reaches the library: a text, which ends at a NUL. */
    QByteArray text() const { return name.constData(); }
};

Network anyNetwork(RandomBytes& random)
{
    const Kind others[] = {HexKey, WepText, WepDigits, Open};
    const unsigned textLengths[] = {5, 13, 16};
    const unsigned digitCounts[] = {10, 26, 32};
    const QByteArray digits = "0123456789abcdefABCDEF";
    Network network = {random.upTo(3) != 0 ? Passphrase : others[random.upTo(3)], random.name(), QByteArray(),
                       static_cast<int>(random.upTo(3))};
    switch (network.kind) {
    case Passphrase:
        network.password = random.password(8 + random.upTo(55));
        break;
    case HexKey:
        network.password = random.from(digits, 64);
        break;
    case WepText:
        network.password = random.password(textLengths[random.upTo(2)]);
        break;
    case WepDigits:
        network.password = random.from(digits, digitCounts[random.upTo(2)]);
        break;
    case Open:
        break;
    }
    return network;
}

bool isPrintable(const QByteArray& text)
{
    return std::all_of(text.begin(), text.end(), [](char c) { return c >= ' ' && c <= '~'; });
}

/** The same with one thing that cannot stand in a configuration. */
Network unfit(Network network, RandomBytes& random)
{
    const int somewhere = static_cast<int>(random.upTo(static_cast<unsigned>(network.password.size())));
    if (network.kind == Open) {
        network.name.clear();
    } else if (random.upTo(3) == 0) {
        network.password.clear();
    } else if (network.kind == WepText && random.upTo(1) == 0) {
        network.wepIndex = random.upTo(1) == 0 ? -1 : 4;
    } else {
        network.password.insert(somewhere, random.upTo(1) == 0 ? '\n' : '\r');
    }
    return network;
}

} // namespace

class TestSupplicantReadBack : public QObject
{
    Q_OBJECT
private Q_SLOTS:
    void initTestCase();

    void names_data();
    void names();
    void namesAreLiteralWhereverThatReadsBack();
    void passphrases_data();
    void passphrases();
    void passphrasesAreLiteralWhereverThatReadsBack();
    void rawKey();
    void wepKeys_data();
    void wepKeys();
    void openNetwork();
    void randomPairs();

private:
    QByteArray nameReadBack();
    QByteArray savedValue(const QByteArray& key);
    int write(const Network& network);
    void checkReadBack(const Network& network);
    void checkRefused(const Network& network);

    RaWifiService m_service{0, nullptr};
    Supplicant m_supplicant;
    RandomBytes m_random{seed()};
};

void TestSupplicantReadBack::initTestCase()
{
    if (!Supplicant::isAvailable()) {
        QSKIP(qPrintable(
            QString::fromLatin1("no supplicant in %1: run device/vm/prepare").arg(Supplicant::whereItIsLookedFor())));
    }
    fakesystem::carryOutFilesBy(carryOutFilesHere);
    fakesystem::answerCommand("cat /etc/wpa_supplican.conf", [] {});
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

int TestSupplicantReadBack::write(const Network& network)
{
    const char* const name = network.name.constData();
    const char* const password = network.password.constData();
    switch (network.kind) {
    case Passphrase:
    case HexKey:
        return m_service.changeWpaConfigfile(name, password);
    case WepText:
    case WepDigits:
        return m_service.changeWpaConfigfile2(name, password, network.wepIndex);
    case Open:
        return m_service.changeWpaConfigfile3(name, password);
    }
    return 1;
}

void TestSupplicantReadBack::checkReadBack(const Network& network)
{
    QCOMPARE(write(network), 0);
    const QByteArray written = valueIn(fakesystem::readFile(configFile), "psk");
    const QByteArray wepKey = "wep_key" + QByteArray::number(network.wepIndex);
    QCOMPARE(nameReadBack().toHex(), network.text().toHex());
    QCOMPARE(m_supplicant.request("GET_NETWORK 1 ssid"), QByteArray("FAIL\n")); // it is the only one
    const QByteArray management = m_supplicant.request("GET_NETWORK 0 key_mgmt");
    switch (network.kind) {
    case Passphrase: {
        const QByteArray expected =
            written.startsWith('"') ? '"' + network.password + '"' : referenceKey(network.password, network.text());
        QCOMPARE(management, QByteArray("WPA-PSK WPA-EAP")); // unless said otherwise
        QCOMPARE(savedValue("psk").toHex(), expected.toHex());
        break;
    }
    case HexKey:
        QCOMPARE(management, QByteArray("WPA-PSK WPA-EAP"));
        QCOMPARE(savedValue("psk"), network.password.toLower());
        break;
    case WepText:
    case WepDigits:
        QCOMPARE(management, QByteArray("NONE"));
        QCOMPARE(m_supplicant.request("GET_NETWORK 0 auth_alg"), QByteArray("SHARED"));
        QCOMPARE(m_supplicant.request("GET_NETWORK 0 wep_tx_keyidx"), QByteArray::number(network.wepIndex));
        QCOMPARE(bytesOf(savedValue(wepKey)).toHex(),
                 network.kind == WepText ? network.password.toHex() : network.password.toLower());
        break;
    case Open:
        QCOMPARE(management, QByteArray("NONE"));
        break;
    }
}

void TestSupplicantReadBack::checkRefused(const Network& network)
{
    const QByteArray before = fakesystem::readFile(configFile);
    QVERIFY(write(network) < 0);
    QCOMPARE(fakesystem::readFile(configFile), before);
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
    QTest::newRow("all low control characters") << QByteArray(
        "\1\2\3\4\5\6\7\x8\x9\xa\xb\xc\xd\xe\xf\x10\x11\x12\x13\x14\x15\x16\x17\x18\x19\x1a\x1b\x1c\x1d\x1e\x1f\x7f");
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
    checkReadBack(Network{Passphrase, name, "password", 0});
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
        fakesystem::writeFile(configFile,
                              "ctrl_interface=/var/run/wpa_supplicant\nnetwork={\n\tssid=\"" + name + "\"\n}\n");
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
    checkReadBack(Network{Passphrase, "home", passphrase, 0});
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
        fakesystem::writeFile(configFile, "ctrl_interface=/var/run/wpa_supplicant\nnetwork={\n\tssid=\"home\"\n\tpsk="
                                              + quoted + "\n}\n");
        QVERIFY2((savedValue("psk") == quoted) == literal, passphrase.constData());
    }
}

void TestSupplicantReadBack::rawKey()
{
    checkReadBack(Network{HexKey, "IEEE", referenceKey("password", "IEEE"), 0});
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
    checkReadBack(Network{key.size() == 10 || key.size() == 26 ? WepDigits : WepText, "home", key, 1});
}

void TestSupplicantReadBack::openNetwork()
{
    checkReadBack(Network{Open, "cafe \"#1\"", QByteArray(), 0});
}

void TestSupplicantReadBack::randomPairs()
{
    const int wanted = repetitions(10000, 1000);
    int passphrases = 0; // of 8 to 63 printable characters, as most networks have
    int readBack = 0;
    int refused = 0;
    while (passphrases < wanted) {
        const Network network = anyNetwork(m_random);
        const bool isFit = m_random.upTo(9) != 0 && (network.kind != Open || !network.text().isEmpty());
        if (isFit) {
            checkReadBack(network);
            ++readBack;
            passphrases += network.kind == Passphrase && isPrintable(network.password) ? 1 : 0;
        } else {
            checkRefused(unfit(network, m_random));
            ++refused;
        }
        if (QTest::currentTestFailed()) {
            qInfo("seed %u, pair %d: name %s", seed(), readBack + refused, network.name.toHex().constData());
            return;
        }
    }
    qInfo("%d pairs read back by the supplicant, %d of them with a printable passphrase, %d refused with the old file "
          "untouched, seed %u",
          readBack, passphrases, refused, seed());
}

QTEST_GUILESS_MAIN(TestSupplicantReadBack)
#include "tst_supplicantreadback.moc"
