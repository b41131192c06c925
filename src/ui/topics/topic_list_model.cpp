#include "ui/topics/topic_list_model.h"

#include "store/topic_slug.h"
#include "text/display_text.h"

#include <QHash>

namespace pingwell {

namespace {

/// Of the active workspace's alerts, how many each topic has. Counted in one pass: there may be many of both.
QHash<QString, qsizetype> alertCounts(const AppStore &store)
{
    QHash<QString, qsizetype> counts;
    for (const Alert &alert : store.alerts()) {
        if (alert.workspaceId == store.activeWorkspaceID())
            ++counts[alert.topic];
    }
    return counts;
}

TopicRow topicRow(const Topic &topic, qsizetype alerts)
{
    TopicRow row;
    row.id = topic.id;
    row.name = visibleName(topic.name);
    row.summary = QString::number(alerts) + QStringLiteral(" alerts");
    if (topic.quietHours)
        row.summary += QStringLiteral(" · respects quiet hours");
    row.minPriority = rawValue(topic.minPriority);
    row.quietHours = topic.quietHours;
    row.muted = topic.muted;
    return row;
}

} // namespace

TopicListModel::TopicListModel(QObject *parent)
    : StoreListModel("topic", {&AppStore::topicsChanged, &AppStore::alertsChanged, &AppStore::activeWorkspaceIDChanged},
                     parent)
{
}

QStringList TopicListModel::priorities() const
{
    QStringList words;
    for (const auto &priority : rawValues<Priority>)
        words << priority.word;
    return words;
}

QStringList TopicListModel::priorityLabels() const
{
    return {QStringLiteral("Silent"), QStringLiteral("Normal"), QStringLiteral("High"), QStringLiteral("Critical")};
}

QString TopicListModel::nameFor(const QString &typed) const
{
    return slug(typed);
}

void TopicListModel::setMinPriority(const QString &topicID, const QString &priority)
{
    const auto value = fromRawValue<Priority>(priority);
    if (store() && value)
        store()->setTopicMinPriority(topicID, *value);
}

QList<KeyedRow> TopicListModel::rowsOf(const AppStore &store)
{
    QList<KeyedRow> rows;
    const QHash<QString, qsizetype> counts = alertCounts(store);
    for (const Topic &topic : store.activeTopics())
        rows.append({topic.id, QVariant::fromValue(topicRow(topic, counts.value(topic.name)))});
    return rows;
}

} // namespace pingwell
