#include "service_state.h"

#include "refusal.h"

#include <QUuid>

#include <algorithm>
#include <utility>

using namespace Qt::StringLiterals;

namespace pingwell::devserver {

namespace {

/// The first record that fits, else the refusal.
template<typename Record, typename Fits>
Record &found(QList<Record> &records, const Fits &fits, const QString &absence)
{
    const auto position = std::find_if(records.begin(), records.end(), fits);
    if (position == records.end())
        throw notFound(absence);
    return *position;
}

const QString alertAbsence = u"This alert doesn't exist any more."_s;

/// The service's word for what it did when nobody answered. An ask answered by text has no option to continue with.
QString timeoutOutcome(const Alert &alert, TimeoutAction action)
{
    if (action == TimeoutAction::escalate)
        return u"escalated"_s;
    if (action == TimeoutAction::default_ && !alert.acceptsText())
        return u"default"_s;
    return u"expired"_s;
}

} // namespace

QString newId(const QString &prefix)
{
    return prefix + u'-' + QUuid::createUuid().toString(QUuid::Id128).left(8);
}

Workspace &ServiceState::workspace(const QString &id)
{
    const auto hasId = [&](const Workspace &workspace) { return workspace.id == id; };
    return found(workspaces, hasId, u"This workspace doesn't exist, or you aren't in it."_s);
}

Workspace &ServiceState::managedWorkspace(const QString &id)
{
    Workspace &workspace = this->workspace(id);
    if (!workspace.canManage())
        throw forbidden(u"Only owners and admins can change this."_s);
    return workspace;
}

Workspace &ServiceState::contributedWorkspace(const QString &id, const QString &message)
{
    Workspace &workspace = this->workspace(id);
    if (workspace.role == WorkspaceRole::viewer)
        throw forbidden(message);
    return workspace;
}

ServedAlert &ServiceState::alert(const QString &id)
{
    const auto hasId = [&](const ServedAlert &served) { return served.alert.id == id; };
    return found(alerts, hasId, alertAbsence);
}

ServedAlert &ServiceState::alert(const QString &workspaceId, const QString &id)
{
    ServedAlert &served = alert(id);
    if (served.alert.workspaceId != workspaceId)
        throw notFound(alertAbsence);
    return served;
}

Topic &ServiceState::topic(const QString &workspaceId, const QString &id)
{
    const auto hasId = [&](const Topic &topic) { return topic.id == id && topic.workspaceId == workspaceId; };
    return found(topics, hasId, u"This topic doesn't exist any more."_s);
}

Member &ServiceState::member(const QString &workspaceId, const QString &id)
{
    const auto hasId = [&](const Member &member) { return member.id == id; };
    return found(members[workspaceId], hasId, u"This person isn't in the workspace any more."_s);
}

Device &ServiceState::device(const QString &id)
{
    const auto hasId = [&](const Device &device) { return device.id == id; };
    return found(devices, hasId, u"This device isn't registered."_s);
}

const Alert &ServiceState::post(Alert alert, Instant now)
{
    const auto isItsTopic = [&](const Topic &topic) {
        return topic.workspaceId == alert.workspaceId && topic.name == alert.topic;
    };
    auto topic = std::find_if(topics.begin(), topics.end(), isItsTopic);
    if (topic == topics.end()) {
        Topic added;
        added.id = newId(u"t"_s);
        added.workspaceId = alert.workspaceId;
        added.name = alert.topic;
        added.minPriority = Priority::silent;
        topic = topics.insert(topics.end(), added);
    }
    if (alert.id.isEmpty())
        alert.id = newId(u"a"_s);
    alert.at = now;
    alert.delivered = !topic->muted && alert.priority >= topic->minPriority;
    alerts.prepend({std::move(alert), std::nullopt});
    return alerts.constFirst().alert;
}

void ServiceState::settleDeadlines(Instant now)
{
    for (ServedAlert &served : alerts) {
        Alert &alert = served.alert;
        if (alert.timedOutAt || !isTimedOut(alert.replyState(now)))
            continue;
        alert.timedOutAt = now;
        alert.outcome = timeoutOutcome(alert, workspace(alert.workspaceId).effectiveTimeoutAction());
    }
}

std::optional<Instant> ServiceState::nextDeadline() const
{
    std::optional<Instant> earliest;
    for (const ServedAlert &served : alerts) {
        const Alert &alert = served.alert;
        const bool open = alert.kind == AlertKind::ask && !alert.answer && !alert.timedOutAt;
        if (open && alert.expiresAt && (!earliest || *alert.expiresAt < *earliest))
            earliest = alert.expiresAt;
    }
    return earliest;
}

void ServiceState::removeWorkspace(const QString &id)
{
    workspaces.removeIf([&](const Workspace &workspace) { return workspace.id == id; });
    members.remove(id);
    topics.removeIf([&](const Topic &topic) { return topic.workspaceId == id; });
    alerts.removeIf([&](const ServedAlert &served) { return served.alert.workspaceId == id; });
}

} // namespace pingwell::devserver
