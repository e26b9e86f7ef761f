// SPDX-FileCopyrightText: 2026 The rawificontrol authors
// SPDX-License-Identifier: MIT
#include "raitempushbtn.h"

#include "displayname.h"
#include "fittedtext.h"
#include "pictures.h"
#include "qtcompat.h"
#include "rafocus.h"
#include "ralog.h"
#include "ratheme.h"
#include "recordtext.h"
#include "screenfonts.h"

#include <QKeyEvent>
#include <QPainter>
#include <QPointer>

namespace {

const QRect backgroundRect(QPoint(0, 0), QPoint(319, 59));
const QRect signalRect(QPoint(2, 15), QPoint(31, 44));
const QRect singleNameRect(QPoint(35, 10), QPoint(284, 39));
const QRect upperNameRect(QPoint(35, 6), QPoint(284, 30));
const QRect statusRect(QPoint(35, 30), QPoint(284, 49));
const QRect markRect(QPoint(260, 14), QPoint(289, 43));

const int nameWidth = 260 - 35 - 4; // up to the mark, which lies inside the name's rectangle
const int namePixels = 18;
const int smallestNamePixels = 11;
const int statusPixels = 13;

const int pressMs = 100;
const int tapLookMs = 120;

} // namespace

RaItemPushBtn::RaItemPushBtn(QWidget* parent) : QPushButton(parent), m_data(freshRecord())
{
    m_signalPicture = getImageData(false, 0);
    setStyle(RaVirtualKeyboard_ProxyStyle::shared());
    setFocusPolicy(Qt::TabFocus);
    connect(&m_pressTimer, SIGNAL(timeout()), this, SLOT(pressOnSlot()));
    connect(&m_tapTimer, SIGNAL(timeout()), this, SLOT(updatePressStatus()));
}

void RaItemPushBtn::addItemData(APData* data, int index)
{
    if (!data) {
        return;
    }
    m_data = *data;
    m_index = index;
    m_Text = displayName(m_data);
    RA_DEBUG("essid=%s", m_Text.toUtf8().constData());
    // Of is_encry only 2 means locked: 1 is open, and must not look locked.
    m_signalPicture = getImageData(m_data.is_encry == 2, m_data.sigquality);
    setAccessibleName(m_Text);
    update();
}

QString RaItemPushBtn::getImageData(bool locked, int level) const
{
    return signalPicture(locked, level);
}

void RaItemPushBtn::setConnectingStatus(bool connecting)
{
    if (connecting) {
        setConnectState(Joining, raTranslateUtf8("RaItemPushBtn",
                                                 QT_TRANSLATE_NOOP_UTF8("RaItemPushBtn", "正在连接中，请等待...")));
    } else {
        setConnectState(Idle, QString());
    }
}

void RaItemPushBtn::setConnectSuccess()
{
    setConnectState(Joined, raTranslateUtf8("RaItemPushBtn", QT_TRANSLATE_NOOP_UTF8("RaItemPushBtn", "已连接")));
}

void RaItemPushBtn::setConnectState(ConnectState state, const QString& status)
{
    m_connectState = state;
    m_statusText = status;
    setAccessibleDescription(status);
    update();
}

void RaItemPushBtn::setCheckState(bool checked)
{
    m_checked = checked;
    update();
}

void RaItemPushBtn::setIsHideMsg(bool hidden)
{
    m_isHideMsg = hidden;
    update();
}

int RaItemPushBtn::getPushBtnIndex() const
{
    return m_index;
}

APData RaItemPushBtn::getItemData() const
{
    return m_data;
}

QString RaItemPushBtn::getText() const
{
    return m_Text;
}

void RaItemPushBtn::setText(const QString& text)
{
    RA_DEBUG("setText=%s", text.toUtf8().constData());
    m_Text = displayName(text.toUtf8());
    RA_DEBUG("m_Text=%s", m_Text.toUtf8().constData());
    setAccessibleName(m_Text);
    QPushButton::setText(m_Text);
    setType(m_keyType);
    update();
}

void RaItemPushBtn::setType(KEYBOARDTYPE type)
{
    m_keyType = type;
    if (type == IMAGEBTN || type == SWITCHIMAGEBTN) {
        QPushButton::setText(QString());
    }
}

void RaItemPushBtn::updateStyle()
{
    style()->unpolish(this);
    style()->polish(this);
    update();
}

