// SPDX-FileCopyrightText: 2026 The rawificontrol authors
// SPDX-License-Identifier: MIT
#include "typingsample.h"

#include <rawificontrol.h>

namespace {

const int lineHeight = 36;
const int keyboardHeight = 262;

} // namespace

const int TypingSample::Height = lineHeight + keyboardHeight;

TypingSample::TypingSample(const QStringList& taps)
    : m_line(new QLabel(tr("Type something"), this)),
      m_keyboard(new RaVirtualKeyboard(this))
{
    m_line->setGeometry(10, 0, 300, lineHeight - 6);
    m_line->setTextFormat(Qt::PlainText);
    m_line->setIndent(10);
    m_line->setStyleSheet(
        QLatin1String("background-color:rgb(54,54,54);border-radius:10px;color:white;font-size:16px;"));
    m_keyboard->move(0, lineHeight);
    for (const QString& key : taps) {
        m_keyboard->recKeyClicked(key);
    }
    connect(m_keyboard, SIGNAL(changedOutSideTextSignal(QString, QString)), this, SLOT(take(QString)));
    connect(m_keyboard->spaceKey(), SIGNAL(clicked(QString)), this, SLOT(takeSpace(QString)));
}

void TypingSample::take(const QString& text)
{
    if (text == QLatin1String("BS")) {
        m_typed.chop(1);
    } else {
        m_typed += text;
    }
    m_line->setText(m_typed);
}

void TypingSample::takeSpace(const QString& text)
{
    if (text.isEmpty() && !m_keyboard->isMoving()) {
        take(QLatin1String(" "));
    }
}
