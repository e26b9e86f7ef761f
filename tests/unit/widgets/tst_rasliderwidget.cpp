// SPDX-FileCopyrightText: 2026 The rawificontrol authors
// SPDX-License-Identifier: MIT
#include "loggedmessages.h"
#include "rasliderwidget.h"
#include "widgettest.h"

#include <QtTest>

using namespace widgettest;

namespace {

const int Volume = 0;
const int Brightness = 1;
const QColor Active(QLatin1String("#f88185"));
const QColor Inactive(QLatin1String("#363636"));
const QColor Ground(QLatin1String("#1e2129"));

class Slider : public RaSliderWidget
{
public:
    explicit Slider(int kind, const QSize& size = QSize(320, 120)) : RaSliderWidget(static_cast<RA_SLIDERTYPE>(kind))
    {
        resize(size);
    }
    void saveConfig(int level) override
    {
        saved << level;
        RaSliderWidget::saveConfig(level);
    }
    QList<int> saved;
};

} // namespace

class TestRaSliderWidget : public QObject
{
    Q_OBJECT
private Q_SLOTS:
    void addsNoSignalsOrSlots();
    void kindGivesTheLevels_data();
    void kindGivesTheLevels();
    void keysMoveByOneWithinTheRange_data();
    void keysMoveByOneWithinTheRange();
    void hardwareKeysMoveTheLevel_data();
    void hardwareKeysMoveTheLevel();
    void saveConfigLogs();
    void setLevelSavesNothing_data();
    void setLevelSavesNothing();
    void touchChoosesALevel_data();
    void touchChoosesALevel();
    void touchNeverPassesTheTop();
    void touchLogsWhatItSaw_data();
    void touchLogsWhatItSaw();
    void touchOfTheSameLevelSavesNothing();
    void oddSizesAreSafe_data();
    void oddSizesAreSafe();
    void blocksStandWhereTheyShould_data();
    void blocksStandWhereTheyShould();
    void missingPicturesAreDrawn_data();
    void missingPicturesAreDrawn();
    void nothingLeaks();
};

void TestRaSliderWidget::addsNoSignalsOrSlots()
{
    const QMetaObject& meta = RaSliderWidget::staticMetaObject;
    QCOMPARE(signalsOf(meta) + slotsOf(meta) + propertiesOf(meta), QStringList());
    QVERIFY(meta.inherits(&RaBaseWidget::staticMetaObject));
}

void TestRaSliderWidget::kindGivesTheLevels_data()
{
    QTest::addColumn<int>("kind");
    QTest::addColumn<int>("levels");
    QTest::newRow("volume") << Volume << 5;
    QTest::newRow("brightness") << Brightness << 4;
    QTest::newRow("any other value") << 17 << 4;
}

void TestRaSliderWidget::kindGivesTheLevels()
{
    QFETCH(int, kind);
    QFETCH(int, levels);
    const Slider slider(kind);
    QCOMPARE(slider.getLevelCount(), levels);
    QCOMPARE(slider.getLevel(), 0);
}

void TestRaSliderWidget::keysMoveByOneWithinTheRange_data()
{
    QTest::addColumn<int>("kind");
    QTest::addColumn<int>("level");
    QTest::addColumn<bool>("up");
    QTest::addColumn<QList<int>>("saved");
    QTest::newRow("up from the bottom") << Volume << 0 << true << (QList<int>() << 1);
    QTest::newRow("up to the top") << Volume << 4 << true << (QList<int>() << 5);
    QTest::newRow("up at the top") << Volume << 5 << true << QList<int>();
    QTest::newRow("up at the top of brightness") << Brightness << 4 << true << QList<int>();
    QTest::newRow("down from the top") << Volume << 5 << false << (QList<int>() << 4);
    QTest::newRow("down to the bottom") << Brightness << 1 << false << (QList<int>() << 0);
    QTest::newRow("down at the bottom") << Volume << 0 << false << QList<int>();
}

