// SPDX-FileCopyrightText: 2026 The rawificontrol authors
// SPDX-License-Identifier: MIT

// The least that a program with a text can be. The text becomes Chinese as well, since the password page has some: the
// toolkit loads the device's fonts for it, whatever the program does with them.

#include "measured.h"

#include <QApplication>
#include <QLabel>

int main(int argc, char** argv)
{
    QApplication application(argc, argv);
    QLabel window(QLatin1String("Wi-Fi"));
    return measured(window, [&window] { window.setText(QString::fromUtf8("Wi-Fi \xe5\xaf\x86\xe7\xa0\x81")); });
}
