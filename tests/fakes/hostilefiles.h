// SPDX-FileCopyrightText: 2026 The rawificontrol authors
// SPDX-License-Identifier: MIT
#ifndef RAWIFI_HOSTILEFILES_H
#define RAWIFI_HOSTILEFILES_H

#include "fakesystem.h"

#include <QByteArray>
#include <QList>
#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

/** Plants what another process might have put where a status file is expected. */
class HostileFiles
{
public:
    enum Kind { Link, DanglingLink, HardLink, Fifo, Directory, Gigabyte };

    static QList<Kind> notRegular() { return QList<Kind>() << Link << Fifo << Directory; }

    /** What a shell's "> path" would write through or wait for. */
    static QList<Kind> traps() { return QList<Kind>() << Link << DanglingLink << HardLink << Fifo; }

    static const char* name(Kind kind)
    {
        const char* const names[] = {"link", "dangling link", "hard link", "FIFO", "directory", "huge file"};
        return names[kind];
    }

    /** Puts a thing of this \a kind at \a path, in place of what is there; a link leads to a file with \a content. */
    void plant(const char* path, Kind kind, const QByteArray& content)
    {
        fakesystem::runForReal(QByteArray("rm -rf ") + path);
        m_path = path;
        m_content = content;
        fakesystem::writeFile(target, content);
        switch (kind) {
        case Link:
            check(symlink(target, path));
            break;
        case DanglingLink:
            check(symlink(nowhere, path));
            break;
        case HardLink:
            check(link(target, path));
            break;
        case Fifo:
            check(mkfifo(path, 0666));
            break;
        case Directory:
            check(mkdir(path, 0777));
            break;
        case Gigabyte:
            fakesystem::writeFile(path, QByteArray());
            check(truncate(path, 1024L * 1024 * 1024)); // sparse
            break;
        }
    }

    /** Whether what a planted link leads to is as it was. */
    bool isUntouched() const { return fakesystem::readFile(target) == m_content && !fakesystem::exists(nowhere); }

    void reset()
    {
        if (!m_path.isEmpty()) {
            fakesystem::runForReal("rm -rf " + m_path);
            m_path.clear();
        }
    }

private:
    static void check(int result)
    {
        if (result != 0) {
            qFatal("cannot plant a file");
        }
    }

    static constexpr const char* target = "/home/target-of-a-link";
    static constexpr const char* nowhere = "/home/not-there";
    QByteArray m_path;
    QByteArray m_content;
};

#endif