void RaItemPushBtn::cancelPress()
{
    m_pressTimer.stop();
    m_isPressOn = false;
    setDown(false);
    update();
}

void RaItemPushBtn::updatePressStatus()
{
    m_tapTimer.stop();
    m_isPressFinish = true;
    update();
}

void RaItemPushBtn::pressOnSlot()
{
    m_pressTimer.stop();
    m_isPressOn = true;
    update();
}

// A row draws all of itself, so nothing of its style sheet would be seen; parsing it for each of many rows would take
// longer than everything else about them.
bool RaItemPushBtn::event(QEvent* event)
{
    const bool wouldParse = event->type() == QEvent::Polish || event->type() == QEvent::StyleChange;
    return wouldParse || QPushButton::event(event);
}

void RaItemPushBtn::paintEvent(QPaintEvent*)
{
    QPainter painter(this);
    drawBg(&painter);
    drawText(&painter);
    if (raShowsFocus(this)) {
        raDrawFocusMark(&painter, rect().adjusted(0, 1, 0, -3), 8); // the next row covers the last 3 pixels
    }
}

void RaItemPushBtn::drawBg(QPainter* painter) const
{
    painter->setPen(Qt::NoPen);
    painter->setBrush(RaTheme::accent());
    painter->fillRect(backgroundRect, RaTheme::row());
    painter->drawPixmap(backgroundRect, picture(QLatin1String("/apps/res/item-unselected.png")));
    if (looksPressed()) {
        painter->fillRect(backgroundRect, QColor(255, 255, 255, 28));
    }
}

void RaItemPushBtn::drawText(QPainter* painter) const
{
    const Qt::Alignment leftBottom = Qt::AlignLeft | Qt::AlignAbsolute | Qt::AlignBottom;
    const bool statusShown = m_connectState != Idle && !m_isHideMsg;
    const FittedText name = fitText(shortenedName(m_Text), screenFont(), nameWidth, namePixels, smallestNamePixels);

    painter->setPen(RaTheme::text());
    painter->drawPixmap(signalRect, picture(m_signalPicture));
    painter->setFont(name.font);
    painter->drawText(statusShown ? upperNameRect : singleNameRect, leftBottom | Qt::TextSingleLine, name.text);
    if (statusShown) {
        painter->setFont(screenFont(statusPixels));
        painter->drawText(statusRect, leftBottom | Qt::TextSingleLine, m_statusText);
    }
    painter->drawPixmap(markRect, picture(m_checked ? QLatin1String("/apps/res/selectwifi.png")
                                                    : QLatin1String("/apps/res/wifiicon.png")));
}

bool RaItemPushBtn::looksPressed() const
{
    return (isDown() && m_isPressOn) || !m_isPressFinish;
}

void RaItemPushBtn::mousePressEvent(QMouseEvent* event)
{
    m_isPressOn = false;
    m_pressTimer.start(pressMs);
    QPushButton::mousePressEvent(event);
}

void RaItemPushBtn::mouseReleaseEvent(QMouseEvent* event)
{
    m_pressTimer.stop();
    m_isPressOn = false;
    const bool inside = rect().contains(raEventPos(event));
    if (inside) {
        m_pressTimer.start(pressMs);
        m_isPressFinish = false;
        m_tapTimer.start(tapLookMs);
    }
    const QPointer<RaItemPushBtn> self(this);
    m_isReleasing = true;
    QPushButton::mouseReleaseEvent(event);
    if (self) {
        m_isReleasing = false;
        if (inside) {
            reportClick();
        }
    }
}

void RaItemPushBtn::keyPressEvent(QKeyEvent* event)
{
    if (raIsActivation(event)) {
        reportClick();
    } else {
        event->ignore(); // the list moves its current row, and not the button the focus
    }
}

// A click that is no finger's: an assistive tool presses the button.
void RaItemPushBtn::nextCheckState()
{
    if (!m_isReleasing) {
        reportClick();
    }
}

void RaItemPushBtn::reportClick()
{
    RA_DEBUG("clicked(%d)", m_index);
    Q_EMIT clicked(m_data, m_index);
}

QString HexQString_to_QString(const QString& hex)
{
    const QByteArray digits = QString(hex).remove(QLatin1Char(' ')).toLatin1();
    return QString::fromLocal8Bit(QByteArray::fromHex(digits));
}
