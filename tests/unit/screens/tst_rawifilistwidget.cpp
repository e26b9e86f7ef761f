// SPDX-FileCopyrightText: 2026 The rawificontrol authors
// SPDX-License-Identifier: MIT
#include "networks.h"
#include "raitempushbtn.h"
#include "ralistwidget.h"
#include "rapswdlineedit.h"
#include "raswitchlistwidget.h"
#include "ratitlewidget.h"
#include "rawifiinputwnd.h"
#include "rawifilistwidget.h"
#include "widgettest.h"

#include <QLabel>
#include <QPointer>
#include <QScrollArea>
#include <QScrollBar>
#include <QSignalSpy>
#include <QtTest>
#include <climits>

using namespace widgettest;

namespace {

QString joining()
{
    return QString::fromUtf8("正在连接中，请等待...");
}

/** The toolkit's name for a vector of items goes by its generation. */
QString withItems(const char* signature)
{
    const QByteArray items = QMetaObject::normalizedType("QVector<RaItemData>");
    return QString::fromLatin1(signature).arg(QString::fromLatin1(items));
}

QString joined()
{
    return QString::fromUtf8("已连接");
}

/** The page on a screen of 320 by 480. */
class Screen : public QWidget
{
public:
    explicit Screen(int count = 0)
    {
        resize(320, 480);
        page = new RaWifiListWidget(this, true, QString::fromLatin1("Network Setting"),
                                    QString::fromLatin1("00:11:22:33:44:55"));
        show();
        if (count > 0) {
            refresh(networks(count));
        }
    }

    void refresh(const QList<APData>& records)
    {
        setAir(records);
        page->showRefreshListData();
        settle();
    }
    static void settle()
    {
        sweep();
        QCoreApplication::sendPostedEvents();
        QCoreApplication::processEvents();
    }

    RaListwidget* list() const { return findChild<RaListwidget*>(); }
    RaWifiInputWnd* password() const { return findChild<RaWifiInputWnd*>(); }
    bool isAskingForPassword() const { return password() && password()->isVisible(); }
    raPsWdLineEdit* edit() const { return findChild<raPsWdLineEdit*>(); }
    RaSwitchListWidget* switchRow() const { return findChild<RaSwitchListWidget*>(); }
    QScrollArea* area() const { return findChild<QScrollArea*>(); }
    QScrollBar* bar() const { return area()->verticalScrollBar(); }
    QList<RaItemPushBtn*> rows() const
    {
        return list()->findChildren<RaItemPushBtn*>(QString(), Qt::FindDirectChildrenOnly);
    }
    QStringList statuses() const
    {
        QStringList texts;
        for (const RaItemPushBtn* row : rows()) {
            texts << row->accessibleDescription();
        }
        return texts;
    }
    bool shows(const QString& text) const
    {
        for (const QLabel* label : area()->findChildren<QLabel*>()) {
            if (label->isVisible() && label->text() == text) {
                return true;
            }
        }
        return false;
    }
    /** Whether all of \a row can be seen. */
    bool isInView(const QWidget* row) const
    {
        const QWidget* view = area()->viewport();
        return view->rect().contains(QRect(row->mapTo(view, QPoint(0, 0)), row->size()));
    }
    /** One stroke of a finger over the screen; negative ways scroll towards the end. */
    void stroke(int way)
    {
        QPoint point(100, way < 0 ? 440 : 120);
        QTest::mousePress(windowHandle(), Qt::LeftButton, Qt::NoModifier, point);
        for (int moved = 0; moved < qAbs(way); moved += 20) {
            point.ry() += way < 0 ? -20 : 20;
            QTest::mouseMove(windowHandle(), point);
        }
        QTest::mouseRelease(windowHandle(), Qt::LeftButton, Qt::NoModifier, point);
    }

    RaWifiListWidget* page;
};

} // namespace

class TestRaWifiListWidget : public QObject
{
    Q_OBJECT
private Q_SLOTS:
    void initTestCase();
    void cleanup();

    void declaresItsMethodsInOrder();
    void pageIsCompleteFromTheFirstShow();
    void ownAddressMayComeLater();
    void heightIsTheParents();
    void resizedPageUsesItsHeight();
    void sameUiIsNotBuiltTwice();

    void listIsPlacedByTheNumberOfNetworks_data();
    void listIsPlacedByTheNumberOfNetworks();
    void emptyRefreshKeepsTheRows();
    void refreshLogsTheCount();
    void refreshShowsTheWindow();
    void everyRowCanBeScrolledIntoView_data();
    void everyRowCanBeScrolledIntoView();
    void contentFollowsTheFinger();
    void dragBesideTheListScrolls();
    void dragIsNoTapAndTapIsOne();
    void refreshKeepsTheScrollPosition();
    void shorterListScrollsBack();
    void refreshUnderTheFingerDoesNothing();

    void moveStepStopsAtTheEnds_data();
    void moveStepStopsAtTheEnds();

    void networksAreSortedByRankAndSignal();

    void tappedNetworkIsJoined_data();
    void tappedNetworkIsJoined();
    void nothingIsJoinedWhileLinking();
    void refreshDoesNotEndLinking();
    void okJoinsWithThePassword();
    void cancelEmptiesAndHides();
    void hiddenKeyboardIsEmpty();
    void refreshLeavesThePasswordPageAlone();
    void listIsCoveredByThePasswordPage();

    void marksFollowAJoin();
    void marksSurviveARefresh();
    void failedNetworkAsksForItsPassword();
    void failedOpenNetworkIsTriedAgain();
    void joinedNetworkIsForgotten();
    void roamedNetworkCountsAsJoined();
    void joinedPasswordIsKeptUntilTheRefresh();

