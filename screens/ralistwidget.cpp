// SPDX-FileCopyrightText: 2026 The rawificontrol authors
// SPDX-License-Identifier: MIT
#include "ralistwidget.h"

#include "qtcompat.h"
#include "raguithread.h"
#include "raitempushbtn.h"
#include "ralog.h"
#include "raswitchlistwidget.h"
#include "ratheme.h"
#include "rawifiglobals.h"
#include "recordtext.h"
#include "sharedstate.h"

#include <QApplication>
#include <QMouseEvent>
#include <QResizeEvent>
#include <QTimer>

namespace {

const QRect tallSwitchRect(QPoint(0, 0), QPoint(319, 139));
const QRect shortSwitchRect(QPoint(0, 0), QPoint(319, 58));
const int firstRowTop = 57;
const int rowPitch = 57; // rows are 60 high: each lies over the last 3 pixels of the one before
const int rowHeight = 60;
const int switchInFirstItem = 1;

const int smallestStep = 5; // pixels; a resting finger trembles less
const int longDragSteps = 7;
const int restMs = 900;
const int wheelNotch = 120;

QList<APData> scannedNetworks()
{
    QList<APData> networks;
    const SharedStateLock lock(sharedStateMutex());
    for (const APData* network : APDataArray) {
        networks << *network;
    }
    return networks;
}

bool haveSameAddress(const APData& a, const APData& b)
{
    return a.macAddr[0] != '\0' && qstrnicmp(a.macAddr, b.macAddr, sizeof a.macAddr) == 0;
}

void cancelPress(QObject* pressed)
{
    if (RaItemPushBtn* row = qobject_cast<RaItemPushBtn*>(pressed)) {
        row->cancelPress();
    }
}

bool haveSameName(const APData& a, const APData& b)
{
    return a.essid[0] != '\0' && qstrncmp(a.essid, b.essid, sizeof a.essid) == 0;
}

} // namespace

RaListwidget::RaListwidget(int setting, QWidget* parent) : RaBaseWidget(parent), m_setting(setting)
{
    init();
}

void RaListwidget::init()
{
    raAssertOwnThread(this);
    if (m_switchRow) {
        return;
    }
    m_switchRow = new RaSwitchListWidget(this);
    connect(m_switchRow, SIGNAL(checkedChanged(bool)), this, SLOT(recSwitchChanged(bool)));
    m_switchRow->setSwitchPos(switchInFirstItem);
    m_switchRow->setButtonStyle(RaSwitchListWidget::ButtonStyle_Round);
    m_switchRow->setBgColor(RaTheme::background(), RaTheme::accent());
    m_switchRow->setSliderColor(QColor(100, 100, 100), RaTheme::text());
    m_switchRow->setItemText(tr("Discovering..."), tr("WIFI"));
    m_switchRow->setGeometry(tallSwitchRect);
    m_switchRow->installEventFilter(this);

    m_releaseTimer = new QTimer(this);
    m_releaseTimer->setSingleShot(true);
    connect(m_releaseTimer, SIGNAL(timeout()), this, SLOT(updatePressStatus()));
}

void RaListwidget::setListData()
{
    raAssertOwnThread(this);
    QList<APData> networks = scannedNetworks();
    if (networks.isEmpty()) {
        return;
    }
    const bool hadFocus = isFocusOnRow();
    const bool switchHadFocus = window()->focusWidget() == m_switchRow;
    // Rows that appear one by one make the toolkit ask a display server for the pointer each. A finger on the list
    // would lose its hold.
    const bool appearTogether = isVisible() && QApplication::mouseButtons() == Qt::NoButton;
    if (appearTogether) {
        hide();
    }
    dropRows();
    m_isEnableMove = true;
    RA_DEBUG("m_isEnableMove=%d", m_isEnableMove);
    m_rows.reserve(networks.size());
    for (int i = 0; i < networks.size(); ++i) {
        m_rows << makeRow(&networks[i], i, firstRowTop + i * rowPitch);
    }
    m_curItemIdx = qMin(m_curItemIdx, int(m_rows.size()));
    m_switchRow->setGeometry(shortSwitchRect);
    setSwitchPos(switchInFirstItem);
    m_switchRow->show();
    if (appearTogether) {
        show();
    }
    if (hadFocus) {
        focusCurrentItem();
    } else if (switchHadFocus) {
        m_switchRow->setFocus(Qt::OtherFocusReason);
    }
}

