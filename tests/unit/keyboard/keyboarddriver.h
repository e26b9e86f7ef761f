// SPDX-FileCopyrightText: 2026 The rawificontrol authors
// SPDX-License-Identifier: MIT
#ifndef RAWIFI_KEYBOARDDRIVER_H
#define RAWIFI_KEYBOARDDRIVER_H

#include "ravirtualkeyboard.h"
#include "ravirtualkeyboard_btn.h"

#include <QApplication>
#include <QImage>
#include <QMetaMethod>
#include <QMouseEvent>
#include <QStringList>
#include <QTimer>
#include <QTimerEvent>

// A finger, a clock and a pair of eyes for the keyboard's tests: no waiting, no pointer of the machine's own.

inline void sendMouse(QWidget* widget, QEvent::Type type, const QPoint& pos)
{
    const bool released = type == QEvent::MouseButtonRelease;
    QMouseEvent event(type, pos, widget->mapToGlobal(pos), type == QEvent::MouseMove ? Qt::NoButton : Qt::LeftButton,
                      released ? Qt::NoButton : Qt::LeftButton, Qt::NoModifier);
    QApplication::sendEvent(widget, &event);
}

inline void press(QWidget* widget)
{
    sendMouse(widget, QEvent::MouseButtonPress, widget->rect().center());
}

inline void release(QWidget* widget)
{
    sendMouse(widget, QEvent::MouseButtonRelease, widget->rect().center());
}

/** A tap after which the guard against a double click has run out. */
inline void tap(RaVirtualKeyboard_Btn* key)
{
    press(key);
    release(key);
    key->updatePressStatus();
}

/** Lets \a timer fire now. */
inline void fire(QTimer* timer)
{
    QTimerEvent event(timer->timerId());
    QApplication::sendEvent(timer, &event);
}

inline RaVirtualKeyboard_Btn* keyNamed(const RaVirtualKeyboard& keyboard, const char* name)
{
    return keyboard.findChild<RaVirtualKeyboard_Btn*>(QLatin1String(name));
}

/** The timer of the keyboard itself, not one of its keys'. */
inline QTimer* moveTimer(const RaVirtualKeyboard& keyboard)
{
    return keyboard.findChild<QTimer*>(QString(), Qt::FindDirectChildrenOnly);
}

inline QList<RaVirtualKeyboard_Btn*> allKeys(const RaVirtualKeyboard& keyboard)
{
    return keyboard.findChildren<RaVirtualKeyboard_Btn*>();
}

inline QList<RaVirtualKeyboard_Btn*> visibleKeys(const RaVirtualKeyboard& keyboard)
{
    QList<RaVirtualKeyboard_Btn*> keys;
    for (RaVirtualKeyboard_Btn* key : allKeys(keyboard)) {
        if (key->isVisible()) {
            keys << key;
        }
    }
    return keys;
}

/** Signatures of \a type that the class itself declares, in declared order. */
inline QStringList declaredMethods(const QMetaObject& metaObject, QMetaMethod::MethodType type)
{
    QStringList signatures;
    for (int i = metaObject.methodOffset(); i < metaObject.methodCount(); ++i) {
        if (metaObject.method(i).methodType() == type) {
            signatures << QString::fromLatin1(metaObject.method(i).methodSignature());
        }
    }
    return signatures;
}

/** What \a widget looks like on the dark page. */
inline QImage pictureOf(QWidget* widget)
{
    QImage image(widget->size(), QImage::Format_RGB32);
    image.fill(QColor(0x1e, 0x21, 0x29));
    widget->render(&image, QPoint(), QRegion(), QWidget::DrawChildren);
    return image;
}

/** The rectangle of all that is drawn nearly white. */
inline QRect inkOf(const QImage& image)
{
    QRect ink;
    for (int y = 0; y < image.height(); ++y) {
        for (int x = 0; x < image.width(); ++x) {
            if (qGray(image.pixel(x, y)) > 160) {
                ink |= QRect(x, y, 1, 1);
            }
        }
    }
    return ink;
}

#endif