    void switchReportsTheUser();
    void switchFollowsSilently();
    void switchedOffPageHasNoRows();
    void pageThatIsOffLosesItsRowsWhenSwitchedOff();
    void scanningSaysSo();
    void emptyResultSaysSo();

    void backMarkQuits();
    void backMarkCanBeHidden();
    void quittingShowsThePreviousWidget();
    void configurationIsForItsPageOnly();
    void itemClickIsForwarded();
    void itemDataIsAccepted();
    void keysMoveAndScroll();
    void keysQuit();
    void hostileNamesAreShown();
    void signalsThatAreNotDeclaredStayUnconnected_data();
    void signalsThatAreNotDeclaredStayUnconnected();
    void passwordIsNotLogged();
    void nothingLeaks();
};

void TestRaWifiListWidget::initTestCase()
{
    qRegisterMetaType<APData>("APData");
}

void TestRaWifiListWidget::cleanup()
{
    setAir(QList<APData>());
}

void TestRaWifiListWidget::declaresItsMethodsInOrder()
{
    const QMetaObject& meta = RaWifiListWidget::staticMetaObject;
    QCOMPARE(signalsOf(meta), QStringList()
                                  << QLatin1String("signalShowWifiList()") << QLatin1String("signalItemClick(int)")
                                  << QLatin1String("sendWifiSwitch(bool)") << QLatin1String("sendQuitListWnd()")
                                  << QLatin1String("sendWifiManageInfo(int,APData)"));
    QCOMPARE(slotsOf(meta),
             QStringList() << QLatin1String("slotQuit()") << QLatin1String("showBackButton(bool)")
                           << QLatin1String("slotShowConfigWnd()") << QLatin1String("slotListItemClick(int)")
                           << withItems("addListItem(%1)") << withItems("resetItemData(%1)")
                           << QLatin1String("recCheckChanged(bool)") << QLatin1String("recMoveStep(bool,int)")
                           << QLatin1String("recSelectItemByList(APData)") << QLatin1String("recWifiInputCancelMsg()")
                           << QLatin1String("recWifiInputOkMsg(APData)"));
}

void TestRaWifiListWidget::pageIsCompleteFromTheFirstShow()
{
    const Screen screen;
    QCOMPARE(screen.page->geometry(), QRect(0, 0, 320, 480));
    const RaTitleWidget* title = screen.findChild<RaTitleWidget*>();
    QCOMPARE(title->geometry(), QRect(0, 0, 320, 50));
    QVERIFY(title->isVisible());
    QCOMPARE(screen.area()->geometry(), QRect(0, 50, 320, 430));
    QVERIFY(screen.shows(QString::fromLatin1("MAC  00:11:22:33:44:55")));
    QVERIFY(screen.switchRow()->isVisible() && screen.isInView(screen.switchRow()));
    QCOMPARE(screen.list()->geometry(), QRect(0, 32, 320, 140));
    QCOMPARE(screen.list()->getSetting(), 101);
    QVERIFY(!screen.isAskingForPassword());
    QCOMPARE(screen.area()->viewport()->size(), screen.area()->size()); // no scroll bars
}

void TestRaWifiListWidget::ownAddressMayComeLater()
{
    const Screen screen;
    screen.page->setMac(QString::fromLatin1("66:77:88:99:aa:bb"));
    QVERIFY(screen.shows(QString::fromLatin1("MAC  66:77:88:99:aa:bb")));
    QVERIFY(!screen.shows(QString::fromLatin1("MAC  00:11:22:33:44:55")));
    screen.page->setMac(QString());
    QVERIFY(!screen.shows(QString::fromLatin1("MAC  ")));
}

void TestRaWifiListWidget::heightIsTheParents()
{
    QWidget parent;
    parent.resize(320, 240);
    const RaWifiListWidget page(&parent, true, QString(), QString());
    QCOMPARE(page.size(), QSize(320, 240));
    const RaWifiListWidget alone(nullptr, true, QString(), QString());
    QCOMPARE(alone.size(), QSize(320, 480));
}

void TestRaWifiListWidget::resizedPageUsesItsHeight()
{
    Screen screen(20);
    screen.page->recSelectItemByList(network(0, "Network 0"));
    screen.page->resize(320, 600);
    screen.settle();
    QCOMPARE(screen.area()->height(), 550);
    QCOMPARE(screen.password()->size(), QSize(320, 600));
    screen.page->recMoveStep(false, 100000);
    QVERIFY(screen.isInView(screen.rows().last()));
}

void TestRaWifiListWidget::sameUiIsNotBuiltTwice()
{
    Screen screen(3);
    screen.page->createUI(QString::fromLatin1("again"), 100, QString());
    screen.page->createTitleBar();
    screen.page->createWifiSwitch();
    QCOMPARE(int(screen.findChildren<RaTitleWidget*>().size()), 1);
    QCOMPARE(int(screen.findChildren<RaListwidget*>().size()), 1);
    QCOMPARE(int(screen.rows().size()), 3);
}

void TestRaWifiListWidget::listIsPlacedByTheNumberOfNetworks_data()
{
    QTest::addColumn<int>("count");
    QTest::addColumn<int>("bottom");
    QTest::addColumn<int>("height");
    QTest::newRow("none") << 0 << 91 << 140;
    QTest::newRow("1") << 1 << 91 << 117;
    QTest::newRow("3") << 3 << 211 << 231;
    QTest::newRow("19") << 19 << 1171 << 1143;
    QTest::newRow("20") << 20 << 1231 << 1200;
    QTest::newRow("200") << 200 << 12031 << 12000;
}

