// SPDX-FileCopyrightText: 2026 The rawificontrol authors
// SPDX-License-Identifier: MIT
#include "rawifilistwidget.h"

#include "raguithread.h"
#include "ralistwidget.h"
#include "ralog.h"
#include "ratheme.h"
#include "ratitlewidget.h"
#include "rawifiglobals.h"
#include "rawifiinputwnd.h"
#include "recordtext.h"
#include "screenfonts.h"
#include "sharedstate.h"

#include <QCoreApplication>
#include <QKeyEvent>
#include <QLabel>
#include <QScrollArea>
#include <QScrollBar>
#include <algorithm>

namespace {

const int pageWidth = 320;
const int usualHeight = 480;
const int titleHeight = 50;
const int stripHeight = 32; // above the list
const int listPage = 101;
const int configPage = 100;
const int pitchPrescribed = 60;
const int join = 3;

// Keys move from row to row here, and not the page.
class FingerScrollArea : public QScrollArea
{
public:
    explicit FingerScrollArea(QWidget* parent) : QScrollArea(parent) {}

protected:
    void keyPressEvent(QKeyEvent* event) override { event->ignore(); }
};

void setDark(QWidget* widget)
{
    QPalette colours = widget->palette();
    colours.setColor(QPalette::Window, RaTheme::background());
    widget->setPalette(colours);
    widget->setAutoFillBackground(true);
}

QByteArray addressOf(const APData& record)
{
    return QByteArray(record.macAddr, int(qstrnlen(record.macAddr, sizeof record.macAddr))).toLower();
}

int networkCount()
{
    const SharedStateLock lock(sharedStateMutex());
    return int(APDataArray.size());
}

} // namespace

RaWifiListWidget::RaWifiListWidget(QWidget* parent, bool backShown, QString title, QString mac)
    : QWidget(parent, Qt::FramelessWindowHint),
      m_joining(freshRecord())
{
    setDark(this);
    resize(pageWidth, parent ? parent->height() : usualHeight);
    createUI(title, listPage, mac);
    showBackButton(backShown);
}

void RaWifiListWidget::createUI(QString title, int type, QString mac)
{
    raAssertOwnThread(this);
    m_pageKind = type;
    if (m_title) {
        return;
    }
    m_titleText = title;
    createTitleBar();
    createScrollArea(mac);
    createWifiSwitch();
    fitContent();
}

void RaWifiListWidget::createTitleBar()
{
    raAssertOwnThread(this);
    if (m_title) {
        return;
    }
    m_title = new RaTitleWidget(m_titleText, QString(), true, this);
    m_title->setParent(this);
    connect(m_title, SIGNAL(backPressed()), this, SLOT(slotQuit()));

    m_backCover = new QWidget(m_title);
    m_backCover->setGeometry(0, 0, titleHeight, titleHeight - 1);
    setDark(m_backCover);
}

void RaWifiListWidget::createScrollArea(const QString& mac)
{
    m_scrollArea = new FingerScrollArea(this);
    m_scrollArea->setFrameShape(QFrame::NoFrame);
    m_scrollArea->setHorizontalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
    m_scrollArea->setVerticalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
    m_scrollArea->setFocusPolicy(Qt::NoFocus);
    setDark(m_scrollArea->viewport());

    m_content = new QWidget;
    setDark(m_content);
    m_content->installEventFilter(this);
    m_scrollArea->setWidget(m_content);
    m_scrollArea->setGeometry(0, titleHeight, pageWidth, height() - titleHeight);

    m_mac = createStripLabel(Qt::AlignLeft);
    setMac(mac);
    m_state = createStripLabel(Qt::AlignRight);
}

void RaWifiListWidget::setMac(QString mac)
{
    raAssertOwnThread(this);
    m_mac->setText(mac.isEmpty() ? QString() : tr("MAC  ") + mac);
}

QLabel* RaWifiListWidget::createStripLabel(Qt::Alignment alignment)
{
    QLabel* label = new QLabel(m_content);
    label->setGeometry(10, 0, pageWidth - 20, stripHeight);
    label->setAlignment(alignment | Qt::AlignVCenter);
    label->setTextFormat(Qt::PlainText);
    label->setFont(screenFont(13));
    QPalette colours = label->palette();
    colours.setColor(QPalette::WindowText, RaTheme::secondaryText());
    label->setPalette(colours);
    return label;
}

void RaWifiListWidget::createWifiSwitch()
{
    raAssertOwnThread(this);
    if (m_list) {
        return;
    }
    m_list = new RaListwidget(listPage, m_content);
    m_list->setSetting(listPage);
    m_list->setSwitchPos(1);
    m_list->setIsHideMsg(true);
    m_list->move(0, stripHeight);
    m_content->installEventFilter(m_list); // a drag may begin beside the list
    connect(m_list, SIGNAL(checkedChanged(bool)), this, SLOT(recCheckChanged(bool)));
    connect(m_list, SIGNAL(itemClick(int)), this, SLOT(slotListItemClick(int)));
    connect(m_list, SIGNAL(sendMoveStep(bool,int)), this, SLOT(recMoveStep(bool,int)));
    connect(m_list, SIGNAL(sendSelectItemByList(APData)), this, SLOT(recSelectItemByList(APData)));
}

