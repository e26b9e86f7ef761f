// SPDX-FileCopyrightText: 2026 The rawificontrol authors
// SPDX-License-Identifier: MIT
#ifndef RAWIFI_MANAGERTEST_H
#define RAWIFI_MANAGERTEST_H

#include "fakesystem.h"
#include "networks.h"
#include "processusage.h"
#include "qtwarnings.h"
#include "raglobalfun.h"
#include "raitempushbtn.h"
#include "ralistwidget.h"
#include "raswitchlistwidget.h"
#include "rawifiManager.h"
#include "rawifidata.h"
#include "rawifiglobals.h"
#include "rawifilistwidget.h"
#include "rawifimsg.h"

#include <QApplication>
#include <QCopChannel>
#include <QDir>
#include <QElapsedTimer>
#include <QFile>
#include <QLabel>
#include <QSignalSpy>
#include <QThread>
#include <QTimer>
#include <QtTest>
#include <functional>
#include <thread>

// What the tests of the manager share: a device without radio, and a host that listens.
namespace managertest {

typedef QList<QByteArray> Lines;

const char answer[] = "/home/wifi/temp.txt";
const char linkFile[] = "/home/wifi/linkap.txt";

const char localMac[] = "02:aa:bb:cc:dd:ee";
const char address[] = "192.168.7.23";

inline bool isGuiThread()
{
    return QThread::currentThread() == QCoreApplication::instance()->thread();
}

using processusage::threadCount;

/** Keeps the event loop going until \a isTrue; false when it has not become true in 20 seconds. */
template<typename Condition>
bool waitFor(Condition isTrue)
{
    QElapsedTimer time;
    time.start();
    while (!isTrue()) {
        if (time.elapsed() > 20000) {
            return false;
        }
        QCoreApplication::processEvents();
        std::this_thread::yield();
    }
    return true;
}

/** The same without the event loop: nothing is done for a worker meanwhile. */
template<typename Condition>
bool waitWithoutEvents(Condition isTrue)
{
    QElapsedTimer time;
    time.start();
    while (!isTrue()) {
        if (time.elapsed() > 20000) {
            return false;
        }
        std::this_thread::yield();
    }
    return true;
}

// The threads that there are without a worker: this one, and that of the thread sanitizer. They cannot be counted
// beforehand, since one that the toolkit has just begun has no name yet.
#ifdef __SANITIZE_THREAD__
const int idleThreadCount = 2;
#else
const int idleThreadCount = 1;
#endif

inline bool isIdle()
{
    const bool isAlone = threadCount() == idleThreadCount;
    fakesystem::endedThreads(); // for the thread sanitizer, too, they have ended before what comes now
    return isAlone;
}

/** Lets every worker come to its end, and what it has handed to this thread. */
inline bool waitForWorkers()
{
    const bool ended = waitFor(isIdle);
    QCoreApplication::processEvents();
    return ended;
}

inline QByteArray scanLine(const APData& network)
{
    const char* const flags[] = {"", "[ESS]", "[WEP][ESS]", "[WPA-PSK-TKIP][ESS]", "[WPA2-PSK-CCMP][ESS]"};
    return QByteArray(network.macAddr) + "\t2412\t-" + QByteArray::number(network.sigquality * 15) + '\t'
           + flags[network.encry[0]] + '\t' + network.essid + '\n';
}

/** Has the next scans find these networks. */
inline void setScan(const QList<APData>& networks)
{
    QByteArray lines;
    for (const APData& network : networks) {
        lines += scanLine(network);
    }
    const fakesystem::Script script = [lines] { fakesystem::writeFile(answer, lines); };
    fakesystem::answer("getfirstaplist.sh", script);
    fakesystem::answer("getaplist.sh", script);
}

inline void setLink(bool isUp)
{
    fakesystem::writeFile(linkFile, isUp ? "1\n" : "0\n");
}

/** Scripts that work, and an air with no network. */
inline void setScripts()
{
    fakesystem::answer("getlocalmac.sh", [] { fakesystem::writeFile(answer, QByteArray(localMac) + '\n'); });
    fakesystem::answer("calldefaultconf.sh", [] { fakesystem::writeFile(answer, "OK\n"); });
    fakesystem::answer("getwpastatus.sh", [] { fakesystem::writeFile(answer, "wpa_state=INACTIVE\n"); });
    fakesystem::answer("callwpaconf.sh", [] {});
    fakesystem::answer("dhcp_setip.sh", [] {});
    fakesystem::answer("getip.sh", [] { fakesystem::writeFile(answer, QByteArray(address) + '\n'); });
    setScan(QList<APData>());
}

/** To be called in initTestCase(). */
inline void prepare()
{
    QtWarnings::start();
}

/** Has a script end before its last command, however often it is run. */
inline void breakScript(const char* name)
{
    fakesystem::answerWithoutEnd(name, [] { QFile::remove(QLatin1String("/home/wifi/result3")); }); // of one before
}

/** After power-on: no manager, no file, no saved network. */
inline void freshDevice()
{
    RaWifiManager::close();
    fakesystem::reset();
    const char* const directories[] = {"/home/wifi", "/apps/config"};
    for (const char* path : directories) {
        QDir(QLatin1String(path)).removeRecursively();
        QDir().mkpath(QLatin1String(path));
    }
    QFile::remove(QLatin1String("/etc/wpa_supplicant.conf"));
    setScripts();
    p_thread_msg = 0;
    pWnd = nullptr;
    g_isFirst = 0;
    bIsFirst = true;
    g_isAutoMode = 0;
    g_isAutoCloseWifi = 0;
    g_isWifiWorkStatus = false;
    g_monitorStatus = false;
    QtWarnings::take();
}

/** What stops the supplicant, as a Trace has it. */
inline Lines killing()
{
    return Lines() << "run killall udhcpc"
                   << "sleep 1000"
                   << "run /usr/bin/wpa_cli -i wlan0 terminate"
                   << "sleep 1000";
}

/** What an openWifi() without a link does, as a Trace has it. */
inline Lines opening(bool isFirst)
{
    Lines steps = killing();
    steps << "run ifconfig wlan0 down"
          << "sleep 50"
          << "run ifconfig wlan0 up";
    if (isFirst) {
        steps << "run sh /usr/bin/calldefaultconf.sh";
    }
    steps << "run sh /usr/bin/getwpastatus.sh"
          << "run rm -f /home/wifi/temp.txt"
          << "run rm -f /home/wifi/result3";
    if (isFirst) {
        steps << "sleep 1"
              << "run sh /usr/bin/getfirstaplist.sh;touch /home/wifi/result3";
    } else {
        steps << "run sh /usr/bin/getaplist.sh;touch /home/wifi/result3 ";
    }
    return steps << "run rm -f /home/wifi/temp.txt";
}

/** Puts networks into the store, the first one as the newest, before there is a manager. */
inline void saveNetworks(const QList<APData>& networks)
{
    RaWifiData store;
    for (auto i = networks.size(); i > 0; --i) {
        APData network = networks.at(i - 1);
        store.addData(&network, true);
    }
}

/** The manager, closed when this goes. */
class Page
{
public:
    Page() : m_manager(RaWifiManager::instance()) {}
    ~Page() { RaWifiManager::close(); }
    Page(const Page&) = delete;
    Page& operator=(const Page&) = delete;