void TestRaWifiListWidget::listIsPlacedByTheNumberOfNetworks()
{
    QFETCH(int, count);
    QFETCH(int, bottom);
    QFETCH(int, height);
    const Screen screen;
    setAir(networks(count));
    screen.page->showRefreshListData();
    QCOMPARE(screen.list()->geometry(), QRect(QPoint(0, 32), QPoint(319, bottom)));
    QVERIFY(screen.list()->isVisible());
    QVERIFY(screen.page->isAncestorOf(screen.list()));
    screen.settle();
    QCOMPARE(screen.list()->geometry(), QRect(0, 32, 320, qMax(bottom - 31, height)));
    QVERIFY(screen.list()->parentWidget()->height() >= 32 + screen.list()->height());
}

void TestRaWifiListWidget::emptyRefreshKeepsTheRows()
{
    Screen screen(3);
    setAir(QList<APData>());
    screen.page->showRefreshListData();
    QCOMPARE(screen.list()->geometry(), QRect(QPoint(0, 32), QPoint(319, 91)));
    screen.settle();
    QCOMPARE(int(screen.rows().size()), 3);
    QCOMPARE(screen.list()->height(), 57 * 3 + 60);
}

void TestRaWifiListWidget::refreshLogsTheCount()
{
    Screen screen;
    const QByteArray log = capturedOutput(stderr, [&screen] { screen.refresh(networks(3)); });
    QVERIFY2(log.contains("]  ...nCount= 3 \n"), log.constData());
}

void TestRaWifiListWidget::refreshShowsTheWindow()
{
    Screen screen;
    screen.page->hide();
    screen.refresh(networks(1));
    QVERIFY(screen.page->isVisible());
}

void TestRaWifiListWidget::everyRowCanBeScrolledIntoView_data()
{
    QTest::addColumn<int>("count");
    QTest::newRow("1") << 1;
    QTest::newRow("3") << 3;
    QTest::newRow("19") << 19;
    QTest::newRow("20") << 20;
    QTest::newRow("200") << 200;
}

void TestRaWifiListWidget::everyRowCanBeScrolledIntoView()
{
    QFETCH(int, count);
    Screen screen(count);
    QSignalSpy joins(screen.page, SIGNAL(sendWifiManageInfo(int,APData)));
    const QList<RaItemPushBtn*> rows = screen.rows();
    for (const RaItemPushBtn* row : rows) {
        for (int strokes = 0; strokes < 3 && !screen.isInView(row); ++strokes) {
            screen.stroke(-320);
        }
        QVERIFY(screen.isInView(row));
    }
    for (int i = 0; i < 100 && screen.bar()->value() > 0; ++i) {
        screen.stroke(320);
    }
    QVERIFY(screen.isInView(rows.first()));
    QVERIFY(screen.isInView(screen.switchRow()));
    QCOMPARE(joins.count(), 0);
    QVERIFY(!screen.isAskingForPassword());
}

void TestRaWifiListWidget::contentFollowsTheFinger()
{
    Screen screen(20);
    const int before = screen.rows().at(5)->mapTo(screen.page, QPoint()).y();
    screen.stroke(-100);
    QCOMPARE(screen.bar()->value(), 100);
    QCOMPARE(screen.rows().at(5)->mapTo(screen.page, QPoint()).y(), before - 100);
    screen.stroke(40);
    QCOMPARE(screen.rows().at(5)->mapTo(screen.page, QPoint()).y(), before - 60);
}

void TestRaWifiListWidget::dragBesideTheListScrolls()
{
    Screen screen(20);
    QWidget* strip = screen.list()->parentWidget();
    const QPoint start = strip->mapToGlobal(QPoint(100, 16));
    finger(strip, QEvent::MouseButtonPress, start);
    finger(strip, QEvent::MouseMove, start - QPoint(0, 10));
    QCOMPARE(screen.bar()->value(), 10);
}

void TestRaWifiListWidget::dragIsNoTapAndTapIsOne()
{
    Screen screen(20);
    QSignalSpy clicks(screen.page, SIGNAL(signalItemClick(int)));
    screen.stroke(-200);
    QCOMPARE(clicks.count(), 0);
    for (const RaItemPushBtn* row : screen.rows()) {
        QVERIFY(!row->isDown());
    }
    const QPoint point = screen.rows().at(6)->mapTo(&screen, QPoint(100, 30));
    QTest::mouseClick(screen.windowHandle(), Qt::LeftButton, Qt::NoModifier, point);
    QCOMPARE(clicks.count(), 1);
    QCOMPARE(clicks.at(0).at(0).toInt(), 6);
}

void TestRaWifiListWidget::refreshKeepsTheScrollPosition()
{
    Screen screen(20);
    screen.stroke(-320);
    screen.stroke(-320);
    QCOMPARE(screen.bar()->value(), 640);
    setAir(networks(20));
    screen.page->showRefreshListData();
    QCOMPARE(screen.bar()->value(), 640);
    screen.settle();
    QCOMPARE(screen.bar()->value(), 640);
    screen.refresh(networks(19));
    QCOMPARE(screen.bar()->value(), 640);
    screen.refresh(networks(200));
    QCOMPARE(screen.bar()->value(), 640);
}

void TestRaWifiListWidget::shorterListScrollsBack()
{
    Screen screen(200);
    screen.page->recMoveStep(false, 100000);
    screen.refresh(networks(3));
    QCOMPARE(screen.bar()->value(), 0);
    QVERIFY(screen.isInView(screen.rows().last()));
}

