// SPDX-FileCopyrightText: 2026 The rawificontrol authors
// SPDX-License-Identifier: MIT
#ifndef RAWIFI_QTCOMPAT_H
#define RAWIFI_QTCOMPAT_H

// The few calls that differ between Qt 4.8, 5.15 and 6, one inline function each.

#include <QFontMetrics>
#include <QMouseEvent>
#include <QString>
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

/** Whether \a text contains a match of the regular expression \a pattern (case-sensitive). */
inline bool raContainsMatch(const QString& text, const QString& pattern)
{
#if QT_VERSION >= QT_VERSION_CHECK(5, 0, 0)
    return text.contains(QRegularExpression(pattern));
#else
    return text.contains(QRegExp(pattern));
#endif
}

#endif
