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
    gallery->beginSection(QT_TRANSLATE_NOOP("Gallery", "Title strip"));
    gallery->add(new RaTitleWidget(Gallery::tr("Wi-Fi settings"), Gallery::tr("Connected"), true, nullptr), 50);
    gallery->add(new RaTitleWidget(Gallery::tr("Network settings"), QLatin1String("00:11:22:33:44:55"), true, nullptr),
                 50);

    gallery->beginSection(QT_TRANSLATE_NOOP("Gallery", "Page"));
    RaBaseWindow* page = new RaBaseWindow(nullptr, Gallery::tr("Volume"), Gallery::tr("Radio"));
    page->createUI(Gallery::tr("Volume"), RaSliderWidget::VOLUME, QString());
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
        button->setText(Gallery::tr("OFF"), Gallery::tr("ON"));
    }
    button->setChecked(on);
    return button;
}

void addSwitches(Gallery* gallery)
{
    gallery->beginSection(QT_TRANSLATE_NOOP("Gallery", "Switch"));
    for (int row = 0; row < 4; ++row) {
        QList<QWidget*> buttons;
        for (int style = 0; style < 3; ++style) {
            buttons << switchButton(style, row % 2 == 1, row >= 2);
        }
        gallery->add(sideBySide(buttons), 40);
    }

    gallery->beginSection(QT_TRANSLATE_NOOP("Gallery", "Rows with a switch"));
    gallery->add(new RaSwitchWidget(nullptr, Gallery::tr("Bluetooth"), Gallery::tr("Visible to others")), 60);
    RaSwitchWidget* on = new RaSwitchWidget(nullptr, Gallery::tr("Bluetooth"), QString());
    on->switchButton()->setChecked(true);
    gallery->add(on, 60);
    RaSwitchListWidget* wifi = new RaSwitchListWidget;
    wifi->setItemText(Gallery::tr("Discovering..."), Gallery::tr("WIFI"));
    wifi->setButtonStyle(RaSwitchListWidget::ButtonStyle_Round);
    wifi->setBgColor(QColor(30, 33, 41), accent);
    wifi->setSliderColor(QColor(100, 100, 100), Qt::white);
    wifi->setChecked(true);
    gallery->add(wifi, 140);
}

void addLevels(Gallery* gallery)
{
    gallery->beginSection(QT_TRANSLATE_NOOP("Gallery", "Level slider"));
    RaSliderWidget* volume = new RaSliderWidget(RaSliderWidget::VOLUME);
    volume->setLevel(3);
    gallery->add(volume, 120);
    RaSliderWidget* brightness = new RaSliderWidget(RaSliderWidget::BRIGHTNESS);
    brightness->setLevel(2);
    gallery->add(brightness, 120);

    gallery->beginSection(QT_TRANSLATE_NOOP("Gallery", "Clickable label"));
    RaClickableLabel* text = new RaClickableLabel;
    text->setText(Gallery::tr("Settings"));
    text->setStyleSheet(QLatin1String("color: white; font-size: 18px"));
    RaClickableLabel* image = new RaClickableLabel;
    image->setPixmap(QPixmap(QLatin1String(":/images/back.png")));
    image->setAccessibleName(Gallery::tr("Back"));
    gallery->add(sideBySide({text, image}), 50);
}

void addWindows(Gallery* gallery)
{
    gallery->beginSection(QT_TRANSLATE_NOOP("Gallery", "Spinner"));
    RaCircleWait* spinner = new RaCircleWait(nullptr);
    spinner->setColor(accent);
    gallery->add(spinner, 140);

    gallery->beginSection(QT_TRANSLATE_NOOP("Gallery", "Progress panel"));
    gallery->add(new RaWifiProcessingWnd(nullptr, Gallery::tr("Connecting, please wait...")), 170);

    gallery->beginSection(QT_TRANSLATE_NOOP("Gallery", "Message"));
    RaWifiMsg* refusal = new RaWifiMsg(nullptr);
    refusal->m_text = Gallery::tr("The network Kitchen radio could not be joined: wrong password");
    gallery->add(refusal, 70);
    RaWifiMsg* advice = new RaWifiMsg(nullptr);
    advice->m_text = Gallery::tr("Wrong password, please try again");
    gallery->add(advice, 70);
}

RaItemPushBtn* networkRow(const QString& name, bool locked, int level)
{
    APData network = APData();
    std::snprintf(network.essid, sizeof network.essid, "%s", name.toUtf8().constData());
    network.is_encry = locked ? 2 : 1;
    network.sigquality = level;
    RaItemPushBtn* row = new RaItemPushBtn;
    row->addItemData(&network, 0);
    return row;
}

void addRows(Gallery* gallery)
{
    gallery->beginSection(QT_TRANSLATE_NOOP("Gallery", "Networks"));
    RaItemPushBtn* joined = networkRow(Gallery::tr("Kitchen radio"), true, 4);
    joined->setCheckState(true);
    joined->setConnectSuccess();
    gallery->add(joined, 60);
    RaItemPushBtn* joining = networkRow(Gallery::tr("Coffee shop"), true, 3);
    joining->setConnectingStatus(true);
    gallery->add(joining, 60);
    gallery->add(networkRow(Gallery::tr("Guests"), false, 1), 60);

    gallery->beginSection(QT_TRANSLATE_NOOP("Gallery", "Password field"));
    raPsWdLineEdit* field = new raPsWdLineEdit;
    field->setplaceholdertext(Gallery::tr("Enter the password"));
    field->setPlaceholdertextStatus();
    field->setFixedSize(300, 42);
    gallery->add(sideBySide({field}), 42);
}

void addKeyboards(Gallery* gallery)
{
    gallery->beginSection(QT_TRANSLATE_NOOP("Gallery", "Letters"));
    gallery->add(new TypingSample, TypingSample::Height);
    gallery->beginSection(QT_TRANSLATE_NOOP("Gallery", "Capitals"));
    gallery->add(new TypingSample({QLatin1String("ABC")}), TypingSample::Height);
    gallery->beginSection(QT_TRANSLATE_NOOP("Gallery", "Digits"));
    gallery->add(new TypingSample({QLatin1String("123")}), TypingSample::Height);
    gallery->beginSection(QT_TRANSLATE_NOOP("Gallery", "Symbols"));
    gallery->add(new TypingSample({QLatin1String("!@#")}), TypingSample::Height);
    gallery->beginSection(QT_TRANSLATE_NOOP("Gallery", "More symbols"));
    gallery->add(new TypingSample({QLatin1String("!@#"), QLatin1String("RI")}), TypingSample::Height);
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