void TestRaWifiListWidget::refreshUnderTheFingerDoesNothing()
{
    Screen screen(3);
    QSignalSpy clicks(screen.page, SIGNAL(signalItemClick(int)));
    const QPoint point = screen.rows().at(1)->mapTo(&screen, QPoint(100, 30));
    QTest::mousePress(screen.windowHandle(), Qt::LeftButton, Qt::NoModifier, point);
    screen.refresh(networks(3));
    QTest::mouseRelease(screen.windowHandle(), Qt::LeftButton, Qt::NoModifier, point);
    QCOMPARE(clicks.count(), 0);
    QVERIFY(!screen.isAskingForPassword());
}

void TestRaWifiListWidget::moveStepStopsAtTheEnds_data()
{
    QTest::addColumn<int>("start");
    QTest::addColumn<bool>("isUp");
    QTest::addColumn<int>("step");
    QTest::addColumn<int>("end"); // -1: the maximum
    QTest::newRow("up") << 100 << true << 30 << 70;
    QTest::newRow("up by a negative step") << 100 << true << -30 << 70;
    QTest::newRow("up beyond the start") << 100 << true << 101 << 0;
    QTest::newRow("up as far as can be") << 100 << true << INT_MAX << 0;
    QTest::newRow("up by the least number") << 100 << true << INT_MIN << 0;
    QTest::newRow("down") << 100 << false << 30 << 130;
    QTest::newRow("down by a negative step") << 100 << false << -30 << 130;
    QTest::newRow("down beyond the end") << 100 << false << 5000 << -1;
    QTest::newRow("down as far as can be") << 100 << false << INT_MAX << -1;
    QTest::newRow("down by the least number") << 100 << false << INT_MIN << -1;
}

void TestRaWifiListWidget::moveStepStopsAtTheEnds()
{
    QFETCH(int, start);
    QFETCH(bool, isUp);
    QFETCH(int, step);
    QFETCH(int, end);
    Screen screen(20);
    screen.bar()->setValue(start);
    const QByteArray log = capturedOutput(stderr, [&] { screen.page->recMoveStep(isUp, step); });
    const int expected = end == -1 ? screen.bar()->maximum() : end;
    QCOMPARE(screen.bar()->value(), expected);
    const int limit = isUp ? screen.bar()->minimum() : screen.bar()->maximum();
    const QString line = QString::fromLatin1("... %1 = %2,old value :%3 ,new Value =%4,move Value = ")
                             .arg(QLatin1String(isUp ? "nMin" : "nMax"))
                             .arg(limit)
                             .arg(start)
                             .arg(expected);
    QVERIFY2(log.contains(isUp ? "]  --- UP ---- \033" : "]  --- DOWN ---- \033"), log.constData());
    QVERIFY2(log.contains(line.toLatin1()), log.constData());
}

void TestRaWifiListWidget::networksAreSortedByRankAndSignal()
{
    const Screen screen;
    QList<APData> records;
    const int ranks[] = {999, 1, 999, 0, 999};
    const int levels[] = {2, 1, 4, 3, 2};
    for (int i = 0; i < 5; ++i) {
        records << network(i, "net", true, levels[i]);
        records.last().orderbynum = ranks[i];
    }
    setAir(records);
    QCOMPARE(screen.page->setlistItemData(), 5);
    QList<int> order;
    for (const APData* record : APDataArray) {
        order << record->macAddr[16] - '0';
    }
    QCOMPARE(order, QList<int>() << 3 << 1 << 2 << 0 << 4);
}

void TestRaWifiListWidget::tappedNetworkIsJoined_data()
{
    QTest::addColumn<int>("isEncry");
    QTest::addColumn<QByteArray>("password");
    QTest::addColumn<bool>("asks");
    QTest::newRow("open") << 1 << QByteArray() << false;
    QTest::newRow("unknown") << 0 << QByteArray() << false;
    QTest::newRow("locked") << 2 << QByteArray() << true;
    QTest::newRow("locked and saved") << 2 << QByteArray("saved") << false;
}

void TestRaWifiListWidget::tappedNetworkIsJoined()
{
    QFETCH(int, isEncry);
    QFETCH(QByteArray, password);
    QFETCH(bool, asks);
    Screen screen;
    APData record = network(5, "net", true, 3, password.constData());
    record.is_encry = isEncry;
    screen.refresh(QList<APData>() << network(4, "other") << record);
    QSignalSpy joins(screen.page, SIGNAL(sendWifiManageInfo(int,APData)));
    tap(screen.rows().at(1));
    QCOMPARE(screen.isAskingForPassword(), asks);
    QCOMPARE(joins.count(), asks ? 0 : 1);
    if (asks) {
        QCOMPARE(screen.password()->accessibleName(), QString::fromLatin1("net"));
        QCOMPARE(screen.password()->geometry(), screen.page->rect());
        QVERIFY(screen.edit()->getIsPlaceholderText());
    } else {
        APData sent = joins.at(0).at(1).value<APData>();
        QCOMPARE(joins.at(0).at(0).toInt(), 3);
        QCOMPARE(std::memcmp(&sent, &record, sizeof sent), 0);
    }
}

void TestRaWifiListWidget::nothingIsJoinedWhileLinking()
{
    Screen screen(3);
    QSignalSpy joins(screen.page, SIGNAL(sendWifiManageInfo(int,APData)));
    QSignalSpy clicks(screen.page, SIGNAL(signalItemClick(int)));
    screen.page->setLinkAP(true);
    tap(screen.rows().at(1));
    screen.page->recSelectItemByList(network(0, "locked"));
    QCOMPARE(clicks.count(), 0);
    QCOMPARE(joins.count(), 0);
    QVERIFY(!screen.isAskingForPassword());
    screen.page->setLinkAP(false);
    tap(screen.rows().at(1));
    QCOMPARE(clicks.count(), 1);
    QCOMPARE(joins.count(), 1);
}

