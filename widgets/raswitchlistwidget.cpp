// SPDX-FileCopyrightText: 2026 The rawificontrol authors
// SPDX-License-Identifier: MIT
#include "raswitchlistwidget.h"

#include "qtcompat.h"
#include "raaccessible.h"
#include "rafocus.h"
#include "ralog.h"
#include "raswitchface.h"
#include "ratheme.h"

#include <QKeyEvent>
#include <QPainter>
#include <QTimer>

namespace {

const int ItemHeight = 59;
const int LeastItemHeight = 20;
const int TextLeft = 35;
const QSize SwitchSize(60, 30);
const int SwitchRightMargin = 25;
const int FingerMargin = 10;
const int SwitchOnX = 30;

} // namespace

RaSwitchListWidget::RaSwitchListWidget(QWidget* parent)
    : RaBaseWidget(parent),
      m_face(new RaSwitchFace),
      m_timer(new QTimer(this))
{
    raInstallAccessibility();
    setFocusPolicy(Qt::TabFocus);
    m_face->setStepFor(SwitchSize.width());
    m_timer->setInterval(5);
    connect(m_timer, SIGNAL(timeout()), this, SLOT(updateValue()));
}

RaSwitchListWidget::~RaSwitchListWidget() {}

QSize RaSwitchListWidget::sizeHint() const
{
    return QSize(320, ItemHeight);
}

bool RaSwitchListWidget::getChecked() const
{
    return m_face->checked;
}

RaSwitchListWidget::ButtonStyle RaSwitchListWidget::getButtonStyle() const
{
    return static_cast<ButtonStyle>(m_face->style);
}

QColor RaSwitchListWidget::getBgColorOff() const
{
    return m_face->bgColorOff;
}

QColor RaSwitchListWidget::getBgColorOn() const
{
    return m_face->bgColorOn;
}

QColor RaSwitchListWidget::getSliderColorOff() const
{
    return m_face->sliderColorOff;
}

QColor RaSwitchListWidget::getSliderColorOn() const
{
    return m_face->sliderColorOn;
}

QColor RaSwitchListWidget::getTextColorOff() const
{
    return m_face->textColorOff;
}

QColor RaSwitchListWidget::getTextColorOn() const
{
    return m_face->textColorOn;
}

QString RaSwitchListWidget::getTextOff() const
{
    return m_face->textOff;
}

QString RaSwitchListWidget::getTextOn() const
{
    return m_face->textOn;
}

QString RaSwitchListWidget::getImageOff() const
{
    return m_face->imageOff;
}

QString RaSwitchListWidget::getImageOn() const
{
    return m_face->imageOn;
}

int RaSwitchListWidget::getSpace() const
{
    return m_face->space;
}

int RaSwitchListWidget::getRectRadius() const
{
    return m_face->rectRadius;
}

void RaSwitchListWidget::setChecked(bool checked)
{
    if (m_face->checked != checked) {
        m_face->checked = checked;
        raAnnounceChecked(this);
        Q_EMIT checkedChanged(checked);
        update();
    }
}

void RaSwitchListWidget::setButtonStyle(ButtonStyle buttonStyle)
{
    m_face->style = buttonStyle;
    update();
}

void RaSwitchListWidget::setBgColor(QColor bgColorOff, QColor bgColorOn)
{
    m_face->bgColorOff = bgColorOff;
    m_face->bgColorOn = bgColorOn;
    update();
}

void RaSwitchListWidget::setSliderColor(QColor sliderColorOff, QColor sliderColorOn)
{
    m_face->sliderColorOff = sliderColorOff;
    m_face->sliderColorOn = sliderColorOn;
    update();
}

void RaSwitchListWidget::setTextColor(QColor textColorOff, QColor textColorOn)
{
    m_face->textColorOff = textColorOff;
    m_face->textColorOn = textColorOn;
    update();
}

void RaSwitchListWidget::setText(QString textOff, QString textOn)
{
    m_face->textOff = textOff;
    m_face->textOn = textOn;
    update();
}

void RaSwitchListWidget::setImage(QString imageOff, QString imageOn)
{
    m_face->imageOff = imageOff;
    m_face->imageOn = imageOn;
    update();
}

void RaSwitchListWidget::setSpace(int space)
{
    m_face->space = space;
    update();
}

void RaSwitchListWidget::setRectRadius(int rectRadius)
{
    m_face->rectRadius = rectRadius;
    update();
}

void RaSwitchListWidget::setSwitchPos(int pos)
{
    RA_DEBUG("pos =%d", pos);
    m_switchPos = pos;
    update();
}

void RaSwitchListWidget::setItemText(const QString& message, const QString& name)
{
    m_message = message;
    m_name = name;
    setAccessibleName(name);
    setAccessibleDescription(message);
    update();
}

