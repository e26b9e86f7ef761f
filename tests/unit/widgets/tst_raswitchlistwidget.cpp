// SPDX-FileCopyrightText: 2026 The rawificontrol authors
// SPDX-License-Identifier: MIT
#include "loggedmessages.h"
#include "raswitchbutton.h"
#include "raswitchlistwidget.h"
#include "widgettest.h"

#include <QSignalSpy>
#include <QTimer>
#include <QtTest>

using namespace widgettest;

namespace {

const QSize Full(320, 140);
const QSize Shrunk(320, 59);
const QColor Knob(255, 0, 0);

class Row : public RaSwitchListWidget
{
public:
    explicit Row(const QSize& size)
    {
        setBgColor(QColor(0, 0, 0), QColor(0, 0, 0));
        setSliderColor(Knob, Knob);
        setItemText(QLatin1String("Discovering..."), QLatin1String("WIFI"));
        resize(size);
        show();
    }
    /** The knob's distance from the left edge of its switch. */
    int knobX(int y)
    {
        const QImage picture = pictureOf(this);
        for (int x = 235; x < 295; ++x) {
            if (picture.pixelColor(x, y) == Knob) {
                return x - 235;
            }
        }
        return -1;
    }
    QTimer* timer() { return findChild<QTimer*>(); }
    int glideToEnd()
    {
        int steps = 0;
        for (; timer()->isActive() && steps < 10000; ++steps) {
            QMetaObject::invokeMethod(this, "updateValue");
        }
        return steps;
    }
};

} // namespace

class TestRaSwitchListWidget : public QObject
{
    Q_OBJECT
private Q_SLOTS:
    void declaresItsListsInOrder();
    void hasTheDefaultsOfTheButton();
    void settersFillTheProperties();
    void pressesAreToldApart_data();
    void pressesAreToldApart();
    void switchPositionIsLogged();
    void itemsAreLoggedOnResize();
    void knobGlidesBetweenZeroAndThirty_data();
    void knobGlidesBetweenZeroAndThirty();
    void setCheckedTellsButLeavesTheKnob();
    void textsAreShown_data();
    void textsAreShown();
    void keysWorkTheRow_data();
    void keysWorkTheRow();
    void disabledRowIsDimmed();
    void nothingLeaks();
};

void TestRaSwitchListWidget::declaresItsListsInOrder()
{
    const QMetaObject& meta = RaSwitchListWidget::staticMetaObject;
    QCOMPARE(signalsOf(meta), QStringList()
                                  << QLatin1String("configPressed()") << QLatin1String("checkedChanged(bool)"));
    QCOMPARE(slotsOf(meta), slotsOf(RaSwitchButton::staticMetaObject));
    QCOMPARE(
        propertiesOf(meta).replaceInStrings(QLatin1String("RaSwitchListWidget::"), QString()),
        propertiesOf(RaSwitchButton::staticMetaObject).replaceInStrings(QLatin1String("RaSwitchButton::"), QString()));
    QVERIFY(meta.inherits(&RaBaseWidget::staticMetaObject));
}

void TestRaSwitchListWidget::hasTheDefaultsOfTheButton()
{
    const QMetaObject& meta = RaSwitchButton::staticMetaObject;
    const RaSwitchButton button;
    const RaSwitchListWidget row;
    for (int i = meta.propertyOffset(); i < meta.propertyCount(); ++i) {
        const char* name = meta.property(i).name();
        QCOMPARE(row.property(name).toString(), button.property(name).toString());
    }
    QCOMPARE(row.findChild<QTimer*>()->interval(), 5);
}

