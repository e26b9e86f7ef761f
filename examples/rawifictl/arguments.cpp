// SPDX-FileCopyrightText: 2026 The rawificontrol authors
// SPDX-License-Identifier: MIT
#include "arguments.h"

namespace {

struct NumberOption
{
    const char* name;
    int least;
    int most;
    int Arguments::*number;
};

const NumberOption numberOptions[] = {
    {"--key-index", 0, 3, &Arguments::keyIndex},
    {"--interval", 100, 3600000, &Arguments::interval},
    {"--polls", 0, 1000000, &Arguments::polls},
};

const NumberOption* numberOption(const QByteArray& name)
{
    for (const NumberOption& option : numberOptions) {
        if (name == option.name) {
            return &option;
        }
    }
    return nullptr;
}

} // namespace

Arguments parse(const QList<QByteArray>& all)
{
    Arguments arguments;
    bool optionsEnded = false;
    for (int i = 0; i < all.size(); ++i) {
        const QByteArray& word = all.at(i);
        if (optionsEnded || !word.startsWith("--")) {
            arguments.words << word;
            continue;
        }
        if (word == "--") {
            optionsEnded = true;
            continue;
        }
        arguments.options << word;
        if (const NumberOption* option = numberOption(word)) {
            bool isNumber = false;
            const int number = all.value(++i).toInt(&isNumber);
            arguments.wrong |= !isNumber || number < option->least || number > option->most;
            arguments.*option->number = number;
        }
    }
    return arguments;
}
