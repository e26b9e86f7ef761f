// SPDX-FileCopyrightText: 2026 The rawificontrol authors
// SPDX-License-Identifier: MIT

// What does a frame of the spinner cost, in the size that the progress panel gives it?

#include "emptywindow.h"
#include "figure.h"

#include <rawificontrol.h>

#include <QApplication>

int main(int argc, char** argv)
{
    qputenv("QT_QPA_PLATFORM", "offscreen");
    QApplication application(argc, argv);

    EmptyWindow empty(320, 120);
    empty.show();
    RaCircleWait spinner(nullptr);
    spinner.resize(320, 120);
    spinner.show();
    paintNow();

    const int rounds = 201;
    const PaintCount painted(&spinner);
    const double floor = medianNanoseconds(rounds, [&empty] { empty.repaint(); }) / 1e6;
    const double frame = medianNanoseconds(rounds, [&spinner] { spinner.repaint(); }) / 1e6;
    if (painted.count <= rounds) {
        std::fprintf(stderr, "%d of %d frames painted\n", painted.count, rounds + 1);
        return 1;
    }
    std::printf("a repaint of an empty window %.3f ms, of the spinner %.3f ms\n", floor, frame);
    printFigure("spinner: a frame", frame, 0.3, "ms");
    return 0;
}
