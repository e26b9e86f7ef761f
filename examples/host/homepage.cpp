// SPDX-FileCopyrightText: 2026 The rawificontrol authors
// SPDX-License-Identifier: MIT
#include "homepage.h"

#include "linksymbol.h"

#include <rawificontrol.h>

#include <QHBoxLayout>
#include <QLabel>
#include <QPushButton>
#include <QTimer>
#include <QVBoxLayout>

namespace {

const int lookMs = 1000; // how often the status files are looked at
const int glideMs = 600; // the switch has come to rest by then

char addressFile[] = "/home/wifi/ipinfo.txt";

QString linkAddress()
{
    char address[16] = "";
    return getIPInfoByfile(addressFile, address) == 0 ? QString::fromLatin1(address) : QString();
}

// A name on the air is any 32 bytes; what cannot be seen must not be shown.
QString linkName()
{
    APData joined;
    GetCurApData(&joined);
    QString name = QString::fromUtf8(joined.essid);
    for (QChar& c : name) {
        if (!c.isPrint() && !c.isSurrogate()) {
            c = QChar::ReplacementCharacter;
        }
    }
    return name;
}

QString inWords(const QByteArray& message)
{
    if (message == "linkend") {
        return HomePage::tr("No link for now");
    }
    if (message == "linkstart") {
        return HomePage::tr("A link is being set up");
    }
    if (message == "openwifi") {
        return HomePage::tr("Wi-Fi has been opened");
    }
    if (message == "APLINKSTART") {
        return HomePage::tr("The link is up");
    }
    if (message == "APLINKEND") {
        return HomePage::tr("The link is down");
    }
    return QString::fromLocal8Bit(message);
}

} // namespace

HomePage::HomePage(RaWifiManager* wifi)
    : QWidget(nullptr),
      m_wifi(wifi),
      m_channel(QLatin1String("mainprocess")),
      m_symbol(new LinkSymbol)
{
    // A palette, because a style sheet here would reach into the library's page.
    QPalette colours = palette();
    colours.setColor(QPalette::Window, QColor(0x1e, 0x21, 0x29));
    setPalette(colours);
    setAutoFillBackground(true);

    QVBoxLayout* const layout = new QVBoxLayout(this);
    layout->setContentsMargins(0, 14, 0, 48);
    layout->setSpacing(8);
    addLabel(18, QLatin1String("white"))->setText(tr("Home"));
    layout->addStretch();
    layout->addWidget(m_symbol, 0, Qt::AlignHCenter);
    layout->addSpacing(16);
    m_link = addLabel(24, QLatin1String("white"));
    m_address = addLabel(16, QLatin1String("#9a9da6"));
    layout->addStretch();
    m_heard = addLabel(13, QLatin1String("#9a9da6"));
    layout->addSpacing(8);
    addWifiRow();

    m_wifi->setParent(this);
    m_wifi->hide();
    connect(m_wifi, SIGNAL(backPressed()), this, SLOT(closeWifiPage()));
    connect(&m_channel, SIGNAL(received(QString,QByteArray)), this, SLOT(hear(QString,QByteArray)));

    QTimer* const look = new QTimer(this);
    connect(look, SIGNAL(timeout()), this, SLOT(showLink()));
    look->start(lookMs);
    m_link->setText(tr("Not connected"));
    showLink();
}

QLabel* HomePage::addLabel(int pixelSize, const QString& colour)
{
    QLabel* const label = new QLabel;
    label->setTextFormat(Qt::PlainText);
    label->setAlignment(Qt::AlignCenter);
    label->setStyleSheet(QString::fromLatin1("font-size:%1px;color:%2").arg(QString::number(pixelSize), colour));
    layout()->addWidget(label);
    return label;
}

void HomePage::addWifiRow()
{
    QPushButton* const row = new QPushButton(tr("Wi-Fi settings"));
    row->setFixedHeight(60);
    row->setFocusPolicy(Qt::NoFocus);
    row->setStyleSheet(QLatin1String("QPushButton{background-color:rgb(54,54,54);color:white;font-size:18px;"
                                     "border:0px;text-align:left;padding-left:35px}"
                                     "QPushButton:pressed{background-color:rgb(74,74,74)}"));
    QLabel* const mark = new QLabel(QString(QChar(0x203a))); // a single angle that points to the right
    mark->setStyleSheet(QLatin1String("font-size:28px;color:#f88185;background:transparent"));
    mark->setAttribute(Qt::WA_TransparentForMouseEvents);
    QHBoxLayout* const right = new QHBoxLayout(row);
    right->setContentsMargins(0, 0, 25, 4);
    right->addStretch();
    right->addWidget(mark);
    layout()->addWidget(row);
    connect(row, SIGNAL(clicked()), this, SLOT(openWifiPage()));
}

void HomePage::openWifiPage()
{
    m_wifi->setGeometry(rect());
    m_wifi->show();
    m_wifi->raise();
    // The library's switch leaves the link as it is; that off means off is the host's to see to.
    const RaWifiListWidget* list = m_wifi->findChild<RaWifiListWidget*>();
    connect(list, SIGNAL(sendWifiSwitch(bool)), this, SLOT(showLink()), Qt::UniqueConnection);
}

void HomePage::closeWifiPage()
{
    m_wifi->hide();
}

// The library sends the text's bytes alone, although the message names a QString.
void HomePage::hear(const QString& message, const QByteArray& data)
{
    if (message == QLatin1String("wifi(QString)")) {
        m_heard->setText(inWords(data));
    }
}

void HomePage::showLink()
{
    const bool linked = getIsConnect();
    m_symbol->setLevel(linked ? getAPSignalValue() : 0);
    m_address->setText(linked ? linkAddress() : QString());
    if (linked != m_linked) {
        m_linked = linked;
        linkChanged();
    }
    if (linked && !isWifiOn()) {
        QTimer::singleShot(glideMs, this, SLOT(dropLinkIfOff()));
    }
}

void HomePage::linkChanged()
{
    m_wifi->sendSAPMsgToMain(m_linked ? 1 : 0);
    if (!m_linked) {
        m_link->setText(tr("Not connected"));
        return;
    }
    m_link->setText(m_link->fontMetrics().elidedText(linkName(), Qt::ElideRight, width() - 40));
    // From now on the library watches the link.
    if (RaWifiMonitor* const monitor = m_wifi->findChild<RaWifiMonitor*>()) {
        monitor->setWifiConnectStatus(1, 1);
    }
}

void HomePage::dropLinkIfOff()
{
    if (!isWifiOn()) {
        m_wifi->closeWifi();
        showLink();
    }
}

bool HomePage::isWifiOn() const
{
    const RaSwitchListWidget* const wifiSwitch = m_wifi->findChild<RaSwitchListWidget*>();
    return wifiSwitch && wifiSwitch->getChecked();
}
