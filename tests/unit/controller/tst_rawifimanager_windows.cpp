// SPDX-FileCopyrightText: 2026 The rawificontrol authors
// SPDX-License-Identifier: MIT
#include "rawifiManager.h"

#include "latch.h"
#include "loggedmessages.h"
#include "managertest.h"
#include "ratitlewidget.h"
#include "rawifiinputwnd.h"
#include "rawifimonitor.h"

#include <QLineEdit>
#include <QtTest>
#include <cerrno>
#include <dlfcn.h>

// The page and the message window: who makes them, what is on them when, and how a join is told on them.

using namespace managertest;

namespace {

std::function<void()> g_beforeThreadStart;
bool g_noThreads = false; // for workers

const APData openNetwork = network(1, "Open", false);
const APData lockedNetwork = network(2, "Locked", true);
const APData savedNetwork = network(3, "Saved", true, 3, "saved password");

QList<APData> air()
{
    return QList<APData>() << openNetwork << lockedNetwork << savedNetwork;
}

/** A shown page with the rows of the air. */
class FullPage : public ShownPage
{
public:
    FullPage() : ShownPage(air()) {}

    RaWifiInputWnd* passwordPage() const { return get()->findChild<RaWifiInputWnd*>(); }
    bool isAskingForPassword() const { return passwordPage() && passwordPage()->isVisible(); }

    /** Types on the password page and taps OK. */
    void enter(const char* password) const
    {
        passwordPage()->setTextSlot(QLatin1String(password), QString());
        passwordPage()->onOkClicked();
    }
};

/** Has every join fail: there is no address. */
void setNoAddress()
{
    fakesystem::answer("getip.sh", [] { fakesystem::writeFile(answer, "\n"); });
}

} // namespace

extern "C" int pthread_create(pthread_t* thread, const pthread_attr_t* attributes, void* (*routine)(void*),
                              void* argument)
{
    typedef int (*Create)(pthread_t*, const pthread_attr_t*, void* (*)(void*), void*);
    static const Create real = reinterpret_cast<Create>(dlsym(RTLD_NEXT, "pthread_create"));
    if (g_beforeThreadStart && isGuiThread()) {
        const std::function<void()> once = g_beforeThreadStart;
        g_beforeThreadStart = nullptr;
        once();
    }
    if (g_noThreads && isGuiThread()) {
        return EAGAIN;
    }
    return real(thread, attributes, routine, argument);
}

class TestRaWifiManagerWindows : public QObject
{
    Q_OBJECT
private Q_SLOTS:
    void initTestCase();
    void init();
    void cleanup();

    void eachCallMakesTheListWindowOnce_data();
    void eachCallMakesTheListWindowOnce();
    void thePageIsCompleteFromTheFirstShow();
    void thePagesSizeFollowsTheManager();
    void theSwitchIsInStepWithTheManager();
    void thePageSaysDiscoveringWhileAScanRuns();
    void anOwnAddressThatIsFetchedLateIsShown();
    void aWorkerThatCannotBeStartedLocksNothing();
    void listDataIsSortedAndCounted();
    void aRefreshShowsTheRows();
    void slotsWithoutWindowsDoNothing();
    void leavingHidesTheListAndTellsTheHost();
    void theBackMarkLeavesThePage();
    void aPageThatWasLeftIsCompleteWhenShownAgain();

