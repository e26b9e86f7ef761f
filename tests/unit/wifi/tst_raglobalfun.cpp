// SPDX-FileCopyrightText: 2026 The rawificontrol authors
// SPDX-License-Identifier: MIT
#include "raglobalfun.h"

#include "fakesystem.h"
#include "hostilefiles.h"
#include "loggedmessages.h"
#include "rawifiglobals.h"

#include <QFontMetrics>
#include <QtTest>
#include <cstring>
#include <functional>
#include <sys/stat.h>
#include <unistd.h>

Q_DECLARE_METATYPE(std::function<int(char*)>)

namespace {

const int bufferSize = 256;
const char answerPath[] = "/home/wifi/temp.txt";
const char statusPath[] = "/home/wifi/connectstatus.txt";
const char linkPath[] = "/home/wifi/linkap.txt";
const char signalPath[] = "/home/wifi/signal.txt";
const char macPath[] = "/home/wifi/curmac.txt";

typedef std::function<int(char*)> Reader;

/** A path as the readers take it. */
QByteArray pathTo(const char* path)
{
    return QByteArray(path);
}

QByteArray tabs(const char* text)
{
    return QByteArray(text).replace("|", "\t");
}

APData filledRecord()
{
    APData ap;
    std::memset(&ap, 0, sizeof ap);
    std::strcpy(ap.essid, "home");
    std::strcpy(ap.macAddr, "00:11:22:33:44:55");
    std::strcpy(ap.key_mgmt, "WPA2-PSK");
    std::strcpy(ap.wpa_state, "COMPLETED");
    std::strcpy(ap.psk, "secret");
    std::strcpy(ap.IP, "10.0.0.2");
    ap.encry[0] = 4;
    ap.encry[1] = 3;
    ap.sigquality = 2;
    ap.id = 5;
    ap.snow = 1;
    ap.orderbynum = 6;
    ap.connectSUC = 1;
    ap.authMode = 7;
    ap.keyIndex = 3;
    ap.is_encry = 2;
    return ap;
}

int fieldCount()
{
    return 16; // lines of a record's dump
}

} // namespace

class TestGlobalFunctions : public QObject
{
    Q_OBJECT
private Q_SLOTS:
    void init();
    void cleanup();

    void existingFiles_data();
    void existingFiles();
    void lineIsCutAt255Characters_data();
    void lineIsCutAt255Characters();
    void lineBufferIsZeroedToItsEnd();
    void lineOfNothingIsRefused();

    void verdictOfAnAnswer_data();
    void verdictOfAnAnswer();
    void missingAnswerIsPrinted_data();
    void missingAnswerIsPrinted();
    void numberOfALinkFile_data();
    void numberOfALinkFile();
    void linkIsUpFromOneOn_data();
    void linkIsUpFromOneOn();
    void signalValue_data();
    void signalValue();
    void missingSignalFileIsPrinted();
    void addressOfAFile_data();
    void addressOfAFile();
    void addressIsCutToItsBuffer();
    void gatewayOfAnAddress_data();
    void gatewayOfAnAddress();
    void gatewayIsAppendedWithoutADot();
    void gatewayStaysWithinItsBuffer();
    void nullArgumentsOfAddressFunctions();
    void interfaceAndRouteQuestionsDoNothing();
    void hostileFilesAreNotRead_data();
    void hostileFilesAreNotRead();
    void hostileFilesAreNotWrittenTo_data();
    void hostileFilesAreNotWrittenTo();

    void digitsOfAField_data();
    void digitsOfAField();
    void restOfALine_data();
    void restOfALine();
    void partOfALine_data();
    void partOfALine();
    void flagGroups_data();
    void flagGroups();
    void fieldsOfALineOfFullLength();
    void aSeparatorThatIsNulStaysWithinTheLine();
    void nullArgumentsOfFieldCutters();

    void kindOfAFlagText_data();
    void kindOfAFlagText();
    void textOfAKind_data();
    void textOfAKind();
    void signalLevels_data();
    void signalLevels();

    void statusFileOfTheSupplicant();
    void statusValueKeepsItsLineBreak();
    void statusValueWithoutLineBreak();
    void linkStateDependsOnTheOrderOfLines_data();
    void linkStateDependsOnTheOrderOfLines();
    void firstKeyInTheLineDecides_data();
    void firstKeyInTheLineDecides();
    void ciphersAndUnknownLinesChangeNothing();
    void fieldsWithoutALineKeepTheirContent();
    void statusValuesAreCutToTheirFields_data();
    void statusValuesAreCutToTheirFields();
    void statusLineLongerThanALineHidesNoOther();
    void statusFailures();
    void readOnlyStatusFileIsNotOpened();

    void accessPointInformationRunsTheScript();
    void accessPointInformationFailures();
    void disconnectRemovesEveryStatusFile();
    void addressOfTheJoinedNetworkIsSaved();
    void textThatIsNoAddressIsNotSaved_data();
    void textThatIsNoAddressIsNotSaved();
    void savedAddressIsReadBack_data();
    void savedAddressIsReadBack();
    void missingSavedAddressIsPrinted();
    void savedAddressIsDeleted();
    void currentRecordIsHandedOver();
    void currentRecordWithoutABlockIsOnlyLogged();

    void croppedText_data();
    void croppedText();
    void croppedTextKeepsItsLastProbe();
    void longTextsTakeTenProbes();

private:
    HostileFiles m_hostile;
};

void TestGlobalFunctions::init()
{
    fakesystem::reset();
    fakesystem::removeFilesIn("/home/wifi");
    m_hostile.reset();
}

void TestGlobalFunctions::cleanup()
{
    delete g_PassParam.pinfo;
    g_PassParam.pinfo = nullptr;
}

// --- Files -----------------------------------------------------------------------------------------------

void TestGlobalFunctions::existingFiles_data()
{
    QTest::addColumn<QByteArray>("path");
    QTest::addColumn<bool>("exists");
    fakesystem::writeFile(linkPath, "1");
    QTest::newRow("file") << pathTo("/dev/null") << true;
    QTest::newRow("directory") << pathTo("/home/wifi") << true;
    QTest::newRow("missing") << pathTo("/home/wifi/no such file") << false;
    QTest::newRow("empty path") << pathTo("") << false;
    QTest::newRow("below a file") << pathTo("/dev/null/x") << false;
}

void TestGlobalFunctions::existingFiles()
{
    QFETCH(QByteArray, path);
    QFETCH(bool, exists);
    QCOMPARE(fileIsExisting(path.constData()), exists);
    QCOMPARE(fileIsExisting(nullptr), false);
}

void TestGlobalFunctions::lineIsCutAt255Characters_data()
{
    QTest::addColumn<QByteArray>("content");
    QTest::addColumn<QByteArray>("line");
    QTest::addColumn<QByteArray>("next");
    const QByteArray x254(254, 'x');
    const QByteArray x255(255, 'x');
    QTest::newRow("line break is kept") << QByteArray("one\ntwo\n") << QByteArray("one\n") << QByteArray("two\n");
    QTest::newRow("without line break") << QByteArray("one") << QByteArray("one") << QByteArray();
    QTest::newRow("empty line") << QByteArray("\nx") << QByteArray("\n") << QByteArray("x");
    QTest::newRow("254 and line break") << x254 + "\ny" << x254 + "\n" << QByteArray("y");
    QTest::newRow("255 and line break") << x255 + "\n" << x255 << QByteArray("\n");
    QTest::newRow("255 at the end") << x255 << x255 << QByteArray();
    QTest::newRow("256") << x255 + "x\n" << x255 << QByteArray("x\n");
}

void TestGlobalFunctions::lineIsCutAt255Characters()
{
    QFETCH(QByteArray, content);
    fakesystem::writeFile(answerPath, content);
    FILE* const file = std::fopen(answerPath, "r");
    char line[bufferSize];
    const int first = GetNextLineStr(line, file);
    const QByteArray firstLine(line);
    char nextLine[bufferSize];
    const int second = GetNextLineStr(nextLine, file);
    const int third = GetNextLineStr(nextLine, file);
    std::rewind(file);
    GetNextLineStr(line, file);
    GetNextLineStr(nextLine, file);
    std::fclose(file);
    QFETCH(QByteArray, next);
    QCOMPARE(first, 0);
    QTEST(firstLine, "line");
    QCOMPARE(second, next.isEmpty() ? -1 : 0);
    QCOMPARE(third, -1);
    QCOMPARE(QByteArray(nextLine), next);
}