    RaWifiManager* operator->() const { return m_manager; }
    RaWifiManager* get() const { return m_manager; }

    /** Null as long as there is none. */
    RaWifiListWidget* list() const { return m_manager->findChild<RaWifiListWidget*>(); }
    bool isSwitchOn() const { return list()->findChild<RaSwitchListWidget*>()->getChecked(); }

    /** The one of connection errors; null as long as there is none. */
    RaWifiMsg* message() const
    {
        for (QWidget* widget : QApplication::topLevelWidgets()) {
            if (RaWifiMsg* message = qobject_cast<RaWifiMsg*>(widget)) {
                return message;
            }
        }
        return nullptr;
    }

    QTimer* timer() const
    {
        const QList<QTimer*> timers = m_manager->findChildren<QTimer*>(QString(), Qt::FindDirectChildrenOnly);
        return timers.size() == 1 ? timers.first() : nullptr;
    }

    QList<RaItemPushBtn*> rows() const
    {
        QList<RaItemPushBtn*> rows;
        for (RaItemPushBtn* row : m_manager->findChildren<RaItemPushBtn*>()) {
            if (!row->isHidden()) { // else it is on its way out
                rows << row;
            }
        }
        return rows;
    }

    RaItemPushBtn* row(const QByteArray& name) const
    {
        for (RaItemPushBtn* row : rows()) {
            if (row->getText().toUtf8() == name) {
                return row;
            }
        }
        qFatal("no row %s", name.constData());
        return nullptr;
    }

    /** What a row says of its network: nothing, that it is being joined, or that it is joined. */
    QByteArray state(const QByteArray& name) const
    {
        const QString said = row(name)->accessibleDescription();
        if (said.isEmpty()) {
            return "idle";
        }
        return said == QStringLiteral("已连接") ? "joined" : "joining";
    }

    /** Whether a tap on a row is taken: it is not while a join is in progress. Nothing comes of the tap. */
    bool takesTaps() const
    {
        QSignalSpy taps(list()->findChild<RaListwidget*>(), SIGNAL(itemClick(int)));
        list()->blockSignals(true);
        tap(rows().first());
        list()->blockSignals(false);
        list()->HideKeyBoardWnd();
        return taps.size() == 1;
    }