void TestRaWifiListWidget::refreshDoesNotEndLinking()
{
    Screen screen(3);
    QSignalSpy clicks(screen.page, SIGNAL(signalItemClick(int)));
    screen.page->setLinkAP(true);
    screen.refresh(networks(3));
    tap(screen.rows().at(1));
    QCOMPARE(clicks.count(), 0);
    screen.page->setLinkAP(false);
    screen.refresh(networks(3));
    tap(screen.rows().at(1));
    QCOMPARE(clicks.count(), 1);
}

void TestRaWifiListWidget::okJoinsWithThePassword()
{
    Screen screen(3);
    QSignalSpy joins(screen.page, SIGNAL(sendWifiManageInfo(int,APData)));
    tap(screen.rows().at(0));
    QTest::keyClicks(screen.edit(), QString::fromLatin1("se cret"));
    QTest::keyClick(screen.edit(), Qt::Key_Return);
    QVERIFY(!screen.isAskingForPassword());
    QVERIFY(screen.edit()->getIsPlaceholderText());
    QCOMPARE(joins.count(), 1);
    QCOMPARE(joins.at(0).at(0).toInt(), 3);
    const APData sent = joins.at(0).at(1).value<APData>();
    QCOMPARE(QByteArray(sent.psk), QByteArray("se cret"));
    QCOMPARE(QByteArray(sent.essid), QByteArray("Network 0"));
}

void TestRaWifiListWidget::cancelEmptiesAndHides()
{
    Screen screen(3);
    QSignalSpy joins(screen.page, SIGNAL(sendWifiManageInfo(int,APData)));
    tap(screen.rows().at(0));
    QTest::keyClicks(screen.edit(), QString::fromLatin1("secret"));
    QTest::keyClick(screen.edit(), Qt::Key_Escape);
    QVERIFY(!screen.isAskingForPassword());
    QVERIFY(screen.edit()->getIsPlaceholderText());
    QCOMPARE(joins.count(), 0);
    tap(screen.rows().at(2));
    QVERIFY(screen.isAskingForPassword());
    QCOMPARE(screen.password()->accessibleName(), QString::fromLatin1("Network 2"));
}

void TestRaWifiListWidget::hiddenKeyboardIsEmpty()
{
    Screen screen(3);
    tap(screen.rows().at(0));
    QTest::keyClicks(screen.edit(), QString::fromLatin1("secret"));
    screen.page->HideKeyBoardWnd();
    QVERIFY(!screen.isAskingForPassword());
    QVERIFY(screen.edit()->getIsPlaceholderText());
}

void TestRaWifiListWidget::refreshLeavesThePasswordPageAlone()
{
    Screen screen(3);
    tap(screen.rows().at(0));
    QTest::keyClicks(screen.edit(), QString::fromLatin1("secret"));
    screen.edit()->setCursorPosition(2);
    screen.refresh(networks(20));
    screen.page->setScanning(true);
    screen.refresh(QList<APData>() << network(77, "another"));
    QVERIFY(screen.isAskingForPassword());
    QCOMPARE(screen.edit()->text(), QString::fromLatin1("secret"));
    QCOMPARE(screen.edit()->cursorPosition(), 2);
    QVERIFY(screen.edit()->hasFocus() || screen.focusWidget() == screen.edit());
    QCOMPARE(screen.childAt(160, 300)->window(), static_cast<QWidget*>(&screen));
    QVERIFY(screen.password()->isAncestorOf(screen.childAt(160, 76)));
    QSignalSpy joins(screen.page, SIGNAL(sendWifiManageInfo(int,APData)));
    QTest::keyClick(screen.edit(), Qt::Key_Return); // the network may be gone
    QCOMPARE(joins.count(), 1);
    QCOMPARE(QByteArray(joins.at(0).at(1).value<APData>().essid), QByteArray("Network 0"));
}

void TestRaWifiListWidget::listIsCoveredByThePasswordPage()
{
    Screen screen(3);
    QSignalSpy clicks(screen.page, SIGNAL(signalItemClick(int)));
    QSignalSpy quits(screen.page, SIGNAL(sendQuitListWnd()));
    const QPoint point = screen.rows().at(1)->mapTo(&screen, QPoint(319, 30));
    tap(screen.rows().at(0));
    clicks.clear();
    QTest::mouseClick(screen.windowHandle(), Qt::LeftButton, Qt::NoModifier, point);
    QTest::mouseClick(screen.windowHandle(), Qt::LeftButton, Qt::NoModifier, QPoint(48, 25)); // beside the button
    QTest::keyClick(screen.focusWidget(), Qt::Key_Up);
    QCOMPARE(clicks.count(), 0);
    QCOMPARE(quits.count(), 0);
    QCOMPARE(screen.list()->getSelectIndex(), 0);
    QVERIFY(screen.isAskingForPassword());
}

void TestRaWifiListWidget::marksFollowAJoin()
{
    Screen screen(3);
    screen.page->recWifiListMsg(network(1, "Network 1"));
    QCOMPARE(screen.statuses(), QStringList() << QString() << joining() << QString());
    screen.page->recWifiListMsg(network(1, "Network 1"), true);
    QCOMPARE(screen.statuses(), QStringList() << QString() << joined() << QString());
    screen.page->recWifiListMsg(network(2, "Network 2"));
    QCOMPARE(screen.statuses(), QStringList() << QString() << QString() << joining());
    screen.page->setConnectFailed(network(2, "Network 2"));
    QCOMPARE(screen.statuses(), QStringList() << QString() << QString() << QString());
}

