// SPDX-FileCopyrightText: 2026 The rawificontrol authors
// SPDX-License-Identifier: MIT
#include "rawifiManager.h"

#include "managertest.h"
#include "rawifiinputwnd.h"
#include "rawifimonitor.h"

#include <QtTest>
#include <functional>
#include <memory>
#include <pthread.h>
#include <semaphore.h>

// A debug build ends at the entry when a worker calls what is for the GUI thread only. Here each entry is called on
// another thread, which is held at the toolkit's last word instead, and never goes on.

using namespace managertest;

namespace {

/** A page with all of its windows. */
struct Windows
{
    Windows()
    {
        page->checkAPListWnd();
        manager = page.get();
        list = page.list();
        rows = list->findChild<RaListwidget*>();
        monitor = manager->findChild<RaWifiMonitor*>();
        input.reset(new RaWifiInputWnd(nullptr));
    }

    Page page;
    RaWifiManager* manager;
    RaWifiListWidget* list;
    RaListwidget* rows;
    RaWifiMonitor* monitor;
    std::unique_ptr<RaWifiInputWnd> input;
};

typedef std::function<void(Windows&)> Entry;

struct Caller
{
    Caller() { sem_init(&over, 0, 0); }
    Entry entry;
    Windows* windows = nullptr;
    QByteArray lastWord;
    sem_t over;
};

thread_local Caller* t_caller = nullptr;
QtMessageHandler g_previous = nullptr;

void holdAtTheLastWord(QtMsgType type, const QMessageLogContext& context, const QString& message)
{
    if (type == QtFatalMsg && t_caller) {
        t_caller->lastWord = message.toUtf8();
        sem_post(&t_caller->over);
        sem_t never;
        sem_init(&never, 0, 0);
        for (;;) {
            sem_wait(&never);
        }
    }
    g_previous(type, context, message);
}

void* callEntry(void* argument)
{
    t_caller = static_cast<Caller*>(argument);
    t_caller->entry(*t_caller->windows);
    sem_post(&t_caller->over);
    return nullptr;
}

/** What the toolkit says when \a entry is called on a thread of its own. */
QByteArray lastWordOf(const Entry& entry, Windows& windows)
{
    static QList<std::shared_ptr<Caller>> held; // their threads go on using them
    const std::shared_ptr<Caller> caller = std::make_shared<Caller>();
    held << caller;
    caller->entry = entry;
    caller->windows = &windows;
    pthread_attr_t attributes;
    pthread_attr_init(&attributes);
    pthread_attr_setdetachstate(&attributes, PTHREAD_CREATE_DETACHED);
    pthread_t thread;
    if (pthread_create(&thread, &attributes, callEntry, caller.get()) != 0) {
        qFatal("no thread");
    }
    pthread_attr_destroy(&attributes);
    while (sem_wait(&caller->over) == -1 && errno == EINTR) {
    }
    return caller->lastWord;
}

} // namespace

Q_DECLARE_METATYPE(Entry)

class TestGuiThreadEntries : public QObject
{
    Q_OBJECT
private Q_SLOTS:
    void initTestCase();
    void init();
    void cleanup();
    void cleanupTestCase();
    void anotherThreadGetsNoFurtherThanTheEntry_data();
    void anotherThreadGetsNoFurtherThanTheEntry();
};

void TestGuiThreadEntries::initTestCase()
{
    prepare();
    g_previous = qInstallMessageHandler(&holdAtTheLastWord);
}

void TestGuiThreadEntries::init()
{
    freshDevice();
}

void TestGuiThreadEntries::cleanup()
{
    RaWifiManager::close();
    QCOMPARE(unexpectedWarnings(), QStringList());
}

void TestGuiThreadEntries::cleanupTestCase()
{
    qInstallMessageHandler(g_previous);
}