void TestRaSliderWidget::keysMoveByOneWithinTheRange()
{
    QFETCH(int, kind);
    QFETCH(int, level);
    QFETCH(bool, up);
    QFETCH(QList<int>, saved);
    Slider slider(kind);
    slider.setLevel(level);
    if (up) {
        slider.keyUp();
    } else {
        slider.keyDown();
    }
    QCOMPARE(slider.saved, saved);
    QCOMPARE(slider.getLevel(), saved.isEmpty() ? level : saved.first());
}

void TestRaSliderWidget::hardwareKeysMoveTheLevel_data()
{
    QTest::addColumn<int>("key");
    QTest::addColumn<int>("level");
    QTest::newRow("up") << int(Qt::Key_Up) << 3;
    QTest::newRow("right") << int(Qt::Key_Right) << 3;
    QTest::newRow("down") << int(Qt::Key_Down) << 1;
    QTest::newRow("left") << int(Qt::Key_Left) << 1;
    QTest::newRow("a letter") << int(Qt::Key_A) << 2;
}

void TestRaSliderWidget::hardwareKeysMoveTheLevel()
{
    QFETCH(int, key);
    QFETCH(int, level);
    Slider slider(Volume);
    slider.setLevel(2);
    pressKey(&slider, key);
    QCOMPARE(slider.getLevel(), level);
    QVERIFY(slider.focusPolicy() & Qt::TabFocus);
    QVERIFY(!slider.accessibleName().isEmpty());
}

void TestRaSliderWidget::saveConfigLogs()
{
    RaSliderWidget slider(RaSliderWidget::VOLUME);
    QCOMPARE(loggedMessages([&] { slider.saveConfig(3); }), QList<QByteArray>() << "save config, level is 3");
    QCOMPARE(slider.getLevel(), 0);
}

void TestRaSliderWidget::setLevelSavesNothing_data()
{
    QTest::addColumn<int>("given");
    QTest::addColumn<int>("level");
    QTest::newRow("inside") << 3 << 3;
    QTest::newRow("too high") << 6 << 5;
    QTest::newRow("too low") << -1 << 0;
}

void TestRaSliderWidget::setLevelSavesNothing()
{
    QFETCH(int, given);
    QFETCH(int, level);
    Slider slider(Volume);
    slider.setLevel(given);
    QCOMPARE(slider.getLevel(), level);
    QCOMPARE(slider.saved, QList<int>());
}

// At 320 by 120 a unit is 30; the touch gap is 18 for volume (a step of 48) and 28 for brightness (a step of
// 58).
void TestRaSliderWidget::touchChoosesALevel_data()
{
    QTest::addColumn<int>("kind");
    QTest::addColumn<int>("level");
    QTest::addColumn<QPoint>("point");
    QTest::addColumn<int>("expected");
    QTest::newRow("left of the decrease picture") << Volume << 3 << QPoint(0, 45) << 3;
    QTest::newRow("decrease picture begins") << Volume << 3 << QPoint(1, 45) << 0;
    QTest::newRow("decrease picture ends") << Volume << 3 << QPoint(30, 45) << 0;
    QTest::newRow("behind the decrease picture") << Volume << 3 << QPoint(31, 45) << 3;
    QTest::newRow("before the first level") << Volume << 3 << QPoint(47, 45) << 3;
    QTest::newRow("first level begins") << Volume << 3 << QPoint(48, 45) << 1;
    QTest::newRow("first level ends") << Volume << 3 << QPoint(94, 45) << 1;
    QTest::newRow("second level begins one early") << Volume << 3 << QPoint(95, 45) << 2;
    QTest::newRow("fourth level ends") << Volume << 0 << QPoint(238, 45) << 4;
    QTest::newRow("fifth level begins") << Volume << 0 << QPoint(239, 45) << 5;
    QTest::newRow("fifth level ends") << Volume << 0 << QPoint(270, 45) << 5;
    QTest::newRow("behind the last level") << Volume << 2 << QPoint(271, 45) << 2;
    QTest::newRow("before the increase picture") << Volume << 2 << QPoint(288, 45) << 2;
    QTest::newRow("increase picture begins") << Volume << 2 << QPoint(289, 45) << 5;
    QTest::newRow("right edge") << Volume << 2 << QPoint(319, 45) << 5;
    QTest::newRow("one line too high") << Volume << 2 << QPoint(319, 29) << 2;
    QTest::newRow("highest line") << Volume << 2 << QPoint(319, 30) << 5;
    QTest::newRow("lowest line") << Volume << 2 << QPoint(319, 59) << 5;
    QTest::newRow("one line too low") << Volume << 2 << QPoint(319, 60) << 2;
    QTest::newRow("brightness, first level") << Brightness << 3 << QPoint(58, 45) << 1;
    QTest::newRow("brightness, last level") << Brightness << 1 << QPoint(262, 45) << 4;
    QTest::newRow("brightness, increase picture") << Brightness << 1 << QPoint(291, 45) << 4;
    QTest::newRow("brightness, decrease picture") << Brightness << 1 << QPoint(15, 45) << 0;
}

