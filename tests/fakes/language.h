// SPDX-FileCopyrightText: 2026 The rawificontrol authors
// SPDX-License-Identifier: MIT
#ifndef RAWIFI_LANGUAGE_H
#define RAWIFI_LANGUAGE_H

#include <QCoreApplication>
#include <QLocale>
#include <QTranslator>

/** A language for as long as it lives, as a host would load it. */
class Language
{
public:
    explicit Language(const QString& locale)
    {
        if (m_texts.load(QLocale(locale), QLatin1String("rawificontrol"), QLatin1String("_"),
                         QLatin1String(":/translations"))) {
            QCoreApplication::installTranslator(&m_texts);
        }
    }
    ~Language() { QCoreApplication::removeTranslator(&m_texts); }

    bool isLoaded() const { return !m_texts.isEmpty(); }

private:
    QTranslator m_texts;
};

#endif
