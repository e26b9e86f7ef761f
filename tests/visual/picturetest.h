// SPDX-FileCopyrightText: 2026 The rawificontrol authors
// SPDX-License-Identifier: MIT
#ifndef RAWIFI_PICTURETEST_H
#define RAWIFI_PICTURETEST_H

#include <QImage>
#include <QObject>
#include <QWidget>
#include <functional>
#include <utility>
#include <vector>

/** Tests whose outcome is a picture, compared to the one of the same name in references/. */
namespace picturetest {

/** A name that is also the reference's file name, and what draws the picture. */
using Scene = std::pair<const char*, std::function<QImage()>>;
using Scenes = std::vector<Scene>;

/** Runs a test of all \a scenes, drawn alike on every machine, as main() does; returns its status. */
int run(int argc, char** argv, const Scenes& scenes);

/**
 * Draws each scene and compares it. A picture that differs is written beside the expected one and the
 * difference, below the build folder. With RAWIFI_REGENERATE set in the environment the picture becomes the
 * reference where none fits it.
 */
class PictureTest : public QObject
{
    Q_OBJECT
public:
    explicit PictureTest(const Scenes& scenes);

private Q_SLOTS:
    void looksLikeItsReference_data();
    void looksLikeItsReference();

private:
    const Scenes& m_scenes;
};

/** A piece of a dark page, 320 pixels wide, shown from construction on: what is put on it keeps its state. */
class Sheet : public QWidget
{
public:
    explicit Sheet(int height);

    /** Puts \a widget, which may be a window of its own, on the sheet; the sheet then owns it. */
    template<typename Widget>
    Widget* put(Widget* widget, const QRect& place)
    {
        widget->setParent(this);
        widget->setGeometry(place);
        widget->show();
        return widget;
    }

    QImage picture();
};

/** Presses and, unless it is to be \a held, releases the left button at \a position. */
void tap(QWidget* widget, const QPoint& position, bool held = false);

} // namespace picturetest

#endif
