// SPDX-FileCopyrightText: 2026 The rawificontrol authors
// SPDX-License-Identifier: MIT
#include "rawifiprocessingwnd.h"

#include "racirclewait.h"

#include <QLabel>

namespace {

const QRect labelRect(0, 101, 320, 50);
const int sideMargin = 8; // inside the label

/** \a text, cut at its end until all its lines are seen whole in the label. */
QString fitted(const QString& text, QLabel* label)
{
    label->ensurePolished(); // the font comes from the style sheet
    const QFontMetrics metrics(label->font());
    const QRect room = label->contentsRect();
    QString shown = text;
    for (int kept = int(text.size()) - 1;
         kept >= 0 && !room.contains(metrics.boundingRect(room, Qt::AlignCenter | Qt::TextWordWrap, shown)); --kept) {
        shown = text.left(kept).trimmed() + QChar(0x2026);
    }
    return shown;
}

} // namespace

RaWifiProcessingWnd::RaWifiProcessingWnd(QWidget* parent, QString text)
    : QWidget(nullptr),
      m_spinner(new RaCircleWait(this))
{
    Q_UNUSED(parent);
    setWindowFlags(Qt::FramelessWindowHint);
    setAttribute(Qt::WA_StyledBackground);
    setStyleSheet(QLatin1String("QWidget{background-color:#1e2129}"));
    setAccessibleName(text);

    m_spinner->setParent(this);
    m_spinner->setColor(Qt::blue);
    m_spinner->setGeometry(0, 0, 320, 120);
    m_spinner->show();

    m_label = new QLabel(this); // after the spinner, whose lower edge it covers
    m_label->setGeometry(labelRect);
    m_label->setContentsMargins(sideMargin, 0, sideMargin, 0);
    m_label->setTextFormat(Qt::PlainText);
    m_label->setAlignment(Qt::AlignCenter);
    m_label->setWordWrap(true);
    m_label->setStyleSheet(QLatin1String("QLabel {font-size: 20px;color: #BDC8E2;background-color: #1e2129;}"));
    m_label->setText(fitted(text, m_label));
    m_label->show();

    resize(320, 170);
}

RaWifiProcessingWnd::~RaWifiProcessingWnd() {}