void TestRaSliderWidget::touchChoosesALevel()
{
    QFETCH(int, kind);
    QFETCH(int, level);
    QFETCH(QPoint, point);
    QFETCH(int, expected);
    Slider slider(kind);
    slider.setLevel(level);
    release(&slider, point);
    QCOMPARE(slider.getLevel(), expected);
    QCOMPARE(slider.saved, expected == level ? QList<int>() : QList<int>() << expected);
}

void TestRaSliderWidget::touchNeverPassesTheTop()
{
    Slider slider(Volume, QSize(210, 120)); // without gaps the last pixel counts as a sixth level
    slider.setLevel(5);
    const QList<QByteArray> messages = loggedMessages([&] { release(&slider, QPoint(180, 45)); });
    QCOMPARE(messages, QList<QByteArray>() << "spacing 0"
                                           << "x 180, y 45"
                                           << "curLevel is 5");
    QCOMPARE(slider.saved, QList<int>());
}

void TestRaSliderWidget::touchLogsWhatItSaw_data()
{
    QTest::addColumn<QPoint>("point");
    QTest::addColumn<QList<QByteArray>>("messages");
    QTest::newRow("nothing there") << QPoint(319, 5)
                                   << (QList<QByteArray>() << "spacing 18"
                                                           << "x 319, y 5");
    QTest::newRow("decrease picture") << QPoint(10, 40)
                                      << (QList<QByteArray>() << "spacing 18"
                                                              << "x 10, y 40"
                                                              << "curLevel 0"
                                                              << "save config, level is 0");
    QTest::newRow("increase picture") << QPoint(300, 40)
                                      << (QList<QByteArray>() << "spacing 18"
                                                              << "x 300, y 40"
                                                              << "curLevel 5"
                                                              << "save config, level is 5");
    QTest::newRow("a level") << QPoint(100, 40)
                             << (QList<QByteArray>() << "spacing 18"
                                                     << "x 100, y 40"
                                                     << "curLevel is 2"
                                                     << "save config, level is 2");
    QTest::newRow("the same level") << QPoint(150, 40)
                                    << (QList<QByteArray>() << "spacing 18"
                                                            << "x 150, y 40"
                                                            << "curLevel is 3");
}

void TestRaSliderWidget::touchLogsWhatItSaw()
{
    QFETCH(QPoint, point);
    QFETCH(QList<QByteArray>, messages);
    Slider slider(Volume);
    slider.setLevel(3);
    QCOMPARE(loggedMessages([&] { release(&slider, point); }), messages);
}

void TestRaSliderWidget::touchOfTheSameLevelSavesNothing()
{
    Slider slider(Volume);
    release(&slider, QPoint(10, 40));
    QCOMPARE(slider.saved, QList<int>());
    release(&slider, QPoint(100, 40));
    release(&slider, QPoint(100, 40));
    QCOMPARE(slider.saved, QList<int>() << 2);
}