void RaSwitchListWidget::setIsHideMsg(bool hidden)
{
    m_isHideMsg = hidden;
    update();
}

QRect RaSwitchListWidget::item1Rect() const
{
    return QRect(0, 0, width(), qMin(height(), ItemHeight));
}

QRect RaSwitchListWidget::item2Rect() const
{
    const int rest = height() - ItemHeight;
    const bool wanted = !m_isHideMsg || m_switchPos != 1;
    return wanted && rest >= LeastItemHeight ? QRect(0, ItemHeight, width(), rest) : QRect();
}

QRect RaSwitchListWidget::otherRect() const
{
    return m_switchPos == 1 ? item2Rect() : item1Rect();
}

QRect RaSwitchListWidget::switchRect() const
{
    const QRect item = m_switchPos == 1 ? item1Rect() : item2Rect();
    if (item.isEmpty()) {
        return QRect();
    }
    const int left = item.right() + 1 - SwitchRightMargin - SwitchSize.width();
    const int top = item.top() + (item.height() - SwitchSize.height()) / 2;
    return QRect(QPoint(left, top), SwitchSize);
}

QRect RaSwitchListWidget::hitRect() const
{
    const QRect shown = switchRect();
    return shown.isEmpty() ? QRect() : shown.adjusted(-FingerMargin, -FingerMargin, FingerMargin, FingerMargin);
}

void RaSwitchListWidget::updateValue()
{
    if (m_face->glide()) {
        m_timer->stop();
    }
    update();
}

int RaSwitchListWidget::restingX() const
{
    return m_face->checked ? SwitchOnX : 0;
}

void RaSwitchListWidget::toggle()
{
    m_face->checked = !m_face->checked;
    m_face->startGlide(restingX());
    raAnnounceChecked(this);
    Q_EMIT checkedChanged(m_face->checked);
    m_timer->start();
}

void RaSwitchListWidget::mousePressEvent(QMouseEvent* event)
{
    const QPoint position = raEventPos(event);
    const QRect other = otherRect();
    if (hitRect().contains(position, true)) {
        RA_DEBUG("switch pressed!!!,click item");
        toggle();
    } else if (position.y() >= other.top() && position.y() <= other.bottom()) {
        RA_DEBUG("config item pressed!!!");
        Q_EMIT configPressed();
    } else {
        RA_DEBUG("not valid pressed");
    }
}

void RaSwitchListWidget::keyPressEvent(QKeyEvent* event)
{
    if (raIsActivation(event) && !switchRect().isEmpty()) {
        toggle();
    } else if (event->key() == Qt::Key_Menu && !event->isAutoRepeat() && !otherRect().isEmpty()) {
        Q_EMIT configPressed();
    } else {
        RaBaseWidget::keyPressEvent(event);
    }
}

void RaSwitchListWidget::resizeEvent(QResizeEvent*)
{
    const QRect item1 = item1Rect();
    const QRect item2 = item2Rect();
    RA_DEBUG("item1Rect (%d,%d)-(%d,%d)", item1.left(), item1.top(), item1.right(), item1.bottom());
    RA_DEBUG("item2Rect (%d,%d)-(%d,%d)", item2.left(), item2.top(), item2.right(), item2.bottom());
    m_face->placeKnob(restingX());
    update();
}

void RaSwitchListWidget::paintEvent(QPaintEvent*)
{
    QPainter painter(this);
    painter.fillRect(rect(), RaTheme::background());
    const QRect item2 = item2Rect();
    drawItem(&painter, item1Rect(), m_name);
    if (!item2.isEmpty()) {
        drawItem(&painter, item2, m_isHideMsg ? QString() : m_message);
        painter.fillRect(TextLeft, item2.top(), width() - TextLeft, 1, RaTheme::separator());
    }
    if (!switchRect().isEmpty()) {
        painter.setFont(RaSwitchFace::font());
        m_face->draw(&painter, switchRect(), SwitchOnX, raShowsFocus(this));
    }
    if (!isEnabled()) {
        QColor veil = RaTheme::row();
        veil.setAlpha(150);
        painter.fillRect(rect(), veil);
    }
}

void RaSwitchListWidget::drawItem(QPainter* painter, const QRect& item, const QString& text)
{
    painter->fillRect(item, RaTheme::row());
    QFont textFont = font();
    textFont.setPixelSize(18);
    const int end = item.contains(switchRect()) ? switchRect().left() - FingerMargin : width() - SwitchRightMargin;
    const QRect room(TextLeft, item.top(), qMax(0, end - TextLeft), item.height());
    painter->setFont(textFont);
    painter->setPen(RaTheme::text());
    painter->drawText(room, Qt::AlignLeft | Qt::AlignVCenter,
                      QFontMetrics(textFont).elidedText(text, Qt::ElideRight, room.width()));
}