    void aJoinRequestMarksItsRowForOneIdOnly_data();
    void aJoinRequestMarksItsRowForOneIdOnly();
    void aJoinRequestMakesTheMessageWindowReady();
    void aJoinRequestPutsThePasswordPageAway();
    void aJoinRequestIsLogged();
    void aTapJoinsOrAsksForThePassword_data();
    void aTapJoinsOrAsksForThePassword();
    void theWorkersProgressIsOnlyLogged();
    void reportsEndAnAttemptOrNot_data();
    void reportsEndAnAttemptOrNot();
    void anErrorIsShownForTenSeconds();
    void theLaterOfTwoErrorsIsShownAndTheTimeBeginsAnew();
    void disconnectingPutsAnErrorAway();
    void errorsWithoutAMessageWindowAreNotShown();
    void theTimeoutShowsTheListAgain();
    void statusWordsAreLoggedAndSuccessShowsTheList_data();
    void statusWordsAreLoggedAndSuccessShowsTheList();
    void successPutsTheMessageAwayAndMarksTheRow();
    void successWithoutAListOnlyPutsTheMessageAway();
    void successWithoutWindowsIsKept();
    void aFailedAttemptAsksForThePasswordAnew();
    void aFailedSavedNetworkAsksForItsPassword();
    void onlyAPasswordThatHasJoinedIsSaved();
    void aJoinTellsTheMonitorItsNetwork();
};

void TestRaWifiManagerWindows::initTestCase()
{
    prepare();
}

void TestRaWifiManagerWindows::init()
{
    freshDevice();
}

void TestRaWifiManagerWindows::cleanup()
{
    RaWifiManager::close();
    QVERIFY(waitWithoutEvents(isIdle));
    QVERIFY(QApplication::topLevelWidgets().isEmpty());
    fakesystem::reset();
    QCOMPARE(unexpectedWarnings(), QStringList());
}

// --- The page --------------------------------------------------------------------------------------------

void TestRaWifiManagerWindows::eachCallMakesTheListWindowOnce_data()
{
    QTest::addColumn<bool>("forTheHost");
    QTest::newRow("checkAPListWnd") << false;
    QTest::newRow("showAPListWnd") << true;
}

void TestRaWifiManagerWindows::eachCallMakesTheListWindowOnce()
{
    QFETCH(bool, forTheHost);
    const Page page;
    QtWarnings::take();
    const auto make = [&] { forTheHost ? page->showAPListWnd() : page->checkAPListWnd(); };
    const QByteArray creating = "+++++++++++++++++RaWifiManager::showAPListWnd::create UI+++++++++++++++++++++++++";
    const QByteArray connecting = "connect sendWifiSwitch fun :: this->recAPSwitch ";
    const Lines ours = Lines() << creating << connecting;
    QCOMPARE(only(ours, loggedMessages(make)), forTheHost ? ours : Lines() << connecting);
    QCOMPARE(takeWarnings(), listWarnings(forTheHost ? "(QString,int,APData*)" : "(int,APData*)"));
    RaWifiListWidget* const list = page.list();
    QVERIFY(list);
    QCOMPARE(list->parentWidget(), static_cast<QWidget*>(page.get()));
    QVERIFY(!list->isWindow());

    QCOMPARE(only(ours, loggedMessages(make)), Lines());
    page->showAPListWnd();
    page->checkAPListWnd();
    QCOMPARE(static_cast<int>(page->findChildren<RaWifiListWidget*>().size()), 1);
    QCOMPARE(page.list(), list);
}

void TestRaWifiManagerWindows::thePageIsCompleteFromTheFirstShow()
{
    const Page page;
    page->resize(320, 480);
    page->show();
    RaWifiListWidget* const list = page.list();
    QVERIFY(list && list->isVisible());
    RaTitleWidget* const title = list->findChild<RaTitleWidget*>();
    QVERIFY(title && title->isVisible() && title->isEnabled());
    RaSwitchListWidget* const switchRow = list->findChild<RaSwitchListWidget*>();
    QVERIFY(switchRow && switchRow->isVisible());
    QVERIFY(!page.isSwitchOn());
    QVERIFY(!page.saysDiscovering());
    QVERIFY(!list->findChild<RaWifiInputWnd*>());
    const QImage picture = page->grab().toImage();
    QCOMPARE(picture.pixelColor(5, 470), QColor(0x1e, 0x21, 0x29));
    const QImage bare = [] {
        QImage image(320, 480, QImage::Format_RGB32);
        image.fill(QColor(0x1e, 0x21, 0x29));
        return image;
    }();
    QVERIFY(picture.copy(0, 0, 320, 50).convertToFormat(bare.format()) != bare.copy(0, 0, 320, 50)); // the title
}

