// SPDX-FileCopyrightText: 2026 The rawificontrol authors
// SPDX-License-Identifier: MIT
#ifndef RAWIFI_QCOPCHANNEL_H
#define RAWIFI_QCOPCHANNEL_H

#include "rawifi_export.h"

#include <QByteArray>
#include <QObject>
#include <QString>

/**
 * A named message channel between programs, with the interface of the class of this name in Qt 4 for embedded
 * Linux, for later toolkits that no longer have it.
 *
 * Messages reach every QCopChannel object of the same name: in the sending process without any daemon, in other
 * processes over D-Bus (signals on the session bus where there is one, else on the system bus). A name with
 * '*' in it matches any text there. Delivery is asynchronous, by the event loop of the receiver's thread; the
 * messages of one sending thread arrive in order.
 *
 * The static functions may be called on any thread.
 */
class RAWIFI_EXPORT QCopChannel : public QObject
{
    Q_OBJECT
public:
    explicit QCopChannel(const QString& channel, QObject* parent = nullptr); ///< Hears \a channel from now on.
    ~QCopChannel() override;

    QString channel() const; ///< The name it was made with.

    /** Called for each message; emits received(). Reimplement to take messages without a connection. */
    virtual void receive(const QString& msg, const QByteArray& data);

    /** Whether any process has an object for exactly this channel. */
    static bool isRegistered(const QString& channel);

    /** Sends a message; true unless there is no application object. A channel without receivers is no error. */
    static bool send(const QString& channel, const QString& msg);
    static bool send(const QString& channel, const QString& msg, const QByteArray& data); ///< The same, with data.

    /** Returns once the bus has taken all that was sent; false when there is no application object. */
    static bool flush();

Q_SIGNALS:
    void received(const QString& msg, const QByteArray& data); ///< A message has come, on the object's thread.

private:
    Q_DISABLE_COPY(QCopChannel)

    class QCopReceiver* m_receiver;
};

#endif