void TestGlobalFunctions::lineBufferIsZeroedToItsEnd()
{
    fakesystem::writeFile(answerPath, "ab\n");
    char line[bufferSize + 1];
    std::memset(line, 'z', sizeof line);
    FILE* const file = std::fopen(answerPath, "r");
    const int result = GetNextLineStr(line, file);
    std::fclose(file);
    QCOMPARE(result, 0);
    QCOMPARE(QByteArray(line, bufferSize), QByteArray("ab\n") + QByteArray(bufferSize - 3, '\0'));
    QCOMPARE(line[bufferSize], 'z');
}

void TestGlobalFunctions::lineOfNothingIsRefused()
{
    char line[bufferSize] = "old";
    QCOMPARE(GetNextLineStr(line, nullptr), -1);
    fakesystem::writeFile(answerPath, "ab\n");
    FILE* const file = std::fopen(answerPath, "r");
    const int result = GetNextLineStr(nullptr, file);
    std::fclose(file);
    QCOMPARE(result, -1);
}

void TestGlobalFunctions::verdictOfAnAnswer_data()
{
    QTest::addColumn<QByteArray>("content");
    QTest::addColumn<int>("verdict");  // mode 0
    QTest::addColumn<int>("anything"); // any other mode
    QTest::newRow("OK") << QByteArray("OK\n") << 0 << 0;
    QTest::newRow("begins with OK") << QByteArray("OKAY") << 0 << 0;
    QTest::newRow("FAIL") << QByteArray("FAIL\n") << -1 << 0;
    QTest::newRow("begins with FAIL") << QByteArray("FAIL-BUSY\n") << -1 << 0;
    QTest::newRow("lower case") << QByteArray("ok\n") << -2 << 0;
    QTest::newRow("OK not at the start") << QByteArray(" OK\n") << -2 << 0;
    QTest::newRow("OK on the second line") << QByteArray("x\nOK\n") << -2 << 0;
    QTest::newRow("one letter") << QByteArray("O") << -2 << 0;
    QTest::newRow("empty file") << QByteArray() << -2 << -3;
    QTest::newRow("empty first line") << QByteArray("\nOK\n") << -2 << -3;
    QTest::newRow("a NUL first") << QByteArray("\0OK\n", 4) << -2 << -3;
    QTest::newRow("binary") << QByteArray("\xff\xfe\x01") << -2 << 0;
    QTest::newRow("very long line") << QByteArray(100000, 'x') << -2 << 0;
}

void TestGlobalFunctions::verdictOfAnAnswer()
{
    QFETCH(QByteArray, content);
    fakesystem::writeFile(answerPath, content);
    QByteArray path = answerPath;
    int verdict = 1;
    int anything = 1;
    int negativeMode = 1;
    const QByteArray printed = capturedOutput(stdout, [&] {
        verdict = isSuccByfile(path.data(), 0);
        anything = isSuccByfile(path.data(), 1);
        negativeMode = isSuccByfile(path.data(), -7);
    });
    QTEST(verdict, "verdict");
    QTEST(anything, "anything");
    QCOMPARE(negativeMode, anything);
    QCOMPARE(printed, QByteArray());
}

void TestGlobalFunctions::missingAnswerIsPrinted_data()
{
    QTest::addColumn<Reader>("reader");
    QTest::newRow("verdict") << Reader([](char* path) { return isSuccByfile(path, 0); });
    QTest::newRow("any answer") << Reader([](char* path) { return isSuccByfile(path, 1); });
    QTest::newRow("address") << Reader([](char* path) {
        char ip[16] = "old";
        return getIPInfoByfile(path, ip);
    });
    QTest::newRow("status") << Reader([](char* path) {
        APData ap = filledRecord();
        return getConnectStatusInfo(path, &ap);
    });
    QTest::newRow("status without a record") << Reader([](char* path) { return getConnectStatusInfo(path, nullptr); });
}

void TestGlobalFunctions::missingAnswerIsPrinted()
{
    QFETCH(Reader, reader);
    QByteArray path = "/home/wifi/missing.txt";
    int result = 0;
    int ofNull = 0;
    QCOMPARE(capturedOutput(stdout, [&] { result = reader(path.data()); }),
             QByteArray("Cannot get /home/wifi/missing.txt\n"));
    QCOMPARE(result, -1);
    QCOMPARE(capturedOutput(stdout, [&] { ofNull = reader(nullptr); }), QByteArray("Cannot get \n"));
    QCOMPARE(ofNull, -1);
}

void TestGlobalFunctions::numberOfALinkFile_data()
{
    QTest::addColumn<QByteArray>("content");
    QTest::addColumn<int>("number");
    QTest::newRow("one") << QByteArray("1\n") << 1;
    QTest::newRow("without line break") << QByteArray("1") << 1;
    QTest::newRow("negative") << QByteArray("-3\n") << -3;
    QTest::newRow("blanks before") << QByteArray("  12\n") << 12;
    QTest::newRow("text behind") << QByteArray("12x\n") << 12;
    QTest::newRow("octal and hexadecimal look") << QByteArray("010\n") << 10;
    QTest::newRow("hexadecimal is no number") << QByteArray("0x10\n") << 0;
    QTest::newRow("only the first line") << QByteArray("\n5\n") << 0;
    QTest::newRow("no number") << QByteArray("abc\n") << 0;
    QTest::newRow("empty") << QByteArray() << 0;
}

void TestGlobalFunctions::numberOfALinkFile()
{
    QFETCH(QByteArray, content);
    fakesystem::writeFile(linkPath, content);
    QByteArray path = linkPath;
    const int number = getLinkAP(path.data());
    QTEST(number, "number");
    QByteArray missing = "/home/wifi/missing.txt";
    QCOMPARE(capturedOutput(stdout, [&] { QCOMPARE(getLinkAP(missing.data()), 0); }), QByteArray());
    QCOMPARE(getLinkAP(nullptr), 0);
}

void TestGlobalFunctions::linkIsUpFromOneOn_data()
{
    QTest::addColumn<QByteArray>("content");
    QTest::addColumn<bool>("connected");
    QTest::newRow("0") << QByteArray("0\n") << false;
    QTest::newRow("1") << QByteArray("1\n") << true;
    QTest::newRow("2") << QByteArray("2\n") << true;
    QTest::newRow("-1") << QByteArray("-1\n") << false;
    QTest::newRow("empty") << QByteArray() << false;
    QTest::newRow("missing") << QByteArray("missing") << false;
}

void TestGlobalFunctions::linkIsUpFromOneOn()
{
    QFETCH(QByteArray, content);
    QFETCH(bool, connected);
    if (content != "missing") {
        fakesystem::writeFile(linkPath, content);
    }
    bool result = !connected;
    const QByteArray printed = capturedOutput(stdout, [&] { result = getIsConnect(); });
    QCOMPARE(result, connected);
    const QRegularExpression line(QLatin1String(connected ? "^raglobalfun\\.cpp getIsConnect \\d+ - :true \n$"
                                                          : "^raglobalfun\\.cpp getIsConnect \\d+ - :false \n$"));
    QVERIFY2(line.match(QString::fromLatin1(printed)).hasMatch(), printed.constData());
}

void TestGlobalFunctions::signalValue_data()
{
    numberOfALinkFile_data();
}

void TestGlobalFunctions::signalValue()
{
    QFETCH(QByteArray, content);
    fakesystem::writeFile(signalPath, content);
    int number = 77;
    QCOMPARE(capturedOutput(stdout, [&] { number = getAPSignalValue(); }), QByteArray());
    QTEST(number, "number");
}

