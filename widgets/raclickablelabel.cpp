// SPDX-FileCopyrightText: 2026 The rawificontrol authors
// SPDX-License-Identifier: MIT
#include "raclickablelabel.h"

#include "raaccessible.h"
#include "rafocus.h"
#include "ralog.h"

#include <QKeyEvent>
#include <QMouseEvent>
#include <QPainter>

RaClickableLabel::RaClickableLabel(QWidget* parent) : QLabel(parent)
{
    raInstallAccessibility();
    setFocusPolicy(Qt::TabFocus);
}

RaClickableLabel::~RaClickableLabel() {}

void RaClickableLabel::mousePressEvent(QMouseEvent* event)
{
    event->accept(); // not a press on what lies below, too
}

void RaClickableLabel::mouseReleaseEvent(QMouseEvent* event)
{
    RA_DEBUG("label released");
    if (event->button() == Qt::LeftButton) {
        Q_EMIT clicked();
    }
}

void RaClickableLabel::keyPressEvent(QKeyEvent* event)
{
    if (raIsActivation(event)) {
        Q_EMIT clicked();
    } else {
        QLabel::keyPressEvent(event);
    }
}

void RaClickableLabel::paintEvent(QPaintEvent* event)
{
    QLabel::paintEvent(event);
    if (raShowsFocus(this)) {
        QPainter painter(this);
        raDrawFocusMark(&painter, rect(), 8);
    }
}
