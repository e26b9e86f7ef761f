// SPDX-FileCopyrightText: 2026 The rawificontrol authors
// SPDX-License-Identifier: MIT
#include "keypages.h"

namespace {

// The table index that the first key below row 1 shows, by page: 33 symbols take two pages, the first of
// which gives its last key to the way to the second.
const int kFirstEntry[] = {RowOneKeys, RowOneKeys, RowOneKeys, RowOneKeys + PageKeys - 1};

const KeyRole kRowOne[RowOneKeys] = {KeyRole::Shift, KeyRole::Letters, KeyRole::Digits, KeyRole::Symbols,
                                     KeyRole::Backspace};

QStringList table(const char* characters)
{
    QStringList texts;
    texts << QLatin1String("ABC") << QLatin1String("abc") << QLatin1String("123") << QLatin1String("!@#")
          << QLatin1String("BS");
    for (const char* c = characters; *c != '\0'; ++c) {
        texts << QString(QLatin1Char(*c));
    }
    return texts;
}

KeyEntry pageEntry(const QString& text)
{
    return {text.isEmpty() ? KeyRole::Space : KeyRole::Character, text};
}

} // namespace

QMap<int, QStringList> keyPageTables()
{
    QMap<int, QStringList> tables;
    tables[LetterPage] = table("abcdefghijklmnopqrstuvwxyz");
    tables[DigitPage] = table("1234567890");
    tables[SymbolPage] = table(".,?!`'\"-/:;()$&@#%^*+=_\\|~<>[]{}");
    tables[SymbolPage].insert(RowOneKeys, QLatin1String("")); // the space key
    return tables;
}

QList<KeyEntry> keyPageEntries(const QMap<int, QStringList>& tables, int page)
{
    const int shown = qBound<int>(LetterPage, page, LastSymbolPage);
    const QStringList texts = tables.value(qMin<int>(shown, SymbolPage));

    QList<KeyEntry> entries;
    for (int i = 0; i < RowOneKeys; ++i) {
        entries << KeyEntry{kRowOne[i], texts.value(i)};
    }
    for (int i = kFirstEntry[shown]; i < int(texts.size()) && entries.size() < AllKeys; ++i) {
        entries << pageEntry(texts.at(i));
    }
    if (shown == SymbolPage) {
        entries.last() = {KeyRole::NextPage, QLatin1String("RI")};
    }
    while (entries.size() < AllKeys) {
        entries << KeyEntry{KeyRole::None, QLatin1String("")};
    }
    return entries;
}