void TestGlobalFunctions::missingSignalFileIsPrinted()
{
    int number = 77;
    const QByteArray printed = capturedOutput(stdout, [&] { number = getAPSignalValue(); });
    QCOMPARE(number, 0);
    const QRegularExpression line(QLatin1String("^raglobalfun\\.cpp getAPSignalValue \\d+ fopen failed\n$"));
    QVERIFY2(line.match(QString::fromLatin1(printed)).hasMatch(), printed.constData());
}

void TestGlobalFunctions::addressOfAFile_data()
{
    QTest::addColumn<QByteArray>("content");
    QTest::addColumn<int>("result");
    QTest::addColumn<QByteArray>("address");
    QTest::newRow("address") << QByteArray("192.168.1.5\n") << 0 << QByteArray("192.168.1.5");
    QTest::newRow("without line break") << QByteArray("192.168.1.5") << 0 << QByteArray("192.168.1.5");
    QTest::newRow("longest") << QByteArray("255.255.255.255\n") << 0 << QByteArray("255.255.255.255");
    QTest::newRow("two dots") << QByteArray("10.0.0\n") << -1 << QByteArray();
    QTest::newRow("four dots") << QByteArray("10.0.0.0.1\n") << -1 << QByteArray();
    QTest::newRow("no dot") << QByteArray("failed\n") << -1 << QByteArray();
    QTest::newRow("empty first line") << QByteArray("\n10.0.0.1\n") << -1 << QByteArray();
    QTest::newRow("empty file") << QByteArray() << -1 << QByteArray();
    QTest::newRow("only the dots count") << QByteArray("a.b.c.d\n") << 0 << QByteArray("a.b.c.d");
}

void TestGlobalFunctions::addressOfAFile()
{
    QFETCH(QByteArray, content);
    fakesystem::writeFile(answerPath, content);
    QByteArray path = answerPath;
    char ip[16] = "oldoldold";
    const int result = getIPInfoByfile(path.data(), ip);
    QTEST(result, "result");
    QTEST(QByteArray(ip), "address");
    if (result != 0) {
        QCOMPARE(QByteArray(ip, 4), QByteArray(4, '\0'));
    }
}

void TestGlobalFunctions::addressIsCutToItsBuffer()
{
    fakesystem::writeFile(answerPath, "1.2.3.4" + QByteArray(200, '5') + "\n");
    QByteArray path = answerPath;
    char ip[17];
    std::memset(ip, 'z', sizeof ip);
    QCOMPARE(getIPInfoByfile(path.data(), ip), 0);
    QCOMPARE(QByteArray(ip), QByteArray("1.2.3.455555555"));
    QCOMPARE(ip[16], 'z');
}

void TestGlobalFunctions::gatewayOfAnAddress_data()
{
    QTest::addColumn<QByteArray>("address");
    QTest::addColumn<QByteArray>("gateway");
    QTest::newRow("home") << QByteArray("192.168.1.23") << QByteArray("192.168.1.1");
    QTest::newRow("10.1.2.3") << QByteArray("10.1.2.3") << QByteArray("10.1.2.1");
    QTest::newRow("longest") << QByteArray("255.255.255.255") << QByteArray("255.255.255.1");
    QTest::newRow("one dot") << QByteArray("a.b") << QByteArray("a.1");
    QTest::newRow("dot first") << QByteArray(".5") << QByteArray(".1");
    QTest::newRow("dot last") << QByteArray("10.0.0.") << QByteArray("10.0.0.1");
    QTest::newRow("empty") << QByteArray() << QByteArray(".1");
}

void TestGlobalFunctions::gatewayOfAnAddress()
{
    QFETCH(QByteArray, address);
    char gateway[16] = "";
    QCOMPARE(getDefaultGw(address.data(), gateway), 0);
    QTEST(QByteArray(gateway), "gateway");
}

void TestGlobalFunctions::gatewayIsAppendedWithoutADot()
{
    QByteArray address = "nodots";
    char gateway[16] = "10.0.0";
    QCOMPARE(getDefaultGw(address.data(), gateway), 0);
    QCOMPARE(QByteArray(gateway), QByteArray("10.0.0.1"));
}

void TestGlobalFunctions::gatewayStaysWithinItsBuffer()
{
    QByteArray addresses[] = {QByteArray(200, '1') + ".5", QByteArray(200, '1')};
    for (QByteArray& address : addresses) {
        char gateway[17];
        std::memset(gateway, 'z', sizeof gateway);
        QCOMPARE(getDefaultGw(address.data(), gateway), 0);
        QVERIFY(std::memchr(gateway, '\0', 16) != nullptr);
        QCOMPARE(gateway[16], 'z');
    }
}

void TestGlobalFunctions::nullArgumentsOfAddressFunctions()
{
    QByteArray path = answerPath;
    fakesystem::writeFile(answerPath, "10.0.0.1\n");
    char text[16] = "";
    QCOMPARE(getIPInfoByfile(path.data(), nullptr), -1);
    QCOMPARE(getDefaultGw(nullptr, text), -1);
    QCOMPARE(getDefaultGw(text, nullptr), -1);
    QCOMPARE(QByteArray(text), QByteArray());
}

void TestGlobalFunctions::interfaceAndRouteQuestionsDoNothing()
{
    char text[] = "old";
    QCOMPARE(getinterface(text), 0);
    QCOMPARE(getrouteStatusInfo(text), 0);
    QCOMPARE(getinterface(nullptr), 0);
    QCOMPARE(getrouteStatusInfo(nullptr), 0);
    QCOMPARE(QByteArray(text), QByteArray("old"));
    QVERIFY(fakesystem::commands().isEmpty());
}

void TestGlobalFunctions::hostileFilesAreNotRead_data()
{
    QTest::addColumn<QByteArray>("path");
    QTest::addColumn<Reader>("reader");
    QTest::addColumn<int>("refused"); // for whatever is not a regular file
    QTest::addColumn<int>("zeros");   // for a huge file of zeros
    QTest::newRow("verdict") << pathTo(answerPath) << Reader([](char* path) { return isSuccByfile(path, 0); }) << -4
                             << -2;
    QTest::newRow("any answer") << pathTo(answerPath) << Reader([](char* path) { return isSuccByfile(path, 1); }) << -4
                                << -3;
    QTest::newRow("link number") << pathTo(linkPath) << Reader([](char* path) { return getLinkAP(path); }) << 0 << 0;
    QTest::newRow("link state") << pathTo(linkPath) << Reader([](char*) { return static_cast<int>(getIsConnect()); })
                                << 0 << 0;
    QTest::newRow("signal") << pathTo(signalPath) << Reader([](char*) { return getAPSignalValue(); }) << 0 << 0;
    QTest::newRow("address") << pathTo(answerPath) << Reader([](char* path) {
        char ip[16] = "";
        return getIPInfoByfile(path, ip);
    }) << -4 << -1;
    QTest::newRow("joined network") << pathTo(macPath) << Reader([](char*) {
        char mac[18] = "";
        return getConnectMac(mac);
    }) << 0 << 0;
    QTest::newRow("status") << pathTo(statusPath) << Reader([](char* path) {
        APData ap = filledRecord();
        const int result = getConnectStatusInfo(path, &ap);
        return std::strcmp(ap.macAddr, "00:11:22:33:44:55") == 0 ? result : 1;
    }) << -4 << 0;
}

void TestGlobalFunctions::hostileFilesAreNotRead()
{
    QFETCH(QByteArray, path);
    QFETCH(Reader, reader);
    QFETCH(int, refused);
    for (const HostileFiles::Kind kind : HostileFiles::notRegular()) {
        m_hostile.plant(path.constData(), kind, "OK 1\nbssid=66:66:66:66:66:66\n1.2.3.4\n");
        QByteArray own = path;
        QVERIFY2(reader(own.data()) == refused, HostileFiles::name(kind));
        QVERIFY2(m_hostile.isUntouched(), HostileFiles::name(kind));
    }
    m_hostile.plant(path.constData(), HostileFiles::DanglingLink, "");
    reader(path.data());
    QVERIFY(m_hostile.isUntouched());
    m_hostile.plant(path.constData(), HostileFiles::Gigabyte, "");
    const int zeros = reader(path.data());
    QTEST(zeros, "zeros");
    m_hostile.reset();
}

