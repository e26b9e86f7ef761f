// SPDX-FileCopyrightText: 2026 The rawificontrol authors
// SPDX-License-Identifier: MIT
#include "networks.h"
#include "picturetest.h"
#include "raitempushbtn.h"
#include "rapswdlineedit.h"
#include "ravirtualkeyboard.h"
#include "rawifiinputwnd.h"
#include "rawifilistwidget.h"

#include <QMap>
#include <QTest>
#include <QTranslator>

using namespace picturetest;

namespace {

const int screenHeight = 480;

QString utf8(const char* text)
{
    return QString::fromUtf8(text);
}

/** Every text that a page has of its own, in the other language. */
class OtherLanguage : public QTranslator
{
public:
    bool isEmpty() const override { return false; }
    QString translate(const char*, const char* source, const char* = nullptr, int = -1) const override
    {
        static const QMap<QByteArray, QString> texts = {
            {"WIFI", utf8("无线网络")},
            {"Discovering...", utf8("正在搜索...")},
            {"No networks found", utf8("没有找到网络")},
            {"正在连接中，请等待...", utf8("Connecting, please wait...")},
            {"已连接", utf8("Connected")},
            {"请输入密码", utf8("Enter the password")},
            {"密码最多%1个字符", utf8("At most %1 characters")},
            {"密码中不能有这个字符", utf8("Character not allowed")},
            {"显示密码", utf8("Show password")},
            {"取消", utf8("Cancel")},
            {"确定", utf8("OK")},
            {"返回", utf8("Back")},
        };
        return texts.value(source);
    }
};

/** The other language for as long as it lives. */
class Translated
{
public:
    Translated() { QCoreApplication::installTranslator(&m_language); }
    ~Translated() { QCoreApplication::removeTranslator(&m_language); }

private:
    OtherLanguage m_language;
};

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
    explicit ListScreen(const QList<APData>& networks = air(), const char* title = "Network Setting",
                        const char* address = "00:11:22:33:44:55")
        : m_sheet(screenHeight),
          page(m_sheet.put(new RaWifiListWidget(&m_sheet, true, utf8(title), utf8(address)),
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

QImage translatedList()
{
    const Translated language;
    ListScreen screen(air(), "网络设置");
    screen.page->setScanning(true);
    screen.page->recWifiListMsg(air().at(2));
    return screen.picture();
}

QImage translatedListDiscovering()
{
    const Translated language;
    return ListScreen(QList<APData>(), "网络设置").picture();
}

QImage translatedListWithoutNetworks()
{
    const Translated language;
    return listWithoutNetworks();
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

QImage translated(QImage (*scene)())
{
    const Translated language;
    return scene();
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
    {"list-translated", translatedList},
    {"list-discovering-translated", translatedListDiscovering},
    {"list-no-networks-translated", translatedListWithoutNetworks},

    {"password-empty", passwordEmpty},
    {"password-typed", passwordTyped},
    {"password-hidden", passwordHidden},
    {"password-hostile-name", passwordForHostileName},
    {"password-long", passwordLong},
    {"password-missing", passwordMissing},
    {"password-keyboard-moved", passwordKeyboardMoved},
    {"password-empty-translated", [] { return translated(passwordEmpty); }},
    {"password-long-translated", [] { return translated(passwordLong); }},
    {"password-missing-translated", [] { return translated(passwordMissing); }},
};

} // namespace

int main(int argc, char** argv)
{
    return run(argc, argv, scenes);
}
