// SPDX-FileCopyrightText: 2026 The rawificontrol authors
// SPDX-License-Identifier: MIT
#include "doctor.h"

#include <QByteArray>
#include <QDBusConnection>
#include <QFile>
#include <cstdlib>
#include <sys/stat.h>
#include <unistd.h>

namespace {

const char* const scripts[] = {
    "/usr/bin/calldefaultconf.sh",  "/usr/bin/callwpaconf.sh",    "/usr/bin/dhcp_setip.sh",   "/usr/bin/getaplist.sh",
    "/usr/bin/getconnectstatus.sh", "/usr/bin/getfirstaplist.sh", "/usr/bin/getip.sh",        "/usr/bin/getlocalmac.sh",
    "/usr/bin/getroute.sh",         "/usr/bin/getwifistatus.sh",  "/usr/bin/getwpastatus.sh",
};
const char commonScript[] = "/usr/share/rawifi/common.sh";
const char* const sharedScripts[] = {commonScript, "/usr/share/rawifi/attempt.sh", "/usr/share/rawifi/udhcpc.sh"};
const char leaseScript[] = "/usr/share/rawifi/udhcpc.sh";

const char* const directories[] = {"/home/wifi", "/apps/config", "/etc"};

// Passwords are in them.
const char* const secretFiles[] = {"/apps/config/network.conf", "/etc/wpa_supplicant.conf",
                                   "/home/wifi/tmpnetwork.conf"};

const char supplicantClient[] = "/usr/bin/wpa_cli"; // called by its path, unlike the other programs
const char* const programs[] = {"wpa_supplicant", "wpa_cli", "udhcpc",  "ifconfig", "route", "ping",  "awk",
                                "killall",        "cat",     "grep",    "head",     "ln",    "mkdir", "mv",
                                "readlink",       "rm",      "timeout", "touch"};

QString text(const char* latin1)
{
    return QString::fromLatin1(latin1);
}

Finding fine(const char* subject)
{
    return {text(subject), QString(), QString()};
}

Finding wrong(const char* subject, const QString& problem, const QString& advice)
{
    return {text(subject), problem, advice};
}

bool shell(const QByteArray& command)
{
    return std::system(command.constData()) == 0;
}

// The library runs the scripts by "sh": they need to be readable, not executable.
Finding lookAtScript(const char* path)
{
    const QString install =
        QLatin1String("install the scripts: cmake --install BUILD --prefix /usr --component device");
    struct stat status;
    if (stat(path, &status) != 0) {
        return wrong(path, QLatin1String("is missing"), install);
    }
    if (!S_ISREG(status.st_mode) || access(path, R_OK) != 0) {
        return wrong(path, QLatin1String("cannot be read"), QLatin1String("chmod 755 ") + text(path));
    }
    if (!shell(QByteArray("sh -n ") + path)) {
        return wrong(path, QLatin1String("is no valid shell script"),
                     QString::fromLatin1("see sh -n %1, or %2").arg(text(path), install));
    }
    return fine(path);
}

bool usesSharedScripts()
{
    return shell(QByteArray("grep -qsF ") + commonScript + " /usr/bin/getwpastatus.sh");
}

Finding lookAtDirectory(const char* path)
{
    struct stat status;
    if (stat(path, &status) != 0 || !S_ISDIR(status.st_mode)) {
        return wrong(path, QLatin1String("is no directory"), QLatin1String("mkdir -p ") + text(path));
    }
    if (access(path, W_OK) != 0) {
        return wrong(path, QLatin1String("cannot be written"),
                     QLatin1String("mount it read-write, and run the host as root"));
    }
    return fine(path);
}

Finding lookAtSecretFile(const char* path)
{
    struct stat status;
    if (lstat(path, &status) != 0) {
        return fine(path); // the library makes it
    }
    if (!S_ISREG(status.st_mode)) {
        return wrong(path, QLatin1String("is no plain file"),
                     QString::fromLatin1("rm -rf %1: the library makes it anew").arg(text(path)));
    }
    if ((status.st_mode & 0777) != 0600) {
        return wrong(
            path,
            QString::fromLatin1("has mode %1 instead of 0600").arg(status.st_mode & 07777, 4, 8, QLatin1Char('0')),
            QLatin1String("chmod 600 ") + text(path));
    }
    return fine(path);
}

Finding lookAtProgram(const char* name)
{
    if (!shell(QByteArray("command -v ") + name)) {
        return wrong(
            name, QLatin1String("is not in PATH"),
            QString::fromLatin1("add %1 to the image (busybox has all but those of the supplicant)").arg(text(name)));
    }
    return fine(name);
}

bool isReachable(QDBusConnection::BusType type)
{
    const QString name = QLatin1String("rawifictl-doctor");
    const bool reached = QDBusConnection::connectToBus(type, name).isConnected();
    QDBusConnection::disconnectFromBus(name);
    return reached;
}

} // namespace