void TestRaWifiListWidget::marksSurviveARefresh()
{
    Screen screen(3);
    QList<APData> reversed;
    for (int i = 2; i >= 0; --i) {
        reversed << network(i, "Network " + QByteArray::number(i));
    }
    screen.page->recWifiListMsg(network(1, "Network 1"));
    screen.refresh(networks(2));
    QCOMPARE(screen.statuses(), QStringList() << QString() << joining());
    screen.page->recWifiListMsg(network(2, "Network 2"), true); // not in the list
    screen.refresh(reversed);
    QCOMPARE(screen.statuses(), QStringList() << joined() << QString() << QString());
    screen.page->setConnectFailed(network(2, "Network 2"));
    screen.refresh(reversed);
    QCOMPARE(screen.statuses(), QStringList() << QString() << QString() << QString());
}

void TestRaWifiListWidget::failedNetworkAsksForItsPassword()
{
    Screen screen;
    const QList<APData> saved = QList<APData>()
                                << network(1, "net", true, 3, "wrong") << network(2, "other", true, 3, "x");
    screen.refresh(saved);
    QSignalSpy joins(screen.page, SIGNAL(sendWifiManageInfo(int,APData)));
    screen.page->setConnectFailed(saved.at(0));
    screen.refresh(saved);
    tap(screen.rows().at(0));
    QVERIFY(screen.isAskingForPassword());
    QVERIFY(screen.edit()->getIsPlaceholderText());
    QCOMPARE(joins.count(), 0);
    screen.page->HideKeyBoardWnd();
    tap(screen.rows().at(1));
    QCOMPARE(joins.count(), 1);
    screen.page->recWifiListMsg(saved.at(0), true);
    tap(screen.rows().at(0));
    QCOMPARE(joins.count(), 2);
    QVERIFY(!screen.isAskingForPassword());
}

void TestRaWifiListWidget::failedOpenNetworkIsTriedAgain()
{
    Screen screen;
    screen.refresh(QList<APData>() << network(1, "open", false));
    QSignalSpy joins(screen.page, SIGNAL(sendWifiManageInfo(int,APData)));
    screen.page->setConnectFailed(network(1, "open", false));
    tap(screen.rows().at(0));
    QCOMPARE(joins.count(), 1);
}

void TestRaWifiListWidget::joinedNetworkIsForgotten()
{
    Screen screen(2);
    screen.page->recWifiListMsg(network(1, "Network 1"), true);
    screen.page->setClearMac();
    QCOMPARE(screen.statuses(), QStringList() << QString() << QString());
    screen.refresh(networks(2));
    QCOMPARE(screen.statuses(), QStringList() << QString() << QString());
    screen.page->recWifiListMsg(network(1, "Network 1"));
    screen.page->setClearMac(); // a join in progress goes on
    QCOMPARE(screen.statuses(), QStringList() << QString() << joining());
}

void TestRaWifiListWidget::roamedNetworkCountsAsJoined()
{
    Screen screen;
    const QList<APData> air = QList<APData>() << network(1, "net") << network(2, "other");
    screen.refresh(air);
    screen.page->setConnectFailed(network(1, "net"));
    screen.page->recWifiListMsg(network(1, "net", true, 3, "typed"));
    screen.page->recWifiListMsg(network(99, "net", true, 3, "typed"), true); // another access point of that name
    QCOMPARE(screen.statuses(), QStringList() << joined() << QString());
    screen.refresh(air);
    QCOMPARE(screen.statuses(), QStringList() << joined() << QString());
    screen.page->recSelectItemByList(network(1, "net", true, 3, "typed"));
    QVERIFY(!screen.isAskingForPassword());
}

void TestRaWifiListWidget::joinedPasswordIsKeptUntilTheRefresh()
{
    Screen screen(3);
    QSignalSpy joins(screen.page, SIGNAL(sendWifiManageInfo(int,APData)));
    screen.page->recWifiListMsg(network(0, "Network 0", true, 3, "typed"), true);
    tap(screen.rows().at(0));
    QCOMPARE(joins.count(), 1);
    QCOMPARE(QByteArray(joins.at(0).at(1).value<APData>().psk), QByteArray("typed"));
}

void TestRaWifiListWidget::switchReportsTheUser()
{
    Screen screen;
    QSignalSpy switches(screen.page, SIGNAL(sendWifiSwitch(bool)));
    press(screen.switchRow(), QPoint(265, 29));
    QCOMPARE(switches.count(), 1);
    QVERIFY(switches.at(0).at(0).toBool());
    press(screen.switchRow(), QPoint(265, 29));
    QCOMPARE(switches.count(), 2);
    QVERIFY(!switches.at(1).at(0).toBool());
}

void TestRaWifiListWidget::switchFollowsSilently()
{
    Screen screen;
    QSignalSpy switches(screen.page, SIGNAL(sendWifiSwitch(bool)));
    screen.page->setWifiSwitch(true);
    QVERIFY(screen.switchRow()->getChecked());
    screen.page->setWifiSwitch(true);
    screen.page->setWifiSwitch(false);
    QVERIFY(!screen.switchRow()->getChecked());
    QCOMPARE(switches.count(), 0);
}

void TestRaWifiListWidget::switchedOffPageHasNoRows()
{
    Screen screen;
    screen.page->setWifiSwitch(true);
    screen.refresh(networks(20));
    screen.page->recWifiListMsg(network(1, "Network 1"), true);
    screen.stroke(-320);
    screen.page->setWifiSwitch(true); // a repeat changes nothing
    screen.settle();
    QCOMPARE(int(screen.rows().size()), 20);
    screen.page->setWifiSwitch(false);
    screen.settle();
    QVERIFY(screen.rows().isEmpty());
    QCOMPARE(screen.bar()->maximum(), 0);
    QCOMPARE(screen.list()->height(), 140);
    screen.page->setWifiSwitch(true);
    screen.refresh(networks(2)); // the link may have stayed up meanwhile
    QCOMPARE(screen.statuses(), QStringList() << QString() << joined());
}

