// SPDX-FileCopyrightText: 2026 The rawificontrol authors
// SPDX-License-Identifier: MIT

// rawifictl: the library's back end on a console.

#include "commands.h"

#include <QApplication>
#include <QFontMetrics>
#include <QList>
#include <cstdio>
#include <cstring>
#include <sys/stat.h>

namespace {

const char usage[] =
    "usage: rawifictl [--json] [--verbose] COMMAND\n"
    "  scan                      list the access points in reach\n"
    "  join NAME [PASSWORD]      join by name or BSSID; '-' reads the password from standard input\n"
    "       [--shared] [--key-index N]   for WEP\n"
    "  status                    the link as the supplicant sees it\n"
    "  saved                     list the saved networks\n"
    "  forget NAME               forget a saved network by name or BSSID\n"
    "  monitor [--interval MS] [--polls N]   watch the link until it is lost\n"
    "exit status: 0 done, 1 not done, 2 wrong usage\n";

struct Arguments
{
    QList<QByteArray> words;
    bool json = false;
    bool verbose = false;
    bool help = false;
    bool wrong = false;
    JoinRequest join;
    int interval = 8000;
    int polls = 0;
};

bool readNumber(const QList<QByteArray>& all, int& i, int least, int most, int& number)
{
    bool isNumber = false;
    number = ++i < all.size() ? all.at(i).toInt(&isNumber) : 0;
    return isNumber && number >= least && number <= most;
}

Arguments parse(const QList<QByteArray>& all)
{
    Arguments arguments;
    bool optionsEnded = false;
    for (int i = 0; i < all.size(); ++i) {
        const QByteArray& word = all.at(i);
        if (optionsEnded || !word.startsWith("--")) {
            arguments.words << word;
        } else if (word == "--") {
            optionsEnded = true;
        } else if (word == "--json") {
            arguments.json = true;
        } else if (word == "--verbose") {
            arguments.verbose = true;
        } else if (word == "--help") {
            arguments.help = true;
        } else if (word == "--shared") {
            arguments.join.sharedAuth = true;
        } else if (word == "--key-index") {
            arguments.wrong |= !readNumber(all, i, 0, 3, arguments.join.keyIndex);
        } else if (word == "--interval") {
            arguments.wrong |= !readNumber(all, i, 100, 3600000, arguments.interval);
        } else if (word == "--polls") {
            arguments.wrong |= !readNumber(all, i, 0, 1000000, arguments.polls);
        } else {
            arguments.wrong = true;
        }
    }
    return arguments;
}

QByteArray lineFromInput()
{
    char line[256] = "";
    if (!std::fgets(line, sizeof line, stdin)) {
        return QByteArray();
    }
    line[std::strcspn(line, "\n")] = '\0';
    return line;
}

int run(Output& output, Arguments& arguments)
{
    const QByteArray command = arguments.words.value(0);
    const int operands = static_cast<int>(arguments.words.size()) - 1;
    if (command == "scan" && operands == 0) {
        return scanCommand(output);
    }
    if (command == "join" && (operands == 1 || operands == 2)) {
        arguments.join.network = arguments.words.at(1);
        arguments.join.password = arguments.words.value(2);
        if (arguments.join.password == "-") {
            arguments.join.password = lineFromInput();
        }
        return joinCommand(output, arguments.join);
    }
    if (command == "status" && operands == 0) {
        return statusCommand(output);
    }
    if (command == "saved" && operands == 0) {
        return savedCommand(output);
    }
    if (command == "forget" && operands == 1) {
        return forgetCommand(output, arguments.words.at(1));
    }
    if (command == "monitor" && operands == 0) {
        return monitorCommand(output, arguments.interval, arguments.polls);
    }
    output.error(QLatin1String("wrong usage; see rawifictl --help"));
    return 2;
}

} // namespace

int main(int argc, char** argv)
{
    QList<QByteArray> all;
    for (int i = 1; i < argc; ++i) {
        all << QByteArray(argv[i]);
        std::memset(argv[i], 0, std::strlen(argv[i])); // no password stays in the process list
    }
    Arguments arguments = parse(all);
    if (arguments.help) {
        std::fputs(usage, stdout);
        return 0;
    }
    if (arguments.wrong || arguments.words.isEmpty()) {
        std::fputs(usage, stderr);
        return 2;
    }
    if (!qEnvironmentVariableIsSet("QT_QPA_PLATFORM")) {
        qputenv("QT_QPA_PLATFORM", "offscreen");
    }
    Output output(arguments.json, arguments.verbose);
    QApplication application(argc, argv);
    QFontMetrics(application.font()).height(); // the first use of a font is slow: not in the middle of a join
    // The scripts' answers go there; a page that runs on the device has made it already.
    if (mkdir("/home/wifi", 0777) == 0) {
        chmod("/home/wifi", 0777);
    }
    return run(output, arguments);
}
