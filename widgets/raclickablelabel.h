// SPDX-FileCopyrightText: 2026 The rawificontrol authors
// SPDX-License-Identifier: MIT
#ifndef RAWIFI_RACLICKABLELABEL_H
#define RAWIFI_RACLICKABLELABEL_H

#include "rawifi_export.h"

#include <QLabel>

/**
 * A label that works like a button: a left-button release, or space or enter while it has the focus, is a
 * click. Its owner gives it an accessible name where it shows a picture. GUI thread only.
 */
class RAWIFI_EXPORT RaClickableLabel : public QLabel
{
    Q_OBJECT
public:
    explicit RaClickableLabel(QWidget* parent = nullptr); ///< An empty label, owned by \a parent.
    ~RaClickableLabel() override;

Q_SIGNALS:
    void clicked(); ///< Released, or worked by a key.

protected:
    void mousePressEvent(QMouseEvent* event) override;
    void mouseReleaseEvent(QMouseEvent* event) override;
    void keyPressEvent(QKeyEvent* event) override;
    void paintEvent(QPaintEvent* event) override;

private:
    Q_DISABLE_COPY(RaClickableLabel)
};

#endif
