// SPDX-FileCopyrightText: 2026 The rawificontrol authors
// SPDX-License-Identifier: MIT
#ifndef RAWIFI_STARTUP_MEASURED_H
#define RAWIFI_STARTUP_MEASURED_H

#include <QCoreApplication>
#include <QEvent>
#include <QWidget>
#include <cstdio>
#include <cstring>

/** Whether anything has been painted. */
class PaintMark : public QObject
{
public:
    bool eventFilter(QObject*, QEvent* event) override
    {
        isPainted = isPainted || event->type() == QEvent::Paint;
        return false;
    }

    bool isPainted = false;
};

/** This process's share of the memory, in KiB; see proc(5), smaps_rollup. */
inline long proportionalSetSize()
{
    long size = 0;
    char line[256];
    if (std::FILE* const file = std::fopen("/proc/self/smaps_rollup", "r")) {
        while (std::fgets(line, sizeof line, file) && std::sscanf(line, "Pss: %ld", &size) != 1) {
        }
        std::fclose(file);
    }
    return size;
}

/** Shows \a window and says "painted" after its first paint; then does \a use and says the memory in KiB. */
template<typename Use>
int measured(QWidget& window, Use use)
{
    PaintMark mark;
    QCoreApplication::instance()->installEventFilter(&mark); // children may cover all of the window
    window.resize(320, 480);
    window.show();
    while (!mark.isPainted) {
        QCoreApplication::processEvents(QEventLoop::WaitForMoreEvents);
    }
    std::puts("painted");
    std::fflush(stdout);
    use();
    for (int i = 0; i < 3; ++i) {
        QCoreApplication::processEvents();
    }
    std::printf("%ld\n", proportionalSetSize());
    return 0;
}

#endif
