#include "wire.h"

using namespace Qt::StringLiterals;

namespace pingwell::devserver {

namespace {

void put(QJsonObject &object, const QString &key, const std::optional<QString> &text)
{
    if (text)
        object[key] = *text;
}

void put(QJsonObject &object, const QString &key, const std::optional<Instant> &instant)
{
    if (instant)
        object[key] = millisecondsFromInstant(*instant);
}

template<typename Record>
QJsonArray listed(const QList<Record> &records)
{
    QJsonArray array;
    for (const Record &record : records)
        array.append(toJson(record));
    return array;
}

QJsonObject entitlements(const Account &account)
{
    return {{u"id"_s, account.plan.toLower()}, {u"name"_s, account.plan}};
}

} // namespace

QJsonObject toJson(const ServedAlert &served)
{
    const Alert &alert = served.alert;
    QJsonObject object{
        {u"id"_s, alert.id},
        {u"workspaceId"_s, alert.workspaceId},
        {u"app"_s, alert.app},
        {u"title"_s, alert.title},
        {u"body"_s, alert.body},
        {u"topic"_s, alert.topic},
        {u"priority"_s, rawValue(alert.priority)},
        {u"kind"_s, rawValue(alert.kind)},
        {u"actions"_s, QJsonArray::fromStringList(alert.actions)},
        {u"answerType"_s, rawValue(alert.answerType)},
        {u"delivered"_s, alert.delivered},
        {u"at"_s, millisecondsFromInstant(alert.at)},
        {u"read"_s, alert.read},
    };
    put(object, u"placeholder"_s, alert.placeholder);
    put(object, u"answer"_s, alert.answer);
    put(object, u"answeredAt"_s, served.answeredAt);
    put(object, u"expiresAt"_s, alert.expiresAt);
    put(object, u"timedOutAt"_s, alert.timedOutAt);
    put(object, u"outcome"_s, alert.outcome);
    return object;
}

QJsonObject toJson(const Workspace &workspace)
{
    return {{u"id"_s, workspace.id},
            {u"name"_s, workspace.name},
            {u"kind"_s, rawValue(workspace.kind)},
            {u"role"_s, rawValue(workspace.role)},
            {u"responseTimeoutMinutes"_s, static_cast<qint64>(workspace.responseTimeoutMinutes)},
            {u"timeoutAction"_s, rawValue(workspace.timeoutAction)}};
}

QJsonObject toJson(const Topic &topic)
{
    QJsonObject object{{u"id"_s, topic.id},
                       {u"workspaceId"_s, topic.workspaceId},
                       {u"name"_s, topic.name},
                       {u"minPriority"_s, rawValue(topic.minPriority)},
                       {u"quietHours"_s, topic.quietHours},
                       {u"muted"_s, topic.muted}};
    if (topic.responseTimeoutMinutes)
        object[u"responseTimeoutMinutes"_s] = static_cast<qint64>(*topic.responseTimeoutMinutes);
    return object;
}

QJsonObject toJson(const Member &member, const QString &workspaceId)
{
    QJsonObject object{{u"id"_s, member.id},
                       {u"workspaceId"_s, workspaceId},
                       {u"email"_s, member.email},
                       {u"role"_s, rawValue(member.role)},
                       {u"status"_s, rawValue(member.status)},
                       {u"isSelf"_s, member.isYou}};
    put(object, u"name"_s, member.name);
    put(object, u"invitedAt"_s, member.invitedAt);
    return object;
}

QJsonObject toJson(const Device &device)
{
    return {{u"id"_s, device.id},
            {u"name"_s, device.name},
            {u"platform"_s, rawValue(device.platform)},
            {u"version"_s, device.version},
            {u"lastSeen"_s, millisecondsFromInstant(device.lastSeen)}};
}

QJsonObject toJson(const Invitation &invitation)
{
    QJsonObject object{{u"token"_s, invitation.token},
                       {u"role"_s, rawValue(invitation.role)},
                       {u"workspace"_s, invitation.workspaceName}};
    put(object, u"invitedAt"_s, invitation.invitedAt);
    return object;
}

QJsonObject toJson(const NotificationSettings &settings)
{
    return {{u"quietFrom"_s, settings.quietFrom},
            {u"quietTo"_s, settings.quietTo},
            {u"digest"_s, settings.digest},
            {u"sound"_s, settings.sound}};
}

QJsonObject sessionToJson(const Account &account)
{
    const QJsonObject user{{u"name"_s, account.name},
                           {u"email"_s, account.email},
                           {u"provider"_s, rawValue(account.provider)},
                           {u"plan"_s, account.plan}};
    return {{u"user"_s, user}, {u"entitlements"_s, entitlements(account)}};
}

QJsonArray membersToJson(const ServiceState &state, const QString &workspaceId)
{
    QJsonArray array;
    const QList<Member> members = state.members.value(workspaceId);
    for (const Member &member : members)
        array.append(toJson(member, workspaceId));
    return array;
}

QJsonObject dashboardToJson(const ServiceState &state)
{
    QJsonArray members;
    for (const Workspace &workspace : state.workspaces) {
        const QJsonArray added = membersToJson(state, workspace.id);
        for (const QJsonValue &member : added)
            members.append(member);
    }
    return {{u"workspaces"_s, listed(state.workspaces)}, {u"members"_s, members},
            {u"topics"_s, listed(state.topics)},         {u"alerts"_s, listed(state.alerts)},
            {u"devices"_s, listed(state.devices)},       {u"settings"_s, toJson(state.settings)},
            {u"plan"_s, entitlements(state.account)}};
}

} // namespace pingwell::devserver
