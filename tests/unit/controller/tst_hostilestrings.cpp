// SPDX-FileCopyrightText: 2026 The rawificontrol authors
// SPDX-License-Identifier: MIT
#include "hostilestrings.h"

#include "capturedoutput.h"
#include "filecommands.h"
#include "managertest.h"
#include "rawifiinputwnd.h"
#include "rawifiprocessingwnd.h"
#include "rawifiservice.h"

#include <QLineEdit>
#include <QRegularExpression>
#include <QtTest>
#include <algorithm>

// Every hostile name and password through every place where one comes out again.

using namespace managertest;

namespace {

const char configFile[] = "/etc/wpa_supplicant.conf";
const char storeFile[] = "/apps/config/network.conf";
const char mac[] = "02:00:00:00:00:01";

/** A string as a record carries it, which is how it travels: up to its first NUL, cut to the field. */
QByteArray asName(const QByteArray& bytes)
{
    return QByteArray(bytes.constData()).left(int(sizeof APData::essid) - 1);
}

QByteArray asPassword(const QByteArray& bytes)
{
    return QByteArray(bytes.constData()).left(int(sizeof APData::psk) - 1);
}

/** A locked network of this name and with this password. */
APData record(const QByteArray& name, const QByteArray& password = QByteArray())
{
    return network(1, asName(name), true, 3, asPassword(password).constData());
}

/** What a log line makes of \a bytes that stand within it: signs in UTF-8 stay, control characters are escaped. */
QByteArray asLogged(const QByteArray& bytes)
{
    // One character a byte, so that the expression works on bytes.
    const QRegularExpression part(QLatin1String("([\\xe0-\\xef][\\x80-\\xbf]{2}|[\\xf0-\\xf4][\\x80-\\xbf]{3}|"
                                                "[\\xc3-\\xdf][\\x80-\\xbf]|\\xc2[\\xa0-\\xbf])|"
                                                "(\\xc2[\\x80-\\x9f]|[\\x00-\\x1f\\x7f-\\x9f])|."),
                                  QRegularExpression::DotMatchesEverythingOption);
    QByteArray shown;
    QRegularExpressionMatchIterator parts = part.globalMatch(QString::fromLatin1(bytes));
    while (parts.hasNext()) {
        const QRegularExpressionMatch match = parts.next();
        const QByteArray text = match.captured().toLatin1();
        shown += match.capturedLength(2) > 0 ? "\\x" + text.toHex('x').replace("x", "\\x") : text;
    }
    return shown;
}

/** Whether every line of a log is one of the log's own, and nothing in it drives a terminal. */
QByteArray logObjection(const QByteArray& log)
{
    const QByteArray end = "\033[0m\n";
    QByteArray left = log;
    left.replace("----------------------------------\n", ""); // of the store, which is no log line
    for (auto start = 0; start < left.size();) {
        const auto stop = left.indexOf(end, start);
        const QByteArray line = left.mid(start, stop - start);
        if (stop < 0 || !(line.startsWith("\033[32m[") || line.startsWith("\033[33m["))) {
            return "no line of the log: " + line;
        }
        const QByteArray message = line.mid(line.indexOf(")]  ") + 4);
        if (asLogged(message) != message && asLogged(message) != message.left(message.size() - 1) + "\\x0a") {
            return "control characters in: " + message.toHex();
        }
        start = int(stop) + int(end.size());
    }
    return QByteArray();
}

/** Whether a text is safe to be shown in one line. */
bool isVisible(const QString& text)
{
    return std::none_of(text.begin(), text.end(), [](QChar c) {
        const ushort code = c.unicode();
        return c.category() == QChar::Other_Control || code == 0x061c || code == 0x200e || code == 0x200f
               || (code >= 0x2028 && code <= 0x202e) || (code >= 0x2066 && code <= 0x2069);
    });
}

/** Paints a widget with all that is in it; every label in it must take its text for plain text. */
QByteArray paintingObjection(QWidget& widget)
{
    if (widget.grab().isNull()) {
        return "nothing is painted";
    }
    for (const QLabel* label : widget.findChildren<QLabel*>()) {
        if (!label->text().isEmpty() && label->textFormat() != Qt::PlainText) {
            return "not plain text: " + label->text().toUtf8();
        }
    }
    return QByteArray();
}

// --- The configuration, read as the supplicant reads it ------------------------------------------------------

/** A line without its comment: quotes pair off from the left, and a # outside of a pair begins one. */
QByteArray withoutComment(const QByteArray& line)
{
    bool isQuoted = false;
    for (int i = 0; i < line.size(); ++i) {
        isQuoted = isQuoted != (line.at(i) == '"');
        if (line.at(i) == '#' && !isQuoted) {
            return line.left(i);
        }
    }
    return line;
}

/** The bytes that the value of \a line means. */
QByteArray valueOf(const QByteArray& line, const QByteArray& key)
{
    const QByteArray setting = withoutComment(line).trimmed();
    if (!setting.startsWith(key + '=')) {
        return "another setting: " + line;
    }
    const QByteArray value = setting.mid(key.size() + 1);
    return value.startsWith('"') && value.endsWith('"') ? value.mid(1, value.size() - 2) : QByteArray::fromHex(value);
}

/** What is wrong with a configuration that is one network's; \a settings are the lines behind its name. */
QByteArray configObjection(const QByteArray& name, const Lines& settings)
{
    Lines wanted;
    wanted << "# Simple case: WPA-PSK, PSK as an ASCII passphrase, allow all valid ciphers"
           << "ctrl_interface=/var/run/wpa_supplicant"
           << "ctrl_interface_group=0"
           << "ap_scan=1"
           << "network={"
           << "ssid";
    wanted += settings;
    wanted << "}"
           << "";
    Lines lines = fakesystem::readFile(configFile).split('\n');
    if (lines.size() != wanted.size()) {
        return "lines: " + QByteArray::number(int(lines.size()));
    }
    if (valueOf(lines.at(5), "ssid") != name) {
        return "the name is written as " + lines.at(5);
    }
    lines[5] = "ssid";
    return lines == wanted ? QByteArray() : "another line: " + lines.join('|');
}

bool isRefused(const QByteArray& password)
{
    return password.isEmpty() || password.contains('\n') || password.contains('\r');
}

/** The line of a WPA password; only what it means is settled for one that is shorter than a key. */
QByteArray pskObjection(const QByteArray& name, const QByteArray& password)
{
    const QByteArray line = fakesystem::readFile(configFile).split('\n').value(6);
    if (password.size() >= 64) {
        return line == "\tpsk=" + password ? QByteArray() : "the key is written as " + line;
    }
    const QByteArray value = line.mid(int(qstrlen("\tpsk=")));
    const bool isKey = value.size() == 64 && QByteArray::fromHex(value).toHex() == value;
    if (!isKey && valueOf(line, "psk") != password) {
        return "the password is written as " + line;
    }
    return configObjection(name, Lines() << line);
}

} // namespace

