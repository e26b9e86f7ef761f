// SPDX-FileCopyrightText: 2026 The rawificontrol authors
// SPDX-License-Identifier: MIT
#ifndef RAWIFI_KEYPAGES_H
#define RAWIFI_KEYPAGES_H

#include <QList>
#include <QMap>
#include <QString>
#include <QStringList>

// Which key shows what: the text tables of the three kinds of page, and their division into pages of 33 keys.

/** Numbers of the pages; the first three are also the keys of the tables. */
enum KeyPageNumber { LetterPage = 0, DigitPage = 1, SymbolPage = 2, LastSymbolPage = 3 };

enum class KeyRole { None, Character, Shift, Letters, Digits, Symbols, Backspace, Space, NextPage };

/** What one key is on one page: its part, and the text that it reports when it is clicked. */
struct KeyEntry
{
    KeyRole role;
    QString text;
};

enum { RowOneKeys = 5, PageKeys = 28, AllKeys = RowOneKeys + PageKeys };

/** The texts of every kind of page: five names for the keys of row 1, then the entries for the rows below. */
QMap<int, QStringList> keyPageTables();

/** The 33 entries of \a page in key order. A page outside LetterPage..LastSymbolPage is taken to the nearer
 * end. */
QList<KeyEntry> keyPageEntries(const QMap<int, QStringList>& tables, int page);

#endif
