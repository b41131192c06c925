#include "fields.h"
#include "routes.h"
#include "session_routes.h"
#include "wire.h"

using namespace Qt::StringLiterals;

namespace pingwell::devserver {

namespace {

/// Why the ask can't be answered any more, if so.
void refuseIfClosed(const Alert &alert, Instant now)
{
    if (alert.kind != AlertKind::ask)
        throw badRequest(u"This alert doesn't ask for an answer."_s);
    if (alert.answer)
        throw conflict(u"already_answered"_s, u"This ask was already answered: “%1”."_s.arg(*alert.answer));
    if (!alert.isWaiting(now))
        throw conflict(u"timed_out"_s, u"This ask timed out before your answer arrived."_s);
}

Reply dashboard(ServiceState &state, const Call &)
{
    return withData(dashboardToJson(state));
}

Reply answerAlert(ServiceState &state, const Call &call)
{
    state.contributedWorkspace(call.parameter(u"workspace"), u"Viewers can't answer asks."_s);
    ServedAlert &served = state.alert(call.parameter(u"workspace"), call.parameter(u"alert"));
    refuseIfClosed(served.alert, call.now);
    const QString proposed = textField(call.body, u"answer"_s).value_or(QString());
    const std::optional<QString> answer = served.alert.validatedAnswer(proposed);
    if (!answer && served.alert.acceptsText())
        throw badRequest(u"An answer has 1 to %1 characters."_s.arg(maximumAnswerLength));
    if (!answer)
        throw badRequest(u"Pick one of the offered answers: %1."_s.arg(served.alert.actions.join(u", "_s)));
    served.alert.answer = answer;
    served.alert.read = true;
    served.answeredAt = call.now;
    return withData(toJson(served));
}

Reply markRead(ServiceState &state, const Call &call)
{
    state.workspace(call.parameter(u"workspace"));
    state.alert(call.parameter(u"workspace"), call.parameter(u"alert")).alert.read = true;
    return done();
}

Reply markAllRead(ServiceState &state, const Call &call)
{
    const QString id = state.workspace(call.parameter(u"workspace")).id;
    for (ServedAlert &served : state.alerts)
        served.alert.read = served.alert.read || served.alert.workspaceId == id;
    return done();
}

Reply deleteAlert(ServiceState &state, const Call &call)
{
    state.contributedWorkspace(call.parameter(u"workspace"), u"Viewers can't delete alerts."_s);
    const QString id = state.alert(call.parameter(u"workspace"), call.parameter(u"alert")).alert.id;
    state.alerts.removeIf([&](const ServedAlert &served) { return served.alert.id == id; });
    return done();
}

Reply sendTestAlert(ServiceState &state, const Call &call)
{
    Alert alert;
    alert.workspaceId = state.workspace(call.parameter(u"workspace")).id;
    alert.title = requiredText(call.body, u"title"_s);
    alert.app = textField(call.body, u"app"_s).value_or(u"Pingwell"_s);
    alert.body = textField(call.body, u"body"_s).value_or(QString());
    alert.topic = textField(call.body, u"topic"_s).value_or(u"test"_s);
    alert.priority = wordField<Priority>(call.body, u"priority"_s).value_or(Priority::normal);
    return withData(toJson(ServedAlert{state.post(alert, call.now), std::nullopt}));
}

} // namespace

void addAlertRoutes(Router &router, ServiceState &state)
{
    SessionRoutes routes(router, state);
    routes.add(u"GET"_s, u"/dashboard"_s, dashboard);
    routes.add(u"POST"_s, u"/workspaces/{workspace}/alerts/read-all"_s, markAllRead);
    routes.add(u"POST"_s, u"/workspaces/{workspace}/alerts/test"_s, sendTestAlert);
    routes.add(u"POST"_s, u"/workspaces/{workspace}/alerts/{alert}/answer"_s, answerAlert);
    routes.add(u"POST"_s, u"/workspaces/{workspace}/alerts/{alert}/read"_s, markRead);
    routes.add(u"DELETE"_s, u"/workspaces/{workspace}/alerts/{alert}"_s, deleteAlert);
}

} // namespace pingwell::devserver
