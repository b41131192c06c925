#include "store/app_store.h"

#include "store/outcome_text.h"
#include "text/time_format.h"

#include <algorithm>
#include <vector>

namespace pingwell {

namespace {

constexpr Seconds day{86400};

template<typename Record, typename Matches>
std::optional<Record> firstOf(const QList<Record> &records, Matches matches)
{
    const auto found = std::find_if(records.begin(), records.end(), matches);
    if (found == records.end())
        return std::nullopt;
    return *found;
}

/// The alerts to be kept, newest first; equal times keep their order. Alerts are large, so only references are sorted.
template<typename Keeps>
QList<Alert> newestFirst(const QList<Alert> &alerts, Keeps keeps)
{
    std::vector<const Alert *> kept;
    for (const Alert &alert : alerts) {
        if (keeps(alert))
            kept.push_back(&alert);
    }
    const auto isNewer = [](const Alert *left, const Alert *right) { return left->at > right->at; };
    if (!std::is_sorted(kept.begin(), kept.end(), isNewer))
        std::stable_sort(kept.begin(), kept.end(), isNewer);
    QList<Alert> sorted;
    sorted.reserve(qsizetype(kept.size()));
    for (const Alert *const alert : kept)
        sorted.append(*alert);
    return sorted;
}

bool passes(const InboxFilter &filter, const Alert &alert)
{
    switch (filter.kind()) {
    case InboxFilter::Kind::all:
        return true;
    case InboxFilter::Kind::asks:
        return alert.kind == AlertKind::ask;
    case InboxFilter::Kind::topic:
        return alert.topic == filter.topicName();
    }
    return false;
}

} // namespace

std::optional<Workspace> AppStore::activeWorkspace() const
{
    return workspaceWithID(m_activeWorkspaceID);
}

std::optional<Workspace> AppStore::workspaceWithID(const QString &id) const
{
    return m_records.find<Workspace>(id);
}

QList<Alert> AppStore::activeAlerts() const
{
    return newestFirst(alerts(), [this](const Alert &alert) { return alert.workspaceId == m_activeWorkspaceID; });
}

QList<Alert> AppStore::filteredAlerts() const
{
    return newestFirst(alerts(), [this](const Alert &alert) {
        return alert.workspaceId == m_activeWorkspaceID && passes(m_filter, alert);
    });
}

QList<Topic> AppStore::activeTopics() const
{
    QList<Topic> active;
    std::copy_if(topics().begin(), topics().end(), std::back_inserter(active),
                 [this](const Topic &topic) { return topic.workspaceId == m_activeWorkspaceID; });
    return active;
}

QStringList AppStore::activeTopicNames() const
{
    QStringList names;
    for (const Topic &topic : activeTopics())
        names << topic.name;
    return names;
}

std::optional<Topic> AppStore::topicNamed(const QString &name) const
{
    return firstOf(activeTopics(), [&name](const Topic &topic) { return topic.name == name; });
}

std::optional<Alert> AppStore::selectedAlert() const
{
    if (!m_selectedAlertID)
        return std::nullopt;
    return firstOf(alerts(), [this](const Alert &alert) {
        return alert.id == *m_selectedAlertID && alert.workspaceId == m_activeWorkspaceID;
    });
}

std::optional<Alert> AppStore::alertWithID(const QString &id) const
{
    return m_records.find<Alert>(id);
}

qsizetype AppStore::unreadCount() const
{
    return std::count_if(alerts().begin(), alerts().end(), [this](const Alert &alert) {
        return !alert.read && alert.workspaceId == m_activeWorkspaceID;
    });
}

QList<Alert> AppStore::needsReply() const
{
    return newestFirst(alerts(), [this](const Alert &alert) {
        return alert.workspaceId == m_activeWorkspaceID && alert.isWaiting(m_now);
    });
}

qsizetype AppStore::needsReplyCount() const
{
    return std::count_if(alerts().begin(), alerts().end(), [this](const Alert &alert) {
        return alert.isWaiting(m_now) && alert.workspaceId == m_activeWorkspaceID;
    });
}

QList<Alert> AppStore::todayAlerts(std::optional<Instant> at) const
{
    const Instant instant = at.value_or(m_now);
    const Instant cutoff = instant - day;
    QSet<QString> seen;
    QSet<QString> muted;
    for (const Topic &topic : activeTopics()) {
        // Of topics with the same name the first one counts.
        if (!seen.contains(topic.name) && topic.muted)
            muted.insert(topic.name);
        seen.insert(topic.name);
    }
    return newestFirst(alerts(), [&](const Alert &alert) {
        return alert.at >= cutoff && alert.workspaceId == m_activeWorkspaceID && !alert.isWaiting(instant) &&
               !muted.contains(alert.topic) && (!m_focusMode || alert.priority >= Priority::high);
    });
}

QString AppStore::serverLabel() const
{
    return m_server == ServerKind::cloud ? QStringLiteral("Pingwell Cloud") : QStringLiteral("Self-hosted");
}

QStringList AppStore::availableProviderWords() const
{
    QStringList words;
    for (const AuthProvider provider : m_availableProviders)
        words << rawValue(provider);
    return words;
}

bool AppStore::canAnswer(const Alert &alert) const
{
    if (!alert.isWaiting(m_now))
        return false;
    const auto workspace = workspaceWithID(alert.workspaceId);
    return workspace && workspace->role != WorkspaceRole::viewer;
}

bool AppStore::canSendTestAlert() const
{
    return !m_activeWorkspaceID.isEmpty() && activeWorkspace().has_value();
}

QString AppStore::outcomeText(const Alert &alert) const
{
    return pingwell::outcomeText(alert, workspaceWithID(alert.workspaceId), activeWorkspace());
}

QString AppStore::countdownKey(const Alert &alert, Instant instant)
{
    const auto state = alert.replyState(instant);
    if (!state || std::holds_alternative<Answered>(*state))
        return {};
    if (const auto *waiting = std::get_if<Waiting>(&*state))
        return countdownText(waiting->remaining);
    return QStringLiteral("timedOut");
}

bool AppStore::countdownChanged(const Alert &alert, Instant earlier) const
{
    return countdownKey(alert, m_now) != countdownKey(alert, earlier);
}

} // namespace pingwell
