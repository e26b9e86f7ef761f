// SPDX-FileCopyrightText: 2026 The rawificontrol authors
// SPDX-License-Identifier: MIT
#include "networks.h"
#include "raitempushbtn.h"
#include "widgettest.h"

#include <QAccessible>
#include <QSignalSpy>
#include <QtTest>

using namespace widgettest;

namespace {

const QRect SignalPlace(2, 15, 30, 30);
const QRect NamePlace(35, 0, 225, 60);
const QRect StatusPlace(35, 31, 200, 19);
const QRect MarkPlace(260, 0, 60, 60);
const QColor RowColor(54, 54, 54);

/** A row of the list's size. */
class Row : public RaItemPushBtn
{
public:
    explicit Row(APData data, int index = 0)
    {
        resize(320, 60);
        addItemData(&data, index);
    }
};

QImage partOf(RaItemPushBtn* row, const QRect& part)
{
    return pictureOf(row).copy(part);
}

QImage nameOf(const QByteArray& name)
{
    Row row(network(1, ""));
    row.setText(QString::fromUtf8(name));
    return partOf(&row, NamePlace);
}

bool isBlank(const QImage& picture)
{
    return pixelsOf(picture, picture.rect(), RowColor) == picture.width() * picture.height();
}

} // namespace

class TestRaItemPushBtn : public QObject
{
    Q_OBJECT
private Q_SLOTS:
    void initTestCase();
    void declaresItsMethodsInOrder();
    void freshRowHasTheDefaults();
    void copiesEveryFieldOfTheRecord();
    void nullRecordChangesNothing();
    void signalPictureFollowsTheLevel_data();
    void signalPictureFollowsTheLevel();
    void onlyALockedNetworkLooksLocked_data();
    void onlyALockedNetworkLooksLocked();
    void nameOfTwentyCharactersIsDrawnWhole();
    void nameOfTwentyOneCharactersIsCut();
    void nameKeepsClearOfTheMark_data();
    void nameKeepsClearOfTheMark();
    void nameIsPlainText();
    void hostileNameIsMadeVisible();
    void statusLineFollowsTheState_data();
    void statusLineFollowsTheState();
    void idleAgainLooksAsBefore();
    void hiddenMessageLeavesTheStatusOut();
    void checkedRowHasAnotherMark();
    void tapReportsRecordAndIndex();
    void releaseOutsideReportsNothing_data();
    void releaseOutsideReportsNothing();
    void longPressShows();
    void tapShowsForAMoment();
    void cancelledPressReportsNothing();
    void keysTap_data();
    void keysTap();
    void otherKeysAreTheLists();
    void assistiveToolTapsOnce();
    void textIsShownByTextTypes_data();
    void textIsShownByTextTypes();
    void textIsLogged();
    void hexTextBecomesReadable_data();
    void hexTextBecomesReadable();
    void passwordIsNotLogged();
    void nothingLeaks();
};

void TestRaItemPushBtn::initTestCase()
{
    qRegisterMetaType<APData>("APData");
}

void TestRaItemPushBtn::declaresItsMethodsInOrder()
{
    const QMetaObject& meta = RaItemPushBtn::staticMetaObject;
    QCOMPARE(signalsOf(meta), QStringList(QLatin1String("clicked(APData,int)")));
    QCOMPARE(slotsOf(meta), QStringList() << QLatin1String("updatePressStatus()") << QLatin1String("pressOnSlot()"));
    QCOMPARE(meta.superClass(), &QPushButton::staticMetaObject);
}

void TestRaItemPushBtn::freshRowHasTheDefaults()
{
    const RaItemPushBtn row;
    const APData data = row.getItemData();
    QCOMPARE(data.orderbynum, 999);
    QCOMPARE(data.encry[0], 1);
    QCOMPARE(data.encry[1], 1);
    QCOMPARE(data.is_encry, 0);
    QCOMPARE(row.getText(), QString());
    QVERIFY(qobject_cast<RaVirtualKeyboard_ProxyStyle*>(row.style()));
}

