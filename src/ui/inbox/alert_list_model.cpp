#include "ui/inbox/alert_list_model.h"

#include "text/display_text.h"
#include "ui/engine/replace_store.h"

#include <algorithm>
#include <span>

namespace pingwell {

namespace {

constexpr Seconds day{86'400};

qsizetype choicesIn(const KeyedRow &row)
{
    return drawnChoices(*row.value.value<SharedAlertSnapshot>().snapshot);
}

qsizetype choicesIn(const QList<KeyedRow> &rows)
{
    qsizetype count = 0;
    for (const KeyedRow &row : rows)
        count += choicesIn(row);
    return count;
}

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

void AlertListModel::setChoiceLimit(int limit)
{
    if (m_choiceLimit == limit)
        return;
    m_choiceLimit = limit;
    emit limitChanged();
    scheduleUpdate();
}

int AlertListModel::choices() const
{
    return int(choicesIn(rows()));
}

void AlertListModel::setHeldRows(int count)
{
    if (m_heldRows == count)
        return;
    m_heldRows = count;
    emit holdChanged();
    if (count == 0)
        scheduleUpdate();
}

void AlertListModel::setTakesNewRows(bool takes)
{
    if (m_takesNewRows == takes)
        return;
    m_takesNewRows = takes;
    emit holdChanged();
    if (takes)
        scheduleUpdate();
}

bool AlertListModel::isGone(const QString &alertID) const
{
    return rowOf(alertID) < 0 || !m_store || !m_store->alertWithID(alertID);
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
    for (const auto changed : {&AppStore::alertsChanged, &AppStore::workspacesChanged})
        connect(&store, changed, this, &AlertListModel::scheduleUpdate);
    connect(&store, &AppStore::activeWorkspaceIDChanged, this, &AlertListModel::startOver);
    const auto followFor = [this, &store](List list, void (AppStore::*changed)(), void (AlertListModel::*step)()) {
        connect(&store, changed, this, [this, list, step] {
            if (m_list == list)
                (this->*step)();
        });
    };
    followFor(List::Today, &AppStore::topicsChanged, &AlertListModel::scheduleUpdate);
    followFor(List::Today, &AppStore::focusModeChanged, &AlertListModel::startOver);
    followFor(List::Inbox, &AppStore::filterChanged, &AlertListModel::startOver);
    followFor(List::Selected, &AppStore::filterChanged, &AlertListModel::scheduleUpdate);
    followFor(List::Selected, &AppStore::selectedAlertIDChanged, &AlertListModel::scheduleUpdate);
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
    // Beside a list that shows nothing, no alert is open.
    const bool listIsEmpty = m_store->filter() != InboxFilter::all() && m_store->filteredAlerts().isEmpty();
    return selected && !listIsEmpty ? QList<Alert>{*selected} : QList<Alert>{};
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

void AlertListModel::startOver()
{
    m_startsOver = true;
    scheduleUpdate();
}

void AlertListModel::update()
{
    m_updateScheduled = false;
    QList<Alert> shown = alerts();
    const int total = int(shown.size());
    QList<KeyedRow> rows = heldRowsOf(shown);
    fill(rows, std::move(shown));
    setRows(std::move(rows));
    setTotal(total);
    m_startsOver = false;
    m_letGo.clear();

    m_validFrom = m_store ? m_store->now() : distantPast;
    m_validUntil = nextChange();
    emit updated();
}

/// Lets as many of `shown` join as there is room for.
void AlertListModel::fill(QList<KeyedRow> &rows, QList<Alert> shown) const
{
    qsizetype choices = choicesIn(rows);
    const auto isFull = [&] {
        return (m_limit > 0 && rows.size() >= m_limit) || (m_choiceLimit > 0 && choices >= m_choiceLimit);
    };
    rows.reserve(m_limit > 0 ? m_limit : rows.size() + shown.size());
    for (Alert &alert : shown) {
        if (isFull())
            return;
        rows.append(keyedRow(std::move(alert)));
        choices += choicesIn(rows.last());
    }
}

/// The rows that keep their places, as they are now. Leaves in `shown` what can still join below them.
QList<KeyedRow> AlertListModel::heldRowsOf(QList<Alert> &shown) const
{
    if (!m_store || m_startsOver || m_heldRows <= 0)
        return {};
    QHash<QString, qsizetype> places;
    for (qsizetype place = 0; place < shown.size(); ++place)
        places.insert(shown.at(place).id, place);
    QList<KeyedRow> held;
    QSet<QString> heldIDs;
    for (const KeyedRow &row : std::span(rows()).first(size_t(std::min<qsizetype>(m_heldRows, rows().size())))) {
        const auto place = places.constFind(row.id);
        const bool belongs = place != places.constEnd();
        if (!belongs && m_letGo.contains(row.id))
            continue;
        held.append(belongs ? keyedRow(shown.at(*place)) : rowAfterLeaving(row));
        heldIDs.insert(row.id);
    }
    const auto joins = [&](const Alert &alert) {
        return !heldIDs.contains(alert.id) && (m_takesNewRows || rowOf(alert.id) >= 0);
    };
    shown.removeIf([&](const Alert &alert) { return !joins(alert); });
    return held;
}

KeyedRow AlertListModel::keyedRow(Alert alert) const
{
    const QString id = alert.id;
    auto snapshot = std::make_shared<const AlertSnapshot>(snapshotOf(std::move(alert), *m_store));
    return {id, QVariant::fromValue(SharedAlertSnapshot{std::move(snapshot)})};
}

KeyedRow AlertListModel::rowAfterLeaving(const KeyedRow &row) const
{
    if (const auto alert = m_store->alertWithID(row.id))
        return keyedRow(*alert);
    AlertSnapshot last = *row.value.value<SharedAlertSnapshot>().snapshot;
    last.state = QStringLiteral("gone");
    last.canAnswer = false;
    return {row.id, QVariant::fromValue(SharedAlertSnapshot{std::make_shared<const AlertSnapshot>(std::move(last))})};
}

void AlertListModel::setTotal(int total)
{
    if (m_total == total)
        return;
    m_total = total;
    emit totalChanged();
}

} // namespace pingwell
