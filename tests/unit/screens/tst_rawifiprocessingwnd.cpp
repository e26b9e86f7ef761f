// SPDX-FileCopyrightText: 2026 The rawificontrol authors
// SPDX-License-Identifier: MIT
#include "racirclewait.h"
#include "rawifiprocessingwnd.h"
#include "widgettest.h"

#include <QLabel>
#include <QtTest>

using namespace widgettest;

class TestRaWifiProcessingWnd : public QObject
{
    Q_OBJECT
private Q_SLOTS:
    void addsNoSignalsOrSlots();
    void isFramelessAndWithoutParent();
    void spinnerStandsAboveTheText();
    void keepsItsGroundInsideAHost();
    void textIsSeenWhole_data();
    void textIsSeenWhole();
    void nothingLeaks();
};

void TestRaWifiProcessingWnd::addsNoSignalsOrSlots()
{
    const QMetaObject& meta = RaWifiProcessingWnd::staticMetaObject;
    QCOMPARE(signalsOf(meta) + slotsOf(meta) + propertiesOf(meta), QStringList());
    QCOMPARE(meta.superClass(), &QWidget::staticMetaObject);
}

void TestRaWifiProcessingWnd::isFramelessAndWithoutParent()
{
    QWidget host;
    const RaWifiProcessingWnd panel(&host, QLatin1String("text"));
    QVERIFY(!panel.parent());
    QVERIFY(panel.isWindow());
    QVERIFY(panel.windowFlags() & Qt::FramelessWindowHint);
    QCOMPARE(panel.size(), QSize(320, 170));
    QCOMPARE(panel.styleSheet(), QString::fromLatin1("QWidget{background-color:#1e2129}"));
    QCOMPARE(panel.accessibleName(), QString::fromLatin1("text"));
}

void TestRaWifiProcessingWnd::spinnerStandsAboveTheText()
{
    RaWifiProcessingWnd panel(nullptr, QLatin1String("text"));
    const RaCircleWait* spinner = panel.findChild<RaCircleWait*>();
    const QLabel* label = panel.findChild<QLabel*>();
    QVERIFY(spinner);
    QVERIFY(label);
    QCOMPARE(panel.children(), QObjectList() << const_cast<RaCircleWait*>(spinner) << const_cast<QLabel*>(label));
    QVERIFY(!spinner->isWindow());
    QCOMPARE(spinner->geometry(), QRect(0, 0, 320, 120));
    QVERIFY(spinner->isVisibleTo(&panel));
    QCOMPARE(label->geometry(), QRect(0, 101, 320, 50));
    QVERIFY(label->isVisibleTo(&panel));
    QCOMPARE(label->text(), QString::fromLatin1("text"));
    QCOMPARE(label->textFormat(), Qt::PlainText);
    QCOMPARE(label->alignment(), Qt::Alignment(Qt::AlignCenter));
    QCOMPARE(label->styleSheet(),
             QString::fromLatin1("QLabel {font-size: 20px;color: #BDC8E2;background-color: #1e2129;}"));

    const QImage picture = pictureOf(&panel);
    const QRect ring(110, 10, 100, 90);
    QVERIFY(pixelsOf(picture, ring, QColor(Qt::blue)) > 100);
    QCOMPARE(picture.pixelColor(5, 165), QColor(QLatin1String("#1e2129")));
    QCOMPARE(picture.pixelColor(5, 110), QColor(QLatin1String("#1e2129"))); // the label lies over the spinner
}

void TestRaWifiProcessingWnd::keepsItsGroundInsideAHost()
{
    QWidget host;
    host.resize(320, 170);
    RaWifiProcessingWnd* panel = new RaWifiProcessingWnd(&host, QString());
    panel->setParent(&host);
    panel->show();
    QCOMPARE(pictureOf(&host).pixelColor(5, 165), QColor(QLatin1String("#1e2129")));
}

void TestRaWifiProcessingWnd::textIsSeenWhole_data()
{
    QTest::addColumn<QString>("text");
    QTest::newRow("English") << QString::fromLatin1("Connecting, please wait...");
    QTest::newRow("two lines") << QString::fromLatin1("Connecting to the network, please wait a moment");
    QTest::newRow("more than two lines") << QString::fromLatin1(
        "Connecting to the network Conference room on the 3rd floor");
    QTest::newRow("one endless word") << QString(60, QLatin1Char('W'));
    QTest::newRow("Chinese") << QString::fromUtf8("正在连接中，请等待...");
}

void TestRaWifiProcessingWnd::textIsSeenWhole()
{
    QFETCH(QString, text);
    RaWifiProcessingWnd panel(nullptr, text);
    const QImage picture = pictureOf(&panel);
    const QColor ground(QLatin1String("#1e2129"));
    const QRect label(0, 101, 320, 50);
    QVERIFY(pixelsOf(picture, label, ground) < label.width() * label.height());
    for (const QRect& edge :
         {QRect(0, 101, 320, 1), QRect(0, 150, 320, 1), QRect(0, 101, 1, 50), QRect(319, 101, 1, 50)}) {
        QCOMPARE(pixelsOf(picture, edge, ground), edge.width() * edge.height());
    }
}

void TestRaWifiProcessingWnd::nothingLeaks()
{
    const long growth = heapGrowth([] {
        RaWifiProcessingWnd panel(nullptr, QLatin1String("text"));
        pictureOf(&panel);
    });
    QVERIFY2(growth < HeapNoise, qPrintable(QString::number(growth)));
}

QTEST_MAIN(TestRaWifiProcessingWnd)
#include "tst_rawifiprocessingwnd.moc"