void TestRaItemPushBtn::copiesEveryFieldOfTheRecord()
{
    APData data;
    for (std::size_t i = 0; i < sizeof data; ++i) {
        reinterpret_cast<char*>(&data)[i] = char(1 + i % 97);
    }
    data.essid[4] = '\0';
    Row row(data, 17);
    data.id = 0; // the row has a copy
    APData kept = row.getItemData();
    QVERIFY(kept.id != 0);
    data.id = kept.id;
    QCOMPARE(std::memcmp(&kept, &data, sizeof data), 0);
    QCOMPARE(row.getPushBtnIndex(), 17);
    QCOMPARE(row.getText(),
             QString::fromLatin1("\1\2\3\4").replace(QRegularExpression(QLatin1String(".")), QString(QChar(0xfffd))));
}

void TestRaItemPushBtn::nullRecordChangesNothing()
{
    Row row(network(5, "net"), 3);
    row.addItemData(nullptr, 9);
    QCOMPARE(row.getPushBtnIndex(), 3);
    QCOMPARE(row.getText(), QString::fromLatin1("net"));
}

void TestRaItemPushBtn::signalPictureFollowsTheLevel_data()
{
    QTest::addColumn<bool>("locked");
    QTest::addColumn<int>("level");
    QTest::addColumn<QString>("path");
    QTest::newRow("locked 3") << true << 3 << QString::fromLatin1(":/images/wifie3.png");
    QTest::newRow("locked 1") << true << 1 << QString::fromLatin1(":/images/wifie1.png");
    QTest::newRow("open 0") << false << 0 << QString::fromLatin1(":/images/wifi1.png");
    QTest::newRow("open 4") << false << 4 << QString::fromLatin1(":/images/wifi4.png");
    QTest::newRow("-1") << false << -1 << QString::fromLatin1(":/images/wifi5.png");
    QTest::newRow("7") << true << 7 << QString::fromLatin1(":/images/wifie5.png");
}

void TestRaItemPushBtn::signalPictureFollowsTheLevel()
{
    QFETCH(bool, locked);
    QFETCH(int, level);
    QFETCH(QString, path);
    QCOMPARE(RaItemPushBtn().getImageData(locked, level), path);
}

void TestRaItemPushBtn::onlyALockedNetworkLooksLocked_data()
{
    QTest::addColumn<int>("isEncry");
    QTest::addColumn<int>("level");
    QTest::addColumn<bool>("looksLocked");
    for (int level = 1; level <= 4; ++level) {
        QTest::newRow(qPrintable(QString::fromLatin1("unknown %1").arg(level))) << 0 << level << false;
        QTest::newRow(qPrintable(QString::fromLatin1("open %1").arg(level))) << 1 << level << false;
        QTest::newRow(qPrintable(QString::fromLatin1("locked %1").arg(level))) << 2 << level << true;
    }
}

void TestRaItemPushBtn::onlyALockedNetworkLooksLocked()
{
    QFETCH(int, isEncry);
    QFETCH(int, level);
    QFETCH(bool, looksLocked);
    APData data = network(1, "net", true, level);
    data.is_encry = isEncry;
    Row row(data);
    const QImage drawn = partOf(&row, SignalPlace);
    QVERIFY(!isBlank(drawn));
    data.is_encry = 1;
    Row open(data);
    QCOMPARE(drawn != partOf(&open, SignalPlace), looksLocked);
}

void TestRaItemPushBtn::nameOfTwentyCharactersIsDrawnWhole()
{
    QVERIFY(nameOf("0123456789012345678i") != nameOf("0123456789012345678l"));
}

void TestRaItemPushBtn::nameOfTwentyOneCharactersIsCut()
{
    const QImage drawn = nameOf("01234567890123456789i");
    QCOMPARE(drawn, nameOf("01234567890123456789M"));
    QCOMPARE(drawn, nameOf("01234567890123456789..."));
    QVERIFY(drawn != nameOf("01234567890123456789"));
}

