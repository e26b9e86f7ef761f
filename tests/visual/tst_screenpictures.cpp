// SPDX-FileCopyrightText: 2026 The rawificontrol authors
// SPDX-License-Identifier: MIT
#include "language.h"
#include "networks.h"
#include "picturetest.h"
#include "raitempushbtn.h"
#include "rapswdlineedit.h"
#include "ravirtualkeyboard.h"
#include "rawifiinputwnd.h"
#include "rawifilistwidget.h"

#include <QTest>
#include <functional>

using namespace picturetest;

namespace {

const int screenHeight = 480;

QString utf8(const char* text)
{
    return QString::fromUtf8(text);
}

void settle()
{
    sweep();
    QCoreApplication::sendPostedEvents();
}

// --- list

QList<APData> air()
{
    return QList<APData>() << network(1, "Kitchen radio", true, 4) << network(2, "Guests", false, 3)
                           << network(3, "咖啡厅的无线网络", true, 3)
                           << network(4, "A name of 32 bytes, all of them.", true, 2)
                           << network(5, "Café № 7", false, 1) << network(6, "WWWWWWWWWWWWWWWWWWWW", true, 1)
                           << network(7, "Printer", false, 5);
}

class ListScreen
{
public:
    explicit ListScreen(const QList<APData>& networks = air())
        : m_sheet(screenHeight),
          page(m_sheet.put(new RaWifiListWidget(&m_sheet, true,
                                                QCoreApplication::translate("RaWifiManager", "Network Setting"),
                                                utf8("00:11:22:33:44:55")),
                           QRect(0, 0, 320, screenHeight)))
    {
        page->setWifiSwitch(true);
        setAir(networks);
        if (!networks.isEmpty()) {
            page->showRefreshListData();
        }
    }
    ~ListScreen() { setAir(QList<APData>()); }

    QImage picture()
    {
        settle();
        return m_sheet.picture();
    }

private:
    Sheet m_sheet;

public:
    RaWifiListWidget* page;
};

QImage listAtRest()
{
    return ListScreen().picture();
}

// What people put on the air to fool others.
QImage listOfHostileNames()
{
    return ListScreen(QList<APData>() << network(1, "<b>bold</b><img src=x>", true, 4)
                                      << network(2, "evil\xe2\x80\xaegnp.exe", true, 3)
                                      << network(3, "two\nlines\tand a tab", false, 3)
                                      << network(4, "%1 %2 %s %n", true, 2) << network(5, "\x1b[31mred\x1b[0m", true, 2)
                                      << network(6, "\xff\xfe not UTF-8 \xc3\x28", false, 1)
                                      << network(7, "a&b &amp; \"c\" # $(d)", true, 1))
        .picture();
}

QImage listWhileJoining(int network, bool joined)
{
    ListScreen screen;
    screen.page->recWifiListMsg(air().at(network), joined);
    return screen.picture();
}

QImage listScrolledToTheEnd()
{
    ListScreen screen;
    settle();
    screen.page->recMoveStep(false, 1000);
    return screen.picture();
}

QImage listOff()
{
    ListScreen screen;
    screen.page->setWifiSwitch(false);
    return screen.picture();
}

QImage listDiscovering()
{
    return ListScreen(QList<APData>()).picture();
}

QImage listDiscoveringAgain()
{
    ListScreen screen;
    screen.page->setScanning(true);
    return screen.picture();
}

QImage listWithoutNetworks()
{
    ListScreen screen((QList<APData>()));
    screen.page->showRefreshListData();
    return screen.picture();
}

QImage listRowPressed()
{
    ListScreen screen;
    settle();
    RaItemPushBtn* row = screen.page->findChildren<RaItemPushBtn*>().at(1);
    tap(row, QPoint(100, 30), true);
    row->pressOnSlot();
    return screen.picture();
}

QImage listJoiningWhileDiscovering()
{
    ListScreen screen;
    screen.page->setScanning(true);
    screen.page->recWifiListMsg(air().at(2));
    return screen.picture();
}

// --- password page

class PasswordScreen
{
public:
    explicit PasswordScreen(const char* name = "Kitchen radio")
    {
        page.setAPData(network(1, name));
        page.show();
        page.activateWindow();
        isActive = QTest::qWaitForWindowActive(&page);
    }

