// SPDX-FileCopyrightText: 2026 The rawificontrol authors
// SPDX-License-Identifier: MIT
#include "raswitchbutton.h"
#include "widgettest.h"

#include <QSignalSpy>
#include <QTimer>
#include <QtTest>

using namespace widgettest;

namespace {

const QColor Track(0, 0, 0);
const QColor Knob(255, 0, 0);

/** A switch in which the knob is easily found. */
class PlainSwitch : public RaSwitchButton
{
public:
    PlainSwitch(int style, const QSize& size)
    {
        setButtonStyle(static_cast<ButtonStyle>(style));
        setBgColor(Track, Track);
        setSliderColor(Knob, Knob);
        setSpace(2);
        resize(size);
        show();
    }

    /** Where the knob begins. */
    int knobX()
    {
        const QImage picture = pictureOf(this);
        for (int x = 0; x < picture.width(); ++x) {
            if (picture.pixelColor(x, height() / 2) == Knob) {
                return x;
            }
        }
        return -1;
    }

    void tap() { press(this, rect().center()); }
    QTimer* timer() { return findChild<QTimer*>(); }
    void step() { QMetaObject::invokeMethod(this, "updateValue"); }
    /** Lets the knob glide to its end; the number of steps. */
    int glideToEnd()
    {
        int steps = 0;
        for (; timer()->isActive() && steps < 10000; ++steps) {
            step();
        }
        return steps;
    }
};

} // namespace

class TestRaSwitchButton : public QObject
{
    Q_OBJECT
private Q_SLOTS:
    void declaresItsListsInOrder();
    void hasItsDefaults_data();
    void hasItsDefaults();
    void settersFillTheProperties();
    void knobGlidesToTheEndOfItsStyle_data();
    void knobGlidesToTheEndOfItsStyle();
    void twoQuickTapsEndWhereTheyBegan();
    void setCheckedTellsButLeavesTheKnob();
    void setCheckedDuringAGlideKeepsItsEnd();
    void resizePutsTheKnobToItsEnd_data();
    void resizePutsTheKnobToItsEnd();
    void coloursFollowTheStateAndTheGlide();
    void textIsShownInTheColourOfTheState();
    void textTooWideIsMadeToFit();
    void pictureIsShownWhereItExists();
    void keysWorkLikeATap_data();
    void keysWorkLikeATap();
    void focusMarkIsForKeysOnly();
    void disabledSwitchIsDimmed();
    void nothingLeaks();
};

void TestRaSwitchButton::declaresItsListsInOrder()
{
    const QMetaObject& meta = RaSwitchButton::staticMetaObject;
    QCOMPARE(signalsOf(meta), QStringList() << QLatin1String("checkedChanged(bool)"));
    QCOMPARE(slotsOf(meta),
             QStringList() << QLatin1String("setChecked(bool)") << QLatin1String("setButtonStyle(ButtonStyle)")
                           << QLatin1String("setBgColor(QColor,QColor)")
                           << QLatin1String("setSliderColor(QColor,QColor)")
                           << QLatin1String("setTextColor(QColor,QColor)") << QLatin1String("setText(QString,QString)")
                           << QLatin1String("setImage(QString,QString)") << QLatin1String("setSpace(int)")
                           << QLatin1String("setRectRadius(int)") << QLatin1String("updateValue()"));
    QStringList names;
    for (const QString& property : propertiesOf(meta)) {
        names << property.section(QLatin1Char(' '), 1);
    }
    QCOMPARE(names.join(QLatin1Char(' ')),
             QString::fromLatin1("checked buttonStyle bgColorOff bgColorOn sliderColorOff sliderColorOn textColorOff "
                                 "textColorOn textOff textOn imageOff imageOn space rectRadius"));
    const QMetaEnum styles = meta.enumerator(meta.indexOfEnumerator("ButtonStyle"));
    QCOMPARE(styles.keyCount(), 3);
    for (int i = 0; i < 3; ++i) {
        QCOMPARE(styles.value(i), i);
    }
}

void TestRaSwitchButton::hasItsDefaults_data()
{
    QTest::addColumn<QVariant>("expected");
    QTest::newRow("checked") << QVariant(false);
    QTest::newRow("buttonStyle") << QVariant(0);
    QTest::newRow("bgColorOff") << QVariant(QColor(225, 225, 225));
    QTest::newRow("bgColorOn") << QVariant(QColor(250, 250, 250));
    QTest::newRow("sliderColorOff") << QVariant(QColor(100, 100, 100));
    QTest::newRow("sliderColorOn") << QVariant(QColor(100, 184, 255));
    QTest::newRow("textColorOff") << QVariant(QColor(255, 255, 255));
    QTest::newRow("textColorOn") << QVariant(QColor(10, 10, 10));
    QTest::newRow("textOff") << QVariant(QString());
    QTest::newRow("textOn") << QVariant(QString());
    QTest::newRow("imageOff") << QVariant(QLatin1String(":/image/btncheckoff1.png"));
    QTest::newRow("imageOn") << QVariant(QLatin1String(":/image/btncheckon1.png"));
    QTest::newRow("space") << QVariant(2);
    QTest::newRow("rectRadius") << QVariant(5);
}

