// SPDX-FileCopyrightText: 2026 The rawificontrol authors
// SPDX-License-Identifier: MIT
#include "loggedmessages.h"
#include "raclickablelabel.h"
#include "widgettest.h"

#include <QSignalSpy>
#include <QtTest>

using namespace widgettest;

namespace {

class Below : public QWidget
{
public:
    int events = 0;

protected:
    void mousePressEvent(QMouseEvent*) override { ++events; }
    void mouseReleaseEvent(QMouseEvent*) override { ++events; }
};

} // namespace

class TestRaClickableLabel : public QObject
{
    Q_OBJECT
private Q_SLOTS:
    void declaresOneSignal();
    void onlyALeftReleaseClicks_data();
    void onlyALeftReleaseClicks();
    void keysClick_data();
    void keysClick();
    void keepsItsClicksFromTheWidgetBelow();
    void nothingLeaks();
};

void TestRaClickableLabel::declaresOneSignal()
{
    const QMetaObject& meta = RaClickableLabel::staticMetaObject;
    QCOMPARE(signalsOf(meta), QStringList() << QLatin1String("clicked()"));
    QCOMPARE(slotsOf(meta) + propertiesOf(meta), QStringList());
    QVERIFY(meta.inherits(&QLabel::staticMetaObject));
}

void TestRaClickableLabel::onlyALeftReleaseClicks_data()
{
    QTest::addColumn<int>("button");
    QTest::addColumn<int>("clicks");
    QTest::newRow("left") << int(Qt::LeftButton) << 1;
    QTest::newRow("right") << int(Qt::RightButton) << 0;
    QTest::newRow("middle") << int(Qt::MiddleButton) << 0;
}

void TestRaClickableLabel::onlyALeftReleaseClicks()
{
    QFETCH(int, button);
    QFETCH(int, clicks);
    RaClickableLabel label(nullptr);
    QSignalSpy spy(&label, SIGNAL(clicked()));
    const QList<QByteArray> messages =
        loggedMessages([&] { release(&label, QPoint(1, 1), static_cast<Qt::MouseButton>(button)); });
    QCOMPARE(spy.count(), clicks);
    QCOMPARE(messages.size(), 1);
}

void TestRaClickableLabel::keysClick_data()
{
    QTest::addColumn<int>("key");
    QTest::addColumn<int>("clicks");
    QTest::newRow("space") << int(Qt::Key_Space) << 1;
    QTest::newRow("enter") << int(Qt::Key_Enter) << 1;
    QTest::newRow("a letter") << int(Qt::Key_A) << 0;
}

void TestRaClickableLabel::keysClick()
{
    QFETCH(int, key);
    QFETCH(int, clicks);
    RaClickableLabel label(nullptr);
    QSignalSpy spy(&label, SIGNAL(clicked()));
    pressKey(&label, key);
    QCOMPARE(spy.count(), clicks);
    QVERIFY(label.focusPolicy() & Qt::TabFocus);
}

void TestRaClickableLabel::keepsItsClicksFromTheWidgetBelow()
{
    Below below;
    RaClickableLabel* label = new RaClickableLabel(&below);
    QSignalSpy clicks(label, SIGNAL(clicked()));
    press(label, QPoint(1, 1));
    release(label, QPoint(1, 1));
    QCOMPARE(clicks.count(), 1);
    QCOMPARE(below.events, 0);
}

void TestRaClickableLabel::nothingLeaks()
{
    const long growth = heapGrowth([] {
        RaClickableLabel label(nullptr);
        label.setText(QLatin1String("text"));
        pictureOf(&label);
    });
    QVERIFY2(growth < HeapNoise, qPrintable(QString::number(growth)));
}

QTEST_MAIN(TestRaClickableLabel)
#include "tst_raclickablelabel.moc"
