// SPDX-FileCopyrightText: 2026 The rawificontrol authors
// SPDX-License-Identifier: MIT

// What does a page with the keyboard cost until it is seen, in time and in memory, beyond an empty window?

#include "emptywindow.h"
#include "figure.h"

#include <rawificontrol.h>

#include <QApplication>
#include <QIcon>
#include <QPushButton>
#include <cstdio>
#include <cstring>
#include <malloc.h>
#include <memory>

namespace {

const int pageWidth = 320;
const int pageHeight = 480;

class KeyboardPage : public EmptyWindow
{
public:
    KeyboardPage() : EmptyWindow(pageWidth, pageHeight), m_keyboard(this), m_painted(m_keyboard.spaceKey())
    {
        m_keyboard.move(0, pageHeight - m_keyboard.height());
    }
    bool isSeen() const { return m_painted.count > 0; }

private:
    RaVirtualKeyboard m_keyboard;
    PaintCount m_painted;
};

template<typename Window>
double millisecondsUntilSeen(Window* (*make)())
{
    std::unique_ptr<Window> window;
    const auto build = [&] {
        window.reset(make());
        window->show();
        paintNow();
    };
    const auto destroy = [&] {
        window.reset();
        paintNow();
    };
    return medianNanoseconds(31, build, destroy) / 1e6;
}

/** A page such as a host has shown long before: fonts, style and picture formats are in memory from then on.
 */
EmptyWindow* makeHostPage()
{
    EmptyWindow* page = new EmptyWindow(pageWidth, pageHeight);
    QPushButton* button = new QPushButton(QLatin1String("Settings"), page);
    button->setIcon(QIcon(QLatin1String(":/images/wifi.png")));
    button->resize(pageWidth, button->sizeHint().height());
    return page;
}

EmptyWindow* makeEmptyWindow()
{
    return new EmptyWindow(pageWidth, pageHeight);
}

KeyboardPage* makeKeyboardPage()
{
    return new KeyboardPage;
}

/**
 * What this process alone has, in KiB, 0 if unknown: without the pages of libraries, whose share goes by what
 * else is running.
 */
long ownMemory()
{
    std::FILE* file = std::fopen("/proc/self/smaps_rollup", "r");
    if (!file) {
        return 0;
    }
    long memory = 0;
    char line[256];
    while (memory == 0 && std::fgets(line, sizeof line, file)) {
        if (std::strncmp(line, "Anonymous:", 10) == 0) {
            std::sscanf(line, "Anonymous: %ld", &memory);
        }
    }
    std::fclose(file);
    return memory;
}

long heapMemory()
{
    const struct mallinfo2 heap = mallinfo2();
    return static_cast<long>((heap.uordblks + heap.hblkhd) / 1024);
}

struct Memory
{
    long own;
    long heap;
};

/** What \a window takes until it is seen; it stays. */
template<typename Window>
Memory memoryOf(Window* (*make)(), std::unique_ptr<Window>* window)
{
    const Memory before = {ownMemory(), heapMemory()};
    window->reset(make());
    (*window)->show();
    paintNow();
    return {ownMemory() - before.own, heapMemory() - before.heap};
}

} // namespace

int main(int argc, char** argv)
{
    qputenv("QT_QPA_PLATFORM", "offscreen");
    QApplication application(argc, argv);

    std::unique_ptr<EmptyWindow> hostPage;
    std::unique_ptr<EmptyWindow> window;
    std::unique_ptr<KeyboardPage> keyboard;
    const Memory host = memoryOf(makeHostPage, &hostPage);
    const Memory empty = memoryOf(makeEmptyWindow, &window);
    const Memory page = memoryOf(makeKeyboardPage, &keyboard);
    if (!keyboard->isSeen() || page.own == 0) {
        std::fprintf(stderr, "the keyboard was not painted, or its memory not found\n");
        return 1;
    }
    keyboard.reset();

    const double floor = millisecondsUntilSeen(makeEmptyWindow);
    const double built = millisecondsUntilSeen(makeKeyboardPage);

    std::printf("an empty window until it is seen %.3f ms, a page with the keyboard %.3f ms\n", floor, built);
    std::printf("a host's first page %ld KiB (heap %ld), an empty window after it %ld KiB (heap %ld), "
                "the first page with the keyboard %ld KiB (heap %ld)\n",
                host.own, host.heap, empty.own, empty.heap, page.own, page.heap);
    printFigure("keyboard page: construction until it is seen", built, 15.0, "ms");
    printFigure("keyboard page: memory beyond an empty window", static_cast<double>(page.own - empty.own) / 1024.0, 1.5,
                "MiB");
    return 0;
}
