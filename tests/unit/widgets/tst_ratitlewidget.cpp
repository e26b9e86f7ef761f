// SPDX-FileCopyrightText: 2026 The rawificontrol authors
// SPDX-License-Identifier: MIT
#include "loggedmessages.h"
#include "ratitlewidget.h"
#include "widgettest.h"

#include <QSignalSpy>
#include <QtTest>

using namespace widgettest;

namespace {

const QColor Ground(QLatin1String("#1e2129"));

/** The numbers that a repaint logs: width, height, title's width, title's left edge. */
QList<int> loggedNumbers(RaTitleWidget* strip)
{
    QList<int> numbers;
    for (const QByteArray& message : loggedMessages([strip] { pictureOf(strip); })) {
        numbers << message.mid(message.lastIndexOf(' ') + 1).toInt();
    }
    return numbers;
}

} // namespace

class TestRaTitleWidget : public QObject
{
    Q_OBJECT
private Q_SLOTS:
    void declaresOneSignal();
    void isFramelessAndWithoutParent();
    void onlyTheBackMarkGoesBack_data();
    void onlyTheBackMarkGoesBack();
    void keysGoBack_data();
    void keysGoBack();
    void heldBackMarkIsSeen();
    void paintLogsItsWidths();
    void titleAvoidsItsNeighbours_data();
    void titleAvoidsItsNeighbours();
    void textsAreWhiteOnTheTheme_data();
    void textsAreWhiteOnTheTheme();
    void nothingLeaks();
};

void TestRaTitleWidget::declaresOneSignal()
{
    const QMetaObject& meta = RaTitleWidget::staticMetaObject;
    QCOMPARE(signalsOf(meta), QStringList() << QLatin1String("backPressed()"));
    QCOMPARE(slotsOf(meta) + propertiesOf(meta), QStringList());
}

void TestRaTitleWidget::isFramelessAndWithoutParent()
{
    QWidget page;
    const RaTitleWidget plain(&page);
    const RaTitleWidget full(QLatin1String("Title"), QLatin1String("Right"), false, &page);
    for (const RaTitleWidget* strip : {&plain, &full}) {
        QVERIFY(!strip->parent());
        QVERIFY(strip->isWindow());
        QVERIFY(strip->windowFlags() & Qt::FramelessWindowHint);
        QCOMPARE(strip->geometry(), QRect(0, 0, 320, 50));
        QVERIFY(!strip->accessibleName().isEmpty());
        QVERIFY(strip->focusPolicy() & Qt::TabFocus);
    }
    QCOMPARE(full.accessibleDescription(), QString::fromLatin1("Title"));
}

void TestRaTitleWidget::onlyTheBackMarkGoesBack_data()
{
    QTest::addColumn<QPoint>("point");
    QTest::addColumn<int>("count");
    QTest::newRow("first pixel") << QPoint(1, 1) << 1;
    QTest::newRow("last pixel") << QPoint(49, 49) << 1;
    QTest::newRow("inside") << QPoint(25, 25) << 1;
    QTest::newRow("x 0") << QPoint(0, 25) << 0;
    QTest::newRow("y 0") << QPoint(25, 0) << 0;
    QTest::newRow("x 50") << QPoint(50, 25) << 0;
    QTest::newRow("y 50") << QPoint(25, 50) << 0;
    QTest::newRow("on the title") << QPoint(160, 25) << 0;
    QTest::newRow("outside") << QPoint(-5, 25) << 0;
}

void TestRaTitleWidget::onlyTheBackMarkGoesBack()
{
    QFETCH(QPoint, point);
    QFETCH(int, count);
    RaTitleWidget strip(nullptr);
    QSignalSpy back(&strip, SIGNAL(backPressed()));
    press(&strip, QPoint(25, 25));
    QCOMPARE(back.count(), 0);
    release(&strip, point);
    QCOMPARE(back.count(), count);
}

void TestRaTitleWidget::keysGoBack_data()
{
    QTest::addColumn<int>("key");
    QTest::addColumn<int>("count");
    QTest::newRow("space") << int(Qt::Key_Space) << 1;
    QTest::newRow("enter") << int(Qt::Key_Enter) << 1;
    QTest::newRow("a letter") << int(Qt::Key_A) << 0;
}