void TestGlobalFunctions::hostileFilesAreNotWrittenTo_data()
{
    QTest::addColumn<QByteArray>("path");
    QTest::addColumn<Reader>("writer");
    QTest::addColumn<QByteArray>("content");
    QTest::newRow("link state") << pathTo(linkPath) << Reader([](char*) {
        SendAPStatusToOther(true);
        return 0;
    }) << QByteArray("1\n");
    QTest::newRow("joined network") << pathTo(macPath) << Reader([](char*) {
        saveConnectMac(QLatin1String("00:11:22:33:44:55"));
        return 0;
    }) << QByteArray("00:11:22:33:44:55\n");
    QTest::newRow("end of the status script") << pathTo("/home/wifi/result") << Reader([](char*) {
        APData ap = filledRecord();
        return getAPInfo(&ap);
    }) << QByteArray();
}

void TestGlobalFunctions::hostileFilesAreNotWrittenTo()
{
    QFETCH(QByteArray, path);
    QFETCH(Reader, writer);
    QFETCH(QByteArray, content);
    for (const HostileFiles::Kind kind : HostileFiles::traps()) {
        m_hostile.plant(path.constData(), kind, "as it was");
        writer(path.data());
        QVERIFY2(m_hostile.isUntouched(), HostileFiles::name(kind));
        QVERIFY2(QFileInfo(QString::fromLatin1(path)).isFile(), HostileFiles::name(kind));
        QVERIFY2(fakesystem::readFile(path.constData()) == content, HostileFiles::name(kind));
    }
}

// --- Fields of a scan line -------------------------------------------------------------------------------

void TestGlobalFunctions::digitsOfAField_data()
{
    QTest::addColumn<QByteArray>("line");
    QTest::addColumn<int>("pos");
    QTest::addColumn<int>("next");
    QTest::addColumn<QByteArray>("digits");
    QTest::newRow("one field") << tabs("2412|-45|") << 0 << 4 << QByteArray("2412");
    QTest::newRow("minus is skipped") << tabs("2412|-45|x") << 4 << 8 << QByteArray("45");
    QTest::newRow("separators before") << tabs("|||7|") << 0 << 4 << QByteArray("7");
    QTest::newRow("letters between digits") << tabs("12a3|") << 0 << 4 << QByteArray("123");
    QTest::newRow("letters before") << tabs("ab5|") << 0 << 3 << QByteArray("5");
    QTest::newRow("to the end of the line") << QByteArray("45") << 0 << 2 << QByteArray("45");
    QTest::newRow("line break is skipped") << QByteArray("45\n") << 0 << 3 << QByteArray("45");
    QTest::newRow("no digit") << tabs("ab|cd") << 0 << 5 << QByteArray();
    QTest::newRow("end of the line") << QByteArray("45") << 2 << 2 << QByteArray();
    QTest::newRow("behind the line") << QByteArray("45") << 9 << 9 << QByteArray();
    QTest::newRow("-1") << QByteArray("45") << -1 << -2 << QByteArray();
    QTest::newRow("far below 0") << QByteArray("45") << -999 << -2 << QByteArray();
    QTest::newRow("not a digit of the encoding") << QByteArray("\xb2\xff"
                                                               "4")
                                                 << 0 << 3 << QByteArray("4");
}

void TestGlobalFunctions::digitsOfAField()
{
    QFETCH(QByteArray, line);
    QFETCH(int, pos);
    char out[bufferSize] = "";
    const int next = getDefineIntValue(line.data(), pos, out, '\t');
    QTEST(next, "next");
    QTEST(QByteArray(out), "digits");
}

void TestGlobalFunctions::restOfALine_data()
{
    QTest::addColumn<QByteArray>("line");
    QTest::addColumn<int>("pos");
    QTest::addColumn<int>("result");
    QTest::addColumn<QByteArray>("rest");
    QTest::newRow("all") << QByteArray("a b\n") << 0 << 1 << QByteArray("a b\n");
    QTest::newRow("part") << QByteArray("abcd") << 2 << 1 << QByteArray("cd");
    QTest::newRow("end of the line") << QByteArray("abcd") << 4 << 1 << QByteArray();
    QTest::newRow("behind the line") << QByteArray("abcd") << 5 << 1 << QByteArray();
    QTest::newRow("-1") << QByteArray("abcd") << -1 << -2 << QByteArray();
}

void TestGlobalFunctions::restOfALine()
{
    QFETCH(QByteArray, line);
    QFETCH(int, pos);
    char out[bufferSize] = "";
    int result = 0;
    const QByteArray printed = capturedOutput(stdout, [&] { result = getDefineStrValue(line.data(), pos, out); });
    QTEST(result, "result");
    QTEST(QByteArray(out), "rest");
    const QRegularExpression expected(
        QLatin1String(result == 1 ? "^raglobalfun\\.cpp getDefineStrValue \\d+ \n$" : "^$"));
    QVERIFY2(expected.match(QString::fromLatin1(printed)).hasMatch(), printed.constData());
}

void TestGlobalFunctions::partOfALine_data()
{
    QTest::addColumn<QByteArray>("line");
    QTest::addColumn<int>("pos");
    QTest::addColumn<int>("end");
    QTest::addColumn<int>("next");
    QTest::addColumn<QByteArray>("part");
    QTest::newRow("up to, not including, the end") << QByteArray("abcdef") << 1 << 4 << 4 << QByteArray("bcd");
    QTest::newRow("one character") << QByteArray("abcdef") << 1 << 2 << 2 << QByteArray("b");
    QTest::newRow("end at the start") << QByteArray("abcdef") << 2 << 2 << 2 << QByteArray();
    QTest::newRow("end below the start") << QByteArray("abcdef") << 4 << 2 << 4 << QByteArray();
    QTest::newRow("separators before are skipped, not counted") << tabs("||ab|c") << 0 << 6 << 4 << tabs("ab|c");
    QTest::newRow("only separators") << tabs("||||") << 0 << 4 << 0 << QByteArray();
    QTest::newRow("blanks are kept") << QByteArray("  ab") << 0 << 4 << 4 << QByteArray("  ab");
    QTest::newRow("end behind the line") << QByteArray("ab") << 0 << 99 << 2 << QByteArray("ab");
    QTest::newRow("start behind the line") << QByteArray("ab") << 9 << 99 << 9 << QByteArray();
    QTest::newRow("-1") << QByteArray("ab") << -1 << 2 << -2 << QByteArray();
}

void TestGlobalFunctions::partOfALine()
{
    QFETCH(QByteArray, line);
    QFETCH(int, pos);
    QFETCH(int, end);
    char out[bufferSize] = "";
    const int next = getDefineStrValue(line.data(), pos, out, '\t', end);
    QTEST(next, "next");
    QTEST(QByteArray(out), "part");
}

