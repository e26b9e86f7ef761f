// SPDX-FileCopyrightText: 2026 The rawificontrol authors
// SPDX-License-Identifier: MIT
#include "raswitchbutton.h"

#include "qtcompat.h"
#include "raaccessible.h"
#include "rafocus.h"
#include "raswitchface.h"

#include <QKeyEvent>
#include <QPainter>
#include <QTimer>

RaSwitchButton::RaSwitchButton(QWidget* parent) : QWidget(parent), m_face(new RaSwitchFace), m_timer(new QTimer(this))
{
    raInstallAccessibility();
    setFont(RaSwitchFace::font());
    setFocusPolicy(Qt::TabFocus);
    m_face->setStepFor(width());
    m_timer->setInterval(5);
    connect(m_timer, SIGNAL(timeout()), this, SLOT(updateValue()));
}

RaSwitchButton::~RaSwitchButton() {}

QSize RaSwitchButton::sizeHint() const
{
    return QSize(60, 30);
}

bool RaSwitchButton::getChecked() const
{
    return m_face->checked;
}

RaSwitchButton::ButtonStyle RaSwitchButton::getButtonStyle() const
{
    return static_cast<ButtonStyle>(m_face->style);
}

QColor RaSwitchButton::getBgColorOff() const
{
    return m_face->bgColorOff;
}

QColor RaSwitchButton::getBgColorOn() const
{
    return m_face->bgColorOn;
}

QColor RaSwitchButton::getSliderColorOff() const
{
    return m_face->sliderColorOff;
}

QColor RaSwitchButton::getSliderColorOn() const
{
    return m_face->sliderColorOn;
}

QColor RaSwitchButton::getTextColorOff() const
{
    return m_face->textColorOff;
}

QColor RaSwitchButton::getTextColorOn() const
{
    return m_face->textColorOn;
}

QString RaSwitchButton::getTextOff() const
{
    return m_face->textOff;
}

QString RaSwitchButton::getTextOn() const
{
    return m_face->textOn;
}

QString RaSwitchButton::getImageOff() const
{
    return m_face->imageOff;
}

QString RaSwitchButton::getImageOn() const
{
    return m_face->imageOn;
}

int RaSwitchButton::getSpace() const
{
    return m_face->space;
}

int RaSwitchButton::getRectRadius() const
{
    return m_face->rectRadius;
}

void RaSwitchButton::setChecked(bool checked)
{
    if (m_face->checked != checked) {
        m_face->checked = checked;
        raAnnounceChecked(this);
        Q_EMIT checkedChanged(checked);
        update();
    }
}

void RaSwitchButton::setButtonStyle(ButtonStyle buttonStyle)
{
    m_face->style = buttonStyle;
    update();
}

void RaSwitchButton::setBgColor(QColor bgColorOff, QColor bgColorOn)
{
    m_face->bgColorOff = bgColorOff;
    m_face->bgColorOn = bgColorOn;
    update();
}

void RaSwitchButton::setSliderColor(QColor sliderColorOff, QColor sliderColorOn)
{
    m_face->sliderColorOff = sliderColorOff;
    m_face->sliderColorOn = sliderColorOn;
    update();
}

void RaSwitchButton::setTextColor(QColor textColorOff, QColor textColorOn)
{
    m_face->textColorOff = textColorOff;
    m_face->textColorOn = textColorOn;
    update();
}

void RaSwitchButton::setText(QString textOff, QString textOn)
{
    m_face->textOff = textOff;
    m_face->textOn = textOn;
    update();
}

void RaSwitchButton::setImage(QString imageOff, QString imageOn)
{
    m_face->imageOff = imageOff;
    m_face->imageOn = imageOn;
    update();
}

void RaSwitchButton::setSpace(int space)
{
    m_face->space = space;
    update();
}

void RaSwitchButton::setRectRadius(int rectRadius)
{
    m_face->rectRadius = rectRadius;
    update();
}

void RaSwitchButton::updateValue()
{
    if (m_face->glide()) {
        m_timer->stop();
    }
    update();
}

int RaSwitchButton::restingX() const
{
    return m_face->checked ? m_face->onX(rect()) : 0;
}

void RaSwitchButton::toggle()
{
    m_face->checked = !m_face->checked;
    raAnnounceChecked(this);
    Q_EMIT checkedChanged(m_face->checked);
    m_face->setStepFor(width());
    m_face->startGlide(restingX());
    m_timer->start();
}

void RaSwitchButton::mousePressEvent(QMouseEvent*)
{
    toggle();
}

void RaSwitchButton::keyPressEvent(QKeyEvent* event)
{
    if (raIsActivation(event)) {
        toggle();
    } else {
        QWidget::keyPressEvent(event);
    }
}

void RaSwitchButton::resizeEvent(QResizeEvent*)
{
    m_face->setStepFor(width());
    m_face->placeKnob(restingX());
    update();
}

void RaSwitchButton::paintEvent(QPaintEvent*)
{
    QPainter painter(this);
    if (isEnabled()) {
        draw(&painter);
    } else { // as one layer, so that the track does not shine through the knob
        QPixmap layer = raTransparentPixmap(this, size());
        QPainter layerPainter(&layer);
        layerPainter.setFont(font());
        draw(&layerPainter);
        layerPainter.end();
        painter.setOpacity(0.4);
        painter.drawPixmap(0, 0, layer);
    }
}

void RaSwitchButton::draw(QPainter* painter) const
{
    m_face->draw(painter, rect(), m_face->onX(rect()), raShowsFocus(this));
}
