// SPDX-FileCopyrightText: 2026 The rawificontrol authors
// SPDX-License-Identifier: MIT
#ifndef RAWIFI_PAGEBUTTON_H
#define RAWIFI_PAGEBUTTON_H

#include <QPushButton>

/**
 * A dark, rounded button of a page: it shows a press and the focus, and the enter key presses it as well. A text that
 * is too wide beside the icon is made smaller when the button gets its size, so the icon comes first.
 */
class PageButton : public QPushButton
{
public:
    PageButton(const QString& text, QWidget* parent);

protected:
    void paintEvent(QPaintEvent* event) override;
    void resizeEvent(QResizeEvent* event) override;
    void keyPressEvent(QKeyEvent* event) override;
};

#endif