class TestHostileStrings : public QObject
{
    Q_OBJECT
private Q_SLOTS:
    void initTestCase();
    void init();
    void cleanup();

    void joiningRunsTheSameCommandsWhateverTheName();
    void joiningIsToldAndLoggedWhatever();
    void aNulIsRefusedBeforeAnythingIsTouched();
    void wepAndOpenConfigurationsHoldOneNetwork();
    void theStoreGivesBackTheSameBytes();
    void rowsShowPlainText();
    void thePasswordPageShowsPlainText();
    void thePasswordFieldTakesOnlyWhatIsHandedOver();
    void messageWindowsShowPlainText();
    void dumpsKeepToTheirLines();
    void theHostGetsExactlyWhatIsSent();
    void everyStringHasBeenThroughEverySink();

private:
    /** The password that goes with the string number \a i as a name: each string is one once. */
    QByteArray passwordFor(int i) const
    {
        return asPassword(m_strings.at((i + m_strings.size() / 2) % m_strings.size()));
    }
    void countSink(const char* name, int strings);

    const QList<QByteArray> m_strings = hostileStrings();
    QStringList m_sinks;
};

void TestHostileStrings::initTestCase()
{
    prepare();
    QVERIFY(m_strings.size() >= 1000);
}

void TestHostileStrings::init()
{
    freshDevice();
    fakesystem::carryOutFilesBy(carryOutFilesHere);
}