void TestRaWifiManagerWindows::thePagesSizeFollowsTheManager()
{
    const Page page;
    page->resize(320, 400);
    page->show();
    QCOMPARE(page.list()->geometry(), QRect(0, 0, 320, 400));
    page->resize(320, 240);
    QCOMPARE(page.list()->geometry(), QRect(0, 0, 320, 240));
    page->hide();
    page->resize(320, 480);
    page->show();
    QCOMPARE(page.list()->geometry(), QRect(0, 0, 320, 480));
}

void TestRaWifiManagerWindows::theSwitchIsInStepWithTheManager()
{
    Page page;
    QVERIFY(scan(page)); // the list window is made while on
    page->show();
    QVERIFY(page.isSwitchOn());
    page->recAPSwitch(false);
    QVERIFY(!page.isSwitchOn());
    page->recAPSwitch(true);
    QVERIFY(page.isSwitchOn());
    QVERIFY(waitForWorkers());
    QVERIFY(page.isSwitchOn());
    page->closeWifi();
    QVERIFY(!page.isSwitchOn());
    page.list()->findChild<RaSwitchListWidget*>()->setChecked(true); // by the finger
    QVERIFY(waitForWorkers());
    QVERIFY(page.isSwitchOn());
    const Lines log = loggedMessages([&] { page->recAPSwitch(true); });
    QVERIFY(log.contains("Scanning ...,Please wait")); // the manager knows
}

void TestRaWifiManagerWindows::thePageSaysDiscoveringWhileAScanRuns()
{
    Page page;
    page->resize(320, 480);
    page->show();
    QVERIFY(!page.saysDiscovering());
    page->recAPSwitch(true);
    QVERIFY(page.saysDiscovering()); // before any row is there
    setScan(air());
    QVERIFY(waitForWorkers());
    QVERIFY(!page.saysDiscovering());
    QCOMPARE(static_cast<int>(page.rows().size()), 3);
    page->recAPSwitch(false);
    QVERIFY(!page.saysDiscovering());
}

void TestRaWifiManagerWindows::anOwnAddressThatIsFetchedLateIsShown()
{
    breakScript("getlocalmac.sh");
    Page page;
    page->show();
    const auto isAddressShown = [&page] {
        for (const QLabel* label : page.list()->findChildren<QLabel*>()) {
            if (label->isVisible() && label->text().contains(QLatin1String(localMac))) {
                return true;
            }
        }
        return false;
    };
    QVERIFY(!isAddressShown());
    setScripts();
    QVERIFY(scan(page));
    QVERIFY(isAddressShown());
}

void TestRaWifiManagerWindows::aWorkerThatCannotBeStartedLocksNothing()
{
    const FullPage page;
    g_noThreads = true;
    page->receiveAPManageInfo(3, openNetwork);
    const QByteArray state = page.state("Open");
    const bool takesTaps = page.takesTaps();
    page->recAPSwitch(false);
    page->recAPSwitch(true);
    g_noThreads = false;
    QCOMPARE(state, QByteArray("idle"));
    QVERIFY(takesTaps);
    QVERIFY(!page.saysDiscovering());
}

void TestRaWifiManagerWindows::listDataIsSortedAndCounted()
{
    const Page page;
    setAir(QList<APData>() << network(1, "Weak", true, 1) << network(2, "Strong", true, 4));
    QCOMPARE(page->setListWndData(), 0); // there is no window to fill
    QCOMPARE(QByteArray(APDataArray.first()->essid), QByteArray("Weak"));
    page->checkAPListWnd();
    QCOMPARE(page->setListWndData(), 2);
    QCOMPARE(QByteArray(APDataArray.first()->essid), QByteArray("Strong"));
}

