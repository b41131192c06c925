#include "store/app_state.h"

#include "store/outcome_text.h"

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

std::optional<Workspace> AppState::activeWorkspace() const
{
    return workspaceWithID(activeWorkspaceID());
}

std::optional<Workspace> AppState::workspaceWithID(const QString &id) const
{
    return m_records.find<Workspace>(id);
}

QList<Alert> AppState::activeAlerts() const
{
    return newestFirst(alerts(), [this](const Alert &alert) { return alert.workspaceId == activeWorkspaceID(); });
}

QList<Alert> AppState::filteredAlerts() const
{
    return newestFirst(alerts(), [this](const Alert &alert) {
        return alert.workspaceId == activeWorkspaceID() && passes(filter(), alert);
    });
}

QList<Topic> AppState::activeTopics() const
{
    QList<Topic> active;
    std::copy_if(topics().begin(), topics().end(), std::back_inserter(active),
                 [this](const Topic &topic) { return topic.workspaceId == activeWorkspaceID(); });
    return active;
}

QStringList AppState::activeTopicNames() const
{
    QStringList names;
    for (const Topic &topic : activeTopics())
        names << topic.name;
    return names;
}

std::optional<Topic> AppState::topicNamed(const QString &name) const
{
    return firstOf(activeTopics(), [&name](const Topic &topic) { return topic.name == name; });
}

std::optional<Alert> AppState::selectedAlert() const
{
    if (!selectedAlertID())
        return std::nullopt;
    return firstOf(alerts(), [this](const Alert &alert) {
        return alert.id == *selectedAlertID() && alert.workspaceId == activeWorkspaceID();
    });
}

std::optional<Alert> AppState::alertWithID(const QString &id) const
{
    return m_records.find<Alert>(id);
}

qsizetype AppState::unreadCount() const
{
    return std::count_if(alerts().begin(), alerts().end(), [this](const Alert &alert) {
        return !alert.read && alert.workspaceId == activeWorkspaceID();
    });
}

QList<Alert> AppState::needsReply() const
{
    return newestFirst(alerts(), [this](const Alert &alert) {
        return alert.workspaceId == activeWorkspaceID() && alert.isWaiting(now());
    });
}

qsizetype AppState::needsReplyCount() const
{
    return std::count_if(alerts().begin(), alerts().end(), [this](const Alert &alert) {
        return alert.isWaiting(now()) && alert.workspaceId == activeWorkspaceID();
    });
}

QList<Alert> AppState::todayAlerts(std::optional<Instant> at) const
{
    const Instant instant = at.value_or(now());
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
        return alert.at >= cutoff && alert.workspaceId == activeWorkspaceID() && !alert.isWaiting(instant) &&
               !muted.contains(alert.topic) && (!focusMode() || alert.priority >= Priority::high);
    });
}

QString AppState::serverLabel() const
{
    return server() == ServerKind::cloud ? QStringLiteral("Pingwell Cloud") : QStringLiteral("Self-hosted");
}

QStringList AppState::availableProviderWords() const
{
    QStringList words;
    for (const AuthProvider provider : availableProviders())
        words << rawValue(provider);
    return words;
}

bool AppState::canAnswer(const Alert &alert) const
{
    if (!alert.isWaiting(now()))
        return false;
    const auto workspace = workspaceWithID(alert.workspaceId);
    return workspace && workspace->role != WorkspaceRole::viewer;
}

bool AppState::canSendTestAlert() const
{
    return !activeWorkspaceID().isEmpty() && activeWorkspace().has_value();
}

QString AppState::outcomeText(const Alert &alert) const
{
    return pingwell::outcomeText(alert, workspaceWithID(alert.workspaceId), activeWorkspace());
}

} // namespace pingwell