void TestRaSliderWidget::oddSizesAreSafe_data()
{
    QTest::addColumn<QSize>("size");
    QTest::newRow("nothing") << QSize(0, 0);
    QTest::newRow("flat") << QSize(320, 30);
    QTest::newRow("flatter than a unit") << QSize(320, 20);
    QTest::newRow("a step of nothing") << QSize(30, 120);
    QTest::newRow("higher than wide") << QSize(40, 400);
    QTest::newRow("square") << QSize(320, 320);
}

void TestRaSliderWidget::oddSizesAreSafe()
{
    QFETCH(QSize, size);
    Slider slider(Volume, size);
    for (int x = -size.width(); x <= 2 * size.width(); ++x) {
        for (int y = 0; y <= size.height(); y += 5) {
            release(&slider, QPoint(x, y));
            QVERIFY(slider.getLevel() >= 0);
            QVERIFY(slider.getLevel() <= slider.getLevelCount());
        }
    }
    pictureOf(&slider);
}

// At 320 by 120 the gap of the drawing is 8 for volume and 16 for brightness.
void TestRaSliderWidget::blocksStandWhereTheyShould_data()
{
    QTest::addColumn<int>("kind");
    QTest::addColumn<int>("level");
    QTest::addColumn<QList<int>>("lefts");
    const QList<int> volume = QList<int>() << 68 << 106 << 144 << 182 << 220;
    const QList<int> brightness = QList<int>() << 76 << 122 << 168 << 214;
    QTest::newRow("volume 0") << Volume << 0 << volume;
    QTest::newRow("volume 3") << Volume << 3 << volume;
    QTest::newRow("volume 5") << Volume << 5 << volume;
    QTest::newRow("brightness 1") << Brightness << 1 << brightness;
}

void TestRaSliderWidget::blocksStandWhereTheyShould()
{
    QFETCH(int, kind);
    QFETCH(int, level);
    QFETCH(QList<int>, lefts);
    Slider slider(kind);
    slider.setLevel(level);
    const QImage picture = pictureOf(&slider);
    for (int block = 0; block < lefts.size(); ++block) {
        const int left = lefts.at(block);
        QCOMPARE(picture.pixelColor(left + 15, 45), block < level ? Active : Inactive);
        QCOMPARE(picture.pixelColor(left - 1, 45), Ground);
        QCOMPARE(picture.pixelColor(left, 45), QColor(Qt::white));
        QCOMPARE(picture.pixelColor(left + 29, 45), QColor(Qt::white));
        QCOMPARE(picture.pixelColor(left + 30, 45), Ground);
        QCOMPARE(picture.pixelColor(left + 15, 30), QColor(Qt::white));
        QCOMPARE(picture.pixelColor(left + 15, 59), QColor(Qt::white));
        QCOMPARE(picture.pixelColor(left + 15, 60), Ground);
    }
}

void TestRaSliderWidget::missingPicturesAreDrawn_data()
{
    QTest::addColumn<int>("kind");
    QTest::newRow("volume") << Volume;
    QTest::newRow("brightness") << Brightness;
}

void TestRaSliderWidget::missingPicturesAreDrawn()
{
    QFETCH(int, kind);
    Slider slider(kind);
    const QImage picture = pictureOf(&slider);
    const QRect decrease(0, 30, 30, 30);
    const QRect increase(290, 30, 30, 30);
    QVERIFY(pixelsOf(picture, decrease, Qt::white) > 10);
    QVERIFY(lightOf(picture, increase, &QColor::red) > lightOf(picture, decrease, &QColor::red) + 5000);
}

void TestRaSliderWidget::nothingLeaks()
{
    const long growth = heapGrowth([] {
        Slider slider(Volume);
        release(&slider, QPoint(100, 40));
        pictureOf(&slider);
    });
    QVERIFY2(growth < HeapNoise, qPrintable(QString::number(growth)));
}

QTEST_MAIN(TestRaSliderWidget)
#include "tst_rasliderwidget.moc"