void TestRaWifiManagerWindows::aRefreshShowsTheRows()
{
    const Page page;
    page->checkAPListWnd();
    setAir(air());
    page->recRefreshList();
    QVERIFY(!page.list()->isHidden());
    QCOMPARE(static_cast<int>(page.rows().size()), 3);
    QVERIFY(page->isHidden()); // showing the page is the host's business
}

void TestRaWifiManagerWindows::slotsWithoutWindowsDoNothing()
{
    const Page page;
    QSignalSpy left(page.get(), SIGNAL(backPressed()));
    const Lines commands = fakesystem::commands();
    page->recRefreshList();
    page->recQuitListWnd();
    page->timeout();
    page->recServiceStatusMsg(QLatin1String("SUCCESS"), true);
    page->recShowInfo(0, QLatin1String("Home"), QLatin1String("failed"), -1);
    QCOMPARE(page->setListWndData(), 0);
    QCOMPARE(static_cast<int>(left.size()), 0);
    QVERIFY(!page.list());
    QVERIFY(!page.message());
    QVERIFY(!page.timer()->isActive());
    QCOMPARE(fakesystem::commands(), commands);
}

void TestRaWifiManagerWindows::leavingHidesTheListAndTellsTheHost()
{
    const Page page;
    page->show();
    bool wasHidden = false;
    connect(page.get(), &RaWifiManager::backPressed, this, [&] { wasHidden = page.list()->isHidden(); });
    QSignalSpy left(page.get(), SIGNAL(backPressed()));
    page->recQuitListWnd();
    QVERIFY(page.list()->isHidden());
    QVERIFY(wasHidden); // by the time the host hears of it
    QCOMPARE(static_cast<int>(left.size()), 1);
}

void TestRaWifiManagerWindows::theBackMarkLeavesThePage()
{
    const Page page;
    page->show();
    QSignalSpy left(page.get(), SIGNAL(backPressed()));
    RaTitleWidget* const title = page.list()->findChild<RaTitleWidget*>();
    const QPoint mark = title->mapToGlobal(QPoint(25, 25));
    finger(title, QEvent::MouseButtonPress, mark);
    finger(title, QEvent::MouseButtonRelease, mark);
    QCOMPARE(static_cast<int>(left.size()), 1);
    QVERIFY(page.list()->isHidden());
}

void TestRaWifiManagerWindows::aPageThatWasLeftIsCompleteWhenShownAgain()
{
    const FullPage page;
    page->recQuitListWnd();
    page->hide();
    page->show();
    QVERIFY(page.list()->isVisible());
    QCOMPARE(static_cast<int>(page.rows().size()), 3);
    QVERIFY(page.isSwitchOn());
}

// --- Joining ---------------------------------------------------------------------------------------------

void TestRaWifiManagerWindows::aJoinRequestMarksItsRowForOneIdOnly_data()
{
    QTest::addColumn<int>("msgid");
    QTest::addColumn<bool>("isMarked");
    QTest::newRow("3") << 3 << true;
    QTest::newRow("0") << 0 << false;
    QTest::newRow("1") << 1 << false;
    QTest::newRow("4") << 4 << false;
    QTest::newRow("-3") << -3 << false;
}

void TestRaWifiManagerWindows::aJoinRequestMarksItsRowForOneIdOnly()
{
    QFETCH(int, msgid);
    QFETCH(bool, isMarked);
    const FullPage page;
    QByteArray stateAtStart = "no start";
    bool tookTapsAtStart = isMarked;
    g_beforeThreadStart = [&] {
        stateAtStart = page.state("Open");
        tookTapsAtStart = page.takesTaps();
    };
    page->receiveAPManageInfo(msgid, openNetwork);
    QCOMPARE(stateAtStart, QByteArray(isMarked ? "joining" : "idle"));
    QCOMPARE(tookTapsAtStart, !isMarked);
    QVERIFY(waitForWorkers());
    QCOMPARE(page.state("Open"), QByteArray("joined")); // the same attempt either way
    QCOMPARE(page.state("Locked"), QByteArray("idle"));
    QVERIFY(page.takesTaps());
}

