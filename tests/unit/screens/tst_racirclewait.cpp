// SPDX-FileCopyrightText: 2026 The rawificontrol authors
// SPDX-License-Identifier: MIT
#include "racirclewait.h"
#include "widgettest.h"

#include <QPointer>
#include <QTimer>
#include <QtMath>
#include <QtTest>
#include <climits>

using namespace widgettest;

namespace {

const QColor Black(0, 0, 0);

/** The middle of the dot that stands at \a angle degrees in a square of \a side pixels. */
QPoint dotAt(int angle, int side)
{
    const double distance = 40.0 * side / 140.0;
    const double radians = qDegreesToRadians(double(angle));
    return QPoint(side / 2 + qRound(distance * qCos(radians)), side / 2 + qRound(distance * qSin(radians)));
}

/** Sees the timers of no parent fire, and the repaints of one widget. */
class Watcher : public QObject
{
public:
    explicit Watcher(QWidget* watched) : m_watched(watched) { qApp->installEventFilter(this); }
    bool eventFilter(QObject* object, QEvent* event) override
    {
        if (event->type() == QEvent::Timer && !object->parent() && qobject_cast<QTimer*>(object)) {
            timer = static_cast<QTimer*>(object);
        } else if (event->type() == QEvent::Paint && object == m_watched) {
            ++paints;
        }
        return false;
    }
    QPointer<QTimer> timer;
    int paints = 0;

private:
    QWidget* m_watched;
};

} // namespace

class TestRaCircleWait : public QObject
{
    Q_OBJECT
private Q_SLOTS:
    void addsNoSignalsOrSlots();
    void isFramelessAndWithoutParent();
    void dotsGrowInOpacity();
    void startsBlack();
    void angleMovesOnWithEachRepaint_data();
    void angleMovesOnWithEachRepaint();
    void largestStepsAreSafe_data();
    void largestStepsAreSafe();
    void ringScalesWithTheWidget_data();
    void ringScalesWithTheWidget();
    void onlyAChangeRepaints();
    void timerRunsWhileTheSpinnerExists();
    void nothingLeaks();
};

void TestRaCircleWait::addsNoSignalsOrSlots()
{
    const QMetaObject& meta = RaCircleWait::staticMetaObject;
    QCOMPARE(signalsOf(meta) + slotsOf(meta) + propertiesOf(meta), QStringList());
    QVERIFY(meta.inherits(&RaBaseWidget::staticMetaObject));
}

void TestRaCircleWait::isFramelessAndWithoutParent()
{
    QWidget host;
    const RaCircleWait spinner(&host);
    QVERIFY(!spinner.parent());
    QVERIFY(spinner.isWindow());
    QVERIFY(spinner.windowFlags() & Qt::FramelessWindowHint);
    QVERIFY(spinner.children().isEmpty());
    QVERIFY(!spinner.accessibleName().isEmpty());
}

void TestRaCircleWait::dotsGrowInOpacity()
{
    RaCircleWait spinner(nullptr);
    spinner.setColor(QColor(255, 255, 255, 7)); // whatever its own opacity
    spinner.resize(140, 140);
    const QImage picture = pictureOf(&spinner);
    for (int dot = 1; dot <= 10; ++dot) {
        const int light = qGray(picture.pixel(dotAt(36 * dot, 140)));
        QVERIFY2(qAbs(light - 255 * dot / 10) <= 1, qPrintable(QString::number(light)));
    }
    QCOMPARE(picture.pixelColor(70, 70), Black);
    QCOMPARE(picture.pixelColor(0, 0), Black);
    QCOMPARE(picture.pixelColor(139, 139), Black);
}

void TestRaCircleWait::startsBlack()
{
    RaCircleWait spinner(nullptr);
    spinner.resize(140, 140);
    const QImage picture = pictureOf(&spinner);
    QCOMPARE(pixelsOf(picture, picture.rect(), Black), 140 * 140);
}

void TestRaCircleWait::angleMovesOnWithEachRepaint_data()
{
    QTest::addColumn<int>("delta");
    QTest::addColumn<bool>("clockwise");
    QTest::addColumn<QList<int>>("tenths"); // of a turn
    QTest::newRow("clockwise") << 36 << true
                               << (QList<int>() << 0 << 1 << 2 << 3 << 4 << 5 << 6 << 7 << 8 << 9 << 0 << 1);
    QTest::newRow("anticlockwise") << 36 << false
                                   << (QList<int>() << 0 << 9 << 8 << 7 << 6 << 5 << 4 << 3 << 2 << 1 << 0 << 9);
    QTest::newRow("two at a time") << 72 << true << (QList<int>() << 0 << 2 << 4 << 6 << 8 << 0);
    QTest::newRow("standing") << 0 << true << (QList<int>() << 0 << 0 << 0);
    QTest::newRow("a negative step turns round") << -36 << true << (QList<int>() << 0 << 9 << 8);
    QTest::newRow("more than a turn") << 396 << true << (QList<int>() << 0 << 1 << 2);
}

void TestRaCircleWait::angleMovesOnWithEachRepaint()
{
    QFETCH(int, delta);
    QFETCH(bool, clockwise);
    QFETCH(QList<int>, tenths);
    RaCircleWait spinner(nullptr);
    spinner.setColor(Qt::white);
    spinner.resize(140, 140);
    spinner.setRotateDelta(delta);
    spinner.setClockwiseRotate(clockwise);
    for (int expected : tenths) {
        const QImage picture = pictureOf(&spinner);
        for (int tenth = 0; tenth < 10; ++tenth) {
            const bool full = picture.pixelColor(dotAt(36 * tenth, 140)) == QColor(Qt::white);
            QCOMPARE(full, tenth == expected);
        }
    }
}

