// SPDX-FileCopyrightText: 2026 The rawificontrol authors
// SPDX-License-Identifier: MIT
#ifndef RAWIFI_FAKESYSTEM_H
#define RAWIFI_FAKESYSTEM_H

#include <QByteArray>
#include <QList>
#include <functional>

/**
 * Stands in front of the C library's system(), sleeps and sync() for the whole test process.
 *
 * Every command line is recorded. A command that a script answers is handed to it; the plain file
 * commands (rm, echo, touch, mkdir, chmod, cat, cp) run for real, since the test has a root of its own; anything
 * else only counts as run. Sleeps are recorded and return at once. All functions are for any thread.
 */
namespace fakesystem {

/** While it lives, a thread inside a fake can be cancelled if its caller could be. */
class Interruptible
{
public:
    Interruptible();
    ~Interruptible();
    Interruptible(const Interruptible&) = delete;
    Interruptible& operator=(const Interruptible&) = delete;

private:
    int m_before = -1;
};

/** Forgets all commands, sleeps, scripts and counts. */
void reset();

typedef std::function<void()> Script;

/**
 * Answers the command "sh /usr/bin/NAME..." by \a script, then runs what follows the ';' (touching the marker).
 * A later script of the same name takes the place of the earlier one.
 */
void answer(const char* name, const Script& script);

/** The same, without what follows the ';': the script never comes to its end, its shell is killed. */
void answerWithoutEnd(const char* name, const Script& script);

/** Has exactly this command line, whatever it is, carried out by \a script alone: nothing else runs. */
void answerCommand(const QByteArray& command, const Script& script);

/**
 * Has \a carrier carry out the file commands, also those behind a script, instead of a real shell: all those for which
 * it returns true.
 */
void carryOutFilesBy(const std::function<bool(const QByteArray& command)>& carrier);

/** Called before each recorded command on the thread that runs it, for tests that force an order of threads. */
void beforeCommand(const std::function<void(const QByteArray& command)>& hook);

/** Called for each sleep (milliseconds) on the thread that sleeps. */
void onSleep(const std::function<void(int milliseconds)>& hook);

/** Called for each sync() on the thread that calls it. */
void onSync(const std::function<void()>& hook);

QList<QByteArray> commands();
int count(const QByteArray& command);

/** All sleeps so far in milliseconds, of all threads. */
QList<int> sleeps();
/** The sleeps of the calling thread only. */
QList<int> sleepsHere();

/** How many threads that have run a command have ended. What they have written is then the asking thread's to read. */
int endedThreads();

int syncs();

/** What system() returns for commands that are only counted. */
void setStatus(int status);

/** Runs a command line for real and unrecorded, for a test's own preparations. */
int runForReal(const QByteArray& command);

// File helpers for the scripts.
void writeFile(const char* path, const QByteArray& bytes);
QByteArray readFile(const char* path);
bool exists(const char* path);
/** Empties a directory. */
void removeFilesIn(const char* directory);

} // namespace fakesystem

#endif