void TestGlobalFunctions::flagGroups_data()
{
    QTest::addColumn<QByteArray>("line");
    QTest::addColumn<int>("pos");
    QTest::addColumn<int>("next");
    QTest::addColumn<QByteArray>("first");
    QTest::addColumn<QByteArray>("other");
    const QByteArray none;
    QTest::newRow("one group") << tabs("|[ESS]|n") << 0 << 6 << QByteArray("ESS") << none;
    QTest::newRow("ESS behind is no other")
        << tabs("|[WPA2-PSK-CCMP][ESS]|n") << 0 << 21 << QByteArray("WPA2-PSK-CCMP") << none;
    QTest::newRow("WPS behind is no other") << tabs("[WEP][WPS][ESS]|n") << 0 << 15 << QByteArray("WEP") << none;
    QTest::newRow("two kinds") << tabs("[WPA-PSK-TKIP][WPA2-PSK-CCMP][ESS]|n") << 0 << 34 << QByteArray("WPA-PSK-TKIP")
                               << QByteArray("WPA2-PSK-CCMP");
    QTest::newRow("the last other wins") << tabs("[A][B][LONGER][C]|n") << 0 << 17 << QByteArray("A")
                                         << QByteArray("C");
    QTest::newRow("ESS as the first") << tabs("[ESS][WPA2-PSK-CCMP]|") << 0 << 20 << QByteArray("ESS")
                                      << QByteArray("WPA2-PSK-CCMP");
    QTest::newRow("WPS-like is another") << tabs("[A][WPSX][ESS ]|") << 0 << 15 << QByteArray("A")
                                         << QByteArray("ESS ");
    QTest::newRow("characters outside are ignored")
        << tabs("x[A]y[B]z|n") << 0 << 9 << QByteArray("A") << QByteArray("B");
    QTest::newRow("to the end of the line") << QByteArray("[A][B]") << 0 << 6 << QByteArray("A") << QByteArray("B");
    QTest::newRow("empty groups") << tabs("[][]|") << 0 << 4 << none << none;
    QTest::newRow("not closed") << tabs("[A][B|n") << 0 << 5 << QByteArray("A") << none;
    QTest::newRow("not opened") << tabs("A][B]|n") << 0 << 5 << QByteArray("B") << none;
    QTest::newRow("no group in the line") << tabs("|plain|n") << 0 << 0 << none << none;
    QTest::newRow("a group only further on") << tabs("ab|[A]") << 0 << 2 << none << none;
    QTest::newRow("only separators") << tabs("[A]|||") << 3 << 6 << none << none;
    QTest::newRow("behind the line") << QByteArray("[A]") << 9 << 9 << none << none;
    QTest::newRow("-1") << QByteArray("[A]") << -1 << -2 << none << none;
}

void TestGlobalFunctions::flagGroups()
{
    QFETCH(QByteArray, line);
    QFETCH(int, pos);
    char first[bufferSize] = "";
    char other[bufferSize] = "";
    const int next = getEncryTypeValue(line.data(), pos, first, other, '\t', '[', ']');
    QTEST(next, "next");
    QTEST(QByteArray(first), "first");
    QTEST(QByteArray(other), "other");
}

void TestGlobalFunctions::fieldsOfALineOfFullLength()
{
    char out[bufferSize] = "";
    char other[bufferSize] = "";
    QByteArray digits(255, '7');
    QCOMPARE(getDefineIntValue(digits.data(), 0, out, '\t'), 255);
    QCOMPARE(QByteArray(out), digits);
    QCOMPARE(getDefineStrValue(digits.data(), 0, other, '\t', 255), 255);
    QCOMPARE(QByteArray(other), digits);
    QByteArray flags = '[' + QByteArray(253, 'F') + ']';
    std::memset(out, 0, sizeof out);
    std::memset(other, 0, sizeof other);
    QCOMPARE(getEncryTypeValue(flags.data(), 0, out, other, '\t', '[', ']'), 255);
    QCOMPARE(QByteArray(out), QByteArray(253, 'F'));
    QCOMPARE(QByteArray(other), QByteArray());
}

void TestGlobalFunctions::aSeparatorThatIsNulStaysWithinTheLine()
{
    QByteArray line("x[ESS]\0[WEP]", 12); // what comes after the line is not part of it
    char first[256] = "";
    char other[256] = "";
    QCOMPARE(getEncryTypeValue(line.data(), 6, first, other, '\0', '[', ']'), 6);
    QCOMPARE(QByteArray(first), QByteArray());
    QCOMPARE(QByteArray(other), QByteArray());
}

void TestGlobalFunctions::nullArgumentsOfFieldCutters()
{
    char text[] = "12";
    char out[bufferSize] = "";
    QCOMPARE(getDefineIntValue(nullptr, 0, out, '\t'), -1);
    QCOMPARE(getDefineIntValue(text, 0, nullptr, '\t'), -1);
    QCOMPARE(getDefineStrValue(nullptr, 0, out), -1);
    QCOMPARE(getDefineStrValue(text, 0, nullptr), -1);
    QCOMPARE(getDefineStrValue(nullptr, 0, out, '\t', 2), -1);
    QCOMPARE(getDefineStrValue(text, 0, nullptr, '\t', 2), -1);
    QCOMPARE(getEncryTypeValue(nullptr, 0, out, out, '\t', '[', ']'), -1);
    QCOMPARE(getEncryTypeValue(text, 0, nullptr, out, '\t', '[', ']'), -1);
    QCOMPARE(getEncryTypeValue(text, 0, out, nullptr, '\t', '[', ']'), -1);
}

void TestGlobalFunctions::kindOfAFlagText_data()
{
    QTest::addColumn<QByteArray>("text");
    QTest::addColumn<int>("kind");
    QTest::newRow("WPA with two ciphers") << QByteArray("[WPA-PSK-CCMP+TKIP]") << 3;
    QTest::newRow("WPA2") << QByteArray("[WPA2-PSK-CCMP]") << 4;
    QTest::newRow("ESS") << QByteArray("[ESS]") << 1;
    QTest::newRow("WEP") << QByteArray("WEP") << 2;
    QTest::newRow("both WPA kinds") << QByteArray("WPA2-PSK WPA-PSK") << 3;
    QTest::newRow("WPA2 and WEP") << QByteArray("WEP WPA2-PSK") << 4;
    QTest::newRow("enterprise has no known kind") << QByteArray("WPA2-EAP-CCMP") << 1;
    QTest::newRow("lower case") << QByteArray("wep") << 1;
    QTest::newRow("empty") << QByteArray() << 1;
}

void TestGlobalFunctions::kindOfAFlagText()
{
    QFETCH(QByteArray, text);
    const int kind = getEncryValue(text.data());
    QTEST(kind, "kind");
    QCOMPARE(getEncryValue(nullptr), -1);
}

void TestGlobalFunctions::textOfAKind_data()
{
    QTest::addColumn<int>("kind");
    QTest::addColumn<int>("result");
    QTest::addColumn<QByteArray>("text");
    QTest::newRow("NOENCRY") << 1 << 0 << QByteArray("NOENCRY");
    QTest::newRow("WEP") << 2 << 0 << QByteArray("WEP");
    QTest::newRow("WPA-PSK") << 3 << 0 << QByteArray("WPA-PSK");
    QTest::newRow("WPA2-PSK") << 4 << 0 << QByteArray("WPA2-PSK");
    QTest::newRow("0") << 0 << -2 << QByteArray();
    QTest::newRow("5") << 5 << -2 << QByteArray();
    QTest::newRow("-1") << -1 << -2 << QByteArray();
}

void TestGlobalFunctions::textOfAKind()
{
    QFETCH(int, kind);
    char out[100] = "abcdefg";
    const int result = getkeymgmtByEncryValue(kind, out);
    QTEST(result, "result");
    QTEST(QByteArray(out), "text");
    if (result != 0) {
        QCOMPARE(QByteArray(out, 7), QByteArray("\0\0\0\0efg", 7)); // only the first four bytes are cleared
    }
    QCOMPARE(getkeymgmtByEncryValue(kind, nullptr), -1);
}

void TestGlobalFunctions::signalLevels_data()
{
    QTest::addColumn<int>("value");
    QTest::addColumn<int>("level");
    const int table[][2] = {
        {-2147483647 - 1, 1}, {-60, 1}, {0, 1}, {15, 1}, {16, 2}, {30, 2}, {31, 3}, {45, 3}, {46, 4}, {99, 4},
        {2147483647, 4}};
    for (const auto& row : table) {
        QTest::newRow(QByteArray::number(row[0]).constData()) << row[0] << row[1];
    }
}

void TestGlobalFunctions::signalLevels()
{
    QFETCH(int, value);
    const int level = calculateSignalLevel(value, 5);
    QTEST(level, "level");
    QCOMPARE(calculateSignalLevel(value, 0), level);
    QCOMPARE(calculateSignalLevel(value, 100), level);
}

// --- The link and the current access point ---------------------------------------------------------------