void TestRaItemPushBtn::nameKeepsClearOfTheMark_data()
{
    QTest::addColumn<QByteArray>("name");
    QTest::newRow("20 wide letters") << QByteArray(20, 'W');
    QTest::newRow("39 wide letters") << QByteArray(39, 'W');
    QTest::newRow("13 Chinese") << QByteArray("咖啡馆无线网络二楼大厅北区");
    QTest::newRow("200 letters") << QByteArray(200, 'm');
}

void TestRaItemPushBtn::nameKeepsClearOfTheMark()
{
    QFETCH(QByteArray, name);
    Row row(network(1, "short"));
    const QImage clear = partOf(&row, MarkPlace);
    row.setText(QString::fromUtf8(name));
    QVERIFY(!isBlank(partOf(&row, NamePlace)));
    QCOMPARE(partOf(&row, MarkPlace), clear);
}

void TestRaItemPushBtn::nameIsPlainText()
{
    QVERIFY(nameOf("<b>x</b>") != nameOf("x"));
    QVERIFY(nameOf("a&b") != nameOf("ab"));
    QVERIFY(nameOf("%1") != nameOf(""));
}

void TestRaItemPushBtn::hostileNameIsMadeVisible()
{
    Row row(network(1, "evil\xe2\x80\xaegnp\x07"));
    QCOMPARE(row.getText(), QString::fromUtf8("evil\xef\xbf\xbdgnp\xef\xbf\xbd"));
    QCOMPARE(row.accessibleName(), row.getText());
    QCOMPARE(row.text(), QString()); // so that "&" in a name is no short cut
    row.setText(QString::fromUtf8("\xe2\x80\xae"));
    QCOMPARE(row.getText(), QString(QChar(0xfffd)));
}

void TestRaItemPushBtn::statusLineFollowsTheState_data()
{
    QTest::addColumn<int>("state");
    QTest::addColumn<QString>("text");
    QTest::newRow("idle") << 0 << QString();
    QTest::newRow("joining") << 1 << QString::fromUtf8("正在连接中，请等待...");
    QTest::newRow("joined") << 2 << QString::fromUtf8("已连接");
}

void TestRaItemPushBtn::statusLineFollowsTheState()
{
    QFETCH(int, state);
    QFETCH(QString, text);
    Row row(network(1, "net"));
    const QImage idle = partOf(&row, StatusPlace.adjusted(0, 10, 0, 0));
    if (state == 1) {
        row.setConnectingStatus(true);
    } else if (state == 2) {
        row.setConnectSuccess();
    }
    QCOMPARE(row.accessibleDescription(), text);
    QCOMPARE(partOf(&row, StatusPlace.adjusted(0, 10, 0, 0)) == idle, state == 0);
}

void TestRaItemPushBtn::idleAgainLooksAsBefore()
{
    Row row(network(1, "net"));
    const QImage idle = pictureOf(&row);
    row.setConnectingStatus(true);
    const QImage joining = pictureOf(&row);
    row.setConnectSuccess();
    const QImage joined = pictureOf(&row);
    QVERIFY(joining != idle && joined != idle && joined != joining);
    row.setConnectingStatus(false);
    QCOMPARE(pictureOf(&row), idle);
}

void TestRaItemPushBtn::hiddenMessageLeavesTheStatusOut()
{
    Row row(network(1, "net"));
    const QImage idle = pictureOf(&row);
    row.setConnectSuccess();
    row.setIsHideMsg(true);
    QCOMPARE(pictureOf(&row), idle);
    row.setIsHideMsg(false);
    QVERIFY(pictureOf(&row) != idle);
}

void TestRaItemPushBtn::checkedRowHasAnotherMark()
{
    Row row(network(1, "net"));
    const QImage unchecked = partOf(&row, MarkPlace);
    QVERIFY(!isBlank(partOf(&row, QRect(260, 14, 30, 30))));
    row.setCheckState(true);
    QVERIFY(partOf(&row, MarkPlace) != unchecked);
    row.setCheckState(false);
    QCOMPARE(partOf(&row, MarkPlace), unchecked);
}