void TestRaSwitchListWidget::settersFillTheProperties()
{
    RaSwitchListWidget row;
    row.setButtonStyle(RaSwitchListWidget::ButtonStyle_Round);
    row.setBgColor(QColor(1, 2, 3), QColor(4, 5, 6));
    row.setSliderColor(QColor(7, 8, 9), QColor(10, 11, 12));
    row.setTextColor(QColor(13, 14, 15), QColor(16, 17, 18));
    row.setText(QLatin1String("off"), QLatin1String("on"));
    row.setImage(QLatin1String("a"), QLatin1String("b"));
    row.setSpace(3);
    row.setRectRadius(7);
    QCOMPARE(row.property("buttonStyle").toInt(), 1);
    QCOMPARE(row.getBgColorOff(), QColor(1, 2, 3));
    QCOMPARE(row.getBgColorOn(), QColor(4, 5, 6));
    QCOMPARE(row.getSliderColorOff(), QColor(7, 8, 9));
    QCOMPARE(row.getSliderColorOn(), QColor(10, 11, 12));
    QCOMPARE(row.getTextColorOff(), QColor(13, 14, 15));
    QCOMPARE(row.getTextColorOn(), QColor(16, 17, 18));
    QCOMPARE(row.getTextOff(), QString::fromLatin1("off"));
    QCOMPARE(row.getTextOn(), QString::fromLatin1("on"));
    QCOMPARE(row.getImageOff(), QString::fromLatin1("a"));
    QCOMPARE(row.getImageOn(), QString::fromLatin1("b"));
    QCOMPARE(row.getSpace(), 3);
    QCOMPARE(row.getRectRadius(), 7);
}

void TestRaSwitchListWidget::pressesAreToldApart_data()
{
    QTest::addColumn<QSize>("size");
    QTest::addColumn<int>("switchPos");
    QTest::addColumn<bool>("hidden");
    QTest::addColumn<QPoint>("point");
    QTest::addColumn<QByteArray>("outcome");
    const QByteArray sw = "switch pressed!!!,click item";
    const QByteArray config = "config item pressed!!!";
    const QByteArray none = "not valid pressed";
    QTest::newRow("switch in item 1, on it") << Full << 1 << false << QPoint(265, 29) << sw;
    QTest::newRow("switch in item 1, on the name") << Full << 1 << false << QPoint(60, 29) << none;
    QTest::newRow("switch in item 1, first line of item 2") << Full << 1 << false << QPoint(60, 59) << config;
    QTest::newRow("switch in item 1, last line of item 2") << Full << 1 << false << QPoint(265, 139) << config;
    QTest::newRow("switch in item 1, last line of item 1") << Full << 1 << false << QPoint(60, 58) << none;
    QTest::newRow("switch in item 2, on it") << Full << 2 << false << QPoint(265, 99) << sw;
    QTest::newRow("switch in item 2, on the message") << Full << 2 << false << QPoint(60, 99) << none;
    QTest::newRow("switch in item 2, first line of item 1") << Full << 2 << false << QPoint(60, 0) << config;
    QTest::newRow("switch in item 2, last line of item 1") << Full << 2 << false << QPoint(265, 58) << config;
    QTest::newRow("any other position is item 2") << Full << 7 << false << QPoint(265, 99) << sw;
    QTest::newRow("left edge of the field is outside") << Shrunk << 1 << false << QPoint(225, 29) << none;
    QTest::newRow("next to the left edge is inside") << Shrunk << 1 << false << QPoint(226, 29) << sw;
    QTest::newRow("right edge of the field is outside") << Shrunk << 1 << false << QPoint(304, 29) << none;
    QTest::newRow("next to the right edge is inside") << Shrunk << 1 << false << QPoint(303, 29) << sw;
    QTest::newRow("upper edge of the field is outside") << Shrunk << 1 << false << QPoint(265, 4) << none;
    QTest::newRow("next to the upper edge is inside") << Shrunk << 1 << false << QPoint(265, 5) << sw;
    QTest::newRow("lower edge of the field is outside") << Shrunk << 1 << false << QPoint(265, 53) << none;
    QTest::newRow("next to the lower edge is inside") << Shrunk << 1 << false << QPoint(265, 52) << sw;
    QTest::newRow("hidden message has no item") << Full << 1 << true << QPoint(60, 99) << none;
    QTest::newRow("hidden message, switch in item 1") << Full << 1 << true << QPoint(265, 29) << sw;
    QTest::newRow("hidden message, switch in item 2") << Full << 2 << true << QPoint(265, 99) << sw;
    QTest::newRow("a pixel more makes no item 2") << QSize(320, 60) << 1 << false << QPoint(60, 59) << none;
    QTest::newRow("no item 2, no switch in it") << Shrunk << 2 << false << QPoint(0, 70) << none;
}

