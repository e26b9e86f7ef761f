// SPDX-FileCopyrightText: 2026 The rawificontrol authors
// SPDX-License-Identifier: MIT

// What does a list of 200 networks cost, from its records to the last paint, and what a step of a drag through it?

#include "figure.h"

#include <rawificontrol.h>

#include <QApplication>
#include <QMouseEvent>
#include <QScrollArea>
#include <QScrollBar>
#include <QWindow>
#include <cstdio>
#include <cstring>
#include <memory>

namespace {

const int networkCount = 200;
const int dragStep = 7; // pixels between two moves of the finger
const int dragSteps = 400;

void fillAir()
{
    for (int i = 0; i < networkCount; ++i) {
        APData record;
        std::memset(&record, 0, sizeof record);
        std::snprintf(record.essid, sizeof record.essid, "Network number %d", i);
        std::snprintf(record.macAddr, sizeof record.macAddr, "02:00:00:00:00:%02x", i);
        record.encry[0] = i % 2 == 0 ? WPA2_PSK : NOENCRY;
        record.is_encry = i % 2 == 0 ? 2 : 1;
        record.sigquality = 1 + i % 4;
        record.orderbynum = 999;
        APDataArray << new APData(record);
    }
}

/** Until everything that was put off (layout, deletion, paint) has happened. */
void settle()
{
    for (int i = 0; i < 3; ++i) {
        QCoreApplication::processEvents();
        QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
    }
}

void show(QWidget& window)
{
    window.resize(320, 480);
    window.show();
    while (!window.windowHandle()->isExposed()) {
        QCoreApplication::processEvents();
    }
    settle();
}

void finger(QWidget* widget, QEvent::Type type, const QPoint& position)
{
    const Qt::MouseButtons buttons = type == QEvent::MouseButtonRelease ? Qt::NoButton : Qt::LeftButton;
    const Qt::MouseButton button = type == QEvent::MouseMove ? Qt::NoButton : Qt::LeftButton;
    QMouseEvent event(type, widget->mapFromGlobal(position), position, button, buttons, Qt::NoModifier);
    QCoreApplication::sendEvent(widget, &event);
}

/** The longest step of a drag up the screen in milliseconds, each step by the best of three drags. */
double longestDragStep(QWidget& window)
{
    RaListwidget* const list = window.findChild<RaListwidget*>();
    QScrollBar* const bar = window.findChild<QScrollArea*>()->verticalScrollBar();
    QWidget* const row = list->findChild<RaItemPushBtn*>();
    std::vector<double> best(dragSteps, 1e9);
    for (int drag = 0; drag < 3; ++drag) {
        bar->setValue(0);
        settle();
        QPoint position = row->mapToGlobal(row->rect().center());
        finger(row, QEvent::MouseButtonPress, position);
        for (double& step : best) {
            position.ry() -= dragStep;
            step = std::min(step, onceNanoseconds([&] {
                                finger(row, QEvent::MouseMove, position);
                                QCoreApplication::processEvents();
                            }));
        }
        if (bar->value() == 0) {
            std::fprintf(stderr, "the drag does not scroll\n");
            std::exit(1);
        }
        finger(row, QEvent::MouseButtonRelease, position);
    }
    return *std::max_element(best.begin(), best.end()) / 1e6;
}

} // namespace

int main(int argc, char** argv)
{
    if (qEnvironmentVariableIsEmpty("QT_QPA_PLATFORM")) {
        qputenv("QT_QPA_PLATFORM", "offscreen");
    }
    QApplication application(argc, argv);
    const QByteArray platform = QGuiApplication::platformName().toLatin1();

    QWidget empty;
    show(empty);
    const double floor = medianNanoseconds(31, [&empty] {
        empty.update();
        settle();
    });

    fillAir();
    std::vector<double> fills;
    for (int i = 0; i < 11; ++i) {
        RaWifiListWidget window(nullptr, true, QLatin1String("Network Setting"), QLatin1String("02:00:00:00:00:00"));
        show(window);
        window.setWifiSwitch(true);
        settle();
        fills.push_back(onceNanoseconds([&window] {
            window.showRefreshListData();
            settle();
        }));
    }
    std::nth_element(fills.begin(), fills.begin() + 5, fills.end());

    RaWifiListWidget window(nullptr, true, QLatin1String("Network Setting"), QLatin1String("02:00:00:00:00:00"));
    show(window);
    window.setWifiSwitch(true);
    window.showRefreshListData();
    settle();
    const double refill = medianNanoseconds(31, [&window] {
        window.showRefreshListData();
        settle();
    });
    if (window.findChildren<RaItemPushBtn*>().size() != networkCount) {
        std::fprintf(stderr, "the list does not show its networks\n");
        return 1;
    }

    std::printf("%s: an empty window painted anew %.3f ms\n", platform.constData(), floor / 1e6);
    printFigure((platform + ": 200 networks filled and painted").constData(), fills[5] / 1e6, 10.0, "ms");
    printFigure((platform + ": 200 networks filled anew and painted").constData(), refill / 1e6, 8.0, "ms");
    printFigure((platform + ": longest step of a drag through 200 networks").constData(), longestDragStep(window), 4.0,
                "ms");
    window.hide();
    return 0;
}
