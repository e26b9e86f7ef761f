// SPDX-FileCopyrightText: 2026 The rawificontrol authors
// SPDX-License-Identifier: MIT
#ifndef RAWIFI_EMPTYWINDOW_H
#define RAWIFI_EMPTYWINDOW_H

#include <QCoreApplication>
#include <QEvent>
#include <QPalette>
#include <QWidget>

/** Repaints what has asked for it, without waiting. */
inline void paintNow()
{
    QCoreApplication::sendPostedEvents();
    QCoreApplication::processEvents();
}

/** What every page costs at least: a plain window in the pages' colour. */
class EmptyWindow : public QWidget
{
public:
    EmptyWindow(int width, int height)
    {
        QPalette colours = palette();
        colours.setColor(QPalette::Window, QColor(0x1e, 0x21, 0x29));
        setPalette(colours);
        resize(width, height);
    }
};

/** Counts how often a widget is painted. */
class PaintCount : public QObject
{
public:
    explicit PaintCount(QWidget* widget) { widget->installEventFilter(this); }
    int count = 0;

protected:
    bool eventFilter(QObject*, QEvent* event) override
    {
        count += event->type() == QEvent::Paint ? 1 : 0;
        return false;
    }
};

#endif
