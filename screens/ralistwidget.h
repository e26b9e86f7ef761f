// SPDX-FileCopyrightText: 2026 The rawificontrol authors
// SPDX-License-Identifier: MIT
#ifndef RAWIFI_RALISTWIDGET_H
#define RAWIFI_RALISTWIDGET_H

#include "rabasewidget.h"
#include "rawifirecords.h"

#include <QPoint>
#include <QVector>

class QTimer;
class RaItemPushBtn;
class RaSwitchListWidget;

/**
 * The Wi-Fi switch and below it one row per scanned access point. A drag anywhere in it is reported as steps for
 * whatever scrolls the list, a tap as the chosen access point. GUI thread only.
 */
class RAWIFI_EXPORT RaListwidget : public RaBaseWidget
{
    Q_OBJECT
public:
    /** \a setting: see setSetting(). */
    RaListwidget(int setting, QWidget* parent);

    /** Makes the switch row; the constructor has called it, and a repeat does nothing. */
    void init();
    /** Makes the rows anew from APDataArray; nothing changes while that is empty. Old rows go with the event loop. */
    void setListData();
    /** Removes all rows and gives the switch row its full height. */
    void clearRows();

    /** Moves on to the next item, past the last row to the switch. */
    void keyUp() override;
    /** Moves back to the item before. */
    void keyDown() override;
    /** The item that the keys have reached or that was tapped last: the index of a row, or their number. */
    int getSelectIndex() const;
    /** The item of getSelectIndex(). */
    QWidget* currentItem() const;

    void setSwitchPos(int pos);     ///< The switch row's.
    void setIsHideMsg(bool hidden); ///< The switch row's: whether it says "Discovering...".
    /** Puts the switch where the state is, knob and all, and reports nothing. */
    void setWifiSwitch(bool on);

    /** The kind of page that the list is on; a number that the list only keeps. */
    void setSetting(int setting);
    int getSetting() const; ///< The number of setSetting().

    /** Whether taps reach the rows. They do at first. */
    void setPassThrough(bool passThrough);
    /**
     * Shows the row \a index, or where that is negative the row of \a ap (by its address, else by its name), as
     * joining or as joined, and every other row as neither. A joined row keeps the password that \a ap carries.
     * Returns the row's index, -1 when there is none.
     */
    int setLinKAP(int index, APData ap, bool joined);
    /** Shows no row as joining or joined. */
    void clearLinKAP();

    int rowCount() const; ///< Rows of networks; the switch is none.
    /** The record that the row \a index shows; 0 <= index < rowCount(). */
    APData rowData(int index) const;
    /** Height in pixels that the switch row and all rows take. */
    int contentHeight() const;

    /** Tells drags from taps for every widget that it is installed on. */
    bool eventFilter(QObject* watched, QEvent* event) override;

Q_SIGNALS:
    void itemClick(int index);         ///< The row \a index was tapped.
    void checkedChanged(bool checked); ///< The Wi-Fi switch was worked.
    /** One step of a drag: \a isUP for a finger that moves down the screen, and the signed way in pixels. */
    void sendMoveStep(bool isUP, int moveValue);
    void sendSelectItemByList(APData data); ///< The network whose row was tapped.

public Q_SLOTS:
    void recSwitchChanged(bool checked);            ///< Passes the switch on as checkedChanged().
    void recItemBtnclicked(APData data, int index); ///< Passes a tap on as the two signals.
    /** The rest after a long drag is over. */
    void updatePressStatus();

protected:
    void mousePressEvent(QMouseEvent* event) override;
    void mouseMoveEvent(QMouseEvent* event) override;
    void mouseReleaseEvent(QMouseEvent* event) override;
    void wheelEvent(QWheelEvent* event) override;

private:
    Q_DISABLE_COPY(RaListwidget)

    RaItemPushBtn* makeRow(APData* data, int index, int top);
    void dropRows();
    int findRow(const APData& ap) const;
    bool isFocusOnRow() const;
    void focusCurrentItem();

    void fingerDown(const QPoint& position);
    void fingerMoved(QObject* watched, const QPoint& position);
    bool takesRelease(QObject* watched);

    int m_setting;
    QVector<RaItemPushBtn*> m_rows;
    RaSwitchListWidget* m_switchRow = nullptr;
    int m_curItemIdx = 0;
    bool m_isEnableMove = false;
    QPoint m_lastPosition;
    int m_moveCount = 0;
    bool m_passThrough = true;
    QTimer* m_releaseTimer = nullptr;
};

#endif
