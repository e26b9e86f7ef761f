// SPDX-FileCopyrightText: 2026 The rawificontrol authors
// SPDX-License-Identifier: MIT
#ifndef RAWIFI_RACIRCLEWAIT_H
#define RAWIFI_RACIRCLEWAIT_H

#include "rabasewidget.h"

#include <QColor>

class QPainter;
class QTimer;

/**
 * A spinning ring of eleven dots of growing opacity on black, drawn for 140 by 140 pixels and scaled to any
 * size. It moves on with every repaint, ten times a second from construction on, visible or not. GUI thread
 * only.
 *
 * Always made without a parent: whoever creates it gives it one with setParent(), or deletes it.
 */
class RAWIFI_EXPORT RaCircleWait : public RaBaseWidget
{
    Q_OBJECT
public:
    /** \a parent is ignored. */
    explicit RaCircleWait(QWidget* parent);
    ~RaCircleWait() override;

    /** The dots' colour, black at first; its alpha is not used. */
    void setColor(QColor color);
    /** Clockwise at first. */
    void setClockwiseRotate(bool clockwise);
    /** The angle in degrees by which each repaint moves on, 36 at first. */
    void setRotateDelta(int delta);

protected:
    void paintEvent(QPaintEvent* event) override;

private:
    Q_DISABLE_COPY(RaCircleWait)

    void drawRaCircleWait(QPainter& painter);

    QColor m_color;
    bool m_clockwise = true;
    int m_rotateDelta = 36;
    int m_rotateAngle = 0;
    QTimer* m_timer; ///< without a parent, owned
};

#endif
