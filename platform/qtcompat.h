// SPDX-FileCopyrightText: 2026 The rawificontrol authors
// SPDX-License-Identifier: MIT
#ifndef RAWIFI_QTCOMPAT_H
#define RAWIFI_QTCOMPAT_H

// The few calls that differ between Qt 4.8, 5.15 and 6, one inline function each.

#include <QCoreApplication>
#include <QFontMetrics>
#include <QList>
#include <QMouseEvent>
#include <QPixmap>
#include <QString>
#include <QTouchEvent>
#include <QWheelEvent>
#include <QWidget>
#include <QtGlobal>
#if QT_VERSION >= QT_VERSION_CHECK(5, 0, 0)
#    include <QRegularExpression>
#else
#    include <QRegExp>
#endif

/** Width in pixels that \a text advances by in the font of \a metrics. */
inline int raTextWidth(const QFontMetrics& metrics, const QString& text)
{
#if QT_VERSION >= QT_VERSION_CHECK(5, 11, 0)
    return metrics.horizontalAdvance(text);
#else
    return metrics.width(text);
#endif
}

/** Position of a mouse event in the receiving widget's coordinates. */
inline QPoint raEventPos(const QMouseEvent* event)
{
#if QT_VERSION >= QT_VERSION_CHECK(6, 0, 0)
    return event->position().toPoint();
#else
    return event->pos();
#endif
}

/** Position of a mouse event on the screen. */
inline QPoint raEventGlobalPos(const QMouseEvent* event)
{
#if QT_VERSION >= QT_VERSION_CHECK(6, 0, 0)
    return event->globalPosition().toPoint();
#else
    return event->globalPos();
#endif
}

/** One finger of a touch event; the position is in the receiving widget's coordinates. */
struct RaFinger
{
    int id;
    int state; ///< a Qt::TouchPointState
    QPoint position;
};

inline QList<RaFinger> raFingers(const QTouchEvent* event)
{
    QList<RaFinger> fingers;
#if QT_VERSION >= QT_VERSION_CHECK(6, 0, 0)
    for (const QEventPoint& point : event->points()) {
        fingers << RaFinger{point.id(), point.state(), point.position().toPoint()};
    }
#else
    // Qt 4.8 marks the first finger with a flag above the states.
    for (const QTouchEvent::TouchPoint& point : event->touchPoints()) {
        fingers << RaFinger{point.id(), int(point.state()) & 0x0f, point.pos().toPoint()};
    }
#endif
    return fingers;
}

/** Whether \a event ends a touch without a finger being lifted (Qt 4.8 knows no such event). */
inline bool raIsTouchCancel(const QEvent* event)
{
#if QT_VERSION >= QT_VERSION_CHECK(5, 0, 0)
    return event->type() == QEvent::TouchCancel;
#else
    Q_UNUSED(event);
    return false;
#endif
}

/** A transparent pixmap of \a size for \a widget, with as many pixels as the screen has there. */
inline QPixmap raTransparentPixmap(const QWidget* widget, const QSize& size)
{
#if QT_VERSION >= QT_VERSION_CHECK(5, 6, 0)
    const qreal ratio = widget->devicePixelRatioF();
    QPixmap pixmap((QSizeF(size) * ratio).toSize());
    pixmap.setDevicePixelRatio(ratio);
#else
    (void)widget;
    QPixmap pixmap(size);
#endif
    pixmap.fill(Qt::transparent);
    return pixmap;
}

/** Whether \a text contains a match of the regular expression \a pattern (case-sensitive). */
inline bool raContainsMatch(const QString& text, const QString& pattern)
{
#if QT_VERSION >= QT_VERSION_CHECK(5, 0, 0)
    return text.contains(QRegularExpression(pattern));
#else
    return text.contains(QRegExp(pattern));
#endif
}

/** Lets a layout keep the place of \a widget while it is hidden (Qt 4.8 cannot: its neighbours grow). */
inline void raRetainSizeWhenHidden(QWidget* widget)
{
#if QT_VERSION >= QT_VERSION_CHECK(5, 2, 0)
    QSizePolicy policy = widget->sizePolicy();
    policy.setRetainSizeWhenHidden(true);
    widget->setSizePolicy(policy);
#else
    Q_UNUSED(widget);
#endif
}

/** Translation of \a text, which is UTF-8 in the source, in \a context. */
inline QString raTranslateUtf8(const char* context, const char* text)
{
#if QT_VERSION >= QT_VERSION_CHECK(5, 0, 0)
    return QCoreApplication::translate(context, text);
#else
    return QCoreApplication::translate(context, text, nullptr, QCoreApplication::UnicodeUTF8);
#endif
}

/** Turn of the wheel away from the user in eighths of a degree; one notch is 120. */
inline int raWheelDelta(const QWheelEvent* event)
{
#if QT_VERSION >= QT_VERSION_CHECK(5, 0, 0)
    return event->angleDelta().y();
#else
    return event->orientation() == Qt::Vertical ? event->delta() : 0;
#endif
}

#endif