void TestRaWifiListWidget::pageThatIsOffLosesItsRowsWhenSwitchedOff()
{
    Screen screen;
    screen.refresh(networks(20)); // a scan that the switch has no part in
    QCOMPARE(int(screen.rows().size()), 20);
    screen.page->setWifiSwitch(false);
    screen.settle();
    QVERIFY(screen.rows().isEmpty());
    QCOMPARE(screen.list()->height(), 140);
}

void TestRaWifiListWidget::scanningSaysSo()
{
    Screen screen;
    const QRect item2(0, 59, 320, 81);
    const QImage off = pictureOf(screen.switchRow()).copy(item2);
    screen.page->setWifiSwitch(true);
    const QImage scanning = pictureOf(screen.switchRow()).copy(item2);
    QVERIFY(scanning != off);
    QVERIFY(!screen.shows(QString::fromLatin1("Discovering...")));
    screen.page->setScanning(false);
    QVERIFY(pictureOf(screen.switchRow()).copy(item2) != scanning);
    screen.refresh(networks(3));
    screen.page->setScanning(true); // the switch row has no room for it now
    QVERIFY(screen.shows(QString::fromLatin1("Discovering...")));
    screen.refresh(networks(3));
    QVERIFY(!screen.shows(QString::fromLatin1("Discovering...")));
}

void TestRaWifiListWidget::emptyResultSaysSo()
{
    Screen screen;
    const QString none = QString::fromLatin1("No networks found");
    screen.page->setWifiSwitch(true);
    QVERIFY(!screen.shows(none));
    screen.refresh(QList<APData>());
    QVERIFY(screen.shows(none));
    screen.refresh(networks(1));
    QVERIFY(!screen.shows(none));
}

void TestRaWifiListWidget::backMarkQuits()
{
    Screen screen;
    QSignalSpy quits(screen.page, SIGNAL(sendQuitListWnd()));
    QTest::mouseClick(screen.windowHandle(), Qt::LeftButton, Qt::NoModifier, QPoint(25, 25));
    QCOMPARE(quits.count(), 1);
}

void TestRaWifiListWidget::backMarkCanBeHidden()
{
    Screen screen;
    QSignalSpy quits(screen.page, SIGNAL(sendQuitListWnd()));
    RaTitleWidget* title = screen.findChild<RaTitleWidget*>();
    const QImage shown = pictureOf(title);
    screen.page->showBackButton(false);
    const QImage hidden = pictureOf(title);
    QVERIFY(hidden.copy(0, 0, 50, 50) != shown.copy(0, 0, 50, 50));
    QCOMPARE(hidden.copy(50, 0, 270, 50), shown.copy(50, 0, 270, 50));
    QTest::mouseClick(screen.windowHandle(), Qt::LeftButton, Qt::NoModifier, QPoint(25, 25));
    QCOMPARE(quits.count(), 0);
    screen.page->showBackButton(true);
    QCOMPARE(pictureOf(title), shown);
    QTest::mouseClick(screen.windowHandle(), Qt::LeftButton, Qt::NoModifier, QPoint(25, 25));
    QCOMPARE(quits.count(), 1);
    const RaWifiListWidget without(nullptr, false, QString(), QString());
    QVERIFY(!without.findChild<RaTitleWidget*>()->isEnabled());
}

void TestRaWifiListWidget::quittingShowsThePreviousWidget()
{
    Screen screen;
    QWidget* previous = new QWidget;
    screen.page->setPrevWidget(previous);
    QSignalSpy quits(screen.page, SIGNAL(sendQuitListWnd()));
    screen.page->slotQuit();
    QCOMPARE(quits.count(), 1);
    QVERIFY(previous->isVisible());
    delete previous;
    screen.page->slotQuit();
    QCOMPARE(quits.count(), 2);
}

void TestRaWifiListWidget::configurationIsForItsPageOnly()
{
    Screen screen;
    QSignalSpy shown(screen.page, SIGNAL(signalShowWifiList()));
    screen.page->slotShowConfigWnd();
    QCOMPARE(shown.count(), 0);
    screen.page->createUI(QString(), 100, QString());
    screen.page->slotShowConfigWnd();
    QCOMPARE(shown.count(), 1);
}

void TestRaWifiListWidget::itemClickIsForwarded()
{
    Screen screen;
    QSignalSpy clicks(screen.page, SIGNAL(signalItemClick(int)));
    screen.page->slotListItemClick(17);
    QCOMPARE(clicks.count(), 1);
    QCOMPARE(clicks.at(0).at(0).toInt(), 17);
}

void TestRaWifiListWidget::itemDataIsAccepted()
{
    Screen screen(2);
    const RaItemData item = {QString::fromLatin1("a"), QString(), QString(), true, false};
    screen.page->addListItem(QVector<RaItemData>() << item << item);
    const QByteArray log =
        capturedOutput(stderr, [&] { screen.page->resetItemData(QVector<RaItemData>() << item << item << item); });
    QVERIFY2(log.contains("3 items"), log.constData());
    screen.page->clearData();
    QCOMPARE(int(screen.rows().size()), 2); // rows come from the scan
}

