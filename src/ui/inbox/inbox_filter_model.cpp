#include "ui/inbox/inbox_filter_model.h"

#include "text/display_text.h"

namespace pingwell {

namespace {

const QString topicPrefix = QStringLiteral("topic.");

InboxFilter filterOf(const QString &id)
{
    if (id.startsWith(topicPrefix))
        return InboxFilter::topic(id.mid(topicPrefix.size()));
    return id == QLatin1StringView("asks") ? InboxFilter::asks() : InboxFilter::all();
}

QString idOf(const InboxFilter &filter)
{
    switch (filter.kind()) {
    case InboxFilter::Kind::all:
        break;
    case InboxFilter::Kind::asks:
        return QStringLiteral("asks");
    case InboxFilter::Kind::topic:
        return topicPrefix + filter.topicName();
    }
    return QStringLiteral("all");
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
    : StoreListModel("chip",
                     {&AppStore::alertsChanged, &AppStore::topicsChanged, &AppStore::filterChanged,
                      &AppStore::activeWorkspaceIDChanged},
                     parent)
{
}

void InboxFilterModel::choose(const QString &id)
{
    if (store())
        store()->setFilter(filterOf(id));
}

QList<KeyedRow> InboxFilterModel::rowsOf(const AppStore &store)
{
    const Tally tally = tallyOf(store);
    QList<FilterChipRow> chips{{QStringLiteral("all"), QStringLiteral("All"), tally.all},
                               {QStringLiteral("asks"), QStringLiteral("Asks"), tally.asks}};
    for (const QString &name : store.activeTopicNames())
        chips.append({topicPrefix + name, QChar(u'#') + visibleName(name), tally.byTopic.value(name)});
    const QString selected = idOf(store.filter());
    QList<KeyedRow> rows;
    for (FilterChipRow &chip : chips) {
        chip.selected = chip.id == selected;
        rows.append({chip.id, QVariant::fromValue(chip)});
    }
    return rows;
}

void InboxFilterModel::storeMoved()
{
    if (count() == 0)
        updateAll();
    else if (!std::exchange(m_updateScheduled, true))
        QMetaObject::invokeMethod(this, &InboxFilterModel::updateAll, Qt::QueuedConnection);
}

void InboxFilterModel::updateAll()
{
    m_updateScheduled = false;
    update();
    setSelectedRow(store() ? rowOf(idOf(store()->filter())) : -1);
}

void InboxFilterModel::setSelectedRow(int row)
{
    if (m_selectedRow == row)
        return;
    m_selectedRow = row;
    emit selectedRowChanged();
}

} // namespace pingwell
