#include "store/app_store.h"

#include "api/endpoints.h"
#include "store/local_id.h"
#include "store/mutation_steps.h"
#include "store/record_field.h"
#include "store/topic_slug.h"

#include <algorithm>

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

} // namespace

/// Changes of topics, and what follows the service's answers.
struct AppStore::TopicSteps
{
    static Topic *find(QList<Topic> &topics, const QString &topicID);
    /// Changes one field of a topic, which the service calls `key`.
    template<typename Value>
    static void change(AppStore &store, const QString &topicID, Value Topic::*field, const Value &value,
                       const QString &key);
    static RecordField existenceOf(const Topic &topic);
    static void add(AppStore &store, const Topic &topic);
};

void AppStore::createTopic(const QString &name)
{
    checkMainThread();
    const QString topicName = slug(name);
    if (m_activeWorkspaceID.isEmpty() || !activeWorkspace() || topicName.isEmpty())
        return;
    if (!m_backend) {
        if (!topicNamed(topicName))
            TopicSteps::add(*this, newDemoTopic(m_activeWorkspaceID, topicName));
        return;
    }
    mutate({.operation = [this, workspaceID = m_activeWorkspaceID, topicName](APIClientPtr client) {
        return consentOf(endpoints::createTopic(client, workspaceID, topicName),
                         [this](const Topic &topic) { TopicSteps::add(*this, topic); });
    }});
}

void AppStore::setTopicMuted(const QString &topicID, bool muted)
{
    checkMainThread();
    TopicSteps::change(*this, topicID, &Topic::muted, muted, QStringLiteral("muted"));
}

void AppStore::setTopicMinPriority(const QString &topicID, Priority priority)
{
    checkMainThread();
    TopicSteps::change(*this, topicID, &Topic::minPriority, priority, QStringLiteral("minPriority"));
}

void AppStore::setTopicQuietHours(const QString &topicID, bool quietHours)
{
    checkMainThread();
    TopicSteps::change(*this, topicID, &Topic::quietHours, quietHours, QStringLiteral("quietHours"));
}

void AppStore::deleteTopic(const QString &topicID)
{
    checkMainThread();
    const Topic *const found = TopicSteps::find(m_topics, topicID);
    if (m_activeWorkspaceID.isEmpty() || !activeWorkspace() || !found)
        return;
    const Topic topic = *found;
    changeFields(laneOf(topicID), {{TopicSteps::existenceOf(topic), false}});
    if (m_filter == InboxFilter::topic(topic.name))
        setFilter(InboxFilter::all());
}

RecordField AppStore::TopicSteps::existenceOf(const Topic &topic)
{
    return {
        .name = existenceField,
        .read =
            [topic](const Records &records) { return std::optional<JSON>(find(records.topics, topic.id) != nullptr); },
        .write =
            [topic](const Records &records, const JSON &exists) {
                if (exists == JSON(true))
                    records.topics << topic;
                else
                    records.topics.removeIf([&topic](const Topic &other) { return other.id == topic.id; });
            },
        .changed = &AppStore::topicsChanged,
        .tell =
            [topic](APIClientPtr client, const JSONObject &) {
                return consentOf(endpoints::deleteTopic(client, topic.workspaceId, topic.id));
            }};
}

Topic *AppStore::TopicSteps::find(QList<Topic> &topics, const QString &topicID)
{
    const auto found =
        std::find_if(topics.begin(), topics.end(), [&topicID](const Topic &topic) { return topic.id == topicID; });
    return found == topics.end() ? nullptr : &*found;
}

template<typename Value>
void AppStore::TopicSteps::change(AppStore &store, const QString &topicID, Value Topic::*field, const Value &value,
                                  const QString &key)
{
    const Topic *const topic = find(store.m_topics, topicID);
    if (!topic)
        return;
    RecordField changed{
        .name = key,
        .changed = &AppStore::topicsChanged,
        .tell = [workspaceID = topic->workspaceId, topicID](APIClientPtr client, const JSONObject &change) {
            return consentOf(endpoints::changeTopic(client, workspaceID, topicID, change));
        }};
    bindField(
        changed, [topicID](const Records &records) { return find(records.topics, topicID); }, field);
    store.changeFields(laneOf(topicID), {{changed, wireValue(value)}});
}

void AppStore::TopicSteps::add(AppStore &store, const Topic &topic)
{
    if (find(store.m_topics, topic.id))
        return;
    store.m_topics << topic;
    emit store.topicsChanged();
}

} // namespace pingwell