void TestRaSwitchListWidget::pressesAreToldApart()
{
    QFETCH(QSize, size);
    QFETCH(int, switchPos);
    QFETCH(bool, hidden);
    QFETCH(QPoint, point);
    QFETCH(QByteArray, outcome);
    Row row(size);
    row.setSwitchPos(switchPos);
    row.setIsHideMsg(hidden);
    QSignalSpy config(&row, SIGNAL(configPressed()));
    QSignalSpy changes(&row, SIGNAL(checkedChanged(bool)));
    const QList<QByteArray> messages = loggedMessages([&] { press(&row, point); });
    QCOMPARE(messages, QList<QByteArray>() << outcome);
    QCOMPARE(changes.count(), outcome.startsWith("switch") ? 1 : 0);
    QCOMPARE(config.count(), outcome.startsWith("config") ? 1 : 0);
    QCOMPARE(row.getChecked(), outcome.startsWith("switch"));
}

void TestRaSwitchListWidget::switchPositionIsLogged()
{
    Row row(Full);
    const QList<QByteArray> messages = loggedMessages([&] {
        row.setSwitchPos(1);
        row.setSwitchPos(2);
    });
    QCOMPARE(messages, QList<QByteArray>() << "pos =1"
                                           << "pos =2");
}

void TestRaSwitchListWidget::itemsAreLoggedOnResize()
{
    Row row(Shrunk);
    const QList<QByteArray> messages = loggedMessages([&] { row.resize(Full); });
    QCOMPARE(messages, QList<QByteArray>() << "item1Rect (0,0)-(319,58)"
                                           << "item2Rect (0,59)-(319,139)");
}

void TestRaSwitchListWidget::knobGlidesBetweenZeroAndThirty_data()
{
    QTest::addColumn<int>("switchPos");
    QTest::addColumn<int>("style");
    QTest::addColumn<int>("y");
    QTest::newRow("item 1, half width") << 1 << 0 << 29;
    QTest::newRow("item 1, round") << 1 << 1 << 29;
    QTest::newRow("item 2, half width") << 2 << 0 << 99;
    QTest::newRow("item 2, round") << 2 << 1 << 99;
}

void TestRaSwitchListWidget::knobGlidesBetweenZeroAndThirty()
{
    QFETCH(int, switchPos);
    QFETCH(int, style);
    QFETCH(int, y);
    Row row(Full);
    row.setSwitchPos(switchPos);
    row.setButtonStyle(static_cast<RaSwitchListWidget::ButtonStyle>(style));
    const int start = row.knobX(y);
    QVERIFY(start >= 2);
    QVERIFY(start <= 3);
    press(&row, QPoint(265, y));
    QCOMPARE(row.knobX(y), start);
    QCOMPARE(row.glideToEnd(), 30);
    QCOMPARE(row.knobX(y), start + 30);
    press(&row, QPoint(265, y));
    QCOMPARE(row.glideToEnd(), 30);
    QCOMPARE(row.knobX(y), start);
}

void TestRaSwitchListWidget::setCheckedTellsButLeavesTheKnob()
{
    Row row(Full);
    QSignalSpy changes(&row, SIGNAL(checkedChanged(bool)));
    row.setChecked(true);
    row.setChecked(true);
    QCOMPARE(changes.count(), 1);
    QCOMPARE(row.knobX(29), 2);
    row.resize(Shrunk);
    QCOMPARE(row.knobX(29), 32);
    row.setChecked(false);
    QCOMPARE(row.knobX(29), 32);
    row.resize(Full);
    QCOMPARE(row.knobX(29), 2);
}

