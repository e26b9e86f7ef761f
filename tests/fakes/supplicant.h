// SPDX-FileCopyrightText: 2026 The rawificontrol authors
// SPDX-License-Identifier: MIT
#ifndef RAWIFI_SUPPLICANT_H
#define RAWIFI_SUPPLICANT_H

#include <QByteArray>
#include <QDir>
#include <QProcess>
#include <QProcessEnvironment>
#include <QString>
#include <cstring>
#include <poll.h>
#include <sys/socket.h>
#include <sys/un.h>
#include <unistd.h>

/**
 * The real supplicant of the virtual device, on the loopback of a network namespace of its own, reading
 * /etc/wpa_supplicant.conf. Nothing is installed: its packages are unpacked into /tmp.
 */
class Supplicant
{
public:
    Supplicant() = default;
    Supplicant(const Supplicant&) = delete;
    Supplicant& operator=(const Supplicant&) = delete;
    ~Supplicant()
    {
        if (m_socket != -1) {
            close(m_socket);
        }
        m_program.kill();
        m_program.waitForFinished();
    }

    /** Whether its packages are at hand. */
    static bool isAvailable() { return !packages().isEmpty(); }
    static QString whereItIsLookedFor() { return packageDirectory(); }

    /** Unpacks and starts it; /etc/wpa_supplicant.conf must be one that it takes. Empty, or what went wrong. */
    QByteArray start()
    {
        const QString root = QString::fromLatin1("/tmp/supplicant");
        for (const QString& package : packages()) {
            const QStringList arguments = QStringList() << QString::fromLatin1("-x") << package << root;
            if (QProcess::execute(QString::fromLatin1("dpkg-deb"), arguments) != 0) {
                return "cannot unpack " + package.toLocal8Bit();
            }
        }
        QProcessEnvironment environment = QProcessEnvironment::systemEnvironment();
        environment.insert(QString::fromLatin1("LD_LIBRARY_PATH"), libraryPath(root));
        m_program.setProcessEnvironment(environment);
        m_program.setProcessChannelMode(QProcess::MergedChannels);
        m_program.start(QString::fromLatin1("unshare"),
                        QStringList() << QString::fromLatin1("--net")
                                      << root + QString::fromLatin1("/sbin/wpa_supplicant")
                                      << QString::fromLatin1("-Dnone") << QString::fromLatin1("-ilo")
                                      << QString::fromLatin1("-c/etc/wpa_supplicant.conf"));
        QByteArray said;
        while (!said.contains("Successfully initialized")) {
            if (!m_program.waitForReadyRead(10000)) {
                return said + m_program.errorString().toLocal8Bit();
            }
            said += m_program.readAll();
        }
        for (int tries = 0; tries < 1000; ++tries) { // it says that before its control interface is there
            if (openControl()) {
                return QByteArray();
            }
            poll(nullptr, 0, 10);
        }
        return "cannot reach its control interface";
    }

    /** One request of its control interface and the answer. */
    QByteArray request(const QByteArray& text)
    {
        char answer[4096];
        pollfd waiting = {m_socket, POLLIN, 0};
        if (send(m_socket, text.constData(), static_cast<std::size_t>(text.size()), 0) == -1
            || poll(&waiting, 1, 10000) != 1) {
            return "no answer";
        }
        const ssize_t length = recv(m_socket, answer, sizeof answer, 0);
        m_program.waitForReadyRead(0); // its log must not fill the pipe
        m_program.readAll();
        return QByteArray(answer, static_cast<int>(length));
    }

private:
    static QString packageDirectory()
    {
        const QByteArray own = qgetenv("RAWIFI_VM_DIR");
        return QString::fromLocal8Bit(own.isEmpty() ? qgetenv("RAWIFI_PROJECT") + "/build/vm" : own)
               + QString::fromLatin1("/debs");
    }

    /** The supplicant and the libraries that it needs besides the C library; none when one is missing. */
    static QStringList packages()
    {
        const char* const names[] = {"wpasupplicant",     "libdbus-1-3",  "libnl-3-200",  "libnl-genl-3-200",
                                     "libnl-route-3-200", "libpcsclite1", "libreadline8", "libssl3"};
        const QDir directory(packageDirectory());
        QStringList files;
        for (const char* name : names) {
            const QStringList found =
                directory.entryList(QStringList(QString::fromLatin1(name) + QString::fromLatin1("_*.deb")));
            if (found.isEmpty()) {
                return QStringList();
            }
            files << directory.filePath(found.last());
        }
        return files;
    }

    static QString libraryPath(const QString& root)
    {
        QStringList paths;
        for (const char* place : {"/lib", "/usr/lib"}) {
            const QDir directory(root + QString::fromLatin1(place));
            for (const QString& machine : directory.entryList(QStringList(QString::fromLatin1("*-linux-*")))) {
                paths << directory.filePath(machine);
            }
        }
        return paths.join(QString::fromLatin1(":"));
    }

    static sockaddr_un addressOf(const char* path)
    {
        sockaddr_un address;
        std::memset(&address, 0, sizeof address);
        address.sun_family = AF_UNIX;
        std::strncpy(address.sun_path, path, sizeof address.sun_path - 1);
        return address;
    }

    bool openControl()
    {
        const sockaddr_un own = addressOf("/tmp/supplicant-client");
        const sockaddr_un other = addressOf("/var/run/wpa_supplicant/lo");
        if (m_socket == -1) {
            unlink(own.sun_path);
            m_socket = socket(AF_UNIX, SOCK_DGRAM | SOCK_CLOEXEC, 0);
            bind(m_socket, reinterpret_cast<const sockaddr*>(&own), sizeof own);
        }
        return connect(m_socket, reinterpret_cast<const sockaddr*>(&other), sizeof other) == 0;
    }

    QProcess m_program;
    int m_socket = -1;
};

#endif
