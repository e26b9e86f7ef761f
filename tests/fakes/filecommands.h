// SPDX-FileCopyrightText: 2026 The rawificontrol authors
// SPDX-License-Identifier: MIT
#ifndef RAWIFI_FILECOMMANDS_H
#define RAWIFI_FILECOMMANDS_H

#include <QByteArray>
#include <QDir>
#include <QList>
#include <cstdlib>
#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

/**
 * Carries out a line of rm, touch, echo, mkdir and chmod commands on plain paths within this process, as a shell
 * would; false, with nothing done, for any other line. For fakesystem::carryOutFilesBy(), where the start of thousands
 * of shells would take minutes.
 */
inline bool carryOutFilesHere(const QByteArray& line)
{
    QList<QList<QByteArray>> commands;
    const QByteArray needShell = "*?\"'$&|<\\`(";
    for (const char sign : needShell) {
        if (line.contains(sign)) {
            return false;
        }
    }
    for (const QByteArray& command : line.split(';')) {
        const QList<QByteArray> words = command.simplified().split(' ');
        const bool isEcho = words.size() == 3 && words.at(0) == "echo" && words.at(2).startsWith(">/");
        const bool isKnown = isEcho || words.at(0) == "rm" || words.at(0) == "touch" || words.at(0) == "mkdir"
                             || (words.at(0) == "chmod" && words.size() == 3);
        if (!isKnown || (!isEcho && command.contains('>'))) {
            return false;
        }
        commands << words;
    }
    for (const QList<QByteArray>& words : commands) {
        const QByteArray tool = words.at(0);
        if (tool == "echo") {
            const int file = open(words.at(2).constData() + 1, O_WRONLY | O_CREAT | O_TRUNC | O_CLOEXEC, 0666);
            const QByteArray text = words.at(1) + '\n';
            (void)!write(file, text.constData(), size_t(text.size()));
            close(file);
            continue;
        }
        if (tool == "chmod") {
            (void)chmod(words.at(2).constData(), mode_t(std::strtol(words.at(1).constData(), nullptr, 8)));
            continue;
        }
        for (const QByteArray& word : words.mid(1)) {
            if (word.startsWith('-')) {
                continue;
            }
            if (tool == "mkdir") {
                (void)mkdir(word.constData(), 0777);
            } else if (tool == "touch") {
                close(open(word.constData(), O_WRONLY | O_CREAT | O_CLOEXEC, 0666));
            } else if (unlink(word.constData()) != 0 && words.contains("-rf")) {
                QDir(QString::fromLocal8Bit(word)).removeRecursively();
            }
        }
    }
    return true;
}

#endif
