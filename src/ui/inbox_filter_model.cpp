#include "ui/inbox_filter_model.h"

#include "ui/display_text.h"

namespace pingwell {

namespace {

const QString topicPrefix = QStringLiteral("topic.");

InboxFilter filterOf(const QString &id)
{
    if (id.startsWith(topicPrefix))
        return InboxFilter::topic(id.mid(topicPrefix.size()));
    return id == QLatin1StringView("asks") ? InboxFilter::asks() : InboxFilter::all();
}

/// How many of the active workspace's alerts there are, of which kind and topic.
struct Tally
{
    int all = 0;
    int asks = 0;
    QHash<QString, int> byTopic;
};

Tally tallyOf(const AppStore &store)
{
    Tally tally;
    for (const Alert &alert : store.alerts()) {
        if (alert.workspaceId != store.activeWorkspaceID())
            continue;
        ++tally.all;
        ++tally.byTopic[alert.topic];
        if (alert.kind == AlertKind::ask)
            ++tally.asks;
    }
    return tally;
}

} // namespace

InboxFilterModel::InboxFilterModel(QObject *parent)
    : KeyedListModel("chip", parent)
{
}

void InboxFilterModel::setStore(AppStore *store)
{
    if (m_store == store)
        return;
    if (m_store)
        m_store->disconnect(this);
    m_store = store;
    if (store) {
        for (const auto changed : {&AppStore::alertsChanged, &AppStore::topicsChanged, &AppStore::filterChanged,
                                   &AppStore::activeWorkspaceIDChanged})
            connect(store, changed, this, &InboxFilterModel::scheduleUpdate);
    }
    emit storeChanged();
    update();
}

void InboxFilterModel::choose(const QString &id)
{
    if (m_store)
        m_store->setFilter(filterOf(id));
}

QList<FilterChipRow> InboxFilterModel::chips() const
{
    if (!m_store)
        return {};
    const Tally tally = tallyOf(*m_store);
    QList<FilterChipRow> chips{{QStringLiteral("all"), QStringLiteral("All"), tally.all},
                               {QStringLiteral("asks"), QStringLiteral("Asks"), tally.asks}};
    for (const QString &name : m_store->activeTopicNames())
        chips.append({topicPrefix + name, QChar(u'#') + displayName(name), tally.byTopic.value(name)});
    for (FilterChipRow &chip : chips)
        chip.selected = filterOf(chip.id) == m_store->filter();
    return chips;
}

void InboxFilterModel::scheduleUpdate()
{
    if (m_updateScheduled)
        return;
    m_updateScheduled = true;
    QMetaObject::invokeMethod(this, &InboxFilterModel::update, Qt::QueuedConnection);
}

void InboxFilterModel::update()
{
    m_updateScheduled = false;
    QList<KeyedRow> rows;
    QString selected;
    for (const FilterChipRow &chip : chips()) {
        rows.append({chip.id, QVariant::fromValue(chip)});
        if (chip.selected)
            selected = chip.id;
    }
    setRows(std::move(rows));
    setSelectedRow(rowOf(selected));
}

void InboxFilterModel::setSelectedRow(int row)
{
    if (m_selectedRow == row)
        return;
    m_selectedRow = row;
    emit selectedRowChanged();
}

} // namespace pingwell
