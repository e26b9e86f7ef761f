// SPDX-FileCopyrightText: 2026 The rawificontrol authors
// SPDX-License-Identifier: MIT
#ifndef RAWIFI_RASWITCHFACE_H
#define RAWIFI_RASWITCHFACE_H

#include <QColor>
#include <QFont>
#include <QString>

class QPainter;
class QRect;
class QRectF;

/** What a sliding switch looks like and where its knob is; the widgets that show one feed it. */
struct RaSwitchFace
{
    RaSwitchFace();

    /** The font of the texts on a switch. */
    static QFont font();

    /** Where the knob rests when on in a switch of \a area; when off it rests at 0. */
    int onX(const QRect& area) const;

    /** One glide step is a fiftieth of \a width, 1 pixel at least, so that narrow switches arrive too. */
    void setStepFor(int width);
    /** Puts the knob at \a x at once. */
    void placeKnob(int x);
    /** Lets the knob glide to \a x, step by step. */
    void startGlide(int x);
    /** Moves the knob by one step; true when it has arrived. */
    bool glide();

    /** Draws the switch into \a area; \a onX is where its knob rests when on. */
    void draw(QPainter* painter, const QRect& area, int onX, bool focused) const;

    bool checked = false;
    int style = 0;
    QColor bgColorOff;
    QColor bgColorOn;
    QColor sliderColorOff;
    QColor sliderColorOn;
    QColor textColorOff;
    QColor textColorOn;
    QString textOff;
    QString textOn;
    QString imageOff;
    QString imageOn;
    int space = 2;
    int rectRadius = 5;

private:
    QRectF knobArea(const QRect& area) const;
    void drawBg(QPainter* painter, const QRect& area, double onShare) const;
    void drawText(QPainter* painter, const QRectF& area, const QString& text) const;
    void drawImage(QPainter* painter, const QRectF& area) const;
    void drawSlider(QPainter* painter, const QRectF& knob, double onShare) const;

    int m_step = 1;
    int m_x = 0;
    int m_endX = 0;
    bool m_gliding = false;
};

#endif
