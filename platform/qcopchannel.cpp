// SPDX-FileCopyrightText: 2026 The rawificontrol authors
// SPDX-License-Identifier: MIT
#include "qcopchannel.h"

#include <QCoreApplication>
#include <QDBusConnection>
#include <QDBusConnectionInterface>
#include <QDBusMessage>
#include <QEvent>
#include <QFile>
#include <QList>
#include <QRegularExpression>
#include <mutex>

namespace {

const char busPath[] = "/QCop";
const char busInterface[] = "org.rawificontrol.QCop";
const char busSignal[] = "message";
const int busNameLimit = 255; // D-Bus specification, "Valid Names"

bool hasWildcard(const QString& channel)
{
    return channel.contains(QLatin1Char('*'));
}

bool sessionBusExists()
{
    return !qgetenv("DBUS_SESSION_BUS_ADDRESS").isEmpty()
           || QFile::exists(QFile::decodeName(qgetenv("XDG_RUNTIME_DIR")) + QLatin1String("/bus"));
}

bool systemBusExists()
{
    return !qgetenv("DBUS_SYSTEM_BUS_ADDRESS").isEmpty()
           || QFile::exists(QLatin1String("/run/dbus/system_bus_socket"))
           || QFile::exists(QLatin1String("/var/run/dbus/system_bus_socket"));
}

// A bus is only asked for where one is known to be, since the toolkit would otherwise try to launch one.
QDBusConnection chooseBus()
{
    if (sessionBusExists()) {
        const QDBusConnection session = QDBusConnection::sessionBus();
        if (session.isConnected()) {
            return session;
        }
    }
    return systemBusExists() ? QDBusConnection::systemBus() : QDBusConnection(QString());
}

QDBusConnection& bus()
{
    static QDBusConnection connection = chooseBus();
    return connection;
}

// The bus name that stands for a channel; empty where the channel's name is too long to have one.
QString busName(const QString& channel)
{
    const QString name =
        QLatin1String("org.rawificontrol.QCop.c") + QString::fromLatin1(channel.toUtf8().toHex());
    return name.size() <= busNameLimit ? name : QString();
}

class MessageEvent : public QEvent
{
public:
    MessageEvent(const QString& message, const QByteArray& bytes)
        : QEvent(QEvent::User), msg(message), data(bytes)
    {
    }
    const QString msg;
    const QByteArray data;
};

} // namespace

/** The receiving half of a channel object; lives on the channel's thread as its child. */
class QCopReceiver : public QObject
{
    Q_OBJECT
public:
    QCopReceiver(const QString& name, QCopChannel* owner) : QObject(owner), channel(name), m_owner(owner)
    {
        if (hasWildcard(name)) {
            m_pattern.setPattern(QRegularExpression::anchoredPattern(
                QRegularExpression::escape(name).replace(QLatin1String("\\*"), QLatin1String(".*"))));
            m_pattern.setPatternOptions(QRegularExpression::DotMatchesEverythingOption);
        }
    }

    bool matches(const QString& sentTo) const
    {
        return m_pattern.pattern().isEmpty() ? sentTo == channel : m_pattern.match(sentTo).hasMatch();
    }

    const QString channel;

public Q_SLOTS:
    void fromBus(const QDBusMessage& message)
    {
        const QList<QVariant> parts = message.arguments();
        const bool own = message.service() == bus().baseService(); // already delivered inside this process
        if (!own && parts.size() == 3 && matches(parts.at(0).toString())) {
            m_owner->receive(parts.at(1).toString(), parts.at(2).toByteArray());
        }
    }

protected:
    void customEvent(QEvent* event) override
    {
        const MessageEvent* message = static_cast<MessageEvent*>(event);
        m_owner->receive(message->msg, message->data);
    }

private:
    QCopChannel* const m_owner;
    QRegularExpression m_pattern;
};

namespace {

struct Registry
{
    std::mutex mutex;
    QList<QCopReceiver*> receivers;

    bool has(const QString& channel) const
    {
        for (const QCopReceiver* receiver : receivers) {
            if (receiver->channel == channel) {
                return true;
            }
        }
        return false;
    }
};

Registry& registry()
{
    static Registry instance;
    return instance;
}

} // namespace

QCopChannel::QCopChannel(const QString& channel, QObject* parent)
    : QObject(parent), m_receiver(new QCopReceiver(channel, this))
{
    bool first = false;
    {
        const std::lock_guard<std::mutex> lock(registry().mutex);
        first = !registry().has(channel);
        registry().receivers.append(m_receiver);
    }
    if (!bus().isConnected()) {
        return;
    }
    const QStringList only = hasWildcard(channel) ? QStringList() : QStringList(channel);
    bus().connect(QString(), QLatin1String(busPath), QLatin1String(busInterface), QLatin1String(busSignal), only,
                  QString(), m_receiver, SLOT(fromBus(QDBusMessage)));
    const QString name = busName(channel);
    if (first && !name.isEmpty()) {
        bus().interface()->registerService(name, QDBusConnectionInterface::QueueService);
    }
}

QCopChannel::~QCopChannel()
{
    bool last = false;
    {
        const std::lock_guard<std::mutex> lock(registry().mutex);
        registry().receivers.removeOne(m_receiver);
        last = !registry().has(m_receiver->channel);
    }
    const QString name = busName(m_receiver->channel);
    if (last && bus().isConnected() && !name.isEmpty()) {
        bus().interface()->unregisterService(name);
    }
}

QString QCopChannel::channel() const
{
    return m_receiver->channel;
}

void QCopChannel::receive(const QString& msg, const QByteArray& data)
{
    Q_EMIT received(msg, data);
}

bool QCopChannel::isRegistered(const QString& channel)
{
    {
        const std::lock_guard<std::mutex> lock(registry().mutex);
        if (registry().has(channel)) {
            return true;
        }
    }
    const QString name = busName(channel);
    return bus().isConnected() && !name.isEmpty() && bus().interface()->isServiceRegistered(name);
}

bool QCopChannel::send(const QString& channel, const QString& msg)
{
    return send(channel, msg, QByteArray());
}

bool QCopChannel::send(const QString& channel, const QString& msg, const QByteArray& data)
{
    if (!QCoreApplication::instance()) {
        return false;
    }
    {
        const std::lock_guard<std::mutex> lock(registry().mutex);
        for (QCopReceiver* receiver : registry().receivers) {
            if (receiver->matches(channel)) {
                QCoreApplication::postEvent(receiver, new MessageEvent(msg, data));
            }
        }
    }
    if (bus().isConnected()) {
        QDBusMessage message = QDBusMessage::createSignal(QLatin1String(busPath), QLatin1String(busInterface),
                                                          QLatin1String(busSignal));
        message << channel << msg << data;
        bus().send(message);
    }
    return true;
}

bool QCopChannel::flush()
{
    if (!QCoreApplication::instance()) {
        return false;
    }
    if (bus().isConnected()) {
        // The bus answers in order, so its answer means that it has taken everything before.
        bus().call(QDBusMessage::createMethodCall(
            QLatin1String("org.freedesktop.DBus"), QLatin1String("/org/freedesktop/DBus"),
            QLatin1String("org.freedesktop.DBus"), QLatin1String("GetId")));
    }
    return true;
}

#include "qcopchannel.moc"
