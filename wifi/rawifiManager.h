// SPDX-FileCopyrightText: 2026 The rawificontrol authors
// SPDX-License-Identifier: MIT
#ifndef RAWIFI_RAWIFIMANAGER_H
#define RAWIFI_RAWIFIMANAGER_H

#include "rawifi_export.h"
#include "rawifirecords.h"

#include <QMutex>
#include <QString>
#include <QWidget>
#include <functional>
#include <pthread.h>

class QApplication;
class QTimer;
class RaGuiThread;
class RaWifiListWidget;
class RaWifiMonitor;
class RaWifiMsg;
class RaWifiService;

/**
 * The one object that a host drives: the Wi-Fi page as a widget, and everything behind it. GUI thread, unless said
 * otherwise. A host calls instance(), then setMainAppObj(), and shows the widget.
 *
 * Scanning and joining run on a worker thread, one at a time; a new start cancels the worker before it. The
 * monitor is a child of the manager: findChild<RaWifiMonitor*>().
 */
class RAWIFI_EXPORT RaWifiManager : public QWidget
{
    Q_OBJECT
public:
    explicit RaWifiManager(QWidget* parent); ///< For instance(); a host has no manager but that one.
    /** Ends a worker that still runs. */
    ~RaWifiManager() override;

    /** The manager, made on the first call. */
    static RaWifiManager* instance();
    /** Destroys the manager; a later instance() makes a new one. */
    static void close();
    /** The host's application object; to be set after the first instance(). Null is ignored. */
    static void setMainAppObj(QApplication* application);

    /** \name Wi-Fi as a whole */
    ///@{
    /** Brings Wi-Fi up and scans; blocks for seconds. 0 after a scan, -1 when a link was already up. Any one thread. */
    int openWifi(int ignored);
    /** Drops the link and switches the page off. Returns 1. */
    int closeWifi();
    /** Makes service and monitor where missing, and fetches the device's own MAC address. Returns 0. */
    int checkAPSeriveAndMonitor();
    void Init(); ///< The constructor's: makes /home/wifi anew (mode 777), so that no old status is left in it.
    ///@}
    /** \name Scanning and joining */
    ///@{
    int startScan(); ///< The service's getAPListByScan(), on the calling thread.
    /** Joins a network and blocks meanwhile: the service's result, 0 for joined. Worker thread. */
    int connectUserSelectAP(const char* macAddr, int encry, const char* essid, const char* psk, int sigquality,
                            int authMode, int keyIndex);
    /** Starts nothing; returns 0. */
    int connectUserSelectAPI();
    /**
     * Joins the next saved network in reach, on a worker: 0 when one is being tried; -1 when a link is up, none is
     * in reach or all have been tried.
     */
    int connectCertainAP();
    /** Drops the link: 0, or -1 without a monitor. */
    int disConnectAp();
    /** The worker's report of success. Any thread. */
    void SetSuccessFlag(APData* joined);
    /** Emits sendRefreshList(). Any thread. */
    int callSendRefreshList();
    ///@}
    /** \name Windows */
    ///@{
    /** Make the list window where it is missing. */
    void showAPListWnd();
    void checkAPListWnd(); ///< The same, without a log line of its own.
    /** Fills the list window's data, by a scan on this thread or from the last one. */
    void loadAPListWnd(bool scan);

