// SPDX-FileCopyrightText: 2026 The rawificontrol authors
// SPDX-License-Identifier: MIT
#ifndef HOST_LINKSYMBOL_H
#define HOST_LINKSYMBOL_H

#include <QWidget>

/** The link's strength as arcs: as many lit as there are levels, all of them dark without a link. */
class LinkSymbol : public QWidget
{
    Q_OBJECT
public:
    explicit LinkSymbol(QWidget* parent = nullptr);

    /** \a level: 1 to 4, or 0 without a link. */
    void setLevel(int level);

protected:
    void paintEvent(QPaintEvent* event) override;

private:
    int m_level = 0;
};

#endif