void TestRaSwitchButton::hasItsDefaults()
{
    QFETCH(QVariant, expected);
    const RaSwitchButton button;
    const QVariant value = button.property(QTest::currentDataTag());
    QVERIFY(value.isValid());
    if (expected.userType() == QMetaType::Int) {
        QCOMPARE(value.toInt(), expected.toInt());
    } else {
        QCOMPARE(value, expected);
    }
    QCOMPARE(button.font().family(), QString::fromLatin1("Microsoft Yahei"));
    QCOMPARE(button.font().pointSize(), 10);
    QCOMPARE(button.findChild<QTimer*>()->interval(), 5);
    QVERIFY(!button.findChild<QTimer*>()->isActive());
}

void TestRaSwitchButton::settersFillTheProperties()
{
    RaSwitchButton button;
    button.setButtonStyle(RaSwitchButton::ButtonStyle_Slim);
    button.setBgColor(QColor(1, 2, 3), QColor(4, 5, 6));
    button.setSliderColor(QColor(7, 8, 9), QColor(10, 11, 12));
    button.setTextColor(QColor(13, 14, 15), QColor(16, 17, 18));
    button.setText(QLatin1String("off"), QLatin1String("on"));
    button.setImage(QLatin1String("a"), QLatin1String("b"));
    button.setSpace(3);
    button.setRectRadius(7);
    QCOMPARE(button.property("buttonStyle").toInt(), 2);
    QCOMPARE(button.getBgColorOff(), QColor(1, 2, 3));
    QCOMPARE(button.getBgColorOn(), QColor(4, 5, 6));
    QCOMPARE(button.getSliderColorOff(), QColor(7, 8, 9));
    QCOMPARE(button.getSliderColorOn(), QColor(10, 11, 12));
    QCOMPARE(button.getTextColorOff(), QColor(13, 14, 15));
    QCOMPARE(button.getTextColorOn(), QColor(16, 17, 18));
    QCOMPARE(button.getTextOff(), QString::fromLatin1("off"));
    QCOMPARE(button.getTextOn(), QString::fromLatin1("on"));
    QCOMPARE(button.getImageOff(), QString::fromLatin1("a"));
    QCOMPARE(button.getImageOn(), QString::fromLatin1("b"));
    QCOMPARE(button.getSpace(), 3);
    QCOMPARE(button.getRectRadius(), 7);
}

void TestRaSwitchButton::knobGlidesToTheEndOfItsStyle_data()
{
    QTest::addColumn<int>("style");
    QTest::addColumn<QSize>("size");
    QTest::addColumn<int>("travel");
    QTest::addColumn<int>("steps");
    QTest::newRow("half width") << 0 << QSize(60, 30) << 30 << 30;
    QTest::newRow("round") << 1 << QSize(60, 30) << 30 << 30;
    QTest::newRow("slim") << 2 << QSize(60, 30) << 32 << 32;
    QTest::newRow("half width, large") << 0 << QSize(200, 40) << 100 << 25;
    QTest::newRow("round, large") << 1 << QSize(200, 40) << 160 << 40;
    QTest::newRow("slim, large, last step cut") << 2 << QSize(200, 40) << 162 << 41;
    QTest::newRow("narrower than a step's fiftieth") << 1 << QSize(40, 20) << 20 << 20;
}

void TestRaSwitchButton::knobGlidesToTheEndOfItsStyle()
{
    QFETCH(int, style);
    QFETCH(QSize, size);
    QFETCH(int, travel);
    QFETCH(int, steps);
    PlainSwitch button(style, size);
    const int start = button.knobX();
    QVERIFY(start >= 0);

    button.tap();
    QCOMPARE(button.knobX(), start);
    QVERIFY(button.timer()->isActive());
    QCOMPARE(button.glideToEnd(), steps);
    QCOMPARE(button.knobX(), start + travel);

    button.tap();
    QCOMPARE(button.glideToEnd(), steps);
    QCOMPARE(button.knobX(), start);
}

