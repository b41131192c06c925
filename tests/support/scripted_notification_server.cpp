#include "support/scripted_notification_server.h"

#include <QDBusArgument>
#include <QUuid>

#include <utility>

namespace pingwell {

using namespace Qt::StringLiterals;

namespace {

const QString service = u"org.freedesktop.Notifications"_s;
const QString path = u"/org/freedesktop/Notifications"_s;
constexpr uint closedByCall = 3;

} // namespace

bool ScriptedNotificationServer::appear()
{
    const QString connection = QUuid::createUuid().toString();
    m_bus = QDBusConnection::connectToBus(QDBusConnection::SessionBus, connection);
    return m_bus->registerVirtualObject(path, this) && m_bus->registerService(service);
}

void ScriptedNotificationServer::vanish()
{
    if (!m_bus)
        return;
    // Qt closes the connection later, in its own thread. Until then the name would be taken, and a message could still
    // reach this object, which may be gone by then.
    m_bus->unregisterObject(path);
    m_bus->unregisterService(service);
    disconnect(this, &QObject::destroyed, nullptr, nullptr);
    const QString connection = m_bus->name();
    m_bus.reset();
    m_held.reset();
    QDBusConnection::disconnectFromBus(connection);
}

void ScriptedNotificationServer::releaseReplies()
{
    const QList<QDBusMessage> replies = std::exchange(m_held, std::nullopt).value_or(QList<QDBusMessage>());
    for (const QDBusMessage &reply : replies)
        answer(reply);
}

bool ScriptedNotificationServer::handleMessage(const QDBusMessage &message, const QDBusConnection &)
{
    if (message.interface() != service)
        return false;
    message.setDelayedReply(true);
    answer(message.createReply(answerTo(message)));
    return true;
}

QVariantList ScriptedNotificationServer::answerTo(const QDBusMessage &message)
{
    if (message.member() == u"GetServerInformation")
        return {name, u"Pingwell's tests"_s, u"1"_s, u"1.2"_s};
    if (message.member() == u"GetCapabilities")
        return {capabilities};
    if (message.member() == u"Notify")
        return {show(message.arguments())};
    if (message.member() == u"CloseNotification") {
        const uint number = message.arguments().value(0).toUInt();
        m_closed.append(number);
        emit wasClosed(number);
        close(number, closedByCall);
    }
    return {};
}

uint ScriptedNotificationServer::show(const QVariantList &arguments)
{
    const uint replaced = arguments.value(1).toUInt();
    const uint number = replaced != 0 ? replaced : ++m_lastNumber;
    m_shown.append({.number = number,
                    .appName = arguments.value(0).toString(),
                    .replaced = replaced,
                    .summary = arguments.value(3).toString(),
                    .body = arguments.value(4).toString(),
                    .actions = arguments.value(5).toStringList(),
                    .hints = qdbus_cast<QVariantMap>(arguments.value(6))});
    emit wasShown(m_shown.last());
    return number;
}

void ScriptedNotificationServer::answer(const QDBusMessage &reply)
{
    if (m_held)
        m_held->append(reply);
    else if (m_bus)
        m_bus->send(reply);
}

void ScriptedNotificationServer::tell(const QString &signal, const QVariantList &arguments) const
{
    if (!m_bus)
        return;
    QDBusMessage message = QDBusMessage::createSignal(path, service, signal);
    message.setArguments(arguments);
    m_bus->send(message);
}

} // namespace pingwell
