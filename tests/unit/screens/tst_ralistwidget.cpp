// SPDX-FileCopyrightText: 2026 The rawificontrol authors
// SPDX-License-Identifier: MIT
#include "networks.h"
#include "raitempushbtn.h"
#include "ralistwidget.h"
#include "raswitchlistwidget.h"
#include "widgettest.h"

#include <QPointer>
#include <QSignalSpy>
#include <QTimer>
#include <QtTest>

using namespace widgettest;

namespace {

/** A list on a page of its own, as wide as the screen and as high as all its rows. */
class ShownList : public RaListwidget
{
public:
    explicit ShownList(int count) : RaListwidget(101, nullptr)
    {
        resize(320, 4000);
        setAir(networks(count));
        setListData();
        show();
    }

    QList<RaItemPushBtn*> rows() const { return findChildren<RaItemPushBtn*>(QString(), Qt::FindDirectChildrenOnly); }
    RaSwitchListWidget* switchRow() const { return findChild<RaSwitchListWidget*>(); }
    QTimer* releaseTimer() const { return findChild<QTimer*>(QString(), Qt::FindDirectChildrenOnly); }

    /** Puts a finger on \a row and moves it by each of \a steps. */
    void drag(QWidget* row, const QList<int>& steps)
    {
        m_finger = row->mapToGlobal(row->rect().center());
        finger(row, QEvent::MouseButtonPress, m_finger);
        for (const int step : steps) {
            m_finger.ry() += step;
            finger(row, QEvent::MouseMove, m_finger);
        }
    }
    void lift(QWidget* row) { finger(row, QEvent::MouseButtonRelease, m_finger); }

private:
    QPoint m_finger;
};

QList<int> stepsOf(int length, int count)
{
    QList<int> steps;
    for (int i = 0; i < count; ++i) {
        steps << length;
    }
    return steps;
}

} // namespace

class TestRaListwidget : public QObject
{
    Q_OBJECT
private Q_SLOTS:
    void initTestCase();
    void cleanup();

    void declaresItsMethodsInOrder();
    void freshListHasTheSwitchRow();
    void rowsLieOverTheirNeighbours_data();
    void rowsLieOverTheirNeighbours();
    void rowsWearTheStyleSheet();
    void firstRowIsChecked();
    void switchRowShrinks();
    void emptyScanChangesNothing();
    void emptyFirstScanKeepsTheTallSwitchRow();
    void oldRowsAreFreed();
    void clearedListIsAsAtFirst();

    void tapReportsTheNetwork();
    void secondQuickTapReportsToo();
    void smallMovesAreATap_data();
    void smallMovesAreATap();
    void dragReportsSteps();
    void dragMeasuresFromTheLastStep();
    void dragIsNoTap_data();
    void dragIsNoTap();
    void draggedRowDoesNotLookPressed();
    void pressStopsTheTimer();
    void timerDuringADragRestartsTheCount();
    void noTapWithoutPassThrough();
    void fingerBesideTheRowsDragsToo();
    void emptyListDoesNotDrag();
    void rowReplacedUnderTheFingerDoesNothing();
    void rowMayBeReplacedByItsOwnTap();

    void switchReportsItsChange();
    void switchFollowsSilently();
    void keysMoveTheIndex();
    void keysReachTheSwitch();
    void keysStayInTheListWhenRowsAreReplaced_data();
    void keysStayInTheListWhenRowsAreReplaced();
    void replacedRowsLeaveTheFocusOfOthersAlone();
    void replacedRowsLeaveTheFocusOfTheSwitchAlone();
    void wheelScrolls_data();
    void wheelScrolls();

    void joiningRowIsMarked_data();
    void joiningRowIsMarked();
    void addressIsComparedWithoutCase();
    void joinedRowKeepsThePassword();
    void settingIsKept();
    void passwordIsNotLogged();
    void nothingLeaks();
};

void TestRaListwidget::initTestCase()
{
    qRegisterMetaType<APData>("APData");
}

void TestRaListwidget::cleanup()
{
    setAir(QList<APData>());
}

