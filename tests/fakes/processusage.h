// SPDX-FileCopyrightText: 2026 The rawificontrol authors
// SPDX-License-Identifier: MIT
#ifndef RAWIFI_PROCESSUSAGE_H
#define RAWIFI_PROCESSUSAGE_H

#include <QByteArray>
#include <QDir>
#include <QFile>
#include <QString>
#include <QStringList>
#include <unistd.h>

// What this process holds, as the kernel sees it.
namespace processusage {

inline QByteArray contentOf(const QString& path)
{
    QFile file(path);
    return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray();
}

/** The ids of this process's threads. */
inline QStringList threads()
{
    const QDir directory(QLatin1String("/proc/self/task"));
    QStringList before;
    QStringList now;
    do { // a thread that ends meanwhile cuts the listing short
        before = now;
        now = directory.entryList(QDir::Dirs | QDir::NoDotAndDotDot);
    } while (now != before);
    return now;
}

/** Threads of this process without a name of their own: those of the toolkit have one. */
inline int threadCount()
{
    const QByteArray name = contentOf(QLatin1String("/proc/self/comm"));
    int count = 0;
    for (const QString& thread : threads()) {
        count += contentOf(QLatin1String("/proc/self/task/") + thread + QLatin1String("/comm")) == name ? 1 : 0;
    }
    return count;
}

/** Open file descriptors. */
inline int descriptorCount()
{
    const QDir directory(QLatin1String("/proc/self/fd"));
    return static_cast<int>(directory.entryList(QDir::AllEntries | QDir::System | QDir::NoDotAndDotDot).size());
}

/** Child processes, ended ones that nobody has waited for among them. */
inline int childCount()
{
    const QByteArray ofThisProcess = "\nPPid:\t" + QByteArray::number(static_cast<qlonglong>(getpid())) + '\n';
    int count = 0;
    for (const QString& entry : QDir(QLatin1String("/proc")).entryList(QDir::Dirs)) {
        const QByteArray status = contentOf(QLatin1String("/proc/") + entry + QLatin1String("/status"));
        count += status.contains(ofThisProcess) ? 1 : 0;
    }
    return count;
}

} // namespace processusage

#endif