RaItemPushBtn* RaListwidget::makeRow(APData* data, int index, int top)
{
    RaItemPushBtn* row = new RaItemPushBtn(this);
    row->addItemData(data, index);
    row->setGeometry(0, top, 320, rowHeight);
    row->installEventFilter(this);
    row->setStyleSheet(QLatin1String("background-color: rgba(54,54, 54,100%);font-size:28px;color:white;"));
    connect(row, SIGNAL(clicked(APData,int)), this, SLOT(recItemBtnclicked(APData,int)));
    row->setCheckState(index == 0);
    row->show();
    return row;
}

void RaListwidget::clearRows()
{
    raAssertOwnThread(this);
    const bool hadFocus = isFocusOnRow();
    dropRows();
    m_isEnableMove = false;
    m_curItemIdx = 0;
    m_switchRow->setGeometry(tallSwitchRect);
    if (hadFocus) {
        focusCurrentItem();
    }
}

// Else the keys would be lost with the row.
bool RaListwidget::isFocusOnRow() const
{
    return m_rows.contains(qobject_cast<RaItemPushBtn*>(window()->focusWidget()));
}

// Deleted later, because a row may be in the middle of reporting its own tap; a finger that is still on one reports
// nothing more.
void RaListwidget::dropRows()
{
    for (RaItemPushBtn* row : m_rows) {
        row->disconnect(this);
        row->removeEventFilter(this);
        row->hide();
        row->deleteLater();
    }
    m_rows.clear();
}

void RaListwidget::keyUp()
{
    raAssertOwnThread(this);
    if (m_curItemIdx < m_rows.size()) {
        ++m_curItemIdx;
    }
    RA_DEBUG("...mCurItemIdx= %d,mItemData.size()-1=%d", m_curItemIdx, int(m_rows.size()) - 1);
    focusCurrentItem();
}

void RaListwidget::keyDown()
{
    raAssertOwnThread(this);
    if (m_curItemIdx >= 1) {
        --m_curItemIdx;
    }
    focusCurrentItem();
}

int RaListwidget::getSelectIndex() const
{
    return m_curItemIdx;
}

QWidget* RaListwidget::currentItem() const
{
    return m_curItemIdx < m_rows.size() ? static_cast<QWidget*>(m_rows.at(m_curItemIdx)) : m_switchRow;
}

void RaListwidget::focusCurrentItem()
{
    currentItem()->setFocus(Qt::TabFocusReason);
}

void RaListwidget::setSwitchPos(int pos)
{
    raAssertOwnThread(this);
    m_switchRow->setSwitchPos(pos);
}

void RaListwidget::setIsHideMsg(bool hidden)
{
    raAssertOwnThread(this);
    m_switchRow->setIsHideMsg(hidden);
}

void RaListwidget::setWifiSwitch(bool on)
{
    raAssertOwnThread(this);
    if (m_switchRow->getChecked() == on) {
        return;
    }
    m_switchRow->blockSignals(true);
    m_switchRow->setChecked(on);
    m_switchRow->blockSignals(false);
    QResizeEvent placesTheKnob(m_switchRow->size(), m_switchRow->size());
    QCoreApplication::sendEvent(m_switchRow, &placesTheKnob);
}

void RaListwidget::setSetting(int setting)
{
    raAssertOwnThread(this);
    m_setting = setting;
}

int RaListwidget::getSetting() const
{
    return m_setting;
}

void RaListwidget::setPassThrough(bool passThrough)
{
    raAssertOwnThread(this);
    m_passThrough = passThrough;
}

int RaListwidget::setLinKAP(int index, APData ap, bool joined)
{
    raAssertOwnThread(this);
    clearLinKAP();
    const int found = index >= 0 ? index : findRow(ap);
    if (found < 0 || found >= m_rows.size()) {
        return -1;
    }
    for (int i = 0; i < m_rows.size(); ++i) {
        m_rows.at(i)->setCheckState(i == found);
    }
    RaItemPushBtn* row = m_rows.at(found);
    if (!joined) {
        row->setConnectingStatus(true);
        return found;
    }
    row->setConnectSuccess();
    if (ap.psk[0] != '\0') {
        APData known = row->getItemData();
        setField(known.psk, ap.psk);
        row->addItemData(&known, found);
    }
    return found;
}

