#include "store/app_store.h"

#include "api/endpoints.h"
#include "store/local_id.h"
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

/// The patch call, for its success or failure alone: the next refresh brings the topic as the service holds it.
QCoro::Task<> sendChange(APIClientPtr client, QString workspaceID, QString topicID, JSONObject change)
{
    co_await endpoints::changeTopic(client, workspaceID, topicID, change);
}

} // namespace

/// Changes of topics, and what follows the service's answers.
struct AppStore::TopicSteps
{
    static Topic *find(AppStore &store, const QString &topicID);
    template<typename Value>
    static void setField(AppStore &store, const QString &topicID, Value Topic::*field, const Value &value);
    /// Changes one field of a topic, which the service calls `key`.
    template<typename Value>
    static void change(AppStore &store, const QString &topicID, Value Topic::*field, const Value &value,
                       const QString &key, const JSON &wireValue);
    static void add(AppStore &store, const Topic &topic);
    static QCoro::Task<> performCreate(QPointer<AppStore> store, APIClientPtr client, QString workspaceID,
                                       QString name);
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
    mutate([](AppStore &) {},
           [store = QPointer(this), workspaceID = m_activeWorkspaceID, topicName](APIClientPtr client) {
               return TopicSteps::performCreate(store, client, workspaceID, topicName);
           });
}

QCoro::Task<> AppStore::TopicSteps::performCreate(QPointer<AppStore> store, APIClientPtr client, QString workspaceID,
                                                  QString name)
{
    const Topic topic = co_await endpoints::createTopic(client, workspaceID, name);
    if (store && store->m_client == client)
        add(*store, topic);
}

void AppStore::setTopicMuted(const QString &topicID, bool muted)
{
    checkMainThread();
    TopicSteps::change(*this, topicID, &Topic::muted, muted, QStringLiteral("muted"), muted);
}

void AppStore::setTopicMinPriority(const QString &topicID, Priority priority)
{
    checkMainThread();
    TopicSteps::change(*this, topicID, &Topic::minPriority, priority, QStringLiteral("minPriority"),
                       QString(rawValue(priority)));
}

void AppStore::setTopicQuietHours(const QString &topicID, bool quietHours)
{
    checkMainThread();
    TopicSteps::change(*this, topicID, &Topic::quietHours, quietHours, QStringLiteral("quietHours"), quietHours);
}

void AppStore::deleteTopic(const QString &topicID)
{
    checkMainThread();
    const Topic *const found = TopicSteps::find(*this, topicID);
    if (m_activeWorkspaceID.isEmpty() || !activeWorkspace() || !found)
        return;
    const Topic topic = *found;
    QList<Topic> topics = m_topics;
    topics.removeIf([&topicID](const Topic &other) { return other.id == topicID; });
    set(m_topics, topics, &AppStore::topicsChanged);
    if (m_filter == InboxFilter::topic(topic.name))
        setFilter(InboxFilter::all());
    mutateInOrder(
        laneOf(topicID), [topic](AppStore &store) { TopicSteps::add(store, topic); },
        [topic](APIClientPtr client) { return endpoints::deleteTopic(client, topic.workspaceId, topic.id); });
}

Topic *AppStore::TopicSteps::find(AppStore &store, const QString &topicID)
{
    const auto found = std::find_if(store.m_topics.begin(), store.m_topics.end(),
                                    [&topicID](const Topic &topic) { return topic.id == topicID; });
    return found == store.m_topics.end() ? nullptr : &*found;
}

template<typename Value>
void AppStore::TopicSteps::setField(AppStore &store, const QString &topicID, Value Topic::*field, const Value &value)
{
    Topic *const topic = find(store, topicID);
    if (!topic || topic->*field == value)
        return;
    topic->*field = value;
    emit store.topicsChanged();
}

template<typename Value>
void AppStore::TopicSteps::change(AppStore &store, const QString &topicID, Value Topic::*field, const Value &value,
                                  const QString &key, const JSON &wireValue)
{
    const Topic *const found = find(store, topicID);
    if (!found || found->*field == value)
        return;
    const Topic before = *found;
    setField(store, topicID, field, value);
    store.mutateInOrder(
        laneOf(topicID),
        // The one field: another change of the topic may be on its way.
        [field, before](AppStore &taken) { setField(taken, before.id, field, before.*field); },
        [before, change = JSONObject{{key, wireValue}}](APIClientPtr client) {
            return sendChange(client, before.workspaceId, before.id, change);
        });
}

void AppStore::TopicSteps::add(AppStore &store, const Topic &topic)
{
    if (find(store, topic.id))
        return;
    store.m_topics << topic;
    emit store.topicsChanged();
}

} // namespace pingwell