void TestRaListwidget::declaresItsMethodsInOrder()
{
    const QMetaObject& meta = RaListwidget::staticMetaObject;
    QCOMPARE(signalsOf(meta), QStringList() << QLatin1String("itemClick(int)") << QLatin1String("checkedChanged(bool)")
                                            << QLatin1String("sendMoveStep(bool,int)")
                                            << QLatin1String("sendSelectItemByList(APData)"));
    QCOMPARE(slotsOf(meta), QStringList() << QLatin1String("recSwitchChanged(bool)")
                                          << QLatin1String("recItemBtnclicked(APData,int)")
                                          << QLatin1String("updatePressStatus()"));
    QCOMPARE(meta.superClass(), &RaBaseWidget::staticMetaObject);
}

void TestRaListwidget::freshListHasTheSwitchRow()
{
    RaListwidget list(101, nullptr);
    list.init(); // once more makes no second one
    const QList<RaSwitchListWidget*> switches = list.findChildren<RaSwitchListWidget*>();
    QCOMPARE(switches.size(), 1);
    QCOMPARE(switches.first()->geometry(), QRect(QPoint(0, 0), QPoint(319, 139)));
    QCOMPARE(switches.first()->accessibleName(), QString::fromLatin1("WIFI"));
    QCOMPARE(switches.first()->accessibleDescription(), QString::fromLatin1("Discovering..."));
    QVERIFY(!switches.first()->getChecked());
    const QTimer* timer = list.findChild<QTimer*>(QString(), Qt::FindDirectChildrenOnly);
    QVERIFY(timer && timer->isSingleShot() && !timer->isActive());
    QCOMPARE(list.rowCount(), 0);
    QCOMPARE(list.getSelectIndex(), 0);
    QCOMPARE(list.contentHeight(), 140);
}

void TestRaListwidget::rowsLieOverTheirNeighbours_data()
{
    QTest::addColumn<int>("count");
    QTest::newRow("1") << 1;
    QTest::newRow("3") << 3;
    QTest::newRow("200") << 200;
}

void TestRaListwidget::rowsLieOverTheirNeighbours()
{
    QFETCH(int, count);
    const ShownList list(count);
    QCOMPARE(list.rowCount(), count);
    const QList<RaItemPushBtn*> rows = list.rows();
    QCOMPARE(int(rows.size()), count);
    for (int i = 0; i < count; ++i) {
        const int y = 57 + 57 * i;
        QCOMPARE(rows.at(i)->geometry(), QRect(QPoint(0, y), QPoint(319, y + 59)));
        QCOMPARE(rows.at(i)->getPushBtnIndex(), i);
        QCOMPARE(rows.at(i)->getText(), QString::fromLatin1("Network %1").arg(i));
        QVERIFY(rows.at(i)->isVisible());
    }
    QCOMPARE(list.contentHeight(), 57 * count + 60);
}

void TestRaListwidget::rowsWearTheStyleSheet()
{
    const ShownList list(3);
    for (const RaItemPushBtn* row : list.rows()) {
        QCOMPARE(row->styleSheet(),
                 QString::fromLatin1("background-color: rgba(54,54, 54,100%);font-size:28px;color:white;"));
    }
}

void TestRaListwidget::firstRowIsChecked()
{
    const ShownList list(3);
    const QRect mark(260, 14, 30, 30);
    const QList<RaItemPushBtn*> rows = list.rows();
    const QImage unchecked = pictureOf(rows.at(1)).copy(mark);
    QVERIFY(pictureOf(rows.at(0)).copy(mark) != unchecked);
    QCOMPARE(pictureOf(rows.at(2)).copy(mark), unchecked);
}

void TestRaListwidget::switchRowShrinks()
{
    const ShownList list(1);
    QCOMPARE(list.switchRow()->geometry(), QRect(QPoint(0, 0), QPoint(319, 58)));
    QVERIFY(list.switchRow()->isVisible());
}

void TestRaListwidget::emptyScanChangesNothing()
{
    ShownList list(3);
    const QList<RaItemPushBtn*> before = list.rows();
    setAir(QList<APData>());
    list.setListData();
    sweep();
    QCOMPARE(list.rows(), before);
    QCOMPARE(list.switchRow()->geometry(), QRect(QPoint(0, 0), QPoint(319, 58)));
}