void TestRaSwitchButton::twoQuickTapsEndWhereTheyBegan()
{
    PlainSwitch button(1, QSize(60, 30));
    QSignalSpy changes(&button, SIGNAL(checkedChanged(bool)));
    const int start = button.knobX();
    button.tap();
    button.step();
    mouse(&button, QEvent::MouseButtonDblClick, QPoint(5, 5)); // how the toolkit reports a quick second tap
    button.glideToEnd();
    QCOMPARE(changes.count(), 2);
    QCOMPARE(changes.at(0).at(0).toBool(), true);
    QCOMPARE(changes.at(1).at(0).toBool(), false);
    QCOMPARE(button.knobX(), start);
    QVERIFY(!button.getChecked());
}

void TestRaSwitchButton::setCheckedTellsButLeavesTheKnob()
{
    PlainSwitch button(1, QSize(60, 30));
    QSignalSpy changes(&button, SIGNAL(checkedChanged(bool)));
    const int start = button.knobX();
    button.setChecked(true);
    QCOMPARE(changes.count(), 1);
    QCOMPARE(changes.at(0).at(0).toBool(), true);
    QVERIFY(!button.timer()->isActive());
    QCOMPARE(button.knobX(), start);

    button.setChecked(true);
    QCOMPARE(changes.count(), 1);

    button.tap();
    QCOMPARE(changes.count(), 2);
    QCOMPARE(button.glideToEnd(), 1);
    QCOMPARE(button.knobX(), start);
}

void TestRaSwitchButton::setCheckedDuringAGlideKeepsItsEnd()
{
    PlainSwitch button(1, QSize(60, 30));
    const int start = button.knobX();
    button.tap();
    button.step();
    button.setChecked(false);
    QCOMPARE(button.glideToEnd(), 1);
    QCOMPARE(button.knobX(), start + 30);
}

void TestRaSwitchButton::resizePutsTheKnobToItsEnd_data()
{
    QTest::addColumn<bool>("checked");
    QTest::addColumn<bool>("gliding");
    QTest::addColumn<int>("travel");
    QTest::newRow("on") << true << false << 60;
    QTest::newRow("off") << false << false << 0;
    QTest::newRow("on the way to on") << true << true << 60;
    QTest::newRow("on the way to off") << false << true << 0;
}

void TestRaSwitchButton::resizePutsTheKnobToItsEnd()
{
    QFETCH(bool, checked);
    QFETCH(bool, gliding);
    QFETCH(int, travel);
    PlainSwitch button(1, QSize(60, 30));
    const int start = button.knobX();
    if (gliding) {
        button.setChecked(!checked);
        button.tap();
        button.step();
    } else {
        button.setChecked(checked);
    }
    button.resize(90, 30);
    QCOMPARE(button.knobX(), start + travel);
    button.glideToEnd();
    QCOMPARE(button.knobX(), start + travel);
}

void TestRaSwitchButton::coloursFollowTheStateAndTheGlide()
{
    RaSwitchButton button;
    button.setButtonStyle(RaSwitchButton::ButtonStyle_Rect);
    button.setBgColor(QColor(0, 0, 0), QColor(200, 100, 50));
    button.setSliderColor(QColor(0, 0, 100), QColor(0, 0, 200));
    button.resize(60, 30);
    button.show();
    const QPoint onTrack(45, 15);
    const QPoint onKnob(15, 15);
    QImage picture = pictureOf(&button);
    QCOMPARE(picture.pixelColor(onTrack), QColor(0, 0, 0));
    QCOMPARE(picture.pixelColor(onKnob), QColor(0, 0, 100));

    press(&button, onKnob);
    for (int i = 0; i < 15; ++i) {
        QMetaObject::invokeMethod(&button, "updateValue");
    }
    picture = pictureOf(&button);
    QCOMPARE(picture.pixelColor(5, 15), QColor(100, 50, 25)); // half way, half blended
    QCOMPARE(picture.pixelColor(30, 15), QColor(0, 0, 150));

    RaSwitchButton set;
    set.setBgColor(QColor(0, 0, 0), QColor(200, 100, 50));
    set.setSliderColor(QColor(0, 0, 100), QColor(0, 0, 200));
    set.resize(60, 30);
    set.show();
    set.setChecked(true);
    picture = pictureOf(&set);
    QCOMPARE(picture.pixelColor(onTrack), QColor(200, 100, 50)); // at once, although the knob has not moved
    QCOMPARE(picture.pixelColor(onKnob), QColor(0, 0, 200));
}

