// SPDX-FileCopyrightText: 2026 The rawificontrol authors
// SPDX-License-Identifier: MIT
#include "rapswdlineedit.h"

#include <QFile>
#include <QPushButton>
#include <QStyleOption>
#include <QStylePainter>

namespace {

const char placeholderLook[] =
    "height:35px;border:0px solid #eaeaea;border-radius:14px; background-color:rgb(54,54,54);"
    "caret-color:red ;font-size:22px;color:gray";
const char typingLook[] = "height:35px;border:0px solid #eaeaea;border-radius:14px; background-color:rgb(54,54,54);"
                          "caret-color:red ;font-size:25px;color:white";
const char searchMark[] = ":/images/search-icon.png";
const int searchMarkSize = 24;
const int sideMargin = 12;
const int innerMargin = 2; // the toolkit's, between the margins and the text

} // namespace

raPsWdLineEdit::raPsWdLineEdit(QWidget* parent) : QLineEdit(parent)
{
    setTextMargins(sideMargin, 0, sideMargin, 0);
    setContextMenuPolicy(Qt::NoContextMenu);
    setAcceptDrops(false);
    addSearchMark();
    connect(this, SIGNAL(textChanged(QString)), this, SLOT(slotLineEditChanged(QString)));
}

// A decoration, for hosts that provide its picture.
void raPsWdLineEdit::addSearchMark()
{
    if (!QFile::exists(QLatin1String(searchMark))) {
        return;
    }
    QPushButton* mark = new QPushButton(this);
    mark->setStyleSheet(QLatin1String("QPushButton{border-image:url(:/images/search-icon.png);"
                                      "background:transparent;cursor:pointer;}"));
    mark->setGeometry(sideMargin, (35 - searchMarkSize) / 2, searchMarkSize, searchMarkSize);
    mark->setFocusPolicy(Qt::NoFocus);
    mark->setAttribute(Qt::WA_TransparentForMouseEvents);
    setTextMargins(2 * sideMargin + searchMarkSize, 0, sideMargin, 0);
}

void raPsWdLineEdit::setplaceholdertext(const QString& text)
{
    const bool shown = getIsPlaceholderText();
    m_placeholder = text;
    if (shown) {
        clear();
    }
    setPlaceholdertextStatus();
}

void raPsWdLineEdit::setLineEditSheetStyle(bool placeholder)
{
    const QString look = QLatin1String(placeholder ? placeholderLook : typingLook);
    if (look != styleSheet()) {
        setStyleSheet(look);
    }
    update();
}

bool raPsWdLineEdit::getIsPlaceholderText() const
{
    return text() == m_placeholder;
}

void raPsWdLineEdit::setPlaceholdertextStatus()
{
    if (!text().isEmpty()) {
        return;
    }
    if (echoMode() == QLineEdit::Password) {
        setEchoMode(QLineEdit::Normal);
    }
    setAlignment(Qt::AlignLeft | Qt::AlignVCenter);
    setText(m_placeholder);
    setCursorPosition(0);
    setLineEditSheetStyle(true);
}

void raPsWdLineEdit::slotLineEditChanged(QString text)
{
    setLineEditSheetStyle(text == m_placeholder);
}

void raPsWdLineEdit::paintEvent(QPaintEvent* event)
{
    if (m_placeholder.isEmpty() || !getIsPlaceholderText()) {
        QLineEdit::paintEvent(event);
    } else {
        drawPlaceholder();
    }
}

// The toolkit does not centre text that it has to take from another font than the field's, as it may have to take
// Chinese.
void raPsWdLineEdit::drawPlaceholder()
{
    QStylePainter painter(this);
    QStyleOptionFrame panel;
    initStyleOption(&panel);
    painter.drawPrimitive(QStyle::PE_PanelLineEdit, panel);

    const QMargins margins = textMargins();
    const QRect place = rect().adjusted(margins.left() + innerMargin, 0, -margins.right(), 0);
    painter.setPen(palette().color(QPalette::Text));
    painter.drawText(place, alignment() | Qt::TextSingleLine, m_placeholder);
    if (hasFocus()) {
        const int height = fontMetrics().height();
        painter.fillRect(place.left() - 1, place.center().y() - height / 2, 1, height, painter.pen().color());
    }
}
