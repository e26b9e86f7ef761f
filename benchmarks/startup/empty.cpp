// SPDX-FileCopyrightText: 2026 The rawificontrol authors
// SPDX-License-Identifier: MIT

// The least that a program with a window can be.

#include "measured.h"

#include <QApplication>

int main(int argc, char** argv)
{
    QApplication application(argc, argv);
    QWidget window;
    return measured(window, [] {});
}