void TestRaWifiListWidget::keysMoveAndScroll()
{
    Screen screen(20);
    QTest::keyClick(screen.page, Qt::Key_Up);
    QCOMPARE(screen.list()->getSelectIndex(), 1);
    for (int i = 0; i < 18; ++i) {
        QTest::keyClick(screen.focusWidget(), Qt::Key_Up);
        QVERIFY(screen.isInView(screen.list()->currentItem()));
    }
    QCOMPARE(screen.list()->currentItem(), static_cast<QWidget*>(screen.rows().last()));
    QSignalSpy clicks(screen.page, SIGNAL(signalItemClick(int)));
    QTest::keyClick(screen.focusWidget(), Qt::Key_Return);
    QCOMPARE(clicks.count(), 1);
    QCOMPARE(clicks.at(0).at(0).toInt(), 19);
    screen.page->HideKeyBoardWnd(); // there was none
    QCOMPARE(screen.focusWidget(), screen.list()->currentItem());
    QTest::keyClick(screen.focusWidget(), Qt::Key_Down);
    QCOMPARE(screen.list()->getSelectIndex(), 18);
    QTest::keyClick(screen.focusWidget(), Qt::Key_Return);
    QVERIFY(screen.isAskingForPassword());
    screen.page->HideKeyBoardWnd();
    QCOMPARE(screen.focusWidget(), static_cast<QWidget*>(screen.page));
    QTest::keyClick(screen.page, Qt::Key_Down);
    QCOMPARE(screen.list()->getSelectIndex(), 17);
}

void TestRaWifiListWidget::keysQuit()
{
    Screen screen;
    QSignalSpy quits(screen.page, SIGNAL(sendQuitListWnd()));
    QTest::keyClick(screen.page, Qt::Key_Escape);
    QTest::keyClick(screen.page, Qt::Key_Back);
    QTest::keyClick(screen.page, Qt::Key_A);
    QCOMPARE(quits.count(), 2);
}

void TestRaWifiListWidget::hostileNamesAreShown()
{
    Screen screen;
    QList<APData> air;
    const QList<QByteArray> names = QList<QByteArray>() << "evil\xe2\x80\xaegnp"
                                                        << "<b>bold</b>"
                                                        << "%1 %n %s"
                                                        << "a\tb\nc"
                                                        << "\xff\xfe\x80"
                                                        << "" << QByteArray(39, '\x01') << "&&&&"
                                                        << "\xf0\x9f\x98\x80\xf0\x9f\x98\x80";
    for (int i = 0; i < names.size(); ++i) {
        air << network(i, names.at(i), true);
    }
    screen.refresh(air);
    QCOMPARE(int(screen.rows().size()), int(names.size()));
    for (RaItemPushBtn* row : screen.rows()) {
        pictureOf(row);
        for (const QChar c : row->getText()) {
            QVERIFY(c.category() != QChar::Other_Control && c != QChar(0x202e));
        }
        tap(row);
        QVERIFY(screen.isAskingForPassword());
        QCOMPARE(screen.password()->accessibleName(), row->getText());
        screen.page->HideKeyBoardWnd();
    }
}

void TestRaWifiListWidget::signalsThatAreNotDeclaredStayUnconnected_data()
{
    QTest::addColumn<QByteArray>("signature");
    QTest::newRow("quick menu") << QByteArray(SIGNAL(sendQuickMenu()));
    QTest::newRow("clear") << QByteArray(SIGNAL(sendClearAP(QString)));
    QTest::newRow("refresh") << QByteArray(SIGNAL(sendRefreshAPListMsg(QString,int)));
    QTest::newRow("exit menu") << QByteArray(SIGNAL(sendMenuExitListWin(int,APData*)));
    QTest::newRow("exit menu with a name") << QByteArray(SIGNAL(sendMenuExitListWin(QString,int,APData*)));
}

void TestRaWifiListWidget::signalsThatAreNotDeclaredStayUnconnected()
{
    QFETCH(QByteArray, signature);
    const Screen screen;
    QTest::ignoreMessage(QtWarningMsg, QRegularExpression(QLatin1String("QObject::connect: No such signal .*")));
    QVERIFY(!QObject::connect(screen.page, signature.constData(), screen.page, SLOT(hide())));
}

void TestRaWifiListWidget::passwordIsNotLogged()
{
    const QByteArray log = capturedOutput(stderr, [] {
        Screen screen;
        screen.refresh(QList<APData>() << network(1, "net", true, 3, "canary-saved") << network(2, "other"));
        tap(screen.rows().at(0));
        tap(screen.rows().at(1));
        screen.password()->setTextSlot(QLatin1String("x"), QString());
        screen.page->recWifiInputOkMsg(network(2, "other", true, 3, "canary-typed"));
        screen.page->recWifiListMsg(network(2, "other", true, 3, "canary-typed"), true);
        screen.page->setConnectFailed(network(2, "other", true, 3, "canary-typed"));
    });
    QVERIFY(log.contains("nCount= 2"));
    QVERIFY2(!log.contains("canary"), log.constData());
}

void TestRaWifiListWidget::nothingLeaks()
{
    setAir(networks(3));
    const auto useOnce = [] {
        RaWifiListWidget page(nullptr, true, QString::fromLatin1("Network Setting"), QString());
        page.showRefreshListData();
        page.recSelectItemByList(network(1, "net"));
        page.HideKeyBoardWnd();
        page.hide();
        QCoreApplication::sendPostedEvents();
        sweep();
    };
    capturedOutput(stderr, [&] {
        for (int i = 0; i < 500; ++i) {
            useOnce(); // until the toolkit's own caches are full
        }
    });
    const long growth = heapGrowth(useOnce);
    QVERIFY2(growth < HeapNoise, QByteArray::number(int(growth)).constData());
}

QTEST_MAIN(TestRaWifiListWidget)
#include "tst_rawifilistwidget.moc"