void TestGlobalFunctions::statusFileOfTheSupplicant()
{
    fakesystem::writeFile(statusPath, "bssid=02:00:00:00:01:00\n"
                                      "freq=2412\n"
                                      "ssid=home\n"
                                      "id=3\n"
                                      "mode=station\n"
                                      "pairwise_cipher=CCMP\n"
                                      "group_cipher=TKIP\n"
                                      "key_mgmt=WPA2-PSK\n"
                                      "wpa_state=COMPLETED\n"
                                      "ip_address=192.168.1.23\n"
                                      "address=02:00:00:00:00:00\n");
    APData ap = filledRecord();
    ap.id = 0;
    ap.snow = 0;
    QByteArray path = statusPath;
    QCOMPARE(getConnectStatusInfo(path.data(), &ap), 0);
    QCOMPARE(QByteArray(ap.macAddr), QByteArray("02:00:00:00:01:00")); // the field is too short for the line break
    QCOMPARE(QByteArray(ap.essid), QByteArray("home\n"));
    QCOMPARE(ap.id, 3);
    QCOMPARE(QByteArray(ap.key_mgmt), QByteArray("WPA2-PSK\n"));
    QCOMPARE(QByteArray(ap.wpa_state), QByteArray("COMPLETED\n"));
    QCOMPARE(ap.snow, 2);
    QCOMPARE(QByteArray(ap.IP), QByteArray("192.168.1.23\n"));
}

void TestGlobalFunctions::statusValueKeepsItsLineBreak()
{
    fakesystem::writeFile(statusPath, "ssid=Home\n");
    APData ap = filledRecord();
    QByteArray path = statusPath;
    QCOMPARE(getConnectStatusInfo(path.data(), &ap), 0);
    QCOMPARE(QByteArray(ap.essid, sizeof ap.essid), QByteArray("Home\n").leftJustified(40, '\0'));
}

void TestGlobalFunctions::statusValueWithoutLineBreak()
{
    fakesystem::writeFile(statusPath, "ssid=Home");
    APData ap = filledRecord();
    QByteArray path = statusPath;
    QCOMPARE(getConnectStatusInfo(path.data(), &ap), 0);
    QCOMPARE(QByteArray(ap.essid), QByteArray("Home"));
}

void TestGlobalFunctions::linkStateDependsOnTheOrderOfLines_data()
{
    QTest::addColumn<QByteArray>("content");
    QTest::addColumn<int>("state");
    QTest::newRow("completed before key management") << QByteArray("wpa_state=COMPLETED\nkey_mgmt=WPA-PSK\n") << 1;
    QTest::newRow("completed after key management") << QByteArray("key_mgmt=WPA-PSK\nwpa_state=COMPLETED\n") << 2;
    QTest::newRow("completed without key management") << QByteArray("wpa_state=COMPLETED\n") << 1;
    QTest::newRow("key management as an empty text") << QByteArray("key_mgmt=\nwpa_state=COMPLETED\n") << 2;
    QTest::newRow("empty value at the end") << QByteArray("wpa_state=COMPLETED") << 1;
    QTest::newRow("scanning") << QByteArray("key_mgmt=WPA-PSK\nwpa_state=SCANNING\n") << 0;
    QTest::newRow("begins with COMPLETED") << QByteArray("wpa_state=COMPLETEDx\n") << 1;
    QTest::newRow("cut short") << QByteArray("wpa_state=COMPLETE\n") << 0;
    QTest::newRow("without a value") << QByteArray("wpa_state\n") << 0;
    QTest::newRow("the last line counts") << QByteArray("wpa_state=COMPLETED\nwpa_state=INACTIVE\n") << 0;
}

void TestGlobalFunctions::linkStateDependsOnTheOrderOfLines()
{
    QFETCH(QByteArray, content);
    fakesystem::writeFile(statusPath, content);
    APData ap = filledRecord();
    ap.key_mgmt[0] = '\0';
    ap.snow = 9;
    QByteArray path = statusPath;
    QCOMPARE(getConnectStatusInfo(path.data(), &ap), 0);
    QTEST(ap.snow, "state");
}

void TestGlobalFunctions::firstKeyInTheLineDecides_data()
{
    QTest::addColumn<QByteArray>("line");
    QTest::addColumn<QByteArray>("name");
    QTest::addColumn<QByteArray>("address");
    QTest::addColumn<int>("id");
    const QByteArray mac = "00:11:22:33:44:55";
    QTest::newRow("bssid is no ssid") << QByteArray("bssid=aa") << QByteArray() << QByteArray("aa") << 5;
    QTest::newRow("ssid is no id") << QByteArray("ssid=7") << QByteArray("7") << mac << 5;
    QTest::newRow("a name that looks like bssid=")
        << QByteArray("ssid=bssid=66:66:66:66:66:66") << QByteArray() << QByteArray("66:66:66:66:66:66") << 5;
    QTest::newRow("a name that looks like id=") << QByteArray("ssid=id=9") << QByteArray("id=9") << mac << 5;
    QTest::newRow("a name that looks like wpa_state=")
        << QByteArray("ssid=wpa_state=COMPLETED") << QByteArray("wpa_state=COMPLETED") << mac << 5;
    QTest::newRow("a longer key that ends in id=") << QByteArray("uuid=12-34") << QByteArray() << mac << 12;
    QTest::newRow("id that is no number") << QByteArray("id=x") << QByteArray() << mac << 0;
    QTest::newRow("format characters") << QByteArray("ssid=%s%n%1") << QByteArray("%s%n%1") << mac << 5;
    QTest::newRow("invalid UTF-8") << QByteArray("ssid=\xff\xc0\x80") << QByteArray("\xff\xc0\x80") << mac << 5;
    QTest::newRow("Chinese") << QByteArray("ssid=\xe4\xb8\xad\xe6\x96\x87") << QByteArray("\xe4\xb8\xad\xe6\x96\x87")
                             << mac << 5;
}

void TestGlobalFunctions::firstKeyInTheLineDecides()
{
    QFETCH(QByteArray, line);
    fakesystem::writeFile(statusPath, line);
    APData ap = filledRecord();
    QByteArray path = statusPath;
    QCOMPARE(getConnectStatusInfo(path.data(), &ap), 0);
    QTEST(QByteArray(ap.essid), "name");
    QTEST(QByteArray(ap.macAddr), "address");
    QTEST(ap.id, "id");
    QCOMPARE(ap.snow, 1);
}

void TestGlobalFunctions::ciphersAndUnknownLinesChangeNothing()
{
    fakesystem::writeFile(statusPath, "pairwise_cipher=key_mgmt=X\ngroup_cipher=ip_address=1\nfreq=2412\n\n=\ngarbage");
    APData ap = filledRecord();
    APData expected = filledRecord();
    std::memset(expected.essid, 0, 4); // cleared before the file is read
    QByteArray path = statusPath;
    QCOMPARE(getConnectStatusInfo(path.data(), &ap), 0);
    QCOMPARE(std::memcmp(&ap, &expected, sizeof ap), 0);
}

void TestGlobalFunctions::fieldsWithoutALineKeepTheirContent()
{
    fakesystem::writeFile(statusPath, "ip_address=10.0.0.9\n");
    APData ap = filledRecord();
    std::strcpy(ap.essid, "longname");
    QByteArray path = statusPath;
    QCOMPARE(getConnectStatusInfo(path.data(), &ap), 0);
    QCOMPARE(QByteArray(ap.IP), QByteArray("10.0.0.9\n"));
    QCOMPARE(QByteArray(ap.macAddr), QByteArray("00:11:22:33:44:55"));
    QCOMPARE(QByteArray(ap.key_mgmt), QByteArray("WPA2-PSK"));
    QCOMPARE(QByteArray(ap.wpa_state), QByteArray("COMPLETED"));
    QCOMPARE(QByteArray(ap.essid, 8), QByteArray("\0\0\0\0name", 8));
}

void TestGlobalFunctions::statusValuesAreCutToTheirFields_data()
{
    QTest::addColumn<QByteArray>("key");
    QTest::addColumn<int>("offset");
    QTest::addColumn<int>("size");
    QTest::newRow("bssid") << QByteArray("bssid=") << static_cast<int>(offsetof(APData, macAddr)) << 18;
    QTest::newRow("ssid") << QByteArray("ssid=") << static_cast<int>(offsetof(APData, essid)) << 40;
    QTest::newRow("key_mgmt") << QByteArray("key_mgmt=") << static_cast<int>(offsetof(APData, key_mgmt)) << 100;
    QTest::newRow("wpa_state") << QByteArray("wpa_state=") << static_cast<int>(offsetof(APData, wpa_state)) << 20;
    QTest::newRow("ip_address") << QByteArray("ip_address=") << static_cast<int>(offsetof(APData, IP)) << 16;
}

