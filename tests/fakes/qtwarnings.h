// SPDX-FileCopyrightText: 2026 The rawificontrol authors
// SPDX-License-Identifier: MIT
#ifndef RAWIFI_QTWARNINGS_H
#define RAWIFI_QTWARNINGS_H

#include <QList>
#include <QString>
#include <mutex>

/**
 * Collects what the toolkit warns about, on any thread, from start() on; a test asks for it in its cleanup()
 * and fails unless it is empty ("Timers cannot be started from another thread" is such a warning).
 */
class QtWarnings
{
public:
    /** To be called once the test framework has installed its own handler: in initTestCase(). */
    static void start() { previous() = qInstallMessageHandler(&QtWarnings::handle); }

    static QString take()
    {
        const std::lock_guard<std::mutex> lock(mutex());
        const QString all = list().join(QLatin1Char('\n'));
        list().clear();
        return all;
    }

private:
    static void handle(QtMsgType type, const QMessageLogContext& context, const QString& message)
    {
        if (type == QtWarningMsg || type == QtCriticalMsg) {
            const std::lock_guard<std::mutex> lock(mutex());
            list().append(message);
        }
        previous()(type, context, message);
    }
    static QtMessageHandler& previous()
    {
        static QtMessageHandler handler = nullptr;
        return handler;
    }
    static std::mutex& mutex()
    {
        static std::mutex instance;
        return instance;
    }
    static QStringList& list()
    {
        static QStringList instance;
        return instance;
    }
};

#endif
