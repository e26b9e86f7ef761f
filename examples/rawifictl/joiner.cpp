// SPDX-FileCopyrightText: 2026 The rawificontrol authors
// SPDX-License-Identifier: MIT
#include "joiner.h"

#include <QEventLoop>

Joiner::Joiner(RaWifiService& service, const APData& network, Output& output)
    : m_service(service),
      m_network(network),
      m_output(output)
{
    // Direct, so that the times are those of the messages and not of the event loop.
    // clang-format off
    connect(&service, SIGNAL(sendListWndInfo(int,QString,QString,int)), this,
            SLOT(report(int,QString,QString,int)), Qt::DirectConnection);
    // clang-format on
}

int Joiner::join()
{
    QEventLoop loop;
    connect(this, SIGNAL(finished()), &loop, SLOT(quit()));
    m_clock.start();
    start();
    loop.exec();
    wait();
    m_output.document(m_messages);
    return m_result;
}

void Joiner::run()
{
    m_result =
        m_service.connectCertainAP(QString::fromLatin1(m_network.macAddr), static_cast<ENCRY>(m_network.encry[0]),
                                   QString::fromUtf8(m_network.essid), QString::fromUtf8(m_network.psk),
                                   m_network.sigquality, m_network.authMode, m_network.keyIndex);
}

void Joiner::report(int, QString, QString message, int errflag)
{
    const qint64 elapsed = m_clock.elapsed();
    const QString shown = visible(message.toUtf8()); // it may hold the name
    m_output.line(QString::fromLatin1("%1 s  ").arg(static_cast<double>(elapsed) / 1000.0, 6, 'f', 2)
                  + (errflag < 0 ? m_output.painted(Output::Red, shown) : shown));
    QJsonObject object;
    object.insert(QLatin1String("message"), message);
    object.insert(QLatin1String("errflag"), errflag);
    object.insert(QLatin1String("ms"), elapsed);
    m_messages.append(object);
}