void RaListwidget::clearLinKAP()
{
    raAssertOwnThread(this);
    for (RaItemPushBtn* row : m_rows) {
        row->setConnectingStatus(false);
    }
}

// The address decides; a supplicant may have taken another access point of the same name, which is not listed.
int RaListwidget::findRow(const APData& ap) const
{
    int sameName = -1;
    for (int i = 0; i < m_rows.size(); ++i) {
        const APData data = m_rows.at(i)->getItemData();
        if (haveSameAddress(data, ap)) {
            return i;
        }
        if (sameName < 0 && haveSameName(data, ap)) {
            sameName = i;
        }
    }
    return sameName;
}

int RaListwidget::rowCount() const
{
    return m_rows.size();
}

APData RaListwidget::rowData(int index) const
{
    return m_rows.at(index)->getItemData();
}

int RaListwidget::contentHeight() const
{
    return (m_rows.isEmpty() ? m_switchRow : static_cast<QWidget*>(m_rows.last()))->geometry().bottom() + 1;
}

bool RaListwidget::eventFilter(QObject* watched, QEvent* event)
{
    if (!m_isEnableMove) {
        return false;
    }
    switch (event->type()) {
    case QEvent::MouseButtonPress:
    case QEvent::MouseButtonDblClick: // the second press of two quick taps
        fingerDown(raEventGlobalPos(static_cast<QMouseEvent*>(event)));
        return false;
    case QEvent::MouseMove:
        fingerMoved(watched, raEventGlobalPos(static_cast<QMouseEvent*>(event)));
        return false;
    case QEvent::MouseButtonRelease:
        return takesRelease(watched);
    default:
        return false;
    }
}

void RaListwidget::fingerDown(const QPoint& position)
{
    m_lastPosition = position;
    m_releaseTimer->stop();
    m_moveCount = 0;
}

void RaListwidget::fingerMoved(QObject* watched, const QPoint& position)
{
    const int dy = position.y() - m_lastPosition.y();
    if (qAbs(dy) < smallestStep) {
        return;
    }
    ++m_moveCount; // to 0, and so not counted, after the timer
    if (dy >= 1) {
        RA_DEBUG("Slide down y dis.y() =%d", dy);
    } else {
        RA_DEBUG(".Slide up y..dis.y() =%d", dy);
    }
    m_lastPosition = position;
    cancelPress(watched);
    Q_EMIT sendMoveStep(dy >= 1, dy);
}

bool RaListwidget::takesRelease(QObject* watched)
{
    const bool isTap = m_moveCount == 0 && m_passThrough;
    if (m_moveCount >= longDragSteps) {
        m_releaseTimer->start(restMs);
        RA_DEBUG("--------call releaseMoveStatus start 100-------"); // the number says nothing about the interval
    }
    m_moveCount = 0;
    if (isTap) {
        return false;
    }
    cancelPress(watched);
    return true;
}

void RaListwidget::updatePressStatus()
{
    raAssertOwnThread(this);
    m_releaseTimer->stop();
    if (m_moveCount != 0) {
        m_moveCount = -1;
    }
}

void RaListwidget::recSwitchChanged(bool checked)
{
    raAssertOwnThread(this);
    Q_EMIT checkedChanged(checked);
}

void RaListwidget::recItemBtnclicked(APData data, int index)
{
    raAssertOwnThread(this);
    m_curItemIdx = index;
    Q_EMIT itemClick(index);
    Q_EMIT sendSelectItemByList(data);
}

// A finger beside the rows drags just as well.
void RaListwidget::mousePressEvent(QMouseEvent* event)
{
    eventFilter(this, event);
}

void RaListwidget::mouseMoveEvent(QMouseEvent* event)
{
    eventFilter(this, event);
}

void RaListwidget::mouseReleaseEvent(QMouseEvent* event)
{
    eventFilter(this, event);
}

void RaListwidget::wheelEvent(QWheelEvent* event)
{
    const int way = raWheelDelta(event) * rowPitch / wheelNotch;
    if (way != 0) {
        Q_EMIT sendMoveStep(way > 0, way);
    }
}
