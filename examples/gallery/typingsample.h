// SPDX-FileCopyrightText: 2026 The rawificontrol authors
// SPDX-License-Identifier: MIT
#ifndef TYPINGSAMPLE_H
#define TYPINGSAMPLE_H

#include <QLabel>
#include <QStringList>
#include <QWidget>

class RaVirtualKeyboard;

/** A keyboard, and above it the line that it types: all that a page with a keyboard has to do. */
class TypingSample : public QWidget
{
    Q_OBJECT
public:
    /** Opens on the page that \a taps, texts of keys, lead to. */
    explicit TypingSample(const QStringList& taps = QStringList());

    static const int Height;

private Q_SLOTS:
    void take(const QString& text);
    void takeSpace(const QString& text);

private:
    QLabel* m_line;
    RaVirtualKeyboard* m_keyboard;
    QString m_typed;
};

#endif
