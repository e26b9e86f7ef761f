// SPDX-FileCopyrightText: 2026 The rawificontrol authors
// SPDX-License-Identifier: MIT

// rawifictl: the library's back end on a console.

#include "arguments.h"
#include "commands.h"
#include "output.h"

#include <QApplication>
#include <QFontMetrics>
#include <QList>
#include <cstdio>
#include <sys/stat.h>

namespace {

const char usage[] =
    "usage: rawifictl [--json] [--verbose] COMMAND\n"
    "  scan                      list the access points in reach\n"
    "  join NAME [-] [--ask]     join by name or BSSID, with the saved password, or one that is asked for on "
    "the\n"
    "                            terminal; '-' reads it from standard input, --ask asks although one is "
    "saved\n"
    "       [--shared] [--key-index N]   for WEP\n"
    "  status [--watch [--interval MS]]  the link as the supplicant sees it; again whenever it changes\n"
    "  saved                     list the saved networks\n"
    "  forget NAME               forget a saved network by name or BSSID\n"
    "  monitor [--interval MS] [--polls N]   watch the link until it is lost\n"
    "  doctor                    look for what the device lacks, and say what to do\n"
    "  --help, --version\n"
    "--json prints one JSON document; monitor and status --watch one a line, as things happen. Both end on "
    "SIGINT\n"
    "and SIGTERM with 0. No command but saved and doctor goes well beside a host that scans or joins.\n"
    "exit status: 0 done, 1 failed, 2 wrong usage, 3 not found (access point, saved network, link)\n";

struct Command
{
    const char* name;
    int leastOperands;
    int mostOperands;
    QList<QByteArray> options;
    int (*run)(Output&, const Arguments&);
};

const Command* find(const Arguments& arguments)
{
    static const Command commands[] = {
        {"scan", 0, 0, {}, scanCommand},
        {"join", 1, 2, {"--ask", "--shared", "--key-index"}, joinCommand},
        {"status", 0, 0, {"--watch", "--interval"}, statusCommand},
        {"saved", 0, 0, {}, savedCommand},
        {"forget", 1, 1, {}, forgetCommand},
        {"monitor", 0, 0, {"--interval", "--polls"}, monitorCommand},
        {"doctor", 0, 0, {}, doctorCommand},
    };
    for (const Command& command : commands) {
        if (arguments.words.value(0) == command.name) {
            return &command;
        }
    }
    return nullptr;
}

bool isUsable(const Command& command, const Arguments& arguments)
{
    for (const QByteArray& option : arguments.options) {
        if (option != "--json" && option != "--verbose" && !command.options.contains(option)) {
            return false;
        }
    }
    const int operands = static_cast<int>(arguments.words.size()) - 1;
    const bool readsInput = operands < 2 || arguments.operand(1) == "-"; // never a password
    return !arguments.wrong && operands >= command.leastOperands && operands <= command.mostOperands && readsInput;
}

} // namespace

int main(int argc, char** argv)
{
    QList<QByteArray> all;
    for (int i = 1; i < argc; ++i) {
        all << QByteArray(argv[i]);
    }
    const Arguments arguments = parse(all);
    if (arguments.has("--help")) {
        std::fputs(usage, stdout);
        return Done;
    }
    if (arguments.has("--version")) {
        std::puts("rawifictl " RAWIFI_VERSION);
        return Done;
    }
    const Command* const command = find(arguments);
    if (!command || !isUsable(*command, arguments)) {
        std::fputs(usage, stderr);
        return WrongUsage;
    }
    qputenv("RAWIFI_LOG_SECRETS", "0"); // nobody's console is the place for them
    if (!qEnvironmentVariableIsSet("QT_QPA_PLATFORM")) {
        qputenv("QT_QPA_PLATFORM", "offscreen");
    }
    Output output(arguments.has("--json"), arguments.has("--verbose"));
    int noArguments = 1; // those of the command line are not the toolkit's
    QApplication application(noArguments, argv);
    QFontMetrics(application.font()).height(); // the first use of a font is slow: not in the middle of a join
    // The scripts' answers go there; a page that runs on the device has made it already.
    if (mkdir("/home/wifi", 0777) == 0) {
        chmod("/home/wifi", 0777);
    }
    return output.end(command->run(output, arguments));
}