void TestRaWifiManagerWindows::aJoinRequestMakesTheMessageWindowReady()
{
    const Page page;
    page->show();
    page->receiveAPManageInfo(0, openNetwork);
    RaWifiMsg* const message = page.message();
    QVERIFY(message);
    QCOMPARE(message->geometry(), QRect(0, 100, 320, 70));
    QCOMPARE(message->styleSheet(), QLatin1String("QWidget{background-color:#1e2129}"));
    QCOMPARE(message->m_text, QString());
    QVERIFY(message->isHidden());
    QVERIFY(waitForWorkers());

    message->m_text = QLatin1String("earlier");
    message->move(5, 5);
    message->setStyleSheet(QString());
    message->show();
    page->receiveAPManageInfo(0, openNetwork);
    QCOMPARE(page.message(), message);
    QCOMPARE(message->geometry(), QRect(0, 100, 320, 70));
    QCOMPARE(message->styleSheet(), QLatin1String("QWidget{background-color:#1e2129}"));
    QCOMPARE(message->m_text, QString());
    QVERIFY(message->isHidden());
    QVERIFY(waitForWorkers());
}

void TestRaWifiManagerWindows::aJoinRequestPutsThePasswordPageAway()
{
    const FullPage page;
    tap(page.row("Locked"));
    QVERIFY(page.isAskingForPassword());
    page->receiveAPManageInfo(0, openNetwork);
    QVERIFY(!page.isAskingForPassword());
    QVERIFY(waitForWorkers());
}

void TestRaWifiManagerWindows::aJoinRequestIsLogged()
{
    const Page page;
    const QByteArray anew = "-------new APData--------";
    const QByteArray dump = " printf(-----APData -----)";
    const Lines wanted = Lines() << "--------------------" << anew << dump << "essid = Open ";
    Lines log = loggedMessages([&] {
        page->receiveAPManageInfo(0, openNetwork);
        waitForWorkers();
    });
    // The record is dumped as it is handed over, and once more behind the announcement.
    QCOMPARE(only(wanted, log).mid(0, 4), Lines() << "--------------------"
                                                  << "essid = Open " << dump << "essid = Open ");
    delete g_PassParam.pinfo;
    g_PassParam.pinfo = nullptr;
    log = loggedMessages([&] {
        page->receiveAPManageInfo(0, openNetwork);
        waitForWorkers();
    });
    QCOMPARE(only(wanted, log).mid(0, 4), Lines() << "--------------------" << anew << "essid = Open " << dump);
    QVERIFY(g_PassParam.pinfo);
}

void TestRaWifiManagerWindows::aTapJoinsOrAsksForThePassword_data()
{
    QTest::addColumn<QByteArray>("name");
    QTest::addColumn<bool>("isAsked");
    QTest::newRow("open") << QByteArray("Open") << false;
    QTest::newRow("locked and saved") << QByteArray("Saved") << false;
    QTest::newRow("locked and not saved") << QByteArray("Locked") << true;
}

void TestRaWifiManagerWindows::aTapJoinsOrAsksForThePassword()
{
    QFETCH(QByteArray, name);
    QFETCH(bool, isAsked);
    saveNetworks(QList<APData>() << savedNetwork);
    const FullPage page;
    tap(page.row(name));
    QCOMPARE(page.isAskingForPassword(), isAsked);
    QCOMPARE(page.state(name), QByteArray(isAsked ? "idle" : "joining"));
    if (isAsked) {
        page.enter("long enough");
        QCOMPARE(page.state(name), QByteArray("joining"));
    }
    QVERIFY(waitForWorkers());
    QCOMPARE(page.state(name), QByteArray("joined"));
    const QByteArray psk = name == "Open" ? "" : isAsked ? "long enough" : "saved password";
    QVERIFY(fakesystem::readFile("/etc/wpa_supplicant.conf").contains(psk));
}