void TestRaListwidget::emptyFirstScanKeepsTheTallSwitchRow()
{
    const ShownList list(0);
    QCOMPARE(list.rowCount(), 0);
    QCOMPARE(list.switchRow()->geometry(), QRect(QPoint(0, 0), QPoint(319, 139)));
}

void TestRaListwidget::oldRowsAreFreed()
{
    ShownList list(3);
    QList<QPointer<RaItemPushBtn>> old;
    for (RaItemPushBtn* row : list.rows()) {
        old << row;
    }
    list.setListData();
    for (const QPointer<RaItemPushBtn>& row : old) {
        QVERIFY(row && row->isHidden());
    }
    sweep();
    for (const QPointer<RaItemPushBtn>& row : old) {
        QVERIFY(!row);
    }
    QCOMPARE(int(list.rows().size()), 3);
}

void TestRaListwidget::clearedListIsAsAtFirst()
{
    ShownList list(3);
    list.keyUp();
    list.clearRows();
    sweep();
    QVERIFY(list.rows().isEmpty());
    QCOMPARE(list.contentHeight(), 140);
    QCOMPARE(list.getSelectIndex(), 0);
    list.setListData();
    QCOMPARE(list.rowCount(), 3);
}

void TestRaListwidget::tapReportsTheNetwork()
{
    ShownList list(3);
    QSignalSpy items(&list, SIGNAL(itemClick(int)));
    QSignalSpy selected(&list, SIGNAL(sendSelectItemByList(APData)));
    tap(list.rows().at(2));
    QCOMPARE(items.count(), 1);
    QCOMPARE(items.at(0).at(0).toInt(), 2);
    QCOMPARE(selected.count(), 1);
    QCOMPARE(QByteArray(selected.at(0).at(0).value<APData>().essid), QByteArray("Network 2"));
    QCOMPARE(list.getSelectIndex(), 2);
}

void TestRaListwidget::secondQuickTapReportsToo()
{
    ShownList list(3);
    QSignalSpy items(&list, SIGNAL(itemClick(int)));
    RaItemPushBtn* row = list.rows().at(1);
    list.drag(row, stepsOf(10, 3));
    const QPoint middle = row->mapToGlobal(row->rect().center());
    finger(row, QEvent::MouseButtonDblClick, middle); // begins anew, as every press does
    finger(row, QEvent::MouseButtonRelease, middle);
    QCOMPARE(items.count(), 1);
}

void TestRaListwidget::smallMovesAreATap_data()
{
    QTest::addColumn<QList<int>>("steps");
    QTest::newRow("none") << QList<int>();
    QTest::newRow("4 down") << (QList<int>() << 4);
    QTest::newRow("4 up") << (QList<int>() << -4);
    QTest::newRow("to and fro") << (QList<int>() << 4 << -8 << 8 << -4);
}

void TestRaListwidget::smallMovesAreATap()
{
    QFETCH(QList<int>, steps);
    ShownList list(3);
    QSignalSpy moves(&list, SIGNAL(sendMoveStep(bool,int)));
    QSignalSpy items(&list, SIGNAL(itemClick(int)));
    RaItemPushBtn* row = list.rows().at(1);
    list.drag(row, steps);
    list.lift(row);
    QCOMPARE(moves.count(), 0);
    QCOMPARE(items.count(), 1);
}

void TestRaListwidget::dragReportsSteps()
{
    ShownList list(3);
    QSignalSpy moves(&list, SIGNAL(sendMoveStep(bool,int)));
    const QByteArray log =
        capturedOutput(stderr, [&list] { list.drag(list.rows().at(0), QList<int>() << 5 << -5 << 30 << -12); });
    QCOMPARE(moves.count(), 4);
    const int steps[] = {5, -5, 30, -12};
    for (int i = 0; i < 4; ++i) {
        QCOMPARE(moves.at(i).at(0).toBool(), steps[i] > 0);
        QCOMPARE(moves.at(i).at(1).toInt(), steps[i]);
    }
    QVERIFY2(log.contains("]  Slide down y dis.y() =5"), log.constData());
    QVERIFY2(log.contains("]  .Slide up y..dis.y() =-5"), log.constData());
}

