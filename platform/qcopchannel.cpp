// SPDX-FileCopyrightText: 2026 The rawificontrol authors
// SPDX-License-Identifier: MIT
#include "qcopchannel.h"

#include <QCoreApplication>
#include <QDBusConnection>
#include <QDBusMessage>
#include <QEvent>
#include <QFile>
#include <QList>
#include <QRegularExpression>
#include <QVariant>
#include <mutex>

namespace {

const char busPath[] = "/QCop";
const char busInterface[] = "org.rawificontrol.QCop";
const char busSignal[] = "message";
const int busNameLimit = 255; // D-Bus, "Valid Names"

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
    return !qgetenv("DBUS_SYSTEM_BUS_ADDRESS").isEmpty() || QFile::exists(QLatin1String("/run/dbus/system_bus_socket"))
           || QFile::exists(QLatin1String("/var/run/dbus/system_bus_socket"));
}

// A bus is only asked for where one is known to be, since the toolkit would otherwise try to launch one.
// The connection is the channels' own: the shared one holds messages back until the event loop first runs, and can
// then let later ones overtake them.
QDBusConnection chooseBus()
{
    const QString name = QLatin1String("rawificontrol-qcop");
    if (sessionBusExists()) {
        const QDBusConnection session = QDBusConnection::connectToBus(QDBusConnection::SessionBus, name);
        if (session.isConnected()) {
            return session;
        }
        QDBusConnection::disconnectFromBus(name);
    }
    return systemBusExists() ? QDBusConnection::connectToBus(QDBusConnection::SystemBus, name)
                             : QDBusConnection(QString());
}

QDBusConnection& bus()
{
    static QDBusConnection connection = chooseBus();
    return connection;
}

// The bus name that stands for a channel; empty where the channel's name is too long to have one.
QString busName(const QString& channel)
{
    const QString name = QLatin1String("org.rawificontrol.QCop.c") + QString::fromLatin1(channel.toUtf8().toHex());
    return name.size() <= busNameLimit ? name : QString();
}

// Asks the bus itself. It answers in order, so its answer also means that it has taken everything sent before.
QDBusMessage askBus(const char* question, const QVariantList& arguments)
{
    QDBusMessage request =
        QDBusMessage::createMethodCall(QLatin1String("org.freedesktop.DBus"), QLatin1String("/org/freedesktop/DBus"),
                                       QLatin1String("org.freedesktop.DBus"), QLatin1String(question));
    request.setArguments(arguments);
    return bus().call(request);
}

class MessageEvent : public QEvent
{
public:
    MessageEvent(const QString& message, const QByteArray& bytes) : QEvent(QEvent::User), msg(message), data(bytes) {}
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

    bool has(const QString& channel)
    {
        const std::lock_guard<std::mutex> lock(mutex);
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

// Owns the channel's bus name exactly while this process has a receiver for it.
void updateBusName(const QString& channel)
{
    const QString name = busName(channel);
    if (!bus().isConnected() || name.isEmpty()) {
        return;
    }
    static std::mutex updating; // the last one to update sees the receivers as they are in the end
    const std::lock_guard<std::mutex> lock(updating);
    if (registry().has(channel)) {
        const uint queueForName = 0;
        askBus("RequestName", QVariantList() << name << queueForName);
    } else {
        askBus("ReleaseName", QVariantList() << name);
    }
}

} // namespace

QCopChannel::QCopChannel(const QString& channel, QObject* parent)
    : QObject(parent),
      m_receiver(new QCopReceiver(channel, this))
{
    {
        const std::lock_guard<std::mutex> lock(registry().mutex);
        registry().receivers.append(m_receiver);
    }
    if (bus().isConnected()) {
        // The receiver looks at the name itself: a match rule could not hold every name.
        bus().connect(QString(), QLatin1String(busPath), QLatin1String(busInterface), QLatin1String(busSignal),
                      m_receiver, SLOT(fromBus(QDBusMessage)));
        updateBusName(channel);
    }
}

QCopChannel::~QCopChannel()
{
    {
        const std::lock_guard<std::mutex> lock(registry().mutex);
        registry().receivers.removeOne(m_receiver);
    }
    updateBusName(m_receiver->channel);
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
    if (registry().has(channel)) {
        return true;
    }
    const QString name = busName(channel);
    return bus().isConnected() && !name.isEmpty()
           && askBus("NameHasOwner", QVariantList() << name).arguments().value(0).toBool();
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
        QDBusMessage message =
            QDBusMessage::createSignal(QLatin1String(busPath), QLatin1String(busInterface), QLatin1String(busSignal));
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
        askBus("GetId", QVariantList());
    }
    return true;
}

#include "qcopchannel.moc"