void TestRaWifiManagerWindows::theWorkersProgressIsOnlyLogged()
{
    const FullPage page;
    const Lines progress = Lines() << "errflag = 0,msginfo = verifying information"
                                   << "errflag = 0,msginfo = Retrieving the IP information"
                                   << "errflag = 0,msginfo = Setting  Network information"
                                   << "errflag = 0,msginfo = OpenSuccessful connection";
    const Lines log = loggedMessages([&] {
        page->receiveAPManageInfo(3, openNetwork);
        waitForWorkers();
    });
    QCOMPARE(only(progress, log), progress);
    QVERIFY(log.contains("msginfo:02:00:00:00:00:01\n")); // the service's closing word
    QVERIFY(page.message()->isHidden());
    QVERIFY(!page.timer()->isActive());
}

void TestRaWifiManagerWindows::reportsEndAnAttemptOrNot_data()
{
    QTest::addColumn<int>("errflag");
    QTest::addColumn<bool>("isOver");
    QTest::addColumn<bool>("isShown");
    QTest::newRow("progress") << 0 << false << false;
    QTest::newRow("cancelled by the user") << 1 << true << false;
    QTest::newRow("failed") << -1 << true << true;
    QTest::newRow("failed with the supplicant") << -2 << true << true;
    QTest::newRow("failed with the address") << -3 << true << true;
}

void TestRaWifiManagerWindows::reportsEndAnAttemptOrNot()
{
    QFETCH(int, errflag);
    QFETCH(bool, isOver);
    QFETCH(bool, isShown);
    const FullPage page;
    Latch never;
    fakesystem::answer("callwpaconf.sh", [never]() mutable { never.wait(); });
    page->receiveAPManageInfo(3, openNetwork);
    g_isWifiWorkStatus = true;
    page->recShowInfo(0, QLatin1String("Open"), QLatin1String("a report"), errflag);
    QCOMPARE(g_isWifiWorkStatus, !isOver);
    QCOMPARE(page.state("Open"), QByteArray(isOver ? "idle" : "joining"));
    QCOMPARE(page.takesTaps(), isOver);
    QCOMPARE(page.message()->isVisible(), isShown);
    QCOMPARE(page.message()->m_text, isShown ? QString::fromLatin1("a report") : QString());
    QCOMPARE(page.timer()->isActive(), isShown);
}

void TestRaWifiManagerWindows::anErrorIsShownForTenSeconds()
{
    const FullPage page;
    setNoAddress();
    page->receiveAPManageInfo(3, openNetwork);
    QVERIFY(waitForWorkers());
    QVERIFY(page.message()->isVisible());
    QCOMPARE(page.message()->m_text, QLatin1String("Network connection error or the server is busy,please try again"));
    QVERIFY(page.timer()->isActive());
    QCOMPARE(page.timer()->interval(), 10000);
    page->recQuitListWnd();

    page.timer()->start(0);
    QVERIFY(waitFor([&] { return !page.timer()->isActive(); }));
    QVERIFY(page.message()->isHidden());
    QVERIFY(page.list()->isVisible());
}

void TestRaWifiManagerWindows::theLaterOfTwoErrorsIsShownAndTheTimeBeginsAnew()
{
    const Page page;
    page->receiveAPManageInfo(0, openNetwork);
    QVERIFY(waitForWorkers());
    page->recShowInfo(0, QLatin1String("Open"), QLatin1String("first"), -1);
    QCOMPARE(page.timer()->interval(), 10000);
    page.timer()->start(20000);
    const QImage first = page.message()->grab().toImage();
    page->recShowInfo(0, QLatin1String("Open"), QLatin1String("second"), -2);
    QCOMPARE(page.message()->m_text, QLatin1String("second"));
    QVERIFY(page.message()->isVisible());
    QVERIFY(page.message()->grab().toImage() != first);
    QCOMPARE(page.timer()->interval(), 10000);
    QVERIFY(page.timer()->isActive());
}

