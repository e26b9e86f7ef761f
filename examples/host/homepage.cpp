// SPDX-FileCopyrightText: 2026 The rawificontrol authors
// SPDX-License-Identifier: MIT
#include "homepage.h"

#include <rawificontrol.h>

#include <QFile>
#include <QLabel>
#include <QPushButton>
#include <QTimer>
#include <QVBoxLayout>

namespace {

const int lookMs = 1000; // how often the status files are looked at

QString firstLine(const char* path)
{
    QFile file(QString::fromLatin1(path));
    return file.open(QIODevice::ReadOnly) ? QString::fromLatin1(file.readLine(64)).trimmed() : QString();
}

bool isLinked()
{
    return firstLine("/home/wifi/linkap.txt").toInt() >= 1;
}

} // namespace

HomePage::HomePage(RaWifiManager* wifi)
    : QWidget(nullptr), m_wifi(wifi), m_channel(QLatin1String("mainprocess"))
{
    setStyleSheet(QLatin1String("HomePage{background-color:#1e2129}"));
    setAttribute(Qt::WA_StyledBackground);

    QVBoxLayout* const layout = new QVBoxLayout(this);
    layout->setContentsMargins(24, 48, 24, 48);
    layout->setSpacing(12);
    addLabel(tr("Home"), 30, QLatin1String("white"));
    layout->addStretch();
    m_link = addLabel(QString(), 22, QLatin1String("white"));
    m_address = addLabel(QString(), 18, QLatin1String("#f88185"));
    layout->addStretch();
    m_heard = addLabel(QString(), 14, QLatin1String("gray"));

    QPushButton* const open = new QPushButton(tr("Wi-Fi settings"));
    open->setObjectName(QLatin1String("openWifi"));
    open->setMinimumHeight(60);
    open->setStyleSheet(QLatin1String("QPushButton{background-color:rgb(54,54,54);color:white;font-size:22px;"
                                      "border:0px;border-radius:10px}"
                                      "QPushButton:pressed{background-color:rgb(248,129,133)}"));
    layout->addWidget(open);
    connect(open, SIGNAL(clicked()), this, SLOT(openWifiPage()));

    m_wifi->setParent(this);
    m_wifi->hide();
    connect(m_wifi, SIGNAL(backPressed()), this, SLOT(closeWifiPage()));
    connect(&m_channel, SIGNAL(received(QString,QByteArray)), this, SLOT(hear(QString,QByteArray)));

    QTimer* const look = new QTimer(this);
    connect(look, SIGNAL(timeout()), this, SLOT(showLink()));
    look->start(lookMs);
    showLink();
}

QLabel* HomePage::addLabel(const QString& text, int pixelSize, const QString& colour)
{
    QLabel* const label = new QLabel(text);
    label->setTextFormat(Qt::PlainText);
    label->setAlignment(Qt::AlignCenter);
    label->setWordWrap(true);
    label->setStyleSheet(QString::fromLatin1("font-size:%1px;color:%2").arg(QString::number(pixelSize), colour));
    layout()->addWidget(label);
    return label;
}

void HomePage::openWifiPage()
{
    m_wifi->setGeometry(rect());
    m_wifi->show();
    m_wifi->raise();
}

void HomePage::closeWifiPage()
{
    m_wifi->hide();
}

// The library sends the text's bytes alone, although the message names a QString.
void HomePage::hear(const QString& message, const QByteArray& data)
{
    if (message == QLatin1String("wifi(QString)")) {
        m_heard->setText(tr("The Wi-Fi page says: %1").arg(QString::fromLocal8Bit(data)));
    }
}

void HomePage::showLink()
{
    const bool linked = isLinked();
    m_link->setText(linked ? tr("Connected") : tr("Not connected"));
    m_address->setText(linked ? firstLine("/home/wifi/ipinfo.txt") : QString());
    if (linked && !m_linked) {
        // From now on the library watches the link.
        if (RaWifiMonitor* const monitor = m_wifi->findChild<RaWifiMonitor*>()) {
            monitor->setWifiConnectStatus(1, 1);
        }
    }
    if (linked != m_linked) {
        m_linked = linked;
        m_wifi->sendSAPMsgToMain(linked ? 1 : 0);
    }
}