void TestHostileStrings::cleanup()
{
    RaWifiManager::close();
    QVERIFY2(!fakesystem::exists(hostileCanary), "a name has been run");
    fakesystem::reset();
}

void TestHostileStrings::countSink(const char* name, int strings)
{
    QCOMPARE(strings, int(m_strings.size()));
    m_sinks << QLatin1String(name);
}

// The commands of joins with a harmless name are run by a real shell, and all others must be among them.
void TestHostileStrings::joiningRunsTheSameCommandsWhateverTheName()
{
    RaWifiManager* const manager = RaWifiManager::instance();
    fakesystem::reset();
    setScripts();
    QCOMPARE(manager->connectUserSelectAP(mac, WPA2_PSK, "Home", "password", 3, 0, 0), 0);
    const Lines harmless = fakesystem::commands();
    QVERIFY(harmless.size() > 10);

    int count = 0;
    for (int i = 0; i < m_strings.size(); ++i) {
        const QByteArray name = asName(m_strings.at(i));
        const QByteArray password = passwordFor(i);
        const QByteArray about = "name " + name.toHex() + ", password " + password.toHex();
        fakesystem::reset();
        fakesystem::carryOutFilesBy(carryOutFilesHere);
        setScripts();
        fakesystem::writeFile(configFile, "old");
        const int result = manager->connectUserSelectAP(mac, WPA2_PSK, name.constData(), password.constData(), 3, 0, 0);
        QCoreApplication::processEvents();
        if (isRefused(password)) {
            QVERIFY2(result == -1 && fakesystem::readFile(configFile) == "old", about.constData());
        } else {
            QVERIFY2(result == 0, about.constData());
            for (const QByteArray& command : fakesystem::commands()) {
                QVERIFY2(harmless.contains(command), (about + ": " + command).constData());
            }
            const QByteArray objection = pskObjection(name, password);
            QVERIFY2(objection.isEmpty(), (about + ": " + objection).constData());
            QCOMPARE(fakesystem::readFile("/home/wifi/linkap.txt"), QByteArray("1\n"));
            QCOMPARE(fakesystem::readFile("/home/wifi/curmac.txt"), QByteArray(mac) + '\n');
            QCOMPARE(fakesystem::readFile("/home/wifi/ipinfo.txt"), QByteArray(address) + '\n');
        }
        ++count;
    }
    const auto strangeFiles = [] {
        QStringList files = QDir(QLatin1String("/home/wifi")).entryList(QDir::AllEntries | QDir::NoDotAndDotDot);
        for (const char* file :
             {"curmac.txt", "ipinfo.txt", "linkap.txt", "signal.txt", "tmpnetwork.conf", "temp.txt"}) {
            files.removeAll(QLatin1String(file));
        }
        return files;
    };
    // No name has become a path; the last join's DHCP stage takes its marker away when it ends.
    QTRY_COMPARE(strangeFiles(), QStringList());
    countSink("shell", count);
    countSink("WPA configuration", count);
    countSink("status files", count);
}