void TestRaWifiManagerWindows::disconnectingPutsAnErrorAway()
{
    const FullPage page;
    setNoAddress();
    page->receiveAPManageInfo(3, openNetwork);
    QVERIFY(waitForWorkers());
    QVERIFY(page.message()->isVisible());
    page->disConnectAp();
    QVERIFY(!page.timer()->isActive());
    QVERIFY(page.message()->isHidden()); // no timeout would come to hide it
}

void TestRaWifiManagerWindows::errorsWithoutAMessageWindowAreNotShown()
{
    const FullPage page;
    g_isWifiWorkStatus = true;
    page->recShowInfo(0, QLatin1String("Open"), QLatin1String("a report"), -1);
    QVERIFY(!page.message());
    QVERIFY(!page.timer()->isActive());
    QVERIFY(!g_isWifiWorkStatus);
}

void TestRaWifiManagerWindows::theTimeoutShowsTheListAgain()
{
    const Page page;
    page->show();
    page->receiveAPManageInfo(0, openNetwork);
    QVERIFY(waitForWorkers());
    page.message()->show();
    page.list()->hide();
    page.timer()->start(10000);
    page->timeout();
    QVERIFY(!page.timer()->isActive());
    QVERIFY(page.list()->isVisible());
    QVERIFY(page.message()->isHidden());
}

void TestRaWifiManagerWindows::statusWordsAreLoggedAndSuccessShowsTheList_data()
{
    QTest::addColumn<QString>("word");
    QTest::addColumn<bool>("isSuccess");
    QTest::newRow("success") << QStringLiteral("SUCCESS") << true;
    QTest::newRow("no address") << QStringLiteral("IPFAILED") << false;
    QTest::newRow("no route") << QStringLiteral("ROUTEFAILED") << false;
    QTest::newRow("an address") << QStringLiteral("02:00:00:00:00:01") << false;
    QTest::newRow("another case") << QStringLiteral("success") << false;
    QTest::newRow("more than the word") << QStringLiteral("SUCCESS ") << false;
    QTest::newRow("nothing") << QString() << false;
}

void TestRaWifiManagerWindows::statusWordsAreLoggedAndSuccessShowsTheList()
{
    QFETCH(QString, word);
    QFETCH(bool, isSuccess);
    const Page page;
    page->show();
    page->recQuitListWnd();
    for (const bool isEnd : {false, true}) {
        page.list()->hide();
        page.timer()->start(10000);
        const Lines log = loggedMessages([&] { page->recServiceStatusMsg(word, isEnd); });
        QCOMPARE(log.first(), "msginfo:" + word.toLocal8Bit() + '\n');
        QCOMPARE(page.list()->isVisible(), isSuccess); // also when there was no error to put away
        QCOMPARE(page.timer()->isActive(), !isSuccess);
    }
}

void TestRaWifiManagerWindows::successPutsTheMessageAwayAndMarksTheRow()
{
    const FullPage page;
    setNoAddress();
    page->receiveAPManageInfo(3, openNetwork);
    QVERIFY(waitForWorkers());
    QVERIFY(page.message()->isVisible());
    page.list()->setLinkAP(true);
    APData other = lockedNetwork;
    page->SetSuccessFlag(&other); // the row is that of the work block
    QVERIFY(page.message()->isHidden());
    QVERIFY(!page.timer()->isActive());
    QCOMPARE(page.state("Open"), QByteArray("joined"));
    QCOMPARE(page.state("Locked"), QByteArray("idle"));
    QVERIFY(page.takesTaps());
}

void TestRaWifiManagerWindows::successWithoutAListOnlyPutsTheMessageAway()
{
    const Page page;
    page->receiveAPManageInfo(3, openNetwork);
    QVERIFY(waitForWorkers());
    page->recShowInfo(0, QLatin1String("Open"), QLatin1String("a report"), -1);
    QVERIFY(page.message()->isVisible());
    page->SetSuccessFlag(g_PassParam.pinfo);
    QVERIFY(page.message()->isHidden());
    QVERIFY(!page.timer()->isActive());
    QVERIFY(!page.list());
}

