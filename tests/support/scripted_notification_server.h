#pragma once

#include <QDBusConnection>
#include <QDBusMessage>
#include <QDBusVirtualObject>
#include <QStringList>
#include <QVariantMap>

#include <optional>

namespace pingwell {

/// One Notify call (freedesktop.org Desktop Notifications).
struct ShownNotification
{
    /// The number the server gave it.
    uint number = 0;
    QString appName;
    uint replaced = 0;
    QString summary;
    QString body;
    /// Keys and labels in turn.
    QStringList actions;
    QVariantMap hints;
};

/// A notification server that shows nothing, writes down what it is asked and says what the test tells it to. On a
/// connection of its own to the session bus, a new one each time it appears, as a restarted server would be.
class ScriptedNotificationServer final : public QDBusVirtualObject
{
    Q_OBJECT

public:
    ~ScriptedNotificationServer() override { vanish(); }

    // How it describes itself; set before it appears.
    QString name = QStringLiteral("scripted");
    QStringList capabilities{QStringLiteral("actions"), QStringLiteral("body")};

    /// Takes the service's name; false when it can't.
    bool appear();
    /// Leaves the bus; what it has shown stays written down.
    void vanish();

    /// Keeps replies back, to everything, until they are released. What is asked is written down all the same.
    void holdReplies() { m_held.emplace(); }
    void releaseReplies();

    [[nodiscard]] const QList<ShownNotification> &shown() const { return m_shown; }
    /// The last one shown; an empty one when there is none.
    [[nodiscard]] ShownNotification last() const { return m_shown.isEmpty() ? ShownNotification() : m_shown.last(); }
    /// The numbers of the CloseNotification calls.
    [[nodiscard]] const QList<uint> &closed() const { return m_closed; }

    // What the person does.
    void invokeAction(uint number, const QString &key) const { tell(QStringLiteral("ActionInvoked"), {number, key}); }
    void reply(uint number, const QString &text) const { tell(QStringLiteral("NotificationReplied"), {number, text}); }
    void giveActivationToken(uint number, const QString &token) const
    {
        tell(QStringLiteral("ActivationToken"), {number, token});
    }
    /// 1: expired, 2: dismissed by the person, 3: closed by a call, 4: undefined.
    void close(uint number, uint reason) const { tell(QStringLiteral("NotificationClosed"), {number, reason}); }

signals:
    /// A Notify call, new or replacing, once it is written down.
    void wasShown(const pingwell::ShownNotification &notification);
    /// A CloseNotification call.
    void wasClosed(uint number);

public:
    QString introspect(const QString &) const override { return {}; }
    bool handleMessage(const QDBusMessage &message, const QDBusConnection &connection) override;

private:
    [[nodiscard]] QVariantList answerTo(const QDBusMessage &message);
    [[nodiscard]] uint show(const QVariantList &arguments);
    void answer(const QDBusMessage &reply);
    void tell(const QString &signal, const QVariantList &arguments) const;

    std::optional<QDBusConnection> m_bus;
    uint m_lastNumber = 0;
    QList<ShownNotification> m_shown;
    QList<uint> m_closed;
    std::optional<QList<QDBusMessage>> m_held;
};

} // namespace pingwell