void TestGuiThreadEntries::anotherThreadGetsNoFurtherThanTheEntry_data()
{
    QTest::addColumn<Entry>("entry");
    QTest::addColumn<QByteArray>("owner");
    const auto add = [](const char* owner, const char* name, const Entry& entry) {
        QTest::newRow((QByteArray(owner) + "::" + name).constData()) << entry << QByteArray(owner);
    };
#define ENTRY(owner, object, call, name) add(#owner, name, [](Windows& windows) { windows.object->call; })
    ENTRY(RaWifiListWidget, list, createUI(QString(), 1, QString()), "createUI");
    ENTRY(RaWifiListWidget, list, createTitleBar(), "createTitleBar");
    ENTRY(RaWifiListWidget, list, createWifiSwitch(), "createWifiSwitch");
    ENTRY(RaWifiListWidget, list, setMac(QString()), "setMac");
    ENTRY(RaWifiListWidget, list, showRefreshListData(), "showRefreshListData");
    ENTRY(RaWifiListWidget, list, setLinkAP(true), "setLinkAP");
    ENTRY(RaWifiListWidget, list, recWifiListMsg(network(1, "Open")), "recWifiListMsg");
    ENTRY(RaWifiListWidget, list, setConnectFailed(network(1, "Open")), "setConnectFailed");
    ENTRY(RaWifiListWidget, list, setClearMac(), "setClearMac");
    ENTRY(RaWifiListWidget, list, setWifiSwitch(true), "setWifiSwitch");
    ENTRY(RaWifiListWidget, list, setScanning(true), "setScanning");
    ENTRY(RaWifiListWidget, list, HideKeyBoardWnd(), "HideKeyBoardWnd");
    ENTRY(RaWifiListWidget, list, setPrevWidget(nullptr), "setPrevWidget");
    ENTRY(RaWifiListWidget, list, clearData(), "clearData");
    ENTRY(RaWifiListWidget, list, setlistItemData(), "setlistItemData");
    ENTRY(RaWifiListWidget, list, slotQuit(), "slotQuit");
    ENTRY(RaWifiListWidget, list, showBackButton(true), "showBackButton");
    ENTRY(RaWifiListWidget, list, slotShowConfigWnd(), "slotShowConfigWnd");
    ENTRY(RaWifiListWidget, list, slotListItemClick(0), "slotListItemClick");
    ENTRY(RaWifiListWidget, list, addListItem(QVector<RaItemData>()), "addListItem");
    ENTRY(RaWifiListWidget, list, resetItemData(QVector<RaItemData>()), "resetItemData");
    ENTRY(RaWifiListWidget, list, recCheckChanged(true), "recCheckChanged");
    ENTRY(RaWifiListWidget, list, recMoveStep(true, 1), "recMoveStep");
    ENTRY(RaWifiListWidget, list, recSelectItemByList(network(1, "Open")), "recSelectItemByList");
    ENTRY(RaWifiListWidget, list, recWifiInputCancelMsg(), "recWifiInputCancelMsg");
    ENTRY(RaWifiListWidget, list, recWifiInputOkMsg(network(1, "Open")), "recWifiInputOkMsg");

    ENTRY(RaListwidget, rows, init(), "init");
    ENTRY(RaListwidget, rows, setListData(), "setListData");
    ENTRY(RaListwidget, rows, clearRows(), "clearRows");
    ENTRY(RaListwidget, rows, keyUp(), "keyUp");
    ENTRY(RaListwidget, rows, keyDown(), "keyDown");
    ENTRY(RaListwidget, rows, setSwitchPos(1), "setSwitchPos");
    ENTRY(RaListwidget, rows, setIsHideMsg(true), "setIsHideMsg");
    ENTRY(RaListwidget, rows, setWifiSwitch(true), "setWifiSwitch");
    ENTRY(RaListwidget, rows, setSetting(1), "setSetting");
    ENTRY(RaListwidget, rows, recSwitchChanged(true), "recSwitchChanged");
    ENTRY(RaListwidget, rows, recItemBtnclicked(network(1, "Open"), 0), "recItemBtnclicked");
    ENTRY(RaListwidget, rows, updatePressStatus(), "updatePressStatus");
    ENTRY(RaListwidget, rows, setPassThrough(true), "setPassThrough");
    ENTRY(RaListwidget, rows, setLinKAP(-1, network(1, "Open"), true), "setLinKAP");
    ENTRY(RaListwidget, rows, clearLinKAP(), "clearLinKAP");

    ENTRY(RaWifiInputWnd, input, setAPData(network(1, "Open")), "setAPData");
    ENTRY(RaWifiInputWnd, input, clear(), "clear");
    ENTRY(RaWifiInputWnd, input, onOkClicked(), "onOkClicked");
    ENTRY(RaWifiInputWnd, input, onCancelClicked(), "onCancelClicked");
    ENTRY(RaWifiInputWnd, input, pwdSelectChanged(), "pwdSelectChanged");
    ENTRY(RaWifiInputWnd, input, recKeyboardMoveStep(true, 1), "recKeyboardMoveStep");
    ENTRY(RaWifiInputWnd, input, setTextSlot(QString(), QString()), "setTextSlot");
    ENTRY(RaWifiInputWnd, input, recKeyboardNumber(), "recKeyboardNumber");
    ENTRY(RaWifiInputWnd, input, recKeyboardSymbol(), "recKeyboardSymbol");
    ENTRY(RaWifiInputWnd, input, recKeyboardCharacter(), "recKeyboardCharacter");
    ENTRY(RaWifiInputWnd, input, PwTxtEdited(QString()), "PwTxtEdited");
    ENTRY(RaWifiInputWnd, input, PwTxtChanged(QString()), "PwTxtChanged");
    ENTRY(RaWifiInputWnd, input, hideTips(), "hideTips");

    ENTRY(RaWifiMonitor, monitor, setTimerRun(8000), "setTimerRun");
    ENTRY(RaWifiMonitor, monitor, setConnectNunmber(2), "setConnectNunmber");
    ENTRY(RaWifiMonitor, monitor, timerStart(), "timerStart");
    ENTRY(RaWifiMonitor, monitor, timerStop(), "timerStop");
    ENTRY(RaWifiMonitor, monitor, setWifiConnectStatus(0, 0), "setWifiConnectStatus");
    ENTRY(RaWifiMonitor, monitor, getAPStatus(), "getAPStatus");
    ENTRY(RaWifiMonitor, monitor, setStopFlag(), "setStopFlag");
    ENTRY(RaWifiMonitor, monitor, recCheckAPConnect(QString(), 1), "recCheckAPConnect");
    ENTRY(RaWifiMonitor, monitor, timeout(), "timeout");

    ENTRY(RaWifiManager, manager, close(), "close");
    ENTRY(RaWifiManager, manager, recAPSwitch(true), "recAPSwitch");
    ENTRY(RaWifiManager, manager, closeWifi(), "closeWifi");
    ENTRY(RaWifiManager, manager, connectCertainAP(), "connectCertainAP");
    ENTRY(RaWifiManager, manager, disConnectAp(), "disConnectAp");
    ENTRY(RaWifiManager, manager, showAPListWnd(), "showAPListWnd");
    ENTRY(RaWifiManager, manager, checkAPListWnd(), "checkAPListWnd");
    ENTRY(RaWifiManager, manager, setListWndData(), "setListWndData");
    ENTRY(RaWifiManager, manager, loadAPListWnd(false), "loadAPListWnd");
    ENTRY(RaWifiManager, manager, recRefreshList(), "recRefreshList");
    ENTRY(RaWifiManager, manager, recQuitListWnd(), "recQuitListWnd");
    ENTRY(RaWifiManager, manager, receiveAPManageInfo(3, network(1, "Open")), "receiveAPManageInfo");
    ENTRY(RaWifiManager, manager, recShowInfo(0, QString(), QString(), -1), "recShowInfo");
    ENTRY(RaWifiManager, manager, recServiceStatusMsg(QString(), false), "recServiceStatusMsg");
    ENTRY(RaWifiManager, manager, timeout(), "timeout");
    ENTRY(RaWifiManager, manager, sendSAPMsgToMain(1), "sendSAPMsgToMain");
#undef ENTRY
}

void TestGuiThreadEntries::anotherThreadGetsNoFurtherThanTheEntry()
{
    QFETCH(Entry, entry);
    QFETCH(QByteArray, owner);
    Windows windows;
    const QByteArray word = lastWordOf(entry, windows);
    QVERIFY2(word.contains(owner) && word.contains("used off its thread"), word.constData());
}

int main(int argc, char** argv)
{
    return managertest::run<TestGuiThreadEntries>(argc, argv);
}

#include "tst_guithreadentries.moc"
