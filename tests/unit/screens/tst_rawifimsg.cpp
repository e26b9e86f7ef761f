// SPDX-FileCopyrightText: 2026 The rawificontrol authors
// SPDX-License-Identifier: MIT
#include "rawifimsg.h"
#include "widgettest.h"

#include <QtTest>

using namespace widgettest;

namespace {

const QSize Size(320, 70);

/** The smallest rectangle that holds all that is not black. */
QRect litArea(const QImage& picture)
{
    QRect lit;
    for (int y = 0; y < picture.height(); ++y) {
        for (int x = 0; x < picture.width(); ++x) {
            if (picture.pixelColor(x, y) != QColor(Qt::black)) {
                lit |= QRect(x, y, 1, 1);
            }
        }
    }
    return lit;
}

} // namespace

class TestRaWifiMsg : public QObject
{
    Q_OBJECT
private Q_SLOTS:
    void addsNoSignalsOrSlots();
    void isFramelessAndWithoutParent();
    void emptyMessageIsABlackPanel();
    void messageStandsInTheMiddle_data();
    void messageStandsInTheMiddle();
    void messageIsPlainText();
    void assistiveToolsSeeTheMessage();
    void nothingLeaks();
};

void TestRaWifiMsg::addsNoSignalsOrSlots()
{
    const QMetaObject& meta = RaWifiMsg::staticMetaObject;
    QCOMPARE(signalsOf(meta) + slotsOf(meta) + propertiesOf(meta), QStringList());
    QCOMPARE(meta.superClass(), &RaBaseWidget::staticMetaObject);
}

void TestRaWifiMsg::isFramelessAndWithoutParent()
{
    QWidget host;
    const RaWifiMsg panel(&host);
    QVERIFY(!panel.parent());
    QVERIFY(panel.isWindow());
    QVERIFY(panel.windowFlags() & Qt::FramelessWindowHint);
    QVERIFY(panel.m_text.isEmpty());
}

void TestRaWifiMsg::emptyMessageIsABlackPanel()
{
    RaWifiMsg panel(nullptr);
    panel.setStyleSheet(QLatin1String("QWidget{background-color:#1e2129}"));
    panel.resize(Size);
    QVERIFY(litArea(pictureOf(&panel)).isNull());
}

void TestRaWifiMsg::messageStandsInTheMiddle_data()
{
    QTest::addColumn<QString>("text");
    QTest::addColumn<bool>("oneLine");
    QTest::newRow("short") << QString::fromLatin1("MMMM") << true;
    QTest::newRow("Chinese") << QString::fromUtf8("密码错误") << true;
    QTest::newRow("long") << QString::fromLatin1("The password is wrong. Please enter it again and try once more.")
                          << false;
    QTest::newRow("long Chinese") << QString::fromUtf8("网络的密码错误，请重新输入密码后再次尝试连接此网络。") << false;
    QTest::newRow("a name of 32 wide letters without a blank") << QString(32, QLatin1Char('W')) << false;
}

void TestRaWifiMsg::messageStandsInTheMiddle()
{
    QFETCH(QString, text);
    QFETCH(bool, oneLine);
    RaWifiMsg panel(nullptr);
    panel.resize(Size);
    panel.m_text = text;
    const QImage picture = pictureOf(&panel);
    const QRect lit = litArea(picture);
    QVERIFY(pixelsOf(picture, picture.rect(), Qt::white) > 5);
    QVERIFY(qAbs(lit.center().x() - 160) <= 4);
    QVERIFY(qAbs(lit.center().y() - 35) <= 4);
    QVERIFY(lit.left() >= 4);
    QVERIFY(lit.right() <= 315);
    QVERIFY(lit.top() > 0);
    QVERIFY(lit.bottom() < 69);
    QCOMPARE(lit.height() <= 17, oneLine);
}

void TestRaWifiMsg::messageIsPlainText()
{
    RaWifiMsg panel(nullptr);
    panel.resize(Size);
    panel.m_text = QLatin1String("<br>");
    QVERIFY(!litArea(pictureOf(&panel)).isNull());
}

void TestRaWifiMsg::assistiveToolsSeeTheMessage()
{
    RaWifiMsg panel(nullptr);
    panel.m_text = QLatin1String("Wrong password");
    pictureOf(&panel);
    QCOMPARE(panel.accessibleName(), QString::fromLatin1("Wrong password"));
}

void TestRaWifiMsg::nothingLeaks()
{
    const long growth = heapGrowth([] {
        RaWifiMsg panel(nullptr);
        panel.resize(Size);
        panel.m_text = QLatin1String("Wrong password");
        pictureOf(&panel);
    });
    QVERIFY2(growth < HeapNoise, qPrintable(QString::number(growth)));
}

QTEST_MAIN(TestRaWifiMsg)
#include "tst_rawifimsg.moc"