// Made when it is first needed: its keyboard and pictures would put off the page's first paint.
RaWifiInputWnd* RaWifiListWidget::inputWnd()
{
    if (m_inputWnd) {
        return m_inputWnd;
    }
    m_inputWnd = new RaWifiInputWnd(this);
    m_inputWnd->setGeometry(rect());
    m_inputWnd->hide();
    connect(m_inputWnd, SIGNAL(sendWifiInputOkMsg(APData)), this, SLOT(recWifiInputOkMsg(APData)));
    connect(m_inputWnd, SIGNAL(sendWifiInputCancelMsg()), this, SLOT(recWifiInputCancelMsg()));
    return m_inputWnd;
}

bool RaWifiListWidget::isAskingForPassword() const
{
    return m_inputWnd && !m_inputWnd->isHidden();
}

void RaWifiListWidget::showRefreshListData()
{
    raAssertOwnThread(this);
    m_list->setPassThrough(!m_linking);
    m_list->setListData();
    markRows();

    const int nCount = networkCount();
    RA_DEBUG("...nCount= %d \n", nCount);
    m_prescribedHeight = nCount == 0 ? pitchPrescribed : nCount * pitchPrescribed;
    m_list->setGeometry(0, stripHeight, pageWidth, m_prescribedHeight);
    setScanning(false);
    if (nCount == 0 && m_list->rowCount() == 0) {
        m_state->setText(tr("No networks found"));
    }
    requestFit();
    m_list->show();
    show();
}

// Later, because until then the list keeps the height that goes with its number of networks; the content keeps
// its own, so that the scroll position stays.
void RaWifiListWidget::requestFit()
{
    QCoreApplication::postEvent(m_content, new QEvent(QEvent::LayoutRequest));
}

void RaWifiListWidget::fitContent()
{
    m_list->resize(pageWidth, qMax(m_prescribedHeight, m_list->contentHeight()));
    m_content->resize(pageWidth, qMax(stripHeight + m_list->height(), m_scrollArea->height()));
}

void RaWifiListWidget::markRows()
{
    if (!addressOf(m_joining).isEmpty()) {
        m_list->setLinKAP(-1, m_joining, false);
    } else if (!m_joinedMac.isEmpty()) {
        APData joined = freshRecord();
        setField(joined.macAddr, m_joinedMac);
        m_list->setLinKAP(-1, joined, true);
    }
}

void RaWifiListWidget::setLinkAP(bool linking)
{
    raAssertOwnThread(this);
    m_linking = linking;
    m_list->setPassThrough(!linking);
}

void RaWifiListWidget::recWifiListMsg(APData ap, bool joined)
{
    raAssertOwnThread(this);
    const int row = m_list->setLinKAP(-1, ap, joined);
    m_joinedMac.clear();
    if (joined) {
        m_failed.remove(addressOf(m_joining));
        m_joinedMac = addressOf(row < 0 ? ap : m_list->rowData(row));
        m_failed.remove(m_joinedMac);
    }
    m_joining = joined ? freshRecord() : ap;
}

void RaWifiListWidget::setConnectFailed(APData ap)
{
    raAssertOwnThread(this);
    m_joining = freshRecord();
    m_joinedMac.clear();
    m_failed.insert(addressOf(ap));
    m_list->clearLinKAP();
}

void RaWifiListWidget::setClearMac()
{
    raAssertOwnThread(this);
    m_joinedMac.clear();
    m_list->clearLinKAP();
    markRows();
}

void RaWifiListWidget::setWifiSwitch(bool on)
{
    raAssertOwnThread(this);
    m_list->setWifiSwitch(on);
    if (on && m_wifiOn) {
        return;
    }
    m_wifiOn = on;
    if (!on) {
        m_list->clearRows();
        m_prescribedHeight = 0;
        requestFit();
    }
    setScanning(on);
}

void RaWifiListWidget::setScanning(bool scanning)
{
    raAssertOwnThread(this);
    m_list->setIsHideMsg(!scanning);
    m_state->setText(scanning && m_list->rowCount() > 0 ? tr("Discovering...") : QString());
}

void RaWifiListWidget::HideKeyBoardWnd()
{
    raAssertOwnThread(this);
    if (isAskingForPassword()) {
        setFocus();
    }
    if (m_inputWnd) {
        m_inputWnd->clear();
        m_inputWnd->hide();
    }
}

void RaWifiListWidget::setPrevWidget(QWidget* previous)
{
    raAssertOwnThread(this);
    m_previous = previous;
}

void RaWifiListWidget::clearData()
{
    raAssertOwnThread(this);
    m_items.clear();
}