void TestRaItemPushBtn::tapReportsRecordAndIndex()
{
    Row row(network(9, "net", true, 2, "secret"), 4);
    QSignalSpy clicked(&row, SIGNAL(clicked(APData,int)));
    const QByteArray log = capturedOutput(stderr, [&row] { tap(&row); });
    QCOMPARE(clicked.count(), 1);
    APData data = clicked.at(0).at(0).value<APData>();
    APData kept = row.getItemData();
    QCOMPARE(std::memcmp(&data, &kept, sizeof data), 0);
    QCOMPARE(clicked.at(0).at(1).toInt(), 4);
    QVERIFY2(log.contains("clicked(4)"), log.constData());
    QVERIFY(!row.isDown());
}

void TestRaItemPushBtn::releaseOutsideReportsNothing_data()
{
    QTest::addColumn<QPoint>("point");
    QTest::newRow("above") << QPoint(100, -1);
    QTest::newRow("below") << QPoint(100, 60);
    QTest::newRow("left") << QPoint(-1, 30);
    QTest::newRow("right") << QPoint(320, 30);
}

void TestRaItemPushBtn::releaseOutsideReportsNothing()
{
    QFETCH(QPoint, point);
    Row row(network(1, "net"));
    QSignalSpy clicked(&row, SIGNAL(clicked(APData,int)));
    press(&row, QPoint(100, 30));
    QVERIFY(row.isDown());
    release(&row, point);
    QCOMPARE(clicked.count(), 0);
    QVERIFY(!row.isDown());
}

void TestRaItemPushBtn::longPressShows()
{
    Row row(network(1, "net"));
    const QImage idle = pictureOf(&row);
    press(&row, QPoint(100, 30));
    QCOMPARE(pictureOf(&row), idle); // it may become a drag
    row.pressOnSlot();
    QVERIFY(pictureOf(&row) != idle);
    release(&row, QPoint(100, 100));
    QCOMPARE(pictureOf(&row), idle);
}

void TestRaItemPushBtn::tapShowsForAMoment()
{
    Row row(network(1, "net"));
    const QImage idle = pictureOf(&row);
    tap(&row);
    QVERIFY(pictureOf(&row) != idle);
    row.updatePressStatus();
    QCOMPARE(pictureOf(&row), idle);
    row.pressOnSlot(); // the timer that runs on after a tap
    QCOMPARE(pictureOf(&row), idle);
}

void TestRaItemPushBtn::cancelledPressReportsNothing()
{
    Row row(network(1, "net"));
    const QImage idle = pictureOf(&row);
    QSignalSpy clicked(&row, SIGNAL(clicked(APData,int)));
    press(&row, QPoint(100, 30));
    row.pressOnSlot();
    row.cancelPress();
    QVERIFY(!row.isDown());
    QCOMPARE(pictureOf(&row), idle);
    QCOMPARE(clicked.count(), 0);
}

void TestRaItemPushBtn::keysTap_data()
{
    QTest::addColumn<int>("key");
    QTest::newRow("space") << int(Qt::Key_Space);
    QTest::newRow("return") << int(Qt::Key_Return);
    QTest::newRow("enter") << int(Qt::Key_Enter);
    QTest::newRow("select") << int(Qt::Key_Select);
}

void TestRaItemPushBtn::keysTap()
{
    QFETCH(int, key);
    Row row(network(1, "net"), 2);
    QSignalSpy clicked(&row, SIGNAL(clicked(APData,int)));
    pressKey(&row, key);
    QCOMPARE(clicked.count(), 1);
    QCOMPARE(clicked.at(0).at(1).toInt(), 2);
}

void TestRaItemPushBtn::otherKeysAreTheLists()
{
    Row row(network(1, "net"));
    QSignalSpy clicked(&row, SIGNAL(clicked(APData,int)));
    for (const int key : {int(Qt::Key_Up), int(Qt::Key_Down), int(Qt::Key_A)}) {
        QKeyEvent event(QEvent::KeyPress, key, Qt::NoModifier);
        event.accept();
        QCoreApplication::sendEvent(&row, &event);
        QVERIFY(!event.isAccepted());
    }
    QCOMPARE(clicked.count(), 0);
}

