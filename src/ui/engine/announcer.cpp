#include "ui/engine/announcer.h"

#include "text/display_text.h"
#include "ui/alert/alert_texts.h"
#include "ui/engine/replace_store.h"

#include <QAccessible>

namespace pingwell {

void Announcer::setStore(AppStore *store)
{
    if (!replaceStore(m_store, store, this))
        return;
    m_waiting.reset();
    if (store) {
        for (const auto changed : {&AppStore::alertsChanged, &AppStore::hasLoadedChanged, &AppStore::accountChanged})
            connect(store, changed, this, &Announcer::takeAlerts);
        connect(store, &AppStore::toastChanged, this, &Announcer::takeToast);
        takeAlerts();
    }
    emit storeChanged();
}

bool Announcer::knowsAlerts() const
{
    return m_store && m_store->isSignedIn() && m_store->hasLoaded();
}

void Announcer::takeAlerts()
{
    if (!knowsAlerts()) {
        m_waiting.reset();
        return;
    }
    QSet<QString> waiting;
    QList<Alert> fresh;
    for (const Alert &alert : m_store->alerts()) {
        if (!alert.isWaiting(m_store->now()))
            continue;
        waiting.insert(alert.id);
        if (m_waiting && !m_waiting->contains(alert.id))
            fresh.append(alert);
    }
    m_waiting = std::move(waiting);
    if (fresh.size() == 1)
        announce(askText(fresh.first()));
    else if (!fresh.isEmpty())
        announce(QStringLiteral("%1 new asks are waiting for your reply").arg(fresh.size()));
}

void Announcer::takeToast()
{
    if (m_store->toast())
        announce(displayLine(m_store->toast()->message));
}

QString Announcer::askText(const Alert &ask) const
{
    QString app = displayName(ask.app);
    if (app.isEmpty())
        app = QStringLiteral("An agent");
    const auto workspace = m_store->workspaceWithID(ask.workspaceId);
    const bool isElsewhere = workspace && workspace->id != m_store->activeWorkspaceID();
    const QString place = isElsewhere ? QStringLiteral(" in ") + visibleName(workspace->name) : QString();
    return app + QStringLiteral(" is waiting for your reply") + place + QStringLiteral(": ") +
           titleName(displayLine(ask.title));
}

void Announcer::announce(const QString &message)
{
    m_message = message;
    emit messageChanged();
    // Platforms differ in what they listen to: an alert, or, on Linux, a notification that comes into view.
    for (const QAccessible::Event kind : {QAccessible::Alert, QAccessible::ObjectShow}) {
        QAccessibleEvent event(this, kind);
        QAccessible::updateAccessibility(&event);
    }
}

} // namespace pingwell
