// SPDX-FileCopyrightText: 2026 The rawificontrol authors
// SPDX-License-Identifier: MIT
#ifndef HOST_HOMEPAGE_H
#define HOST_HOMEPAGE_H

#include <QCopChannel>
#include <QWidget>

class LinkSymbol;
class QLabel;
class RaWifiManager;

/** The host's first page: the state of the link, what the library has said last, and the way to the Wi-Fi page. */
class HomePage : public QWidget
{
    Q_OBJECT
public:
    /** \a wifi becomes a child while it is shown; it stays the library's. */
    explicit HomePage(RaWifiManager* wifi);

private Q_SLOTS:
    void openWifiPage();
    void closeWifiPage();
    void hear(const QString& message, const QByteArray& data);
    void showLink();
    void dropLinkIfOff();

private:
    QLabel* addLabel(int pixelSize, const QString& colour);
    void addWifiRow();
    void linkChanged();
    bool isWifiOn() const;

    RaWifiManager* m_wifi;
    QCopChannel m_channel;
    LinkSymbol* m_symbol;
    QLabel* m_link;
    QLabel* m_address;
    QLabel* m_heard;
    bool m_linked = false;
};

#endif