void TestRaListwidget::dragMeasuresFromTheLastStep()
{
    ShownList list(3);
    QSignalSpy moves(&list, SIGNAL(sendMoveStep(bool,int)));
    list.drag(list.rows().at(0), QList<int>() << 3 << 3 << 3 << 3);
    QCOMPARE(moves.count(), 2); // 3 is ignored, 6 is a step
    QCOMPARE(moves.at(0).at(1).toInt(), 6);
    QCOMPARE(moves.at(1).at(1).toInt(), 6);
}

void TestRaListwidget::dragIsNoTap_data()
{
    QTest::addColumn<int>("steps");
    QTest::addColumn<bool>("rests");
    QTest::newRow("1") << 1 << false;
    QTest::newRow("6") << 6 << false;
    QTest::newRow("7") << 7 << true;
    QTest::newRow("20") << 20 << true;
}

void TestRaListwidget::dragIsNoTap()
{
    QFETCH(int, steps);
    QFETCH(bool, rests);
    ShownList list(3);
    QSignalSpy items(&list, SIGNAL(itemClick(int)));
    RaItemPushBtn* row = list.rows().at(1);
    const QByteArray log = capturedOutput(stderr, [&] {
        list.drag(row, stepsOf(steps % 2 ? 6 : -6, steps));
        list.lift(row);
    });
    QCOMPARE(items.count(), 0);
    QVERIFY(!row->isDown());
    QCOMPARE(list.releaseTimer()->isActive(), rests);
    QCOMPARE(log.contains("--------call releaseMoveStatus start 100-------"), rests);
    if (rests) {
        QCOMPARE(list.releaseTimer()->interval(), 900);
    }
    tap(row);
    QCOMPARE(items.count(), 1);
}

void TestRaListwidget::draggedRowDoesNotLookPressed()
{
    ShownList list(3);
    RaItemPushBtn* row = list.rows().at(1);
    const QImage idle = pictureOf(row);
    list.drag(row, QList<int>());
    row->pressOnSlot(); // the finger rests first
    QVERIFY(pictureOf(row) != idle);
    finger(row, QEvent::MouseMove, row->mapToGlobal(row->rect().center() + QPoint(0, 8)));
    QCOMPARE(pictureOf(row), idle);
    list.lift(row);
    QCOMPARE(pictureOf(row), idle);
}

void TestRaListwidget::pressStopsTheTimer()
{
    ShownList list(3);
    RaItemPushBtn* row = list.rows().at(1);
    list.drag(row, stepsOf(10, 7));
    list.lift(row);
    QVERIFY(list.releaseTimer()->isActive());
    list.drag(row, QList<int>());
    QVERIFY(!list.releaseTimer()->isActive());
    list.drag(row, stepsOf(10, 7));
    list.lift(row);
    list.updatePressStatus();
    QVERIFY(!list.releaseTimer()->isActive());
}

void TestRaListwidget::timerDuringADragRestartsTheCount()
{
    ShownList list(3);
    QSignalSpy moves(&list, SIGNAL(sendMoveStep(bool,int)));
    QSignalSpy items(&list, SIGNAL(itemClick(int)));
    RaItemPushBtn* row = list.rows().at(1);
    list.drag(row, stepsOf(10, 3));
    list.updatePressStatus();
    list.lift(row); // at -1: neither a tap nor a long drag
    QCOMPARE(items.count(), 0);
    QVERIFY(!list.releaseTimer()->isActive());

    list.drag(row, stepsOf(10, 6));
    list.updatePressStatus();
    const QPoint middle = row->mapToGlobal(row->rect().center());
    finger(row, QEvent::MouseMove, middle); // reported, and counted as 0
    QCOMPARE(moves.count(), 10);
    finger(row, QEvent::MouseButtonRelease, middle);
    QCOMPARE(items.count(), 1);
    QVERIFY(!list.releaseTimer()->isActive());
}

void TestRaListwidget::noTapWithoutPassThrough()
{
    ShownList list(3);
    QSignalSpy items(&list, SIGNAL(itemClick(int)));
    list.setPassThrough(false);
    tap(list.rows().at(0));
    QCOMPARE(items.count(), 0);
    QVERIFY(!list.rows().at(0)->isDown());
    list.setPassThrough(true);
    tap(list.rows().at(0));
    QCOMPARE(items.count(), 1);
}

