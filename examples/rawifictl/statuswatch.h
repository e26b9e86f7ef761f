// SPDX-FileCopyrightText: 2026 The rawificontrol authors
// SPDX-License-Identifier: MIT
#ifndef RAWIFICTL_STATUSWATCH_H
#define RAWIFICTL_STATUSWATCH_H

#include "linkstatus.h"
#include "output.h"

#include <QObject>
#include <QTimer>

/** Prints the link's status once, and again whenever it has changed: a line, or a JSON document on a line. */
class StatusWatch : public QObject
{
    Q_OBJECT
public:
    /** Looks every \a interval milliseconds, as long as it lives. */
    StatusWatch(Output& output, int interval);

private Q_SLOTS:
    void look();

private:
    Output& m_output;
    QTimer m_timer;
    QJsonObject m_shown;
};

#endif