void TestRaSwitchButton::textIsShownInTheColourOfTheState()
{
    PlainSwitch button(1, QSize(80, 40));
    button.setText(QLatin1String("MM"), QLatin1String("MM"));
    button.setTextColor(QColor(0, 255, 0), QColor(0, 0, 255));
    QVERIFY(lightOf(pictureOf(&button), QRect(40, 8, 30, 24), &QColor::green) > 5000);
    QCOMPARE(lightOf(pictureOf(&button), QRect(40, 8, 30, 24), &QColor::blue) > 5000, false);
    button.setChecked(true);
    button.resize(81, 40);
    QVERIFY(lightOf(pictureOf(&button), QRect(10, 8, 30, 24), &QColor::blue) > 5000);
}

void TestRaSwitchButton::textTooWideIsMadeToFit()
{
    PlainSwitch button(1, QSize(60, 30));
    button.setTextColor(QColor(0, 255, 0), QColor(0, 255, 0));
    button.setText(QLatin1String("a text of many words"), QString());
    const QImage picture = pictureOf(&button);
    QVERIFY(lightOf(picture, QRect(30, 8, 28, 14), &QColor::green) > 1000);
    for (int y = 10; y < 20; ++y) {
        QVERIFY(picture.pixelColor(28, y).green() < 60); // beside the knob
        QVERIFY(picture.pixelColor(58, y).green() < 60); // at the end of the track
    }
}

void TestRaSwitchButton::pictureIsShownWhereItExists()
{
    QTemporaryDir folder;
    const QString path = folder.filePath(QLatin1String("on.png"));
    QImage blue(200, 200, QImage::Format_RGB32);
    blue.fill(QColor(0, 0, 255));
    QVERIFY(blue.save(path));

    PlainSwitch button(1, QSize(80, 40));
    const QImage bare = pictureOf(&button);
    button.setImage(QLatin1String(":/none.png"), path);
    QCOMPARE(pictureOf(&button), bare);
    button.setImage(path, path);
    const QImage picture = pictureOf(&button);
    QVERIFY(pixelsOf(picture, QRect(40, 0, 40, 40), QColor(0, 0, 255)) > 500);
    QCOMPARE(pixelsOf(picture, QRect(0, 0, 37, 40), QColor(0, 0, 255)), 0);
}

void TestRaSwitchButton::keysWorkLikeATap_data()
{
    QTest::addColumn<int>("key");
    QTest::addColumn<bool>("repeat");
    QTest::addColumn<int>("changes");
    QTest::newRow("space") << int(Qt::Key_Space) << false << 1;
    QTest::newRow("return") << int(Qt::Key_Return) << false << 1;
    QTest::newRow("enter") << int(Qt::Key_Enter) << false << 1;
    QTest::newRow("select") << int(Qt::Key_Select) << false << 1;
    QTest::newRow("space held down") << int(Qt::Key_Space) << true << 0;
    QTest::newRow("a letter") << int(Qt::Key_A) << false << 0;
}

void TestRaSwitchButton::keysWorkLikeATap()
{
    QFETCH(int, key);
    QFETCH(bool, repeat);
    QFETCH(int, changes);
    PlainSwitch button(1, QSize(60, 30));
    QSignalSpy spy(&button, SIGNAL(checkedChanged(bool)));
    pressKey(&button, key, repeat);
    QCOMPARE(spy.count(), changes);
    QCOMPARE(button.timer()->isActive(), changes == 1);
    QVERIFY(button.focusPolicy() & Qt::TabFocus);
}

void TestRaSwitchButton::focusMarkIsForKeysOnly()
{
    PlainSwitch button(1, QSize(60, 30));
    const QImage bare = pictureOf(&button);
    button.show();
    button.activateWindow();
    QApplication::setActiveWindow(&button);
    button.setFocus();
    QVERIFY(button.hasFocus());
    button.setAttribute(Qt::WA_KeyboardFocusChange, false);
    QCOMPARE(pictureOf(&button), bare);
    button.setAttribute(Qt::WA_KeyboardFocusChange, true);
    QVERIFY(pictureOf(&button) != bare);
}

void TestRaSwitchButton::disabledSwitchIsDimmed()
{
    PlainSwitch button(1, QSize(60, 30));
    button.setEnabled(false);
    QCOMPARE(button.knobX(), -1);
    press(&button, QPoint(5, 5));
    QVERIFY(!button.getChecked());
}

void TestRaSwitchButton::nothingLeaks()
{
    const long growth = heapGrowth([] {
        PlainSwitch button(1, QSize(60, 30));
        button.tap();
    });
    QVERIFY2(growth < HeapNoise, qPrintable(QString::number(growth)));
}

QTEST_MAIN(TestRaSwitchButton)
#include "tst_raswitchbutton.moc"