void TestRaListwidget::fingerBesideTheRowsDragsToo()
{
    ShownList list(1);
    QSignalSpy moves(&list, SIGNAL(sendMoveStep(bool,int)));
    QSignalSpy items(&list, SIGNAL(itemClick(int)));
    list.drag(&list, QList<int>() << 10 << -20);
    list.lift(&list);
    QCOMPARE(moves.count(), 2);
    list.drag(list.switchRow(), QList<int>() << 10);
    list.lift(list.switchRow());
    QCOMPARE(moves.count(), 3);
    QCOMPARE(items.count(), 0);
}

void TestRaListwidget::emptyListDoesNotDrag()
{
    ShownList list(0);
    QSignalSpy moves(&list, SIGNAL(sendMoveStep(bool,int)));
    list.drag(&list, QList<int>() << 10 << -20);
    list.lift(&list);
    list.drag(list.switchRow(), QList<int>() << 10);
    list.lift(list.switchRow());
    QCOMPARE(moves.count(), 0);
}

void TestRaListwidget::rowReplacedUnderTheFingerDoesNothing()
{
    ShownList list(3);
    QSignalSpy items(&list, SIGNAL(itemClick(int)));
    QWindow* screen = list.windowHandle();
    const QPoint point = list.rows().at(1)->geometry().center();
    RaItemPushBtn* old = list.rows().at(1);
    QTest::mousePress(screen, Qt::LeftButton, Qt::NoModifier, point);
    list.setListData();
    finger(old, QEvent::MouseMove, old->mapToGlobal(QPoint(10, 40)));
    finger(old, QEvent::MouseButtonRelease, old->mapToGlobal(QPoint(10, 40)));
    QCOMPARE(items.count(), 0);
    sweep();
    QTest::mouseRelease(screen, Qt::LeftButton, Qt::NoModifier, point);
    QCOMPARE(items.count(), 0);
    for (const RaItemPushBtn* row : list.rows()) {
        QVERIFY(!row->isDown());
    }
    QTest::mouseClick(screen, Qt::LeftButton, Qt::NoModifier, point);
    QCOMPARE(items.count(), 1);
    QCOMPARE(items.at(0).at(0).toInt(), 1);
}

void TestRaListwidget::rowMayBeReplacedByItsOwnTap()
{
    ShownList list(3);
    QSignalSpy items(&list, SIGNAL(itemClick(int)));
    QPointer<RaItemPushBtn> row = list.rows().at(1);
    connect(&list, &RaListwidget::itemClick, &list, [&list] { list.setListData(); });
    tap(row);
    QCOMPARE(items.count(), 1);
    QVERIFY(row);
    sweep();
    QVERIFY(!row);
    QCOMPARE(list.rowCount(), 3);
}

void TestRaListwidget::switchReportsItsChange()
{
    ShownList list(1);
    QSignalSpy changes(&list, SIGNAL(checkedChanged(bool)));
    tap(list.switchRow()); // beside the switch
    QCOMPARE(changes.count(), 0);
    press(list.switchRow(), QPoint(265, 29));
    QCOMPARE(changes.count(), 1);
    QVERIFY(changes.at(0).at(0).toBool());
    press(list.switchRow(), QPoint(265, 29));
    QCOMPARE(changes.count(), 2);
    QVERIFY(!changes.at(1).at(0).toBool());
}

void TestRaListwidget::switchFollowsSilently()
{
    ShownList list(1);
    ShownList tapped(1);
    press(tapped.switchRow(), QPoint(265, 29));
    tapped.switchRow()->resize(320, 60); // a resize ends the knob's glide
    tapped.switchRow()->resize(320, 59);
    QSignalSpy changes(&list, SIGNAL(checkedChanged(bool)));
    const QImage off = pictureOf(list.switchRow());
    list.setWifiSwitch(true);
    QCOMPARE(changes.count(), 0);
    QVERIFY(list.switchRow()->getChecked());
    QCOMPARE(pictureOf(list.switchRow()), pictureOf(tapped.switchRow())); // knob and all
    list.setWifiSwitch(false);
    QCOMPARE(changes.count(), 0);
    QCOMPARE(pictureOf(list.switchRow()), off);
}

