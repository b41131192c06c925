#include "ui/alert_list_model.h"

#include "ui/display_text.h"
#include "ui/replace_store.h"

#include <algorithm>
#include <span>

namespace pingwell {

namespace {

constexpr Seconds day{86'400};

} // namespace

AlertListModel::AlertListModel(QObject *parent)
    : KeyedListModel("alert", parent)
{
}

void AlertListModel::setStore(AppStore *store)
{
    if (!replaceStore(m_store, store, this))
        return;
    if (store)
        follow(*store);
    emit storeChanged();
    scheduleUpdate();
}

void AlertListModel::setList(List list)
{
    if (m_list == list)
        return;
    m_list = list;
    emit listChanged();
    scheduleUpdate();
}

void AlertListModel::setLimit(int limit)
{
    if (m_limit == limit)
        return;
    m_limit = limit;
    emit limitChanged();
    scheduleUpdate();
}

void AlertListModel::componentComplete()
{
    m_isComplete = true;
    update();
}

AlertTexts AlertListModel::everything(const QString &alertID) const
{
    const auto alert = m_store ? m_store->alertWithID(alertID) : std::nullopt;
    if (!alert)
        return {};
    const AlertSnapshot snapshot = snapshotOf(*alert, *m_store);
    return alertTexts(snapshot.alert, snapshot.outcome, fullDisplayLength);
}

void AlertListModel::follow(AppStore &store)
{
    for (const auto changed :
         {&AppStore::alertsChanged, &AppStore::workspacesChanged, &AppStore::activeWorkspaceIDChanged})
        connect(&store, changed, this, &AlertListModel::scheduleUpdate);
    const auto followFor = [this, &store](List list, void (AppStore::*changed)()) {
        connect(&store, changed, this, [this, list] {
            if (m_list == list)
                scheduleUpdate();
        });
    };
    followFor(List::Today, &AppStore::topicsChanged);
    followFor(List::Today, &AppStore::focusModeChanged);
    followFor(List::Inbox, &AppStore::filterChanged);
    followFor(List::Selected, &AppStore::selectedAlertIDChanged);
    connect(&store, &AppStore::nowChanged, this, &AlertListModel::onTick);
}

void AlertListModel::onTick()
{
    if (m_store->now() < m_validFrom || m_store->now() >= m_validUntil)
        scheduleUpdate();
}

void AlertListModel::scheduleUpdate()
{
    if (!m_isComplete || m_updateScheduled)
        return;
    m_updateScheduled = true;
    QMetaObject::invokeMethod(this, &AlertListModel::update, Qt::QueuedConnection);
}

QList<Alert> AlertListModel::alerts() const
{
    if (!m_store)
        return {};
    switch (m_list) {
    case List::NeedsReply:
        return m_store->needsReply();
    case List::Today:
        return m_store->todayAlerts();
    case List::Inbox:
        return m_store->filteredAlerts();
    case List::Selected:
        break;
    }
    const auto selected = m_store->selectedAlert();
    return selected ? QList<Alert>{*selected} : QList<Alert>{};
}

QVariant AlertListModel::presented(const QVariant &value) const
{
    return QVariant::fromValue(alertRow(*value.value<SharedAlertSnapshot>().snapshot));
}

Instant AlertListModel::nextChange() const
{
    Instant next = Instant::max();
    if (!m_store)
        return next;
    const Instant now = m_store->now();
    for (const Alert &alert : m_store->alerts()) {
        if (alert.workspaceId != m_store->activeWorkspaceID())
            continue;
        if (alert.expiresAt && alert.isWaiting(now))
            next = std::min(next, *alert.expiresAt);
        if (m_list == List::Today && alert.at + day >= now)
            next = std::min(next, alert.at + day);
    }
    return next;
}

void AlertListModel::update()
{
    m_updateScheduled = false;
    QList<Alert> shown = alerts();
    const qsizetype count = m_limit > 0 ? std::min<qsizetype>(m_limit, shown.size()) : shown.size();
    QList<KeyedRow> rows;
    rows.reserve(count);
    for (Alert &alert : std::span(shown).first(size_t(count))) {
        const QString id = alert.id;
        auto snapshot = std::make_shared<const AlertSnapshot>(snapshotOf(std::move(alert), *m_store));
        rows.append({id, QVariant::fromValue(SharedAlertSnapshot{std::move(snapshot)})});
    }
    setRows(std::move(rows));
    setTotal(int(shown.size()));

    m_validFrom = m_store ? m_store->now() : distantPast;
    m_validUntil = nextChange();
}

void AlertListModel::setTotal(int total)
{
    if (m_total == total)
        return;
    m_total = total;
    emit totalChanged();
}

} // namespace pingwell
