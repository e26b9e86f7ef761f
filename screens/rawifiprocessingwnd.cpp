// SPDX-FileCopyrightText: 2026 The rawificontrol authors
// SPDX-License-Identifier: MIT
#include "rawifiprocessingwnd.h"

#include "racirclewait.h"

#include <QLabel>

RaWifiProcessingWnd::RaWifiProcessingWnd(QWidget* parent, QString text)
    : QWidget(nullptr)
    , m_spinner(new RaCircleWait(this))
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
    m_label->setGeometry(0, 101, 320, 50);
    m_label->setTextFormat(Qt::PlainText);
    m_label->setText(text);
    m_label->setAlignment(Qt::AlignCenter);
    m_label->setWordWrap(true);
    m_label->setStyleSheet(
        QLatin1String("QLabel {font-size: 20px;color: #BDC8E2;background-color: #1e2129;}"));
    m_label->show();

    resize(320, 170);
}

RaWifiProcessingWnd::~RaWifiProcessingWnd() {}
