// SPDX-FileCopyrightText: 2026 The rawificontrol authors
// SPDX-License-Identifier: MIT
#include "raswitchbutton.h"
#include "raswitchwidget.h"
#include "widgettest.h"

#include <QtTest>

using namespace widgettest;

class TestRaSwitchWidget : public QObject
{
    Q_OBJECT
private Q_SLOTS:
    void addsNoSignalsOrSlots();
    void switchIsSetUp();
    void keyUpDoesNothing();
    void textsAreLeftOfTheSwitch_data();
    void textsAreLeftOfTheSwitch();
    void isOwnedByItsParent();
    void nothingLeaks();
};

void TestRaSwitchWidget::addsNoSignalsOrSlots()
{
    const QMetaObject& meta = RaSwitchWidget::staticMetaObject;
    QCOMPARE(signalsOf(meta) + slotsOf(meta) + propertiesOf(meta), QStringList());
    QVERIFY(meta.inherits(&RaBaseWidget::staticMetaObject));
}

void TestRaSwitchWidget::switchIsSetUp()
{
    RaSwitchWidget row(nullptr, QLatin1String("Name"), QString());
    RaSwitchButton* button = row.findChild<RaSwitchButton*>();
    QVERIFY(button);
    QCOMPARE(row.switchButton(), button);
    QCOMPARE(button->parent(), &row);
    QCOMPARE(button->geometry(), QRect(QPoint(235, 15), QPoint(294, 44)));
    QCOMPARE(int(button->getButtonStyle()), 1);
    QCOMPARE(button->getBgColorOff(), QColor(30, 33, 41));
    QCOMPARE(button->getBgColorOn(), QColor(248, 129, 133));
    QCOMPARE(button->getSliderColorOff(), QColor(100, 100, 100));
    QCOMPARE(button->getSliderColorOn(), QColor(255, 255, 255));
    QCOMPARE(button->accessibleName(), QString::fromLatin1("Name"));
}

void TestRaSwitchWidget::keyUpDoesNothing()
{
    RaSwitchWidget row(nullptr, QString(), QString());
    row.keyUp();
    QVERIFY(!row.switchButton()->getChecked());
}

void TestRaSwitchWidget::textsAreLeftOfTheSwitch_data()
{
    const QString name = QLatin1String("MMMM");
    const QString chinese = QString::fromUtf8("自动亮度");
    const QString large = QString(60, QLatin1Char('M'));
    QTest::addColumn<QString>("text1");
    QTest::addColumn<QString>("text2");
    QTest::newRow("none") << QString() << QString();
    QTest::newRow("first") << name << QString();
    QTest::newRow("second") << QString() << name;
    QTest::newRow("both") << name << name;
    QTest::newRow("Chinese") << chinese << chinese;
    QTest::newRow("too wide") << large << large;
}

void TestRaSwitchWidget::textsAreLeftOfTheSwitch()
{
    QFETCH(QString, text1);
    QFETCH(QString, text2);
    RaSwitchWidget row(nullptr, text1, text2);
    row.resize(320, 60);
    const QImage picture = pictureOf(&row);
    const QColor ground(QLatin1String("#363636"));
    int left = 320;
    int right = -1;
    int top = 60;
    int bottom = -1;
    for (int y = 0; y < 59; ++y) {
        for (int x = 0; x < 235; ++x) {
            if (picture.pixelColor(x, y) != ground) {
                left = qMin(left, x);
                right = qMax(right, x);
                top = qMin(top, y);
                bottom = qMax(bottom, y);
            }
        }
    }
    if (text1.isEmpty() && text2.isEmpty()) {
        QCOMPARE(right, -1);
    } else {
        QVERIFY(left >= 34);
        QVERIFY(right <= 226);
        QVERIFY(right > 40);
        QVERIFY(top >= 3);
        QVERIFY(bottom <= 56);
        const bool two = !text1.isEmpty() && !text2.isEmpty();
        QCOMPARE(bottom - top > 25, two);
        if (text1.size() > 50) { // it ends in dots, not in half a letter
            QCOMPARE(pixelsOf(picture, QRect(217, 5, 8, 12), ground), 8 * 12);
        }
    }
}

void TestRaSwitchWidget::isOwnedByItsParent()
{
    QWidget page;
    RaSwitchWidget* row = new RaSwitchWidget(&page, QString(), QString());
    QCOMPARE(row->parentWidget(), &page);
}

void TestRaSwitchWidget::nothingLeaks()
{
    const long growth = heapGrowth([] {
        RaSwitchWidget row(nullptr, QLatin1String("Name"), QLatin1String("More"));
        row.resize(320, 60);
        pictureOf(&row);
    });
    QVERIFY2(growth < HeapNoise, qPrintable(QString::number(growth)));
}

QTEST_MAIN(TestRaSwitchWidget)
#include "tst_raswitchwidget.moc"