QList<Finding> scriptFindings()
{
    QList<Finding> findings;
    for (const char* path : scripts) {
        findings << lookAtScript(path);
    }
    if (!usesSharedScripts()) {
        return findings; // scripts of the device's own
    }
    for (const char* path : sharedScripts) {
        findings << lookAtScript(path);
    }
    if (findings.last().problem.isEmpty() && access(leaseScript, X_OK) != 0) {
        findings.last() = wrong(leaseScript, QLatin1String("is not executable, the DHCP client has to run it"),
                                QLatin1String("chmod 755 ") + text(leaseScript));
    }
    return findings;
}

QList<Finding> directoryFindings()
{
    QList<Finding> findings;
    for (const char* path : directories) {
        findings << lookAtDirectory(path);
    }
    return findings;
}

QList<Finding> secretFileFindings()
{
    QList<Finding> findings;
    for (const char* path : secretFiles) {
        findings << lookAtSecretFile(path);
    }
    return findings;
}

QList<Finding> programFindings()
{
    QList<Finding> findings;
    for (const char* name : programs) {
        findings << lookAtProgram(name);
    }
    findings << fine(supplicantClient);
    if (access(supplicantClient, X_OK) != 0) {
        findings.last() = wrong(supplicantClient, QLatin1String("is no program: closing Wi-Fi would keep the link"),
                                QLatin1String("ln -s \"$(command -v wpa_cli)\" ") + text(supplicantClient));
    }
    return findings;
}

// None running is fine: the scripts start one.
QList<Finding> supplicantFindings()
{
    const char subject[] = "supplicant";
    if (shell("pidof wpa_supplicant") && !shell("timeout 3 wpa_cli -i wlan0 ping | grep -q PONG")) {
        return {wrong(subject, QLatin1String("runs, but does not answer for wlan0"),
                      QLatin1String("end it: the scripts start one with ctrl_interface=/var/run/wpa_supplicant"))};
    }
    return {fine(subject)};
}

QList<Finding> interfaceFindings()
{
    if (access("/sys/class/net/wlan0", F_OK) != 0) {
        return {wrong(
            "wlan0", QLatin1String("there is no such interface"),
            QLatin1String("load the driver of the radio; an interface of another name: ip link set NAME name wlan0"))};
    }
    return {fine("wlan0")};
}

// The toolkit would try to launch a session bus where none is named.
QList<Finding> busFindings()
{
    const char subject[] = "message bus";
    const bool named = !qgetenv("DBUS_SESSION_BUS_ADDRESS").isEmpty()
                       || QFile::exists(QFile::decodeName(qgetenv("XDG_RUNTIME_DIR")) + QLatin1String("/bus"));
    if ((named && isReachable(QDBusConnection::SessionBus)) || isReachable(QDBusConnection::SystemBus)) {
        return {fine(subject)};
    }
    return {wrong(subject, QLatin1String("cannot be reached: messages stay in the process of the host"),
                  QLatin1String("start dbus-daemon, and give the host DBUS_SESSION_BUS_ADDRESS"))};
}
