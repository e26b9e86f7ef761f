// SPDX-FileCopyrightText: 2026 The rawificontrol authors
// SPDX-License-Identifier: MIT
#include "samples.h"

#include "gallery.h"
#include "typingsample.h"

#include <rawificontrol.h>

#include <QHBoxLayout>
#include <cstdio>

namespace {

const QColor darkRow(54, 54, 54);
const QColor accent(248, 129, 133);

QString utf8(const char* text)
{
    return QString::fromUtf8(text);
}

/** A row of \a widgets beside each other, each in the middle of its share. */
QWidget* sideBySide(const QList<QWidget*>& widgets)
{
    QWidget* row = new QWidget;
    QHBoxLayout* layout = new QHBoxLayout(row);
    layout->setContentsMargins(10, 0, 10, 0);
    for (QWidget* widget : widgets) {
        layout->addWidget(widget, 0, Qt::AlignCenter);
    }
    return row;
}

void addTitles(Gallery* gallery)
{
    gallery->beginSection(utf8("Title strip"));
    gallery->add(new RaTitleWidget(utf8("Wi-Fi"), utf8("Connected"), true, nullptr), 50);
    gallery->add(new RaTitleWidget(utf8("网络设置"), utf8("00:11:22:33:44:55"), true, nullptr), 50);

    gallery->beginSection(utf8("Page"));
    RaBaseWindow* page = new RaBaseWindow(nullptr, utf8("Volume"), utf8("Radio"));
    page->createUI(utf8("Volume"), RaSliderWidget::VOLUME, QString());
    gallery->add(page, 170);
}

QWidget* switchButton(int style, bool on, bool pageColours)
{
    RaSwitchButton* button = new RaSwitchButton;
    button->setFixedSize(80, 34);
    button->setButtonStyle(static_cast<RaSwitchButton::ButtonStyle>(style));
    if (pageColours) {
        button->setBgColor(darkRow, accent);
        button->setSliderColor(QColor(225, 225, 225), Qt::white);
        button->setTextColor(Qt::white, Qt::white);
        button->setText(utf8("OFF"), utf8("ON"));
    }
    button->setChecked(on);
    return button;
}

void addSwitches(Gallery* gallery)
{
    gallery->beginSection(utf8("Switch"));
    for (int row = 0; row < 4; ++row) {
        QList<QWidget*> buttons;
        for (int style = 0; style < 3; ++style) {
            buttons << switchButton(style, row % 2 == 1, row >= 2);
        }
        gallery->add(sideBySide(buttons), 40);
    }

    gallery->beginSection(utf8("Rows with a switch"));
    gallery->add(new RaSwitchWidget(nullptr, utf8("Bluetooth"), utf8("Visible to others")), 60);
    RaSwitchWidget* on = new RaSwitchWidget(nullptr, utf8("蓝牙"), QString());
    on->switchButton()->setChecked(true);
    gallery->add(on, 60);
    RaSwitchListWidget* wifi = new RaSwitchListWidget;
    wifi->setItemText(utf8("Discovering..."), utf8("WIFI"));
    wifi->setButtonStyle(RaSwitchListWidget::ButtonStyle_Round);
    wifi->setBgColor(QColor(30, 33, 41), accent);
    wifi->setSliderColor(QColor(100, 100, 100), Qt::white);
    wifi->setChecked(true);
    gallery->add(wifi, 140);
}

void addLevels(Gallery* gallery)
{
    gallery->beginSection(utf8("Level slider"));
    RaSliderWidget* volume = new RaSliderWidget(RaSliderWidget::VOLUME);
    volume->setLevel(3);
    gallery->add(volume, 120);
    RaSliderWidget* brightness = new RaSliderWidget(RaSliderWidget::BRIGHTNESS);
    brightness->setLevel(2);
    gallery->add(brightness, 120);

    gallery->beginSection(utf8("Clickable label"));
    RaClickableLabel* text = new RaClickableLabel;
    text->setText(utf8("Settings"));
    text->setStyleSheet(utf8("color: white; font-size: 18px"));
    RaClickableLabel* image = new RaClickableLabel;
    image->setPixmap(QPixmap(utf8(":/images/back.png")));
    image->setAccessibleName(utf8("Back"));
    gallery->add(sideBySide({text, image}), 50);
}

void addWindows(Gallery* gallery)
{
    gallery->beginSection(utf8("Spinner"));
    RaCircleWait* spinner = new RaCircleWait(nullptr);
    spinner->setColor(accent);
    gallery->add(spinner, 140);

    gallery->beginSection(utf8("Progress panel"));
    gallery->add(new RaWifiProcessingWnd(nullptr, utf8("Connecting, please wait...")), 170);

    gallery->beginSection(utf8("Message"));
    RaWifiMsg* english = new RaWifiMsg(nullptr);
    english->m_text = utf8("The network Kitchen radio could not be joined: wrong password");
    gallery->add(english, 70);
    RaWifiMsg* chinese = new RaWifiMsg(nullptr);
    chinese->m_text = utf8("密码错误，请重新输入");
    gallery->add(chinese, 70);
}

RaItemPushBtn* networkRow(const char* name, bool locked, int level)
{
    APData network = APData();
    std::snprintf(network.essid, sizeof network.essid, "%s", name);
    network.is_encry = locked ? 2 : 1;
    network.sigquality = level;
    RaItemPushBtn* row = new RaItemPushBtn;
    row->addItemData(&network, 0);
    return row;
}

void addRows(Gallery* gallery)
{
    gallery->beginSection(utf8("Networks"));
    RaItemPushBtn* joined = networkRow("Kitchen radio", true, 4);
    joined->setCheckState(true);
    joined->setConnectSuccess();
    gallery->add(joined, 60);
    RaItemPushBtn* joining = networkRow("咖啡厅的无线网络", true, 3);
    joining->setConnectingStatus(true);
    gallery->add(joining, 60);
    gallery->add(networkRow("Guests", false, 1), 60);

    gallery->beginSection(utf8("Password field"));
    raPsWdLineEdit* field = new raPsWdLineEdit;
    field->setplaceholdertext(utf8("请输入密码"));
    field->setPlaceholdertextStatus();
    field->setFixedSize(300, 42);
    gallery->add(sideBySide({field}), 42);
}

void addKeyboards(Gallery* gallery)
{
    gallery->beginSection(utf8("Letters"));
    gallery->add(new TypingSample, TypingSample::Height);
    gallery->beginSection(utf8("Capitals"));
    gallery->add(new TypingSample({utf8("ABC")}), TypingSample::Height);
    gallery->beginSection(utf8("Digits"));
    gallery->add(new TypingSample({utf8("123")}), TypingSample::Height);
    gallery->beginSection(utf8("Symbols"));
    gallery->add(new TypingSample({utf8("!@#")}), TypingSample::Height);
    gallery->beginSection(utf8("More symbols"));
    gallery->add(new TypingSample({utf8("!@#"), utf8("RI")}), TypingSample::Height);
}

} // namespace

void addSamples(Gallery* gallery)
{
    addTitles(gallery);
    addSwitches(gallery);
    addLevels(gallery);
    addWindows(gallery);
    addRows(gallery);
    addKeyboards(gallery);
}