void TestGlobalFunctions::statusValuesAreCutToTheirFields()
{
    QFETCH(QByteArray, key);
    QFETCH(int, offset);
    QFETCH(int, size);
    QByteArray path = statusPath;
    for (int length = size - 3; length <= size + 2; ++length) { // the line break included
        fakesystem::writeFile(statusPath, key + QByteArray(length - 1, 'v') + '\n');
        APData ap;
        std::memset(&ap, 'z', sizeof ap);
        QCOMPARE(getConnectStatusInfo(path.data(), &ap), 0);
        const QByteArray value = QByteArray(length - 1, 'v') + '\n';
        const QByteArray field(reinterpret_cast<const char*>(&ap) + offset, size);
        QCOMPARE(field, value.left(size - 1).leftJustified(size, '\0'));
        const QByteArray behind(reinterpret_cast<const char*>(&ap) + offset + size, 1);
        QCOMPARE(behind, QByteArray("z"));
    }
}

void TestGlobalFunctions::statusLineLongerThanALineHidesNoOther()
{
    fakesystem::writeFile(statusPath,
                          "ssid=" + QByteArray(250, 'n') + "bssid=66:66:66:66:66:66\nip_address=10.0.0.9\n");
    APData ap = filledRecord();
    QByteArray path = statusPath;
    QCOMPARE(getConnectStatusInfo(path.data(), &ap), 0);
    QCOMPARE(QByteArray(ap.essid), QByteArray(39, 'n'));
    QCOMPARE(QByteArray(ap.macAddr), QByteArray("00:11:22:33:44:55"));
    QCOMPARE(QByteArray(ap.IP), QByteArray("10.0.0.9\n"));
}

void TestGlobalFunctions::statusFailures()
{
    QByteArray path = statusPath;
    APData ap = filledRecord();
    QCOMPARE(getConnectStatusInfo(path.data(), &ap), -1);
    QCOMPARE(QByteArray(ap.essid), QByteArray("home"));
    fakesystem::writeFile(statusPath, "ssid=x\n");
    QCOMPARE(getConnectStatusInfo(path.data(), nullptr), -2);
    m_hostile.plant(statusPath, HostileFiles::Directory, "");
    QCOMPARE(getConnectStatusInfo(path.data(), &ap), -4);
    QCOMPARE(QByteArray(ap.essid, 4), QByteArray(4, '\0')); // cleared before the file is opened
}

void TestGlobalFunctions::readOnlyStatusFileIsNotOpened()
{
    // Opened for update. Root may write in spite of the mode, but not to a file that is being run.
    QProcess program;
    program.start(QLatin1String("/bin/cp"), QStringList() << QLatin1String("/bin/sleep") << QLatin1String(statusPath));
    QVERIFY(program.waitForFinished());
    program.start(QLatin1String(statusPath), QStringList() << QLatin1String("100"));
    QVERIFY(program.waitForStarted());
    QByteArray path = statusPath;
    APData ap = filledRecord();
    const int result = getConnectStatusInfo(path.data(), &ap);
    program.kill();
    program.waitForFinished();
    QCOMPARE(result, -4);
}

void TestGlobalFunctions::accessPointInformationRunsTheScript()
{
    fakesystem::writeFile(statusPath, "ssid=old\n");
    fakesystem::answer("getwifistatus.sh", [] {
        QVERIFY(!fakesystem::exists(statusPath)); // the old answer is gone before the script runs
        fakesystem::writeFile(statusPath, "ssid=new\nwpa_state=COMPLETED\n");
    });
    APData ap = filledRecord();
    QCOMPARE(getAPInfo(&ap), 0);
    QCOMPARE(QByteArray(ap.essid), QByteArray("new\n"));
    QCOMPARE(ap.snow, 2);
    QCOMPARE(fakesystem::commands(), QList<QByteArray>() << "rm /home/wifi/connectstatus.txt"
                                                         << "sh /usr/bin/getwifistatus.sh;touch /home/wifi/result");
    QVERIFY(fakesystem::exists("/home/wifi/result"));
}

void TestGlobalFunctions::accessPointInformationFailures()
{
    QCOMPARE(getAPInfo(nullptr), -2);
    QVERIFY(fakesystem::commands().isEmpty());

    APData ap = filledRecord();
    int result = 0;
    QCOMPARE(capturedOutput(stdout, [&] { result = getAPInfo(&ap); }),
             QByteArray("Cannot get /home/wifi/connectstatus.txt\n"));
    QCOMPARE(result, -1);
    QCOMPARE(QByteArray(ap.essid, 4), QByteArray(4, '\0'));

    fakesystem::answer("getwifistatus.sh", [this] { m_hostile.plant(statusPath, HostileFiles::Link, "ssid=x\n"); });
    QCOMPARE(getAPInfo(&ap), -1);
    QVERIFY(m_hostile.isUntouched());
}

void TestGlobalFunctions::disconnectRemovesEveryStatusFile()
{
    for (const char* path : {answerPath, statusPath, linkPath, signalPath, macPath}) {
        fakesystem::writeFile(path, "1");
    }
    fakesystem::writeFile("/home/wifi/result3", "");
    disConnectFunc();
    QCOMPARE(fakesystem::commands(), QList<QByteArray>() << "rm /home/wifi/*.txt -f");
    QCOMPARE(fakesystem::syncs(), 1);
    for (const char* path : {answerPath, statusPath, linkPath, signalPath, macPath}) {
        QVERIFY2(!fakesystem::exists(path), path);
    }
    QVERIFY(fakesystem::exists("/home/wifi/result3"));
}

void TestGlobalFunctions::addressOfTheJoinedNetworkIsSaved()
{
    saveConnectMac(QLatin1String("0a:1B:2c:3D:4e:5F"));
    QCOMPARE(fakesystem::commands(), QList<QByteArray>() << "echo 0a:1B:2c:3D:4e:5F >/home/wifi/curmac.txt");
    QCOMPARE(fakesystem::syncs(), 1);
    QCOMPARE(fakesystem::readFile(macPath), QByteArray("0a:1B:2c:3D:4e:5F\n"));
}

void TestGlobalFunctions::textThatIsNoAddressIsNotSaved_data()
{
    QTest::addColumn<QString>("text");
    const char* const texts[] = {"",
                                 "00:11:22:33:44:5",
                                 "00:11:22:33:44:555",
                                 "00-11-22-33-44-55",
                                 "00:11:22:33:44:5g",
                                 "$(touch /canary)0",
                                 "`touch /canary`00",
                                 "0;touch /canary;0",
                                 "0\ntouch /canary\n0",
                                 "|touch /canary &&",
                                 "00:11:22:33:44:55;touch /canary",
                                 " 0:11:22:33:44:55",
                                 "00:11:22:33:44:5\n",
                                 "%s%s%s%s%s%s%s%s%"};
    for (const char* text : texts) {
        QTest::newRow(QByteArray(text).toHex().constData()) << QString::fromLatin1(text);
    }
    QTest::newRow("full-width digits") << QString(17, QChar(0xff11));
}

void TestGlobalFunctions::textThatIsNoAddressIsNotSaved()
{
    QFETCH(QString, text);
    fakesystem::writeFile(macPath, "old");
    const QList<QByteArray> messages = loggedMessages([&] { saveConnectMac(text); });
    QCOMPARE(messages.size(), 1);
    QVERIFY2(messages.first().contains("/home/wifi/curmac.txt"), messages.first().constData());
    QVERIFY(fakesystem::commands().isEmpty());
    QCOMPARE(fakesystem::syncs(), 0);
    QCOMPARE(fakesystem::readFile(macPath), QByteArray("old"));
    QVERIFY(!fakesystem::exists("/canary"));
}

