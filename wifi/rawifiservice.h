// SPDX-FileCopyrightText: 2026 The rawificontrol authors
// SPDX-License-Identifier: MIT
#ifndef RAWIFI_RAWIFISERVICE_H
#define RAWIFI_RAWIFISERVICE_H

#include "rawifi_export.h"
#include "rawifirecords.h"

#include <QList>
#include <QObject>
#include <QString>

class ConnectAttempt;
class QTimer;
class QWidget;
class RaWifiData;

/**
 * The back end: runs the device's scripts, keeps the list of access points and joins networks. Construct and
 * destroy it on the GUI thread; its operations block for their commands and waits and may run on any one thread
 * at a time, since all scripts share their answer files. Signals are emitted on the thread that works.
 *
 * Source files: rawifiservice (the object, device and supplicant), rawifiservice_scan, rawifiservice_config,
 * rawifiservice_connect.
 */
class RAWIFI_EXPORT RaWifiService : public QObject
{
    Q_OBJECT
public:
    /** Loads the saved networks. \a parent is kept, but is not the QObject parent; the number is not used. */
    RaWifiService(int ignored, QWidget* parent);
    /** Ends a DHCP stage that still runs. */
    ~RaWifiService() override;

    /** \name Device and supplicant */
    ///@{
    /** Starts the supplicant with its default configuration: 0, or -1 when it did not. */
    int callWpaSupplicantDefaultConf();
    /** Whether the supplicant runs: 0 when it does, -1 when not. */
    int checkWpaSupplicantStatus();
    /** \a full not 0: stops the DHCP client and the supplicant (2 s); 0: wlan0 down and up (1 s). Returns 0. */
    int killWpaSupplicant(int full);
    /** Writes the station's own address into \a out (18 bytes), from memory once it is known. Returns 0 always. */
    int getLocalMACaddress(char* out);
    /** Wait for a module command, which this library has none of: 60 s, then a message. */
    void loadWifiDevice();
    void unloadWifiDeveice(); ///< As loadWifiDevice().
    /** Stops the watchdog; from another thread as soon as the GUI thread gets to it. Returns 0. */
    int setStopStatus();
    ///@}
    /** \name Scan and list */
    ///@{
    /** Makes sure that the supplicant runs, scans and ranks. Returns orderByAPArray()'s result. */
    int getAPListByScan();
    /** Scans and rebuilds APDataArray; keeps the old list when there is no result. Returns 0. */
    int loadAPList();
    /** Ranks saved networks and rebuilds g_linkAPList. 0, or -1 when nothing is saved. */
    int orderByAPArray();
    /** Ranks anew without a scan. Returns 0. */
    int getAPList();
    /** Brings the ranks of joined networks up to date; returns the list's pointers, which it goes on owning. */
    QList<APData*> getCurAPList();
    /** Copies entry \a index into \a out: 0; -2 empty list or one past the end; -1 any other wrong index. */
    int getAPDataByIndex(APData* out, int index);
    /** Sets rank and password; authMode only when it is 1, keyIndex only when it is 0 to 3. Codes as above. */
    int setAPData(int index, int order, char* psk, int authMode, int keyIndex);
    /** The same for the first entry with this BSSID: -1 for an empty text, -2 when none matches. */
    int setAPDataByMacAddress(int order, char* psk, QString mac, int authMode, int keyIndex);
    /** Marks the network of the pending-save record with rank 2. Returns 0. */
    int setAPDataByMacAddress();
    /** Forgets a network's saved data. Returns the store's result. */
    int reInitAPInfo(QString mac);
    /** Copies the next candidate for automatic joining into \a out and returns it; null after the last. */
    APData* getAPInfoByLinkAPList(APData* out);
    int getwifilistcount();    ///< Access points in APDataArray.
    int getAPListCount();      ///< Candidates in g_linkAPList.
    int clearAPArray();        ///< Empties both lists, deleting their records. Returns 0.
    int clearCurLinkAPArray(); ///< Empties g_linkAPList; its cursor is -1 then. Returns 0.
    /** Forgets the saved networks in memory and the candidates; the file stays. Returns 0. */
    int clearAPS();
    /** Has no effect. */
    void printAllAPData();
    ///@}
    /** \name Supplicant configuration
     * Each replaces /etc/wpa_supplicant.conf (mode 0600) by a configuration of one network. 0 when written.
     * Texts stand literally in double quotes; what the supplicant could not read back that way is written as
     * hexadecimal digits. A line break in a password is refused with -1, and nothing is touched. */
    ///@{
    /** WPA and WPA2. -1 null or empty psk; -2 the file cannot be opened or written. */
    int changeWpaConfigfile(char const* ssid, char const* psk);
    /** WEP. -1 null, empty key or key index outside 0 to 3; -3 the file cannot be opened or written. */
    int changeWpaConfigfile2(char const* ssid, char const* key, int keyIndex);
    /** Open. -1 null; -2 empty name; -3 the file cannot be opened or written. */
    int changeWpaConfigfile3(char const* ssid, char const* psk);
    ///@}
    /** \name Joining */
    ///@{
    /**
     * Joins a network: 0 when joined, negative when it gave up. Blocks for seconds; not for the GUI thread.
     * Progress and failures go out as sendListWndInfo().
     */
    int connectCertainAP(QString mac, ENCRY encry, QString essid, QString psk, int sigquality, int authMode,
                         int keyIndex);
    /** Joins the network of the pending-save record again: -1 without a record, -2 without its BSSID. */
    int connectDefaultAP();
    /** Whether automatic joining has candidates: 0; -2 no store; -3 none; -4 all tried (once, then they start over). */
    int getdefaultConAPByLocalcfg();
    /** Stops DHCP and the supplicant and forgets the link. Returns 0. */
    int disConnectAp();
    /** The pending-save record; owned by the service. */
    APData* getCurAPData();
    /** Makes \a ap the pending-save record, with rank 2 and not joined. Returns 0. */
    int readySaveData(APData ap);
    /** Puts a network into the store: 0; -1 null; -2 failed. */
    int saveApData(APData* ap, bool flag);
    /** Tells that the user cancelled, if so. Returns 0. */
    int checkUseCancel(int ignored);
    /** Reads the route line into \a out (256 bytes): 0, or 1 without an answer. */
    int setRoute(char* out);
    /** The route text, 40 bytes, owned by the service. */
    char* getRoute();
    /** Sets the default route through the gateway of the link; returns what the shell returned, -1 without one. */
    int setRouteGw();
    /** Pings for 10 s. \a rate: answered share, 0.0 to 1.0. Returns 1, or 0 without a result. */
    int pingIP(char* ip, double& rate);
    ///@}
Q_SIGNALS:
    void sendSetStatusMsg(QString macaddress, bool isend = false); ///< The network is joined; \a isend is true.
    /** \a index is 0. \a errflag: 0 progress, 1 cancelled by the user, negative failed. \a msginfo is translated. */
    void sendListWndInfo(int index, QString ssid, QString msginfo, int errflag = 0);
    void sendCheckAPConnect(QString linkmadress, int signalvalue); ///< Joined, at this level: for the monitor.
    void sendPrgStar();                                            ///< Never emitted.
    void sendPrgStep();                                            ///< Never emitted.
    void sendPrgStop(); ///< The DHCP stage is over, the address is being read.

public Q_SLOTS:
    /** The watchdog expired: the attempt's DHCP stage has timed out. */
    void timeout();
    /** Stops the watchdog. */
    void recSetStatusMsg();
    /** Saves the network of the pending-save record as joined, when \a linkmadress is its BSSID. */
    void recMangerConMsg(QString linkmadress);

private:
    Q_DISABLE_COPY(RaWifiService)
    friend void* dhcpip_handle(void* service);