int RaWifiListWidget::setlistItemData()
{
    raAssertOwnThread(this);
    const SharedStateLock lock(sharedStateMutex());
    std::stable_sort(APDataArray.begin(), APDataArray.end(), caseInsensitiveLessThan);
    return int(APDataArray.size());
}

void RaWifiListWidget::slotQuit()
{
    raAssertOwnThread(this);
    const QPointer<QWidget> previous = m_previous; // whoever hears of it may destroy this window
    Q_EMIT sendQuitListWnd();
    if (previous) {
        previous->show();
        previous->raise();
    }
}

void RaWifiListWidget::showBackButton(bool flag)
{
    raAssertOwnThread(this);
    m_title->setEnabled(flag);
    m_backCover->setVisible(!flag);
}

void RaWifiListWidget::slotShowConfigWnd()
{
    raAssertOwnThread(this);
    if (m_pageKind == configPage) {
        Q_EMIT signalShowWifiList();
    }
}

void RaWifiListWidget::slotListItemClick(int index)
{
    raAssertOwnThread(this);
    Q_EMIT signalItemClick(index);
}

void RaWifiListWidget::addListItem(QVector<RaItemData> items)
{
    raAssertOwnThread(this);
    m_items = items;
}

void RaWifiListWidget::resetItemData(QVector<RaItemData> items)
{
    raAssertOwnThread(this);
    RA_DEBUG("%d items", int(items.size()));
}

void RaWifiListWidget::recCheckChanged(bool isCheck)
{
    raAssertOwnThread(this);
    setWifiSwitch(isCheck);
    Q_EMIT sendWifiSwitch(isCheck);
}

void RaWifiListWidget::recMoveStep(bool isUP, int moveValue)
{
    raAssertOwnThread(this);
    QScrollBar* bar = m_scrollArea->verticalScrollBar();
    const int old = bar->value();
    const qint64 way = qAbs(qint64(moveValue));
    if (isUP) {
        RA_DEBUG("--- UP ---- ");
        bar->setValue(int(qMax<qint64>(old - way, bar->minimum())));
        RA_DEBUG("... nMin = %d,old value :%d ,new Value =%d,move Value = %d\n", bar->minimum(), old, bar->value(),
                 moveValue);
    } else {
        RA_DEBUG("--- DOWN ---- ");
        bar->setValue(int(qMin<qint64>(old + way, bar->maximum())));
        RA_DEBUG("... nMax = %d,old value :%d ,new Value =%d,move Value = %d\n", bar->maximum(), old, bar->value(),
                 moveValue);
    }
}

bool RaWifiListWidget::needsPassword(const APData& network) const
{
    return network.is_encry == 2 && (network.psk[0] == '\0' || m_failed.contains(addressOf(network)));
}

void RaWifiListWidget::recSelectItemByList(APData data)
{
    raAssertOwnThread(this);
    if (m_linking) {
        return;
    }
    if (!needsPassword(data)) {
        Q_EMIT sendWifiManageInfo(join, data);
        return;
    }
    RaWifiInputWnd* const page = inputWnd();
    page->setAPData(data);
    page->clear();
    page->show();
    page->raise();
}

void RaWifiListWidget::recWifiInputCancelMsg()
{
    raAssertOwnThread(this);
    HideKeyBoardWnd();
}

void RaWifiListWidget::recWifiInputOkMsg(APData data)
{
    raAssertOwnThread(this);
    HideKeyBoardWnd();
    Q_EMIT sendWifiManageInfo(join, data);
}

bool RaWifiListWidget::eventFilter(QObject* watched, QEvent* event)
{
    if (watched == m_content && event->type() == QEvent::LayoutRequest) {
        fitContent();
    }
    return QWidget::eventFilter(watched, event);
}

void RaWifiListWidget::resizeEvent(QResizeEvent* event)
{
    QWidget::resizeEvent(event);
    if (m_scrollArea) {
        m_scrollArea->setGeometry(0, titleHeight, pageWidth, height() - titleHeight);
        requestFit();
    }
    if (m_inputWnd) {
        m_inputWnd->setGeometry(rect());
    }
}

void RaWifiListWidget::showEvent(QShowEvent* event)
{
    QWidget::showEvent(event);
    if (!isAskingForPassword()) {
        setFocus(); // so that the keys work at once
    }
}

void RaWifiListWidget::keyPressEvent(QKeyEvent* event)
{
    switch (event->key()) {
    case Qt::Key_Up:
        m_list->keyUp();
        m_scrollArea->ensureWidgetVisible(m_list->currentItem(), 0, 0);
        break;
    case Qt::Key_Down:
        m_list->keyDown();
        m_scrollArea->ensureWidgetVisible(m_list->currentItem(), 0, 0);
        break;
    case Qt::Key_Escape:
    case Qt::Key_Back:
        slotQuit();
        break;
    default:
        QWidget::keyPressEvent(event);
        break;
    }
}