void TestRaListwidget::keysMoveTheIndex()
{
    ShownList list(3);
    const QByteArray log = capturedOutput(stderr, [&list] { list.keyUp(); });
    QVERIFY2(log.contains("...mCurItemIdx= 1,mItemData.size()-1=2"), log.constData());
    QCOMPARE(list.getSelectIndex(), 1);
    QCOMPARE(list.currentItem(), static_cast<QWidget*>(list.rows().at(1)));
    QCOMPARE(list.focusWidget(), list.currentItem());
    for (int i = 0; i < 5; ++i) {
        list.keyUp();
    }
    QCOMPARE(list.getSelectIndex(), 3);
    for (int i = 0; i < 5; ++i) {
        list.keyDown();
    }
    QCOMPARE(list.getSelectIndex(), 0);
}

void TestRaListwidget::keysReachTheSwitch()
{
    ShownList list(1);
    list.keyUp();
    QCOMPARE(list.currentItem(), static_cast<QWidget*>(list.switchRow()));
    QCOMPARE(list.focusWidget(), static_cast<QWidget*>(list.switchRow()));
    ShownList empty(0);
    empty.keyDown();
    QCOMPARE(empty.currentItem(), static_cast<QWidget*>(empty.switchRow()));
}

void TestRaListwidget::keysStayInTheListWhenRowsAreReplaced_data()
{
    QTest::addColumn<int>("count");
    QTest::addColumn<int>("index");
    QTest::newRow("as many") << 5 << 3;
    QTest::newRow("fewer: on to the switch") << 2 << 2;
    QTest::newRow("none: the switch alone") << 0 << 0;
}

void TestRaListwidget::keysStayInTheListWhenRowsAreReplaced()
{
    QFETCH(int, count);
    QFETCH(int, index);
    QWidget window;
    QPushButton before(&window);
    ShownList list(5);
    list.setParent(&window);
    QPushButton after(&window);
    window.show();
    list.show();
    for (int i = 0; i < 3; ++i) {
        list.keyUp();
    }
    setAir(networks(count));
    count > 0 ? list.setListData() : list.clearRows();
    sweep();
    QCOMPARE(list.getSelectIndex(), index);
    QCOMPARE(window.focusWidget(), list.currentItem());
}

void TestRaListwidget::replacedRowsLeaveTheFocusOfOthersAlone()
{
    QWidget window;
    ShownList list(5);
    list.setParent(&window);
    QPushButton other(&window);
    window.show();
    list.show();
    list.keyUp();
    other.setFocus();
    list.setListData();
    sweep();
    QCOMPARE(window.focusWidget(), static_cast<QWidget*>(&other));
}

void TestRaListwidget::replacedRowsLeaveTheFocusOfTheSwitchAlone()
{
    QWidget window;
    ShownList list(5);
    list.setParent(&window);
    QPushButton other(&window);
    window.show();
    list.show();
    window.activateWindow();
    QVERIFY(QTest::qWaitForWindowActive(&window)); // only then the focus moves on from what is hidden
    list.switchRow()->setFocus();
    list.setListData();
    sweep();
    QCOMPARE(window.focusWidget(), static_cast<QWidget*>(list.switchRow()));
}

void TestRaListwidget::wheelScrolls_data()
{
    QTest::addColumn<int>("turn");
    QTest::addColumn<int>("way");
    QTest::newRow("a notch away") << 120 << 57;
    QTest::newRow("two notches near") << -240 << -114;
    QTest::newRow("nothing") << 0 << 0;
}

void TestRaListwidget::wheelScrolls()
{
    QFETCH(int, turn);
    QFETCH(int, way);
    ShownList list(3);
    QSignalSpy moves(&list, SIGNAL(sendMoveStep(bool,int)));
    const QPointF point(100, 100);
    QWheelEvent event(point, list.mapToGlobal(point.toPoint()), QPoint(), QPoint(0, turn), Qt::NoButton, Qt::NoModifier,
                      Qt::NoScrollPhase, false);
    QCoreApplication::sendEvent(&list, &event);
    QCOMPARE(moves.count(), way == 0 ? 0 : 1);
    if (way != 0) {
        QCOMPARE(moves.at(0).at(0).toBool(), way > 0);
        QCOMPARE(moves.at(0).at(1).toInt(), way);
    }
}

