// SPDX-FileCopyrightText: 2026 The rawificontrol authors
// SPDX-License-Identifier: MIT
#include "picturetest.h"
#include "ravirtualkeyboard.h"
#include "ravirtualkeyboard_btn.h"

using namespace picturetest;

namespace {

/** The keyboard after taps on the keys of its first row that stand for \a taps. */
struct Keyboard
{
    explicit Keyboard(const QStringList& taps = QStringList())
        : sheet(262),
          keyboard(sheet.put(new RaVirtualKeyboard(&sheet), QRect(0, 0, 320, 262)))
    {
        for (const QString& text : taps) {
            keyboard->recKeyClicked(text);
        }
    }

    RaVirtualKeyboard_Btn* key(const char* name)
    {
        return keyboard->findChild<RaVirtualKeyboard_Btn*>(QString::fromLatin1(name));
    }

    Sheet sheet;
    RaVirtualKeyboard* keyboard;
};

QImage page(const QStringList& taps)
{
    return Keyboard(taps).sheet.picture();
}

QImage pressed(const char* name)
{
    Keyboard shown;
    tap(shown.key(name), QPoint(5, 5), true);
    return shown.sheet.picture();
}

QString text(const char* latin1)
{
    return QString::fromLatin1(latin1);
}

QImage capitals()
{
    Keyboard shown;
    tap(shown.key("btn1_Lshirt"), QPoint(5, 5));
    return shown.sheet.picture();
}

const Scenes scenes = {
    {"keyboard-letters", [] { return page(QStringList()); }},
    {"keyboard-capitals", capitals},
    {"keyboard-digits", [] { return page({text("123")}); }},
    {"keyboard-digits-while-capitals",
     [] {
         return page({text("ABC"), text("123")});
     }},
    {"keyboard-symbols", [] { return page({text("!@#")}); }},
    {"keyboard-more-symbols",
     [] {
         return page({text("!@#"), text("RI")});
     }},
    {"keyboard-key-pressed", [] { return pressed("btn3_03"); }},
    {"keyboard-backspace-pressed", [] { return pressed("btn1_backspace"); }},
};

} // namespace

int main(int argc, char** argv)
{
    return run(argc, argv, scenes);
}
