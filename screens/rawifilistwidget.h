// SPDX-FileCopyrightText: 2026 The rawificontrol authors
// SPDX-License-Identifier: MIT
#ifndef RAWIFI_RAWIFILISTWIDGET_H
#define RAWIFI_RAWIFILISTWIDGET_H

#include "rawifi_export.h"
#include "rawifirecords.h"

#include <QByteArray>
#include <QPointer>
#include <QSet>
#include <QString>
#include <QVector>
#include <QWidget>

class QLabel;
class QScrollArea;
class RaListwidget;
class RaTitleWidget;
class RaWifiInputWnd;

/**
 * The Wi-Fi page, 320 pixels wide: a title with a back mark, and a scrolling list with the switch and one row per
 * network; over both, when a password is needed, the page to type it on. It turns what the user does into signals
 * and is told the outcome. GUI thread only; the owner gives it its height.
 *
 * A network is known by the address of its access point: which one is joined, and which ones could not be.
 */
class RAWIFI_EXPORT RaWifiListWidget : public QWidget
{
    Q_OBJECT
public:
    /** \a backShown: see showBackButton(). \a mac: see setMac(). */
    RaWifiListWidget(QWidget* parent, bool backShown, QString title, QString mac);

    // The constructor has called these; a repeat builds nothing.
    /** Builds the page and sets \a type, the kind of page, which a repeat sets as well. */
    void createUI(QString title, int type, QString mac);
    void createTitleBar(); ///< Makes the title.
    /** Makes the list with its switch. */
    void createWifiSwitch();

    /** The device's own address, shown above the list; empty as long as it is not known. */
    void setMac(QString mac);

    /**
     * Shows APDataArray as it is now, and this window. Scroll position and password page stay as they are. When
     * this returns the list has 60 pixels per network; with the event loop it takes what its rows need.
     */
    void showRefreshListData();
    /** Whether a join is in progress: until it is over, no row can be tapped. */
    void setLinkAP(bool linking);
    /** Shows the row of \a ap as being joined or, with \a joined, as joined; every other row as neither. */
    void recWifiListMsg(APData ap, bool joined = false);
    /**
     * The attempt to join \a ap has failed: its row goes back to idle, and if the network is locked, the next tap
     * on it asks for its password, even if one is saved.
     */
    void setConnectFailed(APData ap);
    /** Forgets which network is joined. */
    void setClearMac();

    /** Puts the switch where the state is, without a signal. Off: no rows. On: "Discovering..." until a refresh. */
    void setWifiSwitch(bool on);
    /** Whether the page says "Discovering...". */
    void setScanning(bool scanning);

    /** Empties and hides the password page. */
    void HideKeyBoardWnd();
    /** The window to show again when the user leaves this one; not owned. */
    void setPrevWidget(QWidget* previous);
    /** Drops the items of addListItem(). */
    void clearData();
    /** Sorts APDataArray by rank, then by signal; returns the number of networks. */
    int setlistItemData();

    bool eventFilter(QObject* watched, QEvent* event) override;

Q_SIGNALS:
    void signalShowWifiList();       ///< The configuration was asked for, on a page of kind 100.
    void signalItemClick(int index); ///< The row \a index was tapped.
    void sendWifiSwitch(bool isOn);  ///< The user has worked the switch.
    void sendQuitListWnd();          ///< The user leaves the page.
    /** Join \a apinfo, with the password that it carries; \a msgid is 3. */
    void sendWifiManageInfo(int msgid, APData apinfo);

public Q_SLOTS:
    void slotQuit();                             ///< Emits sendQuitListWnd(), then shows the window of setPrevWidget().
    void showBackButton(bool flag);              ///< Without the back mark only keys leave the page.
    void slotShowConfigWnd();                    ///< Emits signalShowWifiList() on a page of kind 100.
    void slotListItemClick(int index);           ///< Emits signalItemClick().
    void addListItem(QVector<RaItemData> items); ///< Keeps \a items and shows none of them.
    void resetItemData(QVector<RaItemData> items); ///< Only logs how many.
    void recCheckChanged(bool isCheck);            ///< The list's switch was worked.
    void recMoveStep(bool isUP, int moveValue);    ///< Scrolls by \a moveValue pixels; see the list's sendMoveStep().
    void recSelectItemByList(APData data);         ///< Joins \a data, or asks for its password first.
    void recWifiInputCancelMsg();                  ///< Leaves the password page.
    void recWifiInputOkMsg(APData data);           ///< Leaves the password page and joins \a data.

protected:
    void resizeEvent(QResizeEvent* event) override;
    void showEvent(QShowEvent* event) override;
    void keyPressEvent(QKeyEvent* event) override;

private:
    Q_DISABLE_COPY(RaWifiListWidget)

    void createScrollArea(const QString& mac);
    QLabel* createStripLabel(Qt::Alignment alignment);
    RaWifiInputWnd* inputWnd();
    bool isAskingForPassword() const;
    void fitContent();
    void requestFit();
    void markRows();
    bool needsPassword(const APData& network) const;

    QString m_titleText;
    RaTitleWidget* m_title = nullptr;
    QWidget* m_backCover = nullptr;
    QScrollArea* m_scrollArea = nullptr;
    QWidget* m_content = nullptr;
    QLabel* m_mac = nullptr;
    QLabel* m_state = nullptr;
    RaListwidget* m_list = nullptr;
    RaWifiInputWnd* m_inputWnd = nullptr;
    QPointer<QWidget> m_previous;
    QVector<RaItemData> m_items;
    int m_pageKind = 0;
    int m_prescribedHeight = 0;
    bool m_linking = false;
    bool m_wifiOn = false;
    APData m_joining;          ///< without an address when no join is in progress
    QByteArray m_joinedMac;    ///< empty when no network is joined
    QSet<QByteArray> m_failed; ///< networks whose last attempt failed
};

#endif
