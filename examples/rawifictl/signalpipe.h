// SPDX-FileCopyrightText: 2026 The rawificontrol authors
// SPDX-License-Identifier: MIT
#ifndef RAWIFICTL_SIGNALPIPE_H
#define RAWIFICTL_SIGNALPIPE_H

/** As long as it lives, SIGINT, SIGTERM and SIGHUP only make a pipe readable. One at a time. */
class SignalPipe
{
public:
    SignalPipe();
    /** The signals have their default effect again. */
    ~SignalPipe();

    /** Readable once a signal has come. */
    int descriptor() const;
    /** The signal that has come last, or 0. */
    int caught() const;

private:
    SignalPipe(const SignalPipe&) = delete;
    SignalPipe& operator=(const SignalPipe&) = delete;
};

#endif