void TestRaTitleWidget::keysGoBack()
{
    QFETCH(int, key);
    QFETCH(int, count);
    RaTitleWidget strip(nullptr);
    QSignalSpy back(&strip, SIGNAL(backPressed()));
    pressKey(&strip, key);
    QCOMPARE(back.count(), count);
}

void TestRaTitleWidget::heldBackMarkIsSeen()
{
    RaTitleWidget strip(nullptr);
    const QImage free = pictureOf(&strip);
    press(&strip, QPoint(200, 25));
    QCOMPARE(pictureOf(&strip), free);
    press(&strip, QPoint(25, 25));
    QVERIFY(pictureOf(&strip) != free);
    release(&strip, QPoint(200, 25));
    QCOMPARE(pictureOf(&strip), free);
}

void TestRaTitleWidget::paintLogsItsWidths()
{
    RaTitleWidget strip(nullptr);
    QCOMPARE(loggedMessages([&] { pictureOf(&strip); }), QList<QByteArray>() << "width is 320"
                                                                             << "height is 50"
                                                                             << "titleW is 0"
                                                                             << "titleX is 160");
}

void TestRaTitleWidget::titleAvoidsItsNeighbours_data()
{
    const QString mac = QLatin1String("a0:b1:c2:d3:e4:f5");
    QTest::addColumn<QString>("title");
    QTest::addColumn<QString>("right");
    QTest::addColumn<bool>("centred");
    QTest::newRow("short") << QString::fromLatin1("WIFI") << QString() << true;
    QTest::newRow("short beside an address") << QString::fromLatin1("WIFI") << mac << true;
    QTest::newRow("English beside an address") << QString::fromLatin1("Network Setting") << mac << false;
    QTest::newRow("Chinese beside an address") << QString::fromUtf8("网络") << mac << true;
    QTest::newRow("too long") << QString(100, QLatin1Char('M')) << mac << false;
    QTest::newRow("too long, alone") << QString(100, QLatin1Char('M')) << QString() << false;
}

void TestRaTitleWidget::titleAvoidsItsNeighbours()
{
    QFETCH(QString, title);
    QFETCH(QString, right);
    QFETCH(bool, centred);
    RaTitleWidget strip(title, right, true, nullptr);
    const QList<int> numbers = loggedNumbers(&strip);
    QCOMPARE(numbers.size(), 4);
    const int titleW = numbers.at(2);
    const int titleX = numbers.at(3);
    QFont rightFont = strip.font();
    rightFont.setPointSize(9);
    const int rightX = right.isEmpty() ? 310 : 310 - QFontMetrics(rightFont).horizontalAdvance(right);
    QVERIFY(titleW > 0);
    QVERIFY(titleX >= 50);
    QVERIFY(titleX + titleW <= rightX);
    QCOMPARE(titleX == (320 - titleW) / 2, centred);
}

void TestRaTitleWidget::textsAreWhiteOnTheTheme_data()
{
    QTest::addColumn<QString>("title");
    QTest::addColumn<QString>("right");
    QTest::newRow("none") << QString() << QString();
    QTest::newRow("title") << QString::fromLatin1("MMM") << QString();
    QTest::newRow("right") << QString() << QString::fromLatin1("MMM");
}

void TestRaTitleWidget::textsAreWhiteOnTheTheme()
{
    QFETCH(QString, title);
    QFETCH(QString, right);
    RaTitleWidget strip(title, right, true, nullptr);
    const QImage picture = pictureOf(&strip);
    const QRect mark(0, 0, 50, 49);
    const QRect middle(50, 0, 200, 49);
    const QRect end(250, 0, 70, 49);
    QVERIFY(pixelsOf(picture, mark, Qt::white) > 5);
    QCOMPARE(pixelsOf(picture, middle, Qt::white) > 5, !title.isEmpty());
    QCOMPARE(pixelsOf(picture, end, Qt::white) > 5, !right.isEmpty());
    QCOMPARE(picture.pixelColor(0, 0), Ground);
    QCOMPARE(picture.pixelColor(319, 48), Ground);
}

void TestRaTitleWidget::nothingLeaks()
{
    const long growth = heapGrowth([] {
        RaTitleWidget strip(QLatin1String("Title"), QLatin1String("Right"), true, nullptr);
        pictureOf(&strip);
    });
    QVERIFY2(growth < HeapNoise, qPrintable(QString::number(growth)));
}

QTEST_MAIN(TestRaTitleWidget)
#include "tst_ratitlewidget.moc"