    void type(const char* text)
    {
        const QString typed = utf8(text);
        for (int i = 0; i < typed.size(); ++i) {
            page.setTextSlot(typed.mid(i, 1), page.findChild<raPsWdLineEdit*>()->objectName());
        }
    }
    void turnKeyboard(const char* key) { page.findChild<RaVirtualKeyboard*>()->recKeyClicked(utf8(key)); }
    QImage picture() { return isActive ? page.grab().toImage() : QImage(); }

    RaWifiInputWnd page;
    bool isActive = false;
};

QImage passwordEmpty()
{
    return PasswordScreen().picture();
}

QImage passwordTyped()
{
    PasswordScreen screen("咖啡厅的无线网络");
    screen.type("Secret word 4711");
    return screen.picture();
}

QImage passwordHidden()
{
    PasswordScreen screen;
    screen.type("Secret word 4711");
    screen.page.pwdSelectChanged();
    screen.turnKeyboard("!@#");
    return screen.picture();
}

QImage passwordForHostileName()
{
    return PasswordScreen("<b>x</b>%1\xe2\x80\xaegnp.exe\n\x1b[2J").picture();
}

QImage passwordLong()
{
    PasswordScreen screen("A name of 32 bytes, all of them.");
    screen.type("0123456789 0123456789 0123456789 0123456789 0123456789 01234567");
    screen.type("x");
    screen.turnKeyboard("123");
    return screen.picture();
}

QImage passwordMissing()
{
    PasswordScreen screen;
    screen.page.onOkClicked();
    return screen.picture();
}

QImage passwordKeyboardMoved()
{
    PasswordScreen screen;
    screen.page.recKeyboardMoveStep(true, 60);
    return screen.picture();
}

std::function<QImage()> in(const char* locale, QImage (*scene)())
{
    return [locale, scene] {
        const Language language(utf8(locale));
        return language.isLoaded() ? scene() : QImage();
    };
}

const Scenes scenes = {
    {"list", listAtRest},
    {"list-end", listScrolledToTheEnd},
    {"list-hostile-names", listOfHostileNames},
    {"list-joining", [] { return listWhileJoining(2, false); }},
    {"list-joined", [] { return listWhileJoining(3, true); }},
    {"list-row-pressed", listRowPressed},
    {"list-off", listOff},
    {"list-discovering", listDiscovering},
    {"list-discovering-again", listDiscoveringAgain},
    {"list-no-networks", listWithoutNetworks},

    {"password-empty", passwordEmpty},
    {"password-typed", passwordTyped},
    {"password-hidden", passwordHidden},
    {"password-hostile-name", passwordForHostileName},
    {"password-long", passwordLong},
    {"password-missing", passwordMissing},
    {"password-keyboard-moved", passwordKeyboardMoved},
};

const Scenes scenesInLanguages = {
    {"list-english", in("en", listJoiningWhileDiscovering)},
    {"list-chinese", in("zh_CN", listJoiningWhileDiscovering)},
    {"list-discovering-chinese", in("zh_CN", listDiscovering)},
    {"list-no-networks-chinese", in("zh_CN", listWithoutNetworks)},
    {"password-empty-english", in("en", passwordEmpty)},
    {"password-long-english", in("en", passwordLong)},
    {"password-missing-english", in("en", passwordMissing)},
    {"password-missing-chinese", in("zh_CN", passwordMissing)},
};

} // namespace

int main(int argc, char** argv)
{
    Scenes all = scenes;
    if (RAWIFI_TRANSLATIONS) {
        all.insert(all.end(), scenesInLanguages.begin(), scenesInLanguages.end());
    }
    return run(argc, argv, all);
}
