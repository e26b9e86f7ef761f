// SPDX-FileCopyrightText: 2026 The rawificontrol authors
// SPDX-License-Identifier: MIT
#ifndef RAWIFI_RATITLEWIDGET_H
#define RAWIFI_RATITLEWIDGET_H

#include "rawifi_export.h"

#include <QString>
#include <QWidget>

/**
 * A title strip of 320 by 50 pixels with a back mark on the left. GUI thread only.
 *
 * Made without a parent: whoever creates it gives it one with setParent(), or deletes it. A title that leaves
 * no room for the right-hand text moves to the left, and is elided where that is not enough.
 */
class RAWIFI_EXPORT RaTitleWidget : public QWidget
{
    Q_OBJECT
public:
    /** \a parent is ignored. Both texts are empty. */
    explicit RaTitleWidget(QWidget* parent);
    /** \a ignored and \a parent are ignored. */
    RaTitleWidget(QString title, QString right, bool ignored, QWidget* parent);
    ~RaTitleWidget() override;

Q_SIGNALS:
    /** A release on the back mark, the square from (1,1) to (49,49), or its key. */
    void backPressed();

protected:
    void mousePressEvent(QMouseEvent* event) override;
    void mouseReleaseEvent(QMouseEvent* event) override;
    void keyPressEvent(QKeyEvent* event) override;
    void paintEvent(QPaintEvent* event) override;

private:
    Q_DISABLE_COPY(RaTitleWidget)

    QString m_title;
    QString m_right;

protected:
    bool m_flag = true; ///< for derived strips of a host; nothing here reads it

private:
    void init();
    bool m_backHeld = false;
};

#endif