void TestRaWifiManagerWindows::successWithoutWindowsIsKept()
{
    const Page page;
    page.timer()->start(10000);
    page->SetSuccessFlag(nullptr);
    QVERIFY(page.timer()->isActive()); // it belongs to the message window
    QVERIFY(!page.list());
    QVERIFY(!page.message());
    page->closeWifi();
    QCOMPARE(fakesystem::count("killall udhcpc"), 1); // there was a connection to drop
}

void TestRaWifiManagerWindows::aFailedAttemptAsksForThePasswordAnew()
{
    const FullPage page;
    setNoAddress();
    tap(page.row("Locked"));
    page.enter("wrong password");
    QVERIFY(waitForWorkers());
    QCOMPARE(page.state("Locked"), QByteArray("idle"));
    QVERIFY(page.takesTaps());

    QVERIFY(page.message()->isVisible());
    tap(page.row("Locked"));
    QVERIFY(page.isAskingForPassword());
    QVERIFY(!page.message()->isVisible()); // it would cover the password page
    QVERIFY(!page.passwordPage()->findChild<QLineEdit*>()->text().contains(QLatin1String("wrong")));
    setScripts();
    page.enter("right password");
    QVERIFY(waitForWorkers());
    QCOMPARE(page.state("Locked"), QByteArray("joined"));
    QVERIFY(fakesystem::readFile("/etc/wpa_supplicant.conf").contains("right password"));
}

void TestRaWifiManagerWindows::aFailedSavedNetworkAsksForItsPassword()
{
    saveNetworks(QList<APData>() << savedNetwork);
    const FullPage page;
    setNoAddress();
    tap(page.row("Saved"));
    QVERIFY(waitForWorkers());
    QCOMPARE(page.state("Saved"), QByteArray("idle"));
    tap(page.row("Saved"));
    QVERIFY(page.isAskingForPassword());
    QVERIFY(!page.passwordPage()->findChild<QLineEdit*>()->text().contains(QLatin1String("saved password")));
    QVERIFY(waitForWorkers());
}

void TestRaWifiManagerWindows::onlyAPasswordThatHasJoinedIsSaved()
{
    const FullPage page;
    setNoAddress();
    tap(page.row("Locked"));
    page.enter("wrong password");
    QVERIFY(waitForWorkers());
    QVERIFY(!fakesystem::readFile("/apps/config/network.conf").contains("wrong password"));
    setScripts();
    tap(page.row("Locked"));
    page.enter("right password");
    QVERIFY(waitForWorkers());
    const QByteArray store = fakesystem::readFile("/apps/config/network.conf");
    QVERIFY(store.contains("right password"));
    QVERIFY(!store.contains("wrong password"));
}

void TestRaWifiManagerWindows::aJoinTellsTheMonitorItsNetwork()
{
    const FullPage page;
    page->receiveAPManageInfo(3, openNetwork);
    QVERIFY(waitForWorkers());
    fakesystem::answer("getconnectstatus.sh", [] {
        fakesystem::writeFile(answer, "bssid=02:00:00:00:00:01\nssid=Open\nwpa_state=COMPLETED\n");
    });
    RaWifiMonitor* const monitor = page->findChild<RaWifiMonitor*>();
    QSignalSpy confirmed(monitor, SIGNAL(sendMonitorConMsg(QString)));
    monitor->timeout();
    QCOMPARE(static_cast<int>(confirmed.size()), 1);
    QCOMPARE(confirmed.first().first().toString(), QLatin1String("02:00:00:00:00:01"));
}

int main(int argc, char** argv)
{
    return managertest::run<TestRaWifiManagerWindows>(argc, argv);
}

#include "tst_rawifimanager_windows.moc"
