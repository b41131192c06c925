#pragma once

#include "store/app_store.h"

#include <QPointer>
#include <QQuickItem>
#include <QSet>
#include <QtQml/qqmlregistration.h>

namespace pingwell {

/// Tells a screen reader what happens by itself: an ask that begins to wait, and every toast. Give it the role of a
/// notification and its `message` as accessible name. What already waits when the person's alerts first come is theirs
/// to find.
class Announcer : public QQuickItem
{
    Q_OBJECT
    QML_ELEMENT
    Q_PROPERTY(pingwell::AppStore *store READ store WRITE setStore NOTIFY storeChanged REQUIRED)
    Q_PROPERTY(QString message READ message NOTIFY messageChanged)

public:
    using QQuickItem::QQuickItem;

    [[nodiscard]] AppStore *store() const { return m_store; }
    void setStore(AppStore *store);
    [[nodiscard]] const QString &message() const { return m_message; }

signals:
    void storeChanged();
    void messageChanged();

private:
    void takeAlerts();
    void takeToast();
    void announce(const QString &message);
    [[nodiscard]] bool knowsAlerts() const;
    [[nodiscard]] QString askText(const Alert &ask) const;

    QPointer<AppStore> m_store;
    QString m_message;
    /// The asks known to wait; none before the person's alerts first came.
    std::optional<QSet<QString>> m_waiting;
};

} // namespace pingwell