void TestHostileStrings::joiningIsToldAndLoggedWhatever()
{
    RaWifiManager* const manager = RaWifiManager::instance();
    const QByteArray prefix = "essid =";
    const QByteArray middle = ",password = ";
    int count = 0;
    for (int i = 0; i < m_strings.size(); ++i) {
        const QByteArray name = asName(m_strings.at(i));
        const QByteArray password = passwordFor(i).replace('\n', "\x01").replace('\r', "\x02");
        fakesystem::reset();
        fakesystem::carryOutFilesBy(carryOutFilesHere);
        setScripts();
        fakesystem::answerWithoutEnd("callwpaconf.sh", [] {}); // no further than needed
        const QByteArray log = capturedOutput(stderr, [&] {
            manager->connectUserSelectAP(mac, WPA2_PSK, name.constData(), password.constData(), 3, 0, 0);
            QCoreApplication::processEvents();
        });
        const QByteArray objection = logObjection(log);
        QVERIFY2(objection.isEmpty(), objection.constData());
        const QByteArray wanted = prefix + asLogged(name) + middle + asLogged(password) + ",sigquality = 3";
        QVERIFY2(log.contains(wanted), wanted.constData());
        ++count;
    }
    countSink("log lines of joining", count);
}

void TestHostileStrings::aNulIsRefusedBeforeAnythingIsTouched()
{
    RaWifiService service(1, nullptr);
    int count = 0;
    for (const QByteArray& bytes : m_strings) {
        const QString text = QString::fromLatin1(bytes) + QChar(0) + QLatin1String("rest");
        fakesystem::writeFile(configFile, "old");
        QCOMPARE(service.connectCertainAP(QLatin1String(mac), WPA2_PSK, text, QLatin1String("password"), 3, 0, 0), -1);
        QCOMPARE(service.connectCertainAP(QLatin1String(mac), WPA2_PSK, QLatin1String("Home"), text, 3, 0, 0), -1);
        QCOMPARE(fakesystem::readFile(configFile), QByteArray("old"));
        ++count;
    }
    countSink("names and passwords with a NUL", count);
}

void TestHostileStrings::wepAndOpenConfigurationsHoldOneNetwork()
{
    RaWifiService service(1, nullptr);
    int count = 0;
    for (int i = 0; i < m_strings.size(); ++i) {
        const QByteArray name = asName(m_strings.at(i));
        const QByteArray key = passwordFor(i);
        fakesystem::writeFile(configFile, "old");
        const int result = service.changeWpaConfigfile2(name.constData(), key.constData(), i % 4);
        if (isRefused(key)) {
            QVERIFY2(result == -1 && fakesystem::readFile(configFile) == "old", key.toHex().constData());
        } else {
            const QByteArray index = QByteArray::number(i % 4);
            const QByteArray line = fakesystem::readFile(configFile).split('\n').value(7);
            const Lines settings = Lines() << "\tkey_mgmt=NONE" << line << "\twep_tx_keyidx=" + index << "priority=5"
                                           << "auth_alg=SHARED";
            const bool isText = key.size() == 5 || key.size() == 13 || key.size() == 16;
            QCOMPARE(isText ? valueOf(line, "wep_key" + index) : line, isText ? key : "\twep_key" + index + '=' + key);
            const QByteArray objection = configObjection(name, settings);
            QVERIFY2(result == 0 && objection.isEmpty(), objection.constData());
        }

        fakesystem::writeFile(configFile, "old");
        if (service.changeWpaConfigfile3(name.constData(), key.constData()) == 0) {
            const QByteArray objection = configObjection(name, Lines() << "\tkey_mgmt=NONE");
            QVERIFY2(objection.isEmpty(), objection.constData());
        } else {
            QVERIFY(name.isEmpty());
            QCOMPARE(fakesystem::readFile(configFile), QByteArray("old"));
        }
        ++count;
    }
    countSink("WEP configuration", count);
    countSink("open configuration", count);
}