void TestRaCircleWait::largestStepsAreSafe_data()
{
    QTest::addColumn<int>("delta");
    QTest::addColumn<bool>("clockwise");
    QTest::addColumn<int>("sameAs"); // what is left of the step without its whole turns
    QTest::newRow("largest, clockwise") << INT_MAX << true << 127;
    QTest::newRow("largest, anticlockwise") << INT_MAX << false << 127;
    QTest::newRow("smallest, clockwise") << INT_MIN << true << -128;
    QTest::newRow("smallest, anticlockwise") << INT_MIN << false << -128;
}

void TestRaCircleWait::largestStepsAreSafe()
{
    QFETCH(int, delta);
    QFETCH(bool, clockwise);
    QFETCH(int, sameAs);
    RaCircleWait large(nullptr);
    RaCircleWait small(nullptr);
    large.setRotateDelta(delta);
    small.setRotateDelta(sameAs);
    for (RaCircleWait* spinner : {&large, &small}) {
        spinner->setColor(Qt::white);
        spinner->resize(140, 140);
        spinner->setClockwiseRotate(clockwise);
    }
    for (int i = 0; i < 5; ++i) {
        QCOMPARE(pictureOf(&large), pictureOf(&small));
    }
}

void TestRaCircleWait::ringScalesWithTheWidget_data()
{
    QTest::addColumn<QSize>("size");
    QTest::addColumn<int>("radius"); // from the centre to the outermost point of the ring
    QTest::newRow("design size") << QSize(140, 140) << 50;
    QTest::newRow("half") << QSize(70, 70) << 25;
    QTest::newRow("double") << QSize(280, 280) << 100;
    QTest::newRow("the smaller side counts") << QSize(320, 140) << 50;
}

void TestRaCircleWait::ringScalesWithTheWidget()
{
    QFETCH(QSize, size);
    QFETCH(int, radius);
    RaCircleWait spinner(nullptr);
    spinner.setColor(Qt::white);
    spinner.resize(size);
    const QImage picture = pictureOf(&spinner);
    const int x = size.width() / 2;
    const int y = size.height() / 2;
    const QColor white(Qt::white);
    QCOMPARE(picture.pixelColor(x + radius * 4 / 5, y), white); // the middle of the full dot
    QCOMPARE(picture.pixelColor(x + radius - 2, y), white);
    QCOMPARE(picture.pixelColor(x + radius + 1, y), Black);
    QCOMPARE(picture.pixelColor(x + radius * 3 / 5 + 2, y), white);
    QCOMPARE(picture.pixelColor(x + radius * 3 / 5 - 2, y), Black);
}

void TestRaCircleWait::onlyAChangeRepaints()
{
    RaCircleWait spinner(nullptr);
    spinner.show();
    QVERIFY(QTest::qWaitForWindowExposed(&spinner));
    QCoreApplication::processEvents();
    Watcher watcher(&spinner);
    const auto repaints = [&watcher](const std::function<void()>& change) {
        watcher.paints = 0;
        change();
        QCoreApplication::sendPostedEvents(nullptr, QEvent::UpdateRequest);
        return watcher.paints;
    };
    QCOMPARE(repaints([&] { spinner.setColor(Qt::black); }), 0);
    QCOMPARE(repaints([&] { spinner.setColor(Qt::red); }), 1);
    QCOMPARE(repaints([&] { spinner.setColor(Qt::red); }), 0);
    QCOMPARE(repaints([&] { spinner.setClockwiseRotate(true); }), 0);
    QCOMPARE(repaints([&] { spinner.setClockwiseRotate(false); }), 1);
    QCOMPARE(repaints([&] { spinner.setRotateDelta(36); }), 0);
    QCOMPARE(repaints([&] { spinner.setRotateDelta(18); }), 1);
}

void TestRaCircleWait::timerRunsWhileTheSpinnerExists()
{
    QPointer<QTimer> timer;
    {
        RaCircleWait spinner(nullptr);
        Watcher watcher(&spinner);
        QTRY_VERIFY(watcher.timer); // it fires although the spinner has never been shown
        timer = watcher.timer;
        QCOMPARE(timer->interval(), 100);

        spinner.show();
        QVERIFY(QTest::qWaitForWindowExposed(&spinner));
        QCoreApplication::processEvents();
        watcher.paints = 0;
        QTimerEvent expiry(timer->timerId());
        QCoreApplication::sendEvent(timer, &expiry);
        QCoreApplication::sendPostedEvents(nullptr, QEvent::UpdateRequest);
        QCOMPARE(watcher.paints, 1);

        spinner.hide();
        QVERIFY(timer->isActive());
    }
    QVERIFY(!timer);
}

void TestRaCircleWait::nothingLeaks()
{
    const long growth = heapGrowth([] {
        RaCircleWait spinner(nullptr);
        spinner.resize(70, 70);
        pictureOf(&spinner);
    });
    QVERIFY2(growth < HeapNoise, qPrintable(QString::number(growth)));
}

QTEST_MAIN(TestRaCircleWait)
#include "tst_racirclewait.moc"