void TestRaListwidget::joiningRowIsMarked_data()
{
    QTest::addColumn<int>("index");
    QTest::addColumn<int>("number");
    QTest::addColumn<QByteArray>("name");
    QTest::addColumn<int>("row");
    QTest::newRow("by index") << 1 << 99 << QByteArray("x") << 1;
    QTest::newRow("by address") << -1 << 2 << QByteArray("another name") << 2;
    QTest::newRow("by name") << -1 << 99 << QByteArray("Network 1") << 1;
    QTest::newRow("address before name") << -1 << 2 << QByteArray("Network 0") << 2;
    QTest::newRow("none") << -1 << 99 << QByteArray("x") << -1;
    QTest::newRow("no name") << -1 << 99 << QByteArray() << -1;
    QTest::newRow("index too high") << 3 << 99 << QByteArray("x") << -1;
}

void TestRaListwidget::joiningRowIsMarked()
{
    QFETCH(int, index);
    QFETCH(int, number);
    QFETCH(QByteArray, name);
    QFETCH(int, row);
    ShownList list(3);
    list.rows().at(0)->setConnectSuccess();
    for (const bool joined : {false, true}) {
        QCOMPARE(list.setLinKAP(index, network(number, name), joined), row);
        for (int i = 0; i < 3; ++i) {
            const QString status = list.rows().at(i)->accessibleDescription();
            const QString expected = QString::fromUtf8(joined ? "已连接" : "正在连接中，请等待...");
            QCOMPARE(status, i == row ? expected : QString());
        }
    }
    list.clearLinKAP();
    for (const RaItemPushBtn* each : list.rows()) {
        QCOMPARE(each->accessibleDescription(), QString());
    }
}

void TestRaListwidget::addressIsComparedWithoutCase()
{
    ShownList list(0);
    APData record = network(0xab, "net");
    setAir(QList<APData>() << network(1, "a") << record);
    list.setListData();
    for (char* c = record.macAddr; *c; ++c) {
        *c = char(std::toupper(*c));
    }
    QCOMPARE(list.setLinKAP(-1, record, true), 1);
}

void TestRaListwidget::joinedRowKeepsThePassword()
{
    ShownList list(3);
    QSignalSpy selected(&list, SIGNAL(sendSelectItemByList(APData)));
    list.setLinKAP(0, network(0, "Network 0", true, 3, "typed"), false);
    QCOMPARE(list.rowData(0).psk[0], '\0'); // not proven yet
    list.setLinKAP(0, network(0, "Network 0", true, 3, "typed"), true);
    tap(list.rows().at(0));
    QCOMPARE(QByteArray(selected.at(0).at(0).value<APData>().psk), QByteArray("typed"));
    list.setLinKAP(0, network(0, "Network 0"), true);
    QCOMPARE(QByteArray(list.rowData(0).psk), QByteArray("typed"));
}

void TestRaListwidget::settingIsKept()
{
    RaListwidget list(101, nullptr);
    QCOMPARE(list.getSetting(), 101);
    list.setSetting(100);
    QCOMPARE(list.getSetting(), 100);
}

void TestRaListwidget::passwordIsNotLogged()
{
    const QByteArray log = capturedOutput(stderr, [] {
        ShownList list(2);
        list.setLinKAP(0, network(0, "Network 0", true, 3, "canary-password"), true);
        tap(list.rows().at(0));
        list.setListData();
    });
    QVERIFY(log.contains("Network 0"));
    QVERIFY2(!log.contains("canary"), log.constData());
}

void TestRaListwidget::nothingLeaks()
{
    setAir(networks(3));
    const long growth = heapGrowth([] {
        RaListwidget list(101, nullptr);
        list.setListData();
        list.setListData();
        sweep();
    });
    QVERIFY2(growth < HeapNoise, QByteArray::number(int(growth)).constData());
}

QTEST_MAIN(TestRaListwidget)
#include "tst_ralistwidget.moc"