    enum StatusFlag { Connected = 0, TimedOut = 4, StatusFlagCount = 5 };

    int scriptVerdict(const char* command);
    void resetCursors();

    QByteArray nameOnAir(const QString& mac, const QString& essid) const;
    int writeConfig(ENCRY encry, const QByteArray& name, const QByteArray& key, int authMode, int keyIndex);
    bool loadConfig();
    void rememberRequest(const QString& mac, ENCRY encry, const QByteArray& name, const QByteArray& key, int sigquality,
                         int authMode, int keyIndex);
    void startDhcpStage();
    void endDhcpStage();
    bool waitForDhcpStage();
    int retrieveAddress(const QString& name);
    void removeMarker(const char* command);
    bool readAddress();
    void setNetworkInformation();
    int joined(const QString& mac, const QString& name, int sigquality);
    int failed(const QString& name, const QString& message, int errflag);
    void runDhcp();

    /** The pending-save record, made when there is none. To be called under the shared-state lock. */
    APData& pendingSave();

    char m_gateway[16];
    char m_route[40];
    char m_link[18];
    char m_localMac[18];
    char m_address[16];
    int m_authMode;
    int m_keyIndex;
    bool m_statusFlags[StatusFlagCount];
    int m_listCursor;
    int m_linkCursor;
    QTimer* m_watchdog;
    QWidget* m_parentWidget;
    RaWifiData* m_store;
    APData m_currentAp;
    APData* m_pendingSave;
    ConnectAttempt* m_attempt;
};

/** The DHCP stage of a connection attempt: thread function, \a service being the RaWifiService. Returns null. */
RAWIFI_EXPORT void* dhcpip_handle(void* service);

#endif