    /** Tells the host "APLINKSTART" (not 0) or "APLINKEND", unless \a status is the last one told. Returns 1. */
    int sendSAPMsgToMain(int status);
    ///@}
Q_SIGNALS:
    void sendCmdScanAP(); ///< A host emits it; recCmdScanAP() is connected.
    /** The user has left the page. */
    void backPressed();
    void signalShowWifiList();       ///< Never emitted.
    int sendWifiOpen(bool isStatus); ///< Never emitted.
    void sendRefreshList();          ///< A scan has ended. Emitted on the scan worker.

public Q_SLOTS:
    void timeout();     ///< Hides the message and shows the list window.
    int recCmdScanAP(); ///< Scans and blocks for it. Returns getAPListByScan()'s result.
    /** The on/off switch; starts a scan when switched on. A repeat of the current state is ignored. Returns 0. */
    int recAPSwitch(bool ison);
    void recTest(bool ison); ///< Only logs.
    int recOpenWifi(bool);   ///< openWifi(), and blocks as that does.
    void recRefreshList();   ///< Shows the list window with what the last scan has found; no rows once Wi-Fi is off.
    void recQuitListWnd();   ///< Hides the list window; emits backPressed().
    /** Joins \a apinfo on a worker; \a msgid 3 marks its row as joining. */
    void receiveAPManageInfo(int msgid, APData apinfo);
    /** The service's sendListWndInfo(): a failure is shown for 10 s over the list. */
    void recShowInfo(int index, QString ssid, QString msginfo, int errflag);
    void recServiceStatusMsg(QString msginfo, bool isend); ///< "SUCCESS" is timeout(); the rest is logged.
    void itemClickSlot(int);                               ///< Only logs.
    void mouseMoveSlot();                                  ///< Only logs.
    void slotConfigWifi();                                 ///< Only logs.
    void slotDiscoveryFinished();                          ///< Only logs.
    void slotWifiSelected(int idx);                        ///< Only logs.
    void slotWifiErr();                                    ///< Only logs.
    int setListWndData();                                  ///< Ranks and sorts anew. Returns the number of networks.

protected:
    void paintEvent(QPaintEvent* event) override;
    void resizeEvent(QResizeEvent* event) override;
    void showEvent(QShowEvent* event) override;

private:
    Q_DISABLE_COPY(RaWifiManager)

    void runUnlessOutdated(const std::function<void()>& work);
    bool createListWindow(const char* exitMenuSignal, const char* exitMenuSlot);
    void prepareMessageWindow();
    void makeServiceAndMonitor();
    void startScanWorker();
    void startConnectWorker(const APData& network);
    void giveUpJoining();

    QTimer* m_timer = nullptr;
    bool m_switchOn = false;
    bool m_connected = false;
    QString m_selectedMac;
    QString m_localMac;
    QString m_objectName;
    RaWifiListWidget* m_listWindow = nullptr;
    QWidget* m_spareWindow = nullptr;
    RaWifiMsg* m_messageWindow = nullptr;
    int m_listState = 0;
    int m_level = 0;
    RaWifiService* m_service = nullptr;
    RaWifiMonitor* m_monitor = nullptr;
    int m_lastStatusSent = -1;
    RaGuiThread* m_gui = nullptr; ///< the workers' way to the windows
    APData m_joining;             ///< the network of the running or last attempt
    bool m_isJoining = false;     ///< that attempt is not over yet
    bool m_isSwitchedOff = false; ///< since Wi-Fi was opened last; not so before the first time
};

// The workers' bodies and their shared state; for the manager alone. They return null.
RAWIFI_EXPORT void* thread_scanap(void* arg);       ///< The scan; \a arg is the manager.
RAWIFI_EXPORT void* thread_connectuseap(void* arg); ///< The join of g_PassParam; \a arg is a number to log.

extern RAWIFI_EXPORT QApplication* p_App;          ///< the host's application object
extern RAWIFI_EXPORT RaWifiManager* pWnd;          ///< the manager that the connect worker works for
extern RAWIFI_EXPORT pthread_t p_thread_msg;       ///< the worker started last, 0 before the first; only to compare
extern RAWIFI_EXPORT pthread_t p_thread_connectap; ///< never set
extern RAWIFI_EXPORT pthread_attr_t attr;          ///< valid only while a worker is being started
extern RAWIFI_EXPORT pthread_mutex_t mutex;        ///< valid only while a scan worker is being started
extern RAWIFI_EXPORT QMutex m_conMux;              ///< released by the connect worker when it ends

#endif