void TestRaSwitchListWidget::textsAreShown_data()
{
    QTest::addColumn<QSize>("size");
    QTest::addColumn<int>("switchPos");
    QTest::addColumn<bool>("hidden");
    QTest::addColumn<bool>("message");
    QTest::newRow("both") << Full << 1 << false << true;
    QTest::newRow("hidden") << Full << 1 << true << false;
    QTest::newRow("hidden beside the switch") << Full << 2 << true << false;
}

void TestRaSwitchListWidget::textsAreShown()
{
    QFETCH(QSize, size);
    QFETCH(int, switchPos);
    QFETCH(bool, hidden);
    QFETCH(bool, message);
    Row row(size);
    row.setSwitchPos(switchPos);
    row.setIsHideMsg(hidden);
    const QImage picture = pictureOf(&row);
    QVERIFY(pixelsOf(picture, QRect(35, 0, 180, 59), Qt::white) > 10);
    QCOMPARE(pixelsOf(picture, QRect(0, 59, 220, 81), Qt::white) > 10, message);
    QCOMPARE(picture.pixelColor(5, 5), QColor(54, 54, 54));
    const bool item2 = !(hidden && switchPos == 1);
    QCOMPARE(picture.pixelColor(5, 135), item2 ? QColor(54, 54, 54) : QColor(0x1e, 0x21, 0x29));
    QCOMPARE(row.accessibleName(), QString::fromLatin1("WIFI"));
    QCOMPARE(row.accessibleDescription(), QString::fromLatin1("Discovering..."));
}

void TestRaSwitchListWidget::keysWorkTheRow_data()
{
    QTest::addColumn<QSize>("size");
    QTest::addColumn<int>("switchPos");
    QTest::addColumn<int>("key");
    QTest::addColumn<bool>("repeat");
    QTest::addColumn<int>("changes");
    QTest::addColumn<int>("configs");
    QTest::newRow("space") << Full << 1 << int(Qt::Key_Space) << false << 1 << 0;
    QTest::newRow("enter") << Full << 1 << int(Qt::Key_Enter) << false << 1 << 0;
    QTest::newRow("enter held down") << Full << 1 << int(Qt::Key_Enter) << true << 0 << 0;
    QTest::newRow("menu") << Full << 1 << int(Qt::Key_Menu) << false << 0 << 1;
    QTest::newRow("menu held down") << Full << 1 << int(Qt::Key_Menu) << true << 0 << 0;
    QTest::newRow("menu without the item") << Shrunk << 1 << int(Qt::Key_Menu) << false << 0 << 0;
    QTest::newRow("space without the switch") << Shrunk << 2 << int(Qt::Key_Space) << false << 0 << 0;
    QTest::newRow("a letter") << Full << 1 << int(Qt::Key_A) << false << 0 << 0;
}

void TestRaSwitchListWidget::keysWorkTheRow()
{
    QFETCH(QSize, size);
    QFETCH(int, switchPos);
    QFETCH(int, key);
    QFETCH(bool, repeat);
    QFETCH(int, changes);
    QFETCH(int, configs);
    Row row(size);
    row.setSwitchPos(switchPos);
    QSignalSpy config(&row, SIGNAL(configPressed()));
    QSignalSpy changed(&row, SIGNAL(checkedChanged(bool)));
    pressKey(&row, key, repeat);
    QCOMPARE(changed.count(), changes);
    QCOMPARE(config.count(), configs);
    QVERIFY(row.focusPolicy() & Qt::TabFocus);
}

void TestRaSwitchListWidget::disabledRowIsDimmed()
{
    Row row(Shrunk);
    row.setEnabled(false);
    QCOMPARE(row.knobX(29), -1);
    press(&row, QPoint(265, 29));
    QVERIFY(!row.getChecked());
}

void TestRaSwitchListWidget::nothingLeaks()
{
    const long growth = heapGrowth([] {
        Row row(Full);
        press(&row, QPoint(265, 29));
    });
    QVERIFY2(growth < HeapNoise, qPrintable(QString::number(growth)));
}

QTEST_MAIN(TestRaSwitchListWidget)
#include "tst_raswitchlistwidget.moc"
