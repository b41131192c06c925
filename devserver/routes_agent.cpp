#include "fields.h"
#include "routes.h"
#include "waiting_agents.h"

using namespace Qt::StringLiterals;

namespace pingwell::devserver {

namespace {

constexpr double secondsPerDay = 86400;

/// The time the agent gives the person: its own, else the topic's, else the workspace's.
Seconds responseTime(const ServiceState &state, const Workspace &workspace, const QString &topicName,
                     const QJsonObject &body)
{
    if (const auto seconds = numberField(body, u"expiresInSeconds"_s, 0.05, 365 * secondsPerDay))
        return Seconds(*seconds);
    if (const auto minutes = numberField(body, u"expiresInMinutes"_s, 0.01, 365 * secondsPerDay / 60))
        return Seconds(*minutes * 60);
    for (const Topic &topic : state.topics) {
        if (topic.workspaceId == workspace.id && topic.name == topicName && topic.responseTimeoutMinutes)
            return Seconds(static_cast<double>(*topic.responseTimeoutMinutes) * 60);
    }
    return Seconds(static_cast<double>(workspace.responseTimeoutMinutes) * 60);
}

/// Adds what makes the alert an ask.
void readAsk(Alert &alert, const QJsonObject &body)
{
    alert.actions = textListField(body, u"actions"_s).value_or(QStringList());
    const AnswerType guessed = alert.actions.isEmpty() ? AnswerType::text : AnswerType::choice;
    alert.answerType = wordField<AnswerType>(body, u"answerType"_s).value_or(guessed);
    alert.placeholder = textField(body, u"placeholder"_s);
    if (alert.answerType == AnswerType::choice && alert.actions.isEmpty())
        throw badRequest(u"An ask answered by choice needs “actions” to choose from."_s);
    if (alert.answerType == AnswerType::text && !alert.actions.isEmpty())
        throw badRequest(u"An ask answered by text has no “actions”."_s);
}

/// The identifier that a test wishes for, when it is free; empty for any.
QString freeId(const ServiceState &state, const QString &wish)
{
    for (const ServedAlert &served : state.alerts) {
        if (served.alert.id == wish)
            throw conflict(u"taken"_s, u"There is an alert with this identifier."_s);
    }
    return wish;
}

Alert readAlert(ServiceState &state, const Call &call)
{
    const QJsonObject &body = call.body;
    Alert alert;
    alert.id = freeId(state, textField(body, u"id"_s).value_or(QString()));
    alert.title = requiredText(body, u"title"_s);
    alert.app = textField(body, u"app"_s).value_or(u"Agent"_s);
    alert.body = textField(body, u"body"_s).value_or(QString());
    alert.topic = textField(body, u"topic"_s).value_or(u"general"_s);
    alert.priority = wordField<Priority>(body, u"priority"_s).value_or(Priority::normal);
    const bool asks = body.contains(u"actions"_s) || body.contains(u"answerType"_s);
    alert.kind = wordField<AlertKind>(body, u"kind"_s).value_or(asks ? AlertKind::ask : AlertKind::notify);

    const Workspace &workspace =
        state.workspace(textField(body, u"workspaceId"_s).value_or(state.workspaces.constFirst().id));
    alert.workspaceId = workspace.id;
    if (alert.kind == AlertKind::ask) {
        readAsk(alert, body);
        alert.expiresAt = call.now + responseTime(state, workspace, alert.topic, body);
    }
    return alert;
}

double secondsToWait(const Call &call)
{
    const QString text = call.query.queryItemValue(u"wait"_s);
    if (text.isEmpty())
        return 0;
    bool isNumber = false;
    const double seconds = text.toDouble(&isNumber);
    if (!isNumber || !(seconds >= 0 && seconds <= 3600))
        throw badRequest(u"“wait” must be a number of seconds between 0 and 3600."_s);
    return seconds;
}

} // namespace

void addAgentRoutes(Router &router, ServiceState &state, WaitingAgents &waiting)
{
    router.add(u"POST"_s, u"/agent/alerts"_s, Access::open, [&state](const Call &call) {
        const Alert &posted = state.post(readAlert(state, call), call.now);
        return withData(agentView(ServedAlert{posted, std::nullopt}));
    });
    router.addSlow(u"GET"_s, u"/agent/alerts/{alert}"_s, Access::open,
                   [&state, &waiting](const Call &call, const Respond &respond) {
                       const QString id = state.alert(call.parameter(u"alert")).alert.id;
                       waiting.wait(id, secondsToWait(call), respond);
                   });
}

} // namespace pingwell::devserver
