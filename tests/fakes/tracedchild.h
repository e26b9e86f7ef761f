// SPDX-FileCopyrightText: 2026 The rawificontrol authors
// SPDX-License-Identifier: MIT
#ifndef RAWIFI_TRACEDCHILD_H
#define RAWIFI_TRACEDCHILD_H

#include <QByteArray>
#include <QFile>
#include <csignal>
#include <cstddef>
#include <fcntl.h>
#include <functional>
#include <sys/ptrace.h>
#include <sys/user.h>
#include <sys/wait.h>
#include <unistd.h>

/** Runs code in a child process that can be killed at, or fail in, each of its system calls. */
namespace tracedchild {

/** One system call of the child, while the child stands still at its entry or its exit. */
struct SystemCall
{
    pid_t process;
    bool isEntry;
    long number;            ///< SYS_...
    unsigned long words[6]; ///< its arguments

    /** What the descriptor in argument \a index is open on. */
    QByteArray fileOf(int index) const
    {
        char name[4096];
        const QByteArray link = "/proc/" + QByteArray::number(process) + "/fd/" + QByteArray::number(int(words[index]));
        const ssize_t length = readlink(link.constData(), name, sizeof name);
        return QByteArray(name, length > 0 ? static_cast<int>(length) : 0);
    }

    /** The text that argument \a index points to. */
    QByteArray textOf(int index) const
    {
        QFile memory(QLatin1String("/proc/") + QString::number(process) + QLatin1String("/mem"));
        QByteArray text;
        char c = '\0';
        if (memory.open(QIODevice::ReadOnly | QIODevice::Unbuffered)
            && memory.seek(static_cast<qint64>(words[index]))) {
            while (memory.read(&c, 1) == 1 && c != '\0') {
                text += c;
            }
        }
        return text;
    }
};

/**
 * What becomes of a system call. Fail: it is not carried out (at its entry), or only said to have failed (at its
 * exit). Halve: its third argument is, for a short write (at its entry).
 */
struct Fate
{
    enum Kind { Go, Kill, Fail, Halve } kind;
    int error;
};
typedef std::function<Fate(const SystemCall&)> Judge;

#ifdef __x86_64__
const bool canChangeCalls = true;
inline void change(pid_t process, std::size_t offset, long value)
{
    ptrace(PTRACE_POKEUSER, process, offset, value);
}
inline void skipCall(pid_t process)
{
    change(process, offsetof(user_regs_struct, orig_rax), -1);
}
inline void setResult(pid_t process, long value)
{
    change(process, offsetof(user_regs_struct, rax), value);
}
inline void setThirdWord(pid_t process, long value)
{
    change(process, offsetof(user_regs_struct, rdx), value);
}
#else
const bool canChangeCalls = false;
inline void skipCall(pid_t) {}
inline void setResult(pid_t, long) {}
inline void setThirdWord(pid_t, long) {}
#endif

/** In the child: the calls between these two are judged. */
inline void begin()
{
    kill(getpid(), SIGSTOP);
}
inline void end()
{
    kill(getpid(), SIGSTOP);
}

/** Runs \a body in a child; returns its result (0 to 255), or -1 when it was killed. */
inline int run(const std::function<int()>& body, const Judge& judge)
{
    const pid_t child = fork();
    if (child == 0) {
        ptrace(PTRACE_TRACEME, 0, nullptr, nullptr);
        _exit(body());
    }
    int status = 0;
    bool isTraced = false;
    long pendingError = 0;
    SystemCall call = {child, false, 0, {}};
    while (waitpid(child, &status, 0) == child && WIFSTOPPED(status)) {
        const int signal = WSTOPSIG(status);
        if (signal == SIGSTOP && isTraced) {
            ptrace(PTRACE_DETACH, child, nullptr, nullptr);
            continue;
        }
        if (signal == SIGSTOP) {
            isTraced = true;
            ptrace(PTRACE_SETOPTIONS, child, nullptr, PTRACE_O_TRACESYSGOOD | PTRACE_O_EXITKILL);
        } else if (signal == (SIGTRAP | 0x80)) {
            __ptrace_syscall_info info;
            ptrace(PTRACE_GET_SYSCALL_INFO, child, sizeof info, &info);
            call.isEntry = info.op == PTRACE_SYSCALL_INFO_ENTRY;
            if (call.isEntry) {
                call.number = static_cast<long>(info.entry.nr);
                for (int i = 0; i < 6; ++i) {
                    call.words[i] = info.entry.args[i];
                }
            } else if (pendingError != 0) {
                setResult(child, -pendingError);
                pendingError = 0;
            }
            const Fate fate = judge(call);
            if (fate.kind == Fate::Kill) {
                kill(child, SIGKILL);
                continue;
            }
            if (fate.kind == Fate::Fail && call.isEntry) {
                pendingError = fate.error;
                skipCall(child);
            } else if (fate.kind == Fate::Fail) {
                setResult(child, -fate.error);
            } else if (fate.kind == Fate::Halve) {
                setThirdWord(child, static_cast<long>(call.words[2] / 2));
            }
        }
        const bool isOwn = signal == SIGSTOP || (signal & SIGTRAP) == SIGTRAP;
        ptrace(PTRACE_SYSCALL, child, nullptr, isOwn ? 0 : signal);
    }
    return WIFEXITED(status) ? WEXITSTATUS(status) : -1;
}

} // namespace tracedchild

#endif
