#include "store/app_store.h"

#include "api/endpoints.h"
#include "store/local_id.h"
#include "store/topic_slug.h"

namespace pingwell {

namespace {

QString laneOf(const QString &topicID)
{
    return QStringLiteral("topic/") + topicID;
}

Topic newDemoTopic(const QString &workspaceID, const QString &name)
{
    Topic topic;
    topic.id = newLocalID(u't');
    topic.workspaceId = workspaceID;
    topic.name = name;
    return topic;
}

/// One field of a topic, which the service calls `key`.
template<typename Value>
RecordField fieldOf(const Topic &topic, const QString &key, Value Topic::*member)
{
    RecordField field{
        .name = key,
        .changed = &Records::topicsChanged,
        .tell = [workspaceID = topic.workspaceId, id = topic.id](APIClientPtr client, const JSONObject &change) {
            return consentOf(endpoints::changeTopic(client, workspaceID, id, change));
        }};
    bindField(
        field, [id = topic.id](const ChangeableRecords &records) { return findIn(records.topics, id); }, member);
    return field;
}

RecordField existenceOf(const Removed<Topic> &topic)
{
    RecordField field{.changed = &Records::topicsChanged,
                      .tell = [workspaceID = topic.record.workspaceId, id = topic.record.id](APIClientPtr client,
                                                                                             const JSONObject &) {
                          return consentOf(endpoints::deleteTopic(client, workspaceID, id));
                      }};
    bindExistence(
        field, [](const ChangeableRecords &records) { return &records.topics; }, topic);
    return field;
}

} // namespace

void AppStore::createTopic(const QString &name)
{
    checkMainThread();
    const QString topicName = slug(name);
    if (activeWorkspaceID().isEmpty() || !activeWorkspace() || topicName.isEmpty())
        return;
    if (!m_backend) {
        if (!topicNamed(topicName))
            m_records.add(newDemoTopic(activeWorkspaceID(), topicName));
        return;
    }
    m_mutations.start({.operation = [this, workspaceID = activeWorkspaceID(), topicName](APIClientPtr client) {
        return consentOf(endpoints::createTopic(client, workspaceID, topicName),
                         [this](const Topic &topic) { m_records.add(topic); });
    }});
}

void AppStore::setTopicMuted(const QString &topicID, bool muted)
{
    changeTopic(topicID, &Topic::muted, muted, QStringLiteral("muted"));
}

void AppStore::setTopicMinPriority(const QString &topicID, Priority priority)
{
    changeTopic(topicID, &Topic::minPriority, priority, QStringLiteral("minPriority"));
}

void AppStore::setTopicQuietHours(const QString &topicID, bool quietHours)
{
    changeTopic(topicID, &Topic::quietHours, quietHours, QStringLiteral("quietHours"));
}

template<typename Value>
void AppStore::changeTopic(const QString &topicID, Value Topic::*member, const Value &value, const QString &key)
{
    checkMainThread();
    if (const auto topic = m_records.find<Topic>(topicID))
        m_changes.change(laneOf(topicID), {{fieldOf(*topic, key, member), wireValue(value)}});
}

void AppStore::deleteTopic(const QString &topicID)
{
    checkMainThread();
    const auto topic = m_records.find<Topic>(topicID);
    if (activeWorkspaceID().isEmpty() || !activeWorkspace() || !topic)
        return;
    const qsizetype place = placeOf(topicID, topics());
    m_changes.change(laneOf(topicID), {{existenceOf({*topic, place}), false}});
    if (filter() == InboxFilter::topic(topic->name))
        setFilter(InboxFilter::all());
}

} // namespace pingwell
