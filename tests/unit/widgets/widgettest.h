// SPDX-FileCopyrightText: 2026 The rawificontrol authors
// SPDX-License-Identifier: MIT
#ifndef RAWIFI_WIDGETTEST_H
#define RAWIFI_WIDGETTEST_H

#include "heapgrowth.h"

#include <QCoreApplication>
#include <QImage>
#include <QKeyEvent>
#include <QMetaMethod>
#include <QMetaProperty>
#include <QMouseEvent>
#include <QStringList>
#include <QWidget>

/** What the tests of drawn widgets share. */
namespace widgettest {

/** The signatures that a class itself declares of one kind of method, in their order. */
inline QStringList methodsOf(const QMetaObject& meta, QMetaMethod::MethodType kind)
{
    QStringList signatures;
    for (int i = meta.methodOffset(); i < meta.methodCount(); ++i) {
        if (meta.method(i).methodType() == kind) {
            signatures << QString::fromLatin1(meta.method(i).methodSignature());
        }
    }
    return signatures;
}

inline QStringList signalsOf(const QMetaObject& meta)
{
    return methodsOf(meta, QMetaMethod::Signal);
}

inline QStringList slotsOf(const QMetaObject& meta)
{
    return methodsOf(meta, QMetaMethod::Slot);
}

/** The properties that a class itself declares, in their order, as "type name". */
inline QStringList propertiesOf(const QMetaObject& meta)
{
    QStringList properties;
    for (int i = meta.propertyOffset(); i < meta.propertyCount(); ++i) {
        properties << QString::fromLatin1(meta.property(i).typeName()) + QLatin1Char(' ')
                          + QString::fromLatin1(meta.property(i).name());
    }
    return properties;
}

inline void mouse(QWidget* widget, QEvent::Type type, const QPoint& position, Qt::MouseButton button = Qt::LeftButton)
{
    QMouseEvent event(type, position, widget->mapToGlobal(position), button, button, Qt::NoModifier);
    QCoreApplication::sendEvent(widget, &event);
}

inline void press(QWidget* widget, const QPoint& position)
{
    mouse(widget, QEvent::MouseButtonPress, position);
}

inline void release(QWidget* widget, const QPoint& position, Qt::MouseButton button = Qt::LeftButton)
{
    mouse(widget, QEvent::MouseButtonRelease, position, button);
}

inline void pressKey(QWidget* widget, int key, bool repeat = false)
{
    QKeyEvent event(QEvent::KeyPress, key, Qt::NoModifier, QString(), repeat);
    QCoreApplication::sendEvent(widget, &event);
}

/** One repaint of \a widget, as a picture. A widget that is not shown gets a resize event each time. */
inline QImage pictureOf(QWidget* widget)
{
    return widget->grab().toImage().convertToFormat(QImage::Format_RGB32);
}

/** How many pixels of \a area are exactly \a color. */
inline int pixelsOf(const QImage& picture, const QRect& area, const QColor& color)
{
    int count = 0;
    for (int y = area.top(); y <= area.bottom(); ++y) {
        for (int x = area.left(); x <= area.right(); ++x) {
            count += picture.pixelColor(x, y) == color ? 1 : 0;
        }
    }
    return count;
}

/** How much light of one colour (its red, green or blue part, 0 to 255 each) the pixels of \a area send in
 * all. */
inline int lightOf(const QImage& picture, const QRect& area, int (QColor::*part)() const)
{
    int light = 0;
    for (int y = area.top(); y <= area.bottom(); ++y) {
        for (int x = area.left(); x <= area.right(); ++x) {
            light += (picture.pixelColor(x, y).*part)();
        }
    }
    return light;
}

} // namespace widgettest

#endif