    /** Whether the page says that a scan runs. It must be shown. */
    bool saysDiscovering() const
    {
        for (const QLabel* label : list()->findChildren<QLabel*>()) {
            if (label->isVisible() && label->text() == QLatin1String("Discovering...")) {
                return true;
            }
        }
        RaSwitchListWidget* row = list()->findChild<RaSwitchListWidget*>();
        const QImage picture = row->grab().toImage().convertToFormat(QImage::Format_RGB32);
        for (int y = 64; y < picture.height(); ++y) {
            for (int x = 0; x < picture.width(); ++x) {
                if (picture.pixelColor(x, y).lightness() > 128) {
                    return true;
                }
            }
        }
        return false;
    }

private:
    RaWifiManager* m_manager;
};

/** Switches on and waits for the scan's end. */
inline bool scan(Page& page)
{
    page->recAPSwitch(true);
    return waitForWorkers();
}

/** A shown page with a row for each of these networks. */
class ShownPage : public Page
{
public:
    explicit ShownPage(const QList<APData>& networks)
    {
        get()->resize(320, 480);
        get()->show();
        setScan(networks);
        if (!scan(*this)) {
            qFatal("the scan does not end");
        }
    }
};

/** The host's end of its channel. */
class Host : public QCopChannel
{
public:
    Host() : QCopChannel(QLatin1String("mainprocess")) {}

    void receive(const QString& msg, const QByteArray& data) override
    {
        messages << msg;
        payloads << data;
    }

    /** What has come since the last call. */
    Lines take()
    {
        QCoreApplication::processEvents();
        const Lines taken = payloads;
        payloads.clear();
        return taken;
    }

    QStringList messages;
    Lines payloads;
};

// --- The toolkit's warnings ------------------------------------------------------------------------------

/** Those of making the manager. */
inline QStringList serviceWarnings()
{
    return QStringList() << QLatin1String("No such signal RaWifiService::sendPrgFun(int)")
                         << QLatin1String("No such slot RaWifiManager::receiveMonitorStatus(int,int ,QString)")
                         << QLatin1String("No such slot RaWifiManager::recMonitorConMsg(QString)");
}

/** Those of making its list window; \a exitMenu: the parameters of the last signal. */
inline QStringList listWarnings(const char* exitMenu)
{
    return QStringList() << QLatin1String("No such signal RaWifiListWidget::sendQuickMenu()")
                         << QLatin1String("No such signal RaWifiListWidget::sendClearAP(QString)")
                         << QLatin1String("No such signal RaWifiListWidget::sendRefreshAPListMsg(QString,int)")
                         << QLatin1String("No such signal RaWifiListWidget::sendMenuExitListWin")
                                + QLatin1String(exitMenu);
}

/** The warnings so far, without what the toolkit puts around a failed connection's own text. */
inline QStringList takeWarnings()
{
    QStringList warnings;
    for (QString line : QtWarnings::take().split(QLatin1Char('\n'), Qt::SkipEmptyParts)) {
        const QString prefix = QLatin1String("QObject::connect: ");
        const bool isDetail = line.startsWith(prefix + QLatin1String(" ("));
        line = line.startsWith(prefix) ? line.mid(prefix.size()) : line;
        if (!isDetail && line != QLatin1String("Unknown property caret-color")) { // of the password field
            warnings << line.section(QLatin1String(" in "), 0, 0);
        }
    }
    return warnings;
}

/** The warnings that nobody expects. */
inline QStringList unexpectedWarnings()
{
    const QStringList expected =
        serviceWarnings() + listWarnings("(int,APData*)") + listWarnings("(QString,int,APData*)");
    QStringList warnings;
    for (const QString& warning : takeWarnings()) {
        if (!expected.contains(warning)) {
            warnings << warning;
        }
    }
    return warnings;
}

/** The messages of a log that are in \a wanted, in their order. */
inline Lines only(const Lines& wanted, const Lines& log)
{
    Lines found;
    for (const QByteArray& line : log) {
        if (wanted.contains(line)) {
            found << line;
        }
    }
    return found;
}

/** Runs the tests of one class. No message leaves the process. */
template<typename Test>
int run(int argc, char** argv)
{
    qputenv("DBUS_SESSION_BUS_ADDRESS", "unix:path=/nonexistent/bus");
    qputenv("DBUS_SYSTEM_BUS_ADDRESS", "unix:path=/nonexistent/bus");
    QApplication application(argc, argv);
    Test test;
    return QTest::qExec(&test, argc, argv);
}

} // namespace managertest

#endif