void TestRaItemPushBtn::assistiveToolTapsOnce()
{
    Row row(network(1, "net"), 6);
    QSignalSpy clicked(&row, SIGNAL(clicked(APData,int)));
    QAccessibleInterface* interface = QAccessible::queryAccessibleInterface(&row);
    QCOMPARE(interface->text(QAccessible::Name), QString::fromLatin1("net"));
    row.click();
    QCOMPARE(clicked.count(), 1);
    QCOMPARE(clicked.at(0).at(1).toInt(), 6);
}

void TestRaItemPushBtn::textIsShownByTextTypes_data()
{
    QTest::addColumn<int>("type");
    QTest::addColumn<bool>("shown");
    QTest::newRow("picture") << int(IMAGEBTN) << false;
    QTest::newRow("text") << int(TEXTBTN) << true;
    QTest::newRow("toggle") << int(SWITCHBTN) << true;
    QTest::newRow("toggling picture") << int(SWITCHIMAGEBTN) << false;
}

void TestRaItemPushBtn::textIsShownByTextTypes()
{
    QFETCH(int, type);
    QFETCH(bool, shown);
    const QString text = QString::fromLatin1("name");
    const QString own = shown ? text : QString();
    RaItemPushBtn before;
    before.setType(KEYBOARDTYPE(type));
    before.setText(text);
    QCOMPARE(before.text(), own);
    QCOMPARE(before.getText(), text);
    RaItemPushBtn after;
    after.setText(text);
    after.setType(KEYBOARDTYPE(type));
    QCOMPARE(after.text(), own);
    QCOMPARE(after.getText(), text);
}

void TestRaItemPushBtn::textIsLogged()
{
    RaItemPushBtn row;
    APData data = network(1, "net");
    const QByteArray log = capturedOutput(stderr, [&] {
        row.addItemData(&data, 0);
        row.setText(QString::fromLatin1("new"));
    });
    QVERIFY2(log.contains("essid=net"), log.constData());
    QVERIFY2(log.contains("setText=new"), log.constData());
    QVERIFY2(log.contains("m_Text=new"), log.constData());
}

void TestRaItemPushBtn::hexTextBecomesReadable_data()
{
    QTest::addColumn<QString>("hex");
    QTest::addColumn<QString>("text");
    QTest::newRow("empty") << QString() << QString();
    QTest::newRow("one part") << QString::fromLatin1("486f6d65") << QString::fromLatin1("Home");
    QTest::newRow("parts") << QString::fromLatin1("48 6f 6D 65") << QString::fromLatin1("Home");
    QTest::newRow("blanks all over") << QString::fromLatin1("  48   6f ") << QString::fromLatin1("Ho");
    QTest::newRow("bytes of one character in two parts")
        << QString::fromLatin1("e5 8a 9e") << QString::fromLocal8Bit("\xe5\x8a\x9e");
}

void TestRaItemPushBtn::hexTextBecomesReadable()
{
    QFETCH(QString, hex);
    QFETCH(QString, text);
    QCOMPARE(HexQString_to_QString(hex), text);
}

void TestRaItemPushBtn::passwordIsNotLogged()
{
    const QByteArray log = capturedOutput(stderr, [] {
        Row row(network(1, "net", true, 3, "canary-password"));
        tap(&row);
        row.setConnectSuccess();
        pictureOf(&row);
    });
    QVERIFY(log.contains("net"));
    QVERIFY2(!log.contains("canary"), log.constData());
}

void TestRaItemPushBtn::nothingLeaks()
{
    const long growth = heapGrowth([] {
        Row row(network(1, "net"));
        row.setStyleSheet(QLatin1String("color:white;"));
        tap(&row);
    });
    QVERIFY2(growth < HeapNoise, QByteArray::number(int(growth)).constData());
}

QTEST_MAIN(TestRaItemPushBtn)
#include "tst_raitempushbtn.moc"