void TestGlobalFunctions::savedAddressIsReadBack_data()
{
    QTest::addColumn<QByteArray>("content");
    QTest::addColumn<QByteArray>("mac");
    QTest::newRow("as saved") << QByteArray("00:11:22:33:44:55\n") << QByteArray("00:11:22:33:44:55");
    QTest::newRow("without line break") << QByteArray("00:11:22:33:44:55") << QByteArray("00:11:22:33:44:55");
    QTest::newRow("18 characters") << QByteArray("00:11:22:33:44:556\n") << QByteArray("00:11:22:33:44:55");
    QTest::newRow("only the first line") << QByteArray("00:11\n22") << QByteArray("00:11");
    QTest::newRow("empty") << QByteArray() << QByteArray();
}

void TestGlobalFunctions::savedAddressIsReadBack()
{
    QFETCH(QByteArray, content);
    QFETCH(QByteArray, mac);
    fakesystem::writeFile(macPath, content);
    char read[19];
    std::memset(read, 'z', sizeof read);
    int length = -1;
    QCOMPARE(capturedOutput(stdout, [&] { length = getConnectMac(read); }), QByteArray());
    QCOMPARE(QByteArray(read), mac);
    QCOMPARE(length, static_cast<int>(mac.size()));
    QCOMPARE(read[18], 'z');
}

void TestGlobalFunctions::missingSavedAddressIsPrinted()
{
    char mac[18] = "old";
    int length = -1;
    const QByteArray printed = capturedOutput(stdout, [&] { length = getConnectMac(mac); });
    QCOMPARE(length, 0);
    QCOMPARE(QByteArray(mac), QByteArray("old"));
    const QRegularExpression line(QLatin1String("^raglobalfun\\.cpp getConnectMac \\d+ fopen failed\n$"));
    QVERIFY2(line.match(QString::fromLatin1(printed)).hasMatch(), printed.constData());
    QCOMPARE(getConnectMac(nullptr), 0);
}

void TestGlobalFunctions::savedAddressIsDeleted()
{
    fakesystem::writeFile(macPath, "00:11:22:33:44:55\n");
    QCOMPARE(DeleteConnectMac(), 0);
    QVERIFY(!fakesystem::exists(macPath));
    QCOMPARE(DeleteConnectMac(), 0);
    QCOMPARE(fakesystem::commands(), QList<QByteArray>() << "rm /home/wifi/curmac.txt -f;sync"
                                                         << "rm /home/wifi/curmac.txt -f;sync");
    fakesystem::runForReal("mv /bin/sync /bin/sync.away");
    const int failed = DeleteConnectMac();
    fakesystem::runForReal("mv /bin/sync.away /bin/sync");
    QCOMPARE(failed, 127 << 8); // what the shell says of a command that it has not
}

void TestGlobalFunctions::currentRecordIsHandedOver()
{
    g_PassParam.pinfo = new APData;
    std::memset(g_PassParam.pinfo, 'z', sizeof(APData));
    const APData given = filledRecord();
    QCOMPARE(static_cast<int>(loggedMessages([&] { SetGlobalApData(given); }).size()), fieldCount());
    QCOMPARE(std::memcmp(g_PassParam.pinfo, &given, sizeof given), 0);
    APData taken;
    std::memset(&taken, 'y', sizeof taken);
    QCOMPARE(static_cast<int>(loggedMessages([&] { GetCurApData(&taken); }).size()), fieldCount());
    QCOMPARE(std::memcmp(&taken, &given, sizeof given), 0);
}

void TestGlobalFunctions::currentRecordWithoutABlockIsOnlyLogged()
{
    const QList<QByteArray> message = QList<QByteArray>() << "g_PassParam.pinfo == NULL";
    QCOMPARE(loggedMessages([] { SetGlobalApData(filledRecord()); }), message);
    QVERIFY(g_PassParam.pinfo == nullptr);

    APData taken = filledRecord();
    QCOMPARE(loggedMessages([&] { GetCurApData(&taken); }), message);
    QCOMPARE(QByteArray(taken.essid, sizeof taken.essid), QByteArray(40, '\0'));
    QCOMPARE(QByteArray(taken.macAddr, sizeof taken.macAddr), QByteArray(18, '\0'));
    QCOMPARE(QByteArray(taken.key_mgmt, sizeof taken.key_mgmt), QByteArray(100, '\0'));
    QCOMPARE(QByteArray(taken.wpa_state, sizeof taken.wpa_state), QByteArray(20, '\0'));
    QCOMPARE(QByteArray(taken.psk, sizeof taken.psk), QByteArray(200, '\0'));
    QCOMPARE(QByteArray(taken.IP, sizeof taken.IP), QByteArray(16, '\0'));
    QCOMPARE(taken.encry[0], 1);
    QCOMPARE(taken.encry[1], 1);
    QCOMPARE(taken.orderbynum, 999);
    QCOMPARE(taken.sigquality, 0);
    QCOMPARE(taken.snow, 0);
    QCOMPARE(taken.connectSUC, 0);
    QCOMPARE(taken.authMode, 0);
    QCOMPARE(taken.keyIndex, 0);
    QCOMPARE(taken.is_encry, 0);
    QVERIFY(loggedMessages([] { GetCurApData(nullptr); }).isEmpty());
}

// --- Text that fits --------------------------------------------------------------------------------------

namespace {

int widthOf(const QString& text)
{
    return QFontMetrics(QFont()).horizontalAdvance(text);
}

QString letters(int count)
{
    return QString(count, QLatin1Char('m'));
}

} // namespace

void TestGlobalFunctions::croppedText_data()
{
    // A row of equal letters; the room is what the tail leaves. lo and hi begin at 0 and 16.
    QTest::addColumn<int>("width");
    QTest::addColumn<QString>("cropped");
    const QString tail = QLatin1String("..");
    const int t = widthOf(tail);
    const int whole = widthOf(letters(16));
    QTest::newRow("fits exactly") << whole << letters(16);
    QTest::newRow("one pixel short: 8, 12, 14, 15") << whole - 1 << letters(15) + tail;
    QTest::newRow("equal width ends the search") << widthOf(letters(12)) + t << letters(12) + tail;
    QTest::newRow("first probe fits exactly") << widthOf(letters(8)) + t << letters(8) + tail;
    QTest::newRow("the last probe may be too wide: 8, 4, 6, 7, 7 wins over 6")
        << widthOf(letters(6)) + t + 1 << letters(7) + tail;
    QTest::newRow("room for the tail only: 8, 4, 2, 1") << t << letters(1) + tail;
    QTest::newRow("no room at all") << 0 << letters(1) + tail;
    QTest::newRow("negative width") << -100 << letters(1) + tail;
}

void TestGlobalFunctions::croppedText()
{
    QFETCH(int, width);
    const QString cropped = crop_string(QFont(), letters(16), width, QLatin1String(".."));
    QTEST(cropped, "cropped");
}

void TestGlobalFunctions::croppedTextKeepsItsLastProbe()
{
    QCOMPARE(crop_string(QFont(), letters(1), 0, QLatin1String("..")), QString(QLatin1String(".."))); // none measured
    QCOMPARE(crop_string(QFont(), QString(), 0, QLatin1String("..")), QString());                     // fits
    QCOMPARE(crop_string(QFont(), letters(2), 0, QString()), letters(1));
    const QString hostile = QLatin1String("<b>%1</b>&amp;");
    QCOMPARE(crop_string(QFont(), hostile, 10000, QLatin1String("..")), hostile);
}

void TestGlobalFunctions::longTextsTakeTenProbes()
{
    const int w = widthOf(letters(1));
    // 1024 halves ten times before the bounds meet: 512, 256, ... 1.
    QCOMPARE(crop_string(QFont(), letters(1024), w / 2, QString()), letters(1));
    // 4096 does not get there: 2048, 1024, ... 4.
    QCOMPARE(crop_string(QFont(), letters(4096), w / 2, QString()), letters(4));
}

QTEST_MAIN(TestGlobalFunctions)
#include "tst_raglobalfun.moc"
