// SPDX-FileCopyrightText: 2026 The rawificontrol authors
// SPDX-License-Identifier: MIT
#include "picturetest.h"
#include "rabasewindow.h"
#include "racirclewait.h"
#include "raclickablelabel.h"
#include "rasliderwidget.h"
#include "raswitchbutton.h"
#include "raswitchlistwidget.h"
#include "raswitchwidget.h"
#include "ratitlewidget.h"
#include "rawifimsg.h"
#include "rawifiprocessingwnd.h"

#include <QMetaObject>

using namespace picturetest;

namespace {

QString utf8(const char* text)
{
    return QString::fromUtf8(text);
}

/** Lets a switch's knob glide on by some steps. */
void glide(QWidget* widget, int steps)
{
    for (int i = 0; i < steps; ++i) {
        QMetaObject::invokeMethod(widget, "updateValue");
    }
}

// --- title strip and page

QImage titleStrip(const char* title, const char* right, bool held = false)
{
    Sheet sheet(50);
    QWidget* strip = sheet.put(new RaTitleWidget(utf8(title), utf8(right), true, nullptr), QRect(0, 0, 320, 50));
    if (held) {
        tap(strip, QPoint(25, 25), true);
    }
    return sheet.picture();
}

QImage baseWindow(const char* title, const char* subtitle, int type, int height)
{
    RaBaseWindow page(nullptr, utf8(title), utf8(subtitle));
    page.createUI(utf8(title), type, QString());
    page.findChild<RaSliderWidget*>()->setLevel(3);
    page.resize(320, height);
    page.show();
    return page.grab().toImage();
}

// --- switches

/** One switch of each shape in a row: with its own colours, and with those of the pages. */
QImage switchButtons(int steps, bool on, const char* textOff = "", const char* textOn = "")
{
    Sheet sheet(100);
    for (int i = 0; i < 6; ++i) {
        RaSwitchButton* button = sheet.put(new RaSwitchButton, QRect(20 + i % 3 * 100, 10 + i / 3 * 45, 80, 34));
        button->setButtonStyle(static_cast<RaSwitchButton::ButtonStyle>(i % 3));
        button->setText(utf8(textOff), utf8(textOn));
        if (i >= 3) {
            button->setBgColor(QColor(54, 54, 54), QColor(248, 129, 133));
            button->setSliderColor(QColor(225, 225, 225), Qt::white);
            button->setTextColor(Qt::white, Qt::white);
        }
        if (on) {
            tap(button, QPoint(10, 10));
            glide(button, steps);
        }
    }
    return sheet.picture();
}

const int allTheWay = 100;

QImage switchWidget(const char* text, const char* secondText, int steps)
{
    Sheet sheet(60);
    RaSwitchWidget* row = sheet.put(new RaSwitchWidget(nullptr, utf8(text), utf8(secondText)), QRect(0, 0, 320, 60));
    if (steps > 0) {
        tap(row->switchButton(), QPoint(10, 10));
        glide(row->switchButton(), steps);
    }
    return sheet.picture();
}

QImage switchRow(const char* message, const char* name, int height, int steps, int position = 1)
{
    Sheet sheet(height);
    RaSwitchListWidget* row = sheet.put(new RaSwitchListWidget, QRect(0, 0, 320, height));
    row->setItemText(utf8(message), utf8(name));
    row->setSwitchPos(position);
    if (steps > 0) {
        tap(row, QPoint(265, position == 1 ? 29 : height - 40));
        glide(row, steps);
    }
    return sheet.picture();
}

// --- slider, label, windows

QImage slider(RaSliderWidget::RA_SLIDERTYPE type, int level)
{
    Sheet sheet(120);
    sheet.put(new RaSliderWidget(type), QRect(0, 0, 320, 120))->setLevel(level);
    return sheet.picture();
}

QImage labels()
{
    Sheet sheet(50);
    RaClickableLabel* english = sheet.put(new RaClickableLabel, QRect(10, 5, 100, 40));
    english->setText(utf8("Settings"));
    RaClickableLabel* chinese = sheet.put(new RaClickableLabel, QRect(120, 5, 100, 40));
    chinese->setText(utf8("网络设置"));
    RaClickableLabel* image = sheet.put(new RaClickableLabel, QRect(240, 5, 40, 40));
    image->setPixmap(QPixmap(utf8(":/images/back.png")));
    for (RaClickableLabel* label : {english, chinese, image}) {
        label->setStyleSheet(utf8("color: white"));
        label->setAlignment(Qt::AlignCenter);
    }
    return sheet.picture();
}

/** The frame \a frame of the spinner in two sizes. */
QImage spinner(int frame, bool clockwise = true)
{
    Sheet sheet(140);
    for (const QRect& place : {QRect(10, 0, 140, 140), QRect(200, 35, 70, 70)}) {
        RaCircleWait* ring = sheet.put(new RaCircleWait(nullptr), place);
        ring->setColor(QColor(248, 129, 133));
        ring->setClockwiseRotate(clockwise);
    }
    for (int i = 0; i < frame; ++i) {
        sheet.picture();
    }
    return sheet.picture();
}

QImage message(const char* text)
{
    Sheet sheet(70);
    sheet.put(new RaWifiMsg(nullptr), QRect(0, 0, 320, 70))->m_text = utf8(text);
    return sheet.picture();
}

QImage processing(const char* text)
{
    RaWifiProcessingWnd panel(nullptr, utf8(text));
    panel.show();
    panel.grab();
    return panel.grab().toImage();
}

const Scenes scenes = {
    {"title", [] { return titleStrip("Wi-Fi", "Connected"); }},
    {"title-chinese", [] { return titleStrip("网络设置", "已连接"); }},
    {"title-address", [] { return titleStrip("Network Setting", "00:11:22:33:44:55"); }},
    {"title-too-long", [] { return titleStrip("Network Setting and Privacy", "00:11:22:33:44:55"); }},
    {"title-held", [] { return titleStrip("Wi-Fi", "", true); }},
    {"page", [] { return baseWindow("Volume", "3 of 5", RaSliderWidget::VOLUME, 170); }},
    {"page-chinese", [] { return baseWindow("亮度", "自动", RaSliderWidget::BRIGHTNESS, 170); }},
    {"page-whole-screen", [] { return baseWindow("Brightness", "", RaSliderWidget::BRIGHTNESS, 480); }},

    {"switch-off", [] { return switchButtons(0, false); }},
    {"switch-gliding", [] { return switchButtons(20, true); }},
    {"switch-on", [] { return switchButtons(allTheWay, true); }},
    {"switch-off-text", [] { return switchButtons(0, false, "OFF", "ON"); }},
    {"switch-on-text", [] { return switchButtons(allTheWay, true, "OFF", "ON"); }},
    {"switch-on-chinese", [] { return switchButtons(allTheWay, true, "关闭", "打开"); }},
    {"switch-widget-off", [] { return switchWidget("Bluetooth", "Not visible to others", 0); }},
    {"switch-widget-gliding", [] { return switchWidget("Bluetooth", "", 15); }},
    {"switch-widget-on", [] { return switchWidget("Bluetooth", "Visible as Kitchen radio", allTheWay); }},
    {"switch-widget-chinese", [] { return switchWidget("蓝牙", "附近的设备可以发现本机", allTheWay); }},
    {"switch-row-off", [] { return switchRow("", "WIFI", 59, 0); }},
    {"switch-row-gliding", [] { return switchRow("", "WIFI", 59, 15); }},
    {"switch-row-on", [] { return switchRow("", "WIFI", 59, allTheWay); }},
    {"switch-row-tall", [] { return switchRow("Discovering...", "WIFI", 140, allTheWay); }},
    {"switch-row-tall-chinese", [] { return switchRow("正在搜索附近的网络...", "无线网络", 140, allTheWay); }},
    {"switch-row-second-item", [] { return switchRow("Discovering...", "WIFI", 140, allTheWay, 2); }},

    {"slider-volume-0", [] { return slider(RaSliderWidget::VOLUME, 0); }},
    {"slider-volume-3", [] { return slider(RaSliderWidget::VOLUME, 3); }},
    {"slider-volume-5", [] { return slider(RaSliderWidget::VOLUME, 5); }},
    {"slider-brightness-0", [] { return slider(RaSliderWidget::BRIGHTNESS, 0); }},
    {"slider-brightness-2", [] { return slider(RaSliderWidget::BRIGHTNESS, 2); }},
    {"slider-brightness-4", [] { return slider(RaSliderWidget::BRIGHTNESS, 4); }},

    {"labels", labels},
    {"spinner-first", [] { return spinner(0); }},
    {"spinner-third", [] { return spinner(2); }},
    {"spinner-eighth", [] { return spinner(7); }},
    {"spinner-backwards", [] { return spinner(2, false); }},
    {"message", [] { return message("Wrong password for Kitchen radio"); }},
    {"message-long",
     [] { return message("The network Conference room on the 3rd floor could not be joined: wrong password"); }},
    {"message-chinese", [] { return message("密码错误，请重新输入"); }},
    {"message-empty", [] { return message(""); }},
    {"processing", [] { return processing("Connecting, please wait..."); }},
    {"processing-chinese", [] { return processing("正在连接中，请等待..."); }},
    {"processing-two-lines", [] { return processing("Connecting to the network Conference room on the 3rd floor"); }},
};

} // namespace

int main(int argc, char** argv)
{
    return run(argc, argv, scenes);
}