void TestHostileStrings::theStoreGivesBackTheSameBytes()
{
    const int capacity = 15;
    int count = 0;
    while (count < m_strings.size()) {
        QFile::remove(QLatin1String(storeFile));
        QList<APData> saved;
        RaWifiData store;
        for (; saved.size() < capacity && count < m_strings.size(); ++count) {
            APData one = record(m_strings.at(count), passwordFor(count));
            one.macAddr[0] = static_cast<char>('a' + saved.size()); // every network is another one
            if (one.essid[0] != '\0') {                             // one without a name is not saved
                saved.prepend(one);
            }
            store.addData(&one, true);
        }
        RaWifiData read;
        QCOMPARE(read.loadData(), 0);
        QCOMPARE(read.getDataCount(), int(saved.size()));
        for (int i = 0; i < saved.size(); ++i) {
            APData got;
            QCOMPARE(read.getDataByIndex(&got, i), 0);
            QCOMPARE(QByteArray(got.essid), QByteArray(saved.at(i).essid));
            QCOMPARE(QByteArray(got.psk), QByteArray(saved.at(i).psk));
        }
    }
    countSink("store", count);
}

void TestHostileStrings::rowsShowPlainText()
{
    const int air = 50;
    RaWifiListWidget list(nullptr, true, QLatin1String("Network Setting"), QLatin1String(mac));
    list.resize(320, 480);
    int count = 0;
    while (count < m_strings.size()) {
        QList<APData> found;
        for (; found.size() < air && count < m_strings.size(); ++count) {
            found << record(m_strings.at(count));
            std::snprintf(found.last().macAddr, sizeof found.last().macAddr, "02:00:00:00:%02x:%02x",
                          unsigned(count) / 256 % 256, unsigned(count) % 256);
        }
        setAir(found);
        list.showRefreshListData();
        sweep();
        QCoreApplication::processEvents();
        const QList<RaItemPushBtn*> rows = list.findChildren<RaItemPushBtn*>();
        QCOMPARE(int(rows.size()), int(found.size()));
        for (int i = 0; i < rows.size(); ++i) {
            RaItemPushBtn* const row = rows.at(i);
            QVERIFY2(isVisible(row->getText()), row->getText().toUtf8().toHex().constData());
            QCOMPARE(row->accessibleName(), row->getText());
            row->setConnectSuccess();
            row->setText(QString::fromUtf8(found.at(i).essid)); // as a host would
            QVERIFY(isVisible(row->getText()));
        }
        QByteArray objection = paintingObjection(list);
        QVERIFY2(objection.isEmpty(), objection.constData());
        for (RaItemPushBtn* row : rows) {
            objection = paintingObjection(*row);
            QVERIFY2(objection.isEmpty(), objection.constData());
        }
    }
    setAir(QList<APData>());
    countSink("rows of the list", count);
}

void TestHostileStrings::thePasswordPageShowsPlainText()
{
    RaWifiInputWnd page(nullptr);
    page.show();
    int count = 0;
    for (int i = 0; i < m_strings.size(); ++i) {
        page.setAPData(record(m_strings.at(i), passwordFor(i)));
        page.clear();
        QVERIFY2(isVisible(page.accessibleName()), page.accessibleName().toUtf8().toHex().constData());
        for (QLabel* label : page.findChildren<QLabel*>()) {
            QVERIFY(isVisible(label->text()) && label->textFormat() == Qt::PlainText);
            QVERIFY(!label->grab().isNull());
        }
        for (const QLineEdit* edit : page.findChildren<QLineEdit*>()) {
            const QByteArray saved = passwordFor(i);
            QVERIFY2(saved.size() < 4 || !edit->text().contains(QString::fromLatin1(saved)),
                     "the saved password is shown");
        }
        ++count;
    }
    countSink("name on the password page", count);
}

