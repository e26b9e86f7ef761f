// SPDX-FileCopyrightText: 2026 The rawificontrol authors
// SPDX-License-Identifier: MIT

// How long does the password page work from a tap on a key to the repainted field?

#include "emptywindow.h"
#include "figure.h"

#include <rawificontrol.h>

#include <QApplication>
#include <QMouseEvent>

namespace {

void sendMouse(QWidget* widget, QEvent::Type type, Qt::MouseButtons buttons)
{
    const QPoint middle = widget->rect().center();
    QMouseEvent event(type, middle, widget->mapToGlobal(middle), Qt::LeftButton, buttons, Qt::NoModifier);
    QCoreApplication::sendEvent(widget, &event);
}

/** Press, light up, release, character in the field: everything that a tap makes the page do. */
void tap(RaVirtualKeyboard_Btn* key)
{
    sendMouse(key, QEvent::MouseButtonPress, Qt::LeftButton);
    paintNow();
    sendMouse(key, QEvent::MouseButtonRelease, Qt::NoButton);
    paintNow();
}

} // namespace

int main(int argc, char** argv)
{
    qputenv("QT_QPA_PLATFORM", "offscreen");
    QApplication application(argc, argv);

    EmptyWindow empty(320, 480);
    empty.show();
    RaWifiInputWnd page;
    APData network = APData();
    network.is_encry = 2;
    network.encry[0] = WPA2_PSK;
    page.setAPData(network);
    page.show();
    paintNow();
    RaVirtualKeyboard_Btn* const key = page.findChild<RaVirtualKeyboard_Btn*>(QLatin1String("btn4_03"));
    raPsWdLineEdit* const field = page.findChild<raPsWdLineEdit*>();

    const int rounds = 301;
    const int longest = 40; // characters; then the field begins anew
    int typed = 0;
    int shown = 0;
    const PaintCount painted(field);
    const auto makeReady = [&] {
        key->updatePressStatus(); // the guard against a double click
        shown += field->text().size() == typed % longest + 1 ? 1 : 0;
        if (++typed % longest == 0) {
            page.clear();
        }
        paintNow();
    };

    const double floor = medianNanoseconds(rounds, [&empty] { empty.repaint(); }) / 1e6;
    const double press = medianNanoseconds(
                             rounds, [key] { tap(key); }, makeReady)
                         / 1e6;
    if (shown <= rounds || painted.count < shown) {
        std::fprintf(stderr, "%d of %d characters typed, %d repaints\n", shown, rounds + 1, painted.count);
        return 1;
    }
    std::printf("a repaint of an empty window %.3f ms, a tap on a key of the password page %.3f ms\n", floor, press);
    printFigure("key: from the press to the repainted field", press, 4.0, "ms");
    return 0;
}
