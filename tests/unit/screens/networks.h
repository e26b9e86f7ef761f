// SPDX-FileCopyrightText: 2026 The rawificontrol authors
// SPDX-License-Identifier: MIT
#ifndef RAWIFI_NETWORKS_H
#define RAWIFI_NETWORKS_H

#include "rawifiglobals.h"
#include "rawifirecords.h"

#include <QByteArray>
#include <QCoreApplication>
#include <QList>
#include <QMetaType>
#include <QMouseEvent>
#include <QWidget>
#include <cstdio>
#include <cstring>

// Networks in the air, and a finger on the screen, for the tests of the screens.

/** The access point number \a number of the air: its address ends with the number. */
inline APData network(int number, const QByteArray& name, bool locked = true, int level = 3, const char* password = "")
{
    APData record;
    std::memset(&record, 0, sizeof record);
    std::strncpy(record.essid, name.constData(), sizeof record.essid - 1);
    std::snprintf(record.macAddr, sizeof record.macAddr, "02:00:00:00:%02x:%02x", number / 256 % 256, number % 256);
    std::strncpy(record.psk, password, sizeof record.psk - 1);
    record.encry[0] = locked ? WPA2_PSK : NOENCRY;
    record.encry[1] = NOENCRY;
    record.is_encry = locked ? 2 : 1;
    record.sigquality = level;
    record.orderbynum = 999;
    return record;
}

inline QList<APData> networks(int count)
{
    QList<APData> records;
    for (int i = 0; i < count; ++i) {
        records << network(i, "Network " + QByteArray::number(i), i % 2 == 0, 1 + i % 4);
    }
    return records;
}

/** Makes \a records the result of the last scan. */
inline void setAir(const QList<APData>& records)
{
    qDeleteAll(APDataArray);
    APDataArray.clear();
    for (const APData& record : records) {
        APDataArray << new APData(record);
    }
}

/** A finger on \a widget at the point \a global of the screen. */
inline void finger(QWidget* widget, QEvent::Type type, const QPoint& global)
{
    const Qt::MouseButton button = type == QEvent::MouseMove ? Qt::NoButton : Qt::LeftButton;
    const Qt::MouseButtons buttons = type == QEvent::MouseButtonRelease ? Qt::NoButton : Qt::LeftButton;
    QMouseEvent event(type, widget->mapFromGlobal(global), global, button, buttons, Qt::NoModifier);
    QCoreApplication::sendEvent(widget, &event);
}

inline void tap(QWidget* widget)
{
    const QPoint middle = widget->mapToGlobal(widget->rect().center());
    finger(widget, QEvent::MouseButtonPress, middle);
    finger(widget, QEvent::MouseButtonRelease, middle);
}

/** Lets the deletions happen that were put off. */
inline void sweep()
{
    QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
}

#endif