void TestHostileStrings::thePasswordFieldTakesOnlyWhatIsHandedOver()
{
    RaWifiInputWnd page(nullptr);
    page.setAPData(record("Home"));
    page.show();
    QLineEdit* const edit = page.findChild<QLineEdit*>();
    QByteArray handedOver;
    bool isHandedOver = false;
    connect(&page, &RaWifiInputWnd::sendWifiInputOkMsg, &page, [&](const APData& data) {
        isHandedOver = true;
        handedOver = data.psk;
    });
    int count = 0;
    int taken = 0;
    for (const QByteArray& bytes : m_strings) {
        for (const QString& text : {QString::fromLatin1(bytes), QString::fromUtf8(bytes)}) {
            page.clear();
            const QString placeholder = edit->text();
            page.setTextSlot(text, edit->objectName());
            isHandedOver = false;
            page.onOkClicked();
            const bool isTyped = edit->text() != placeholder;
            QCOMPARE(isHandedOver, isTyped);
            if (isTyped) {
                QCOMPARE(edit->text(), text);
                QCOMPARE(handedOver, text.toLatin1());
                QVERIFY(handedOver.size() <= 64 && isVisible(text));
                ++taken;
            }
            const QByteArray objection = paintingObjection(*edit);
            QVERIFY2(objection.isEmpty(), objection.constData());
        }
        ++count;
    }
    QVERIFY(taken > 100);
    countSink("password field", count);
}

void TestHostileStrings::messageWindowsShowPlainText()
{
    Page page;
    page->checkAPListWnd();
    RaWifiMsg window(nullptr);
    window.setGeometry(0, 100, 320, 70);
    int count = 0;
    for (const QByteArray& bytes : m_strings) {
        const QString text = QString::fromUtf8(bytes);
        window.m_text = text;
        QByteArray objection = paintingObjection(window);
        QVERIFY2(objection.isEmpty(), objection.constData());
        QCOMPARE(window.accessibleName(), text);
        page->recShowInfo(0, text, text, -1);

        RaWifiProcessingWnd processing(nullptr, text);
        objection = paintingObjection(processing);
        QVERIFY2(objection.isEmpty(), objection.constData());
        ++count;
    }
    countSink("message window", count);
    countSink("processing window", count);
}

void TestHostileStrings::dumpsKeepToTheirLines()
{
    int count = 0;
    for (int i = 0; i < m_strings.size(); ++i) {
        APData one = record(m_strings.at(i), passwordFor(i));
        RaItemPushBtn row(nullptr);
        const QByteArray log = capturedOutput(stderr, [&] {
            printAPDataPoint(&one);
            row.addItemData(&one, i);
            row.setText(QString::fromUtf8(m_strings.at(i)));
        });
        QCOMPARE(int(log.count('\n')), 16 + 1 + 2);
        const QByteArray objection = logObjection(log);
        QVERIFY2(objection.isEmpty(), objection.constData());
        QVERIFY2(log.contains("essid = " + asLogged(one.essid) + ' '), log.constData());
        QVERIFY2(log.contains("psk = " + asLogged(one.psk) + ' '), log.constData());
        ++count;
    }
    countSink("log lines of records and rows", count);
}

void TestHostileStrings::theHostGetsExactlyWhatIsSent()
{
    Host host;
    int count = 0;
    for (const QByteArray& bytes : m_strings) {
        const QString message = QString::fromLatin1(bytes);
        QVERIFY(QCopChannel::send(QLatin1String("mainprocess"), message, bytes));
        QCOMPARE(host.take(), Lines() << bytes);
        QCOMPARE(host.messages, QStringList() << message);
        host.messages.clear();
        ++count;
    }
    countSink("message channel", count);

    // A name does not get into what the library itself sends.
    RaWifiManager* const manager = RaWifiManager::instance();
    manager->connectUserSelectAP(mac, WPA2_PSK, "%s $(touch /canary)", "%n %1 %2", 3, 0, 0);
    QCoreApplication::processEvents();
    QCOMPARE(host.take(), Lines());
}

void TestHostileStrings::everyStringHasBeenThroughEverySink()
{
    std::printf("%d strings through %d sinks: %s\n", int(m_strings.size()), int(m_sinks.size()),
                qPrintable(m_sinks.join(QLatin1String(", "))));
    std::fflush(stdout);
    QCOMPARE(int(m_sinks.size()), 15);
}

int main(int argc, char** argv)
{
    return managertest::run<TestHostileStrings>(argc, argv);
}

#include "tst_hostilestrings.moc"
