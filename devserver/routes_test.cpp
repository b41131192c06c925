#include "faults.h"
#include "fields.h"
#include "request_log.h"
#include "routes.h"
#include "wire.h"

using namespace Qt::StringLiterals;

namespace pingwell::devserver {

namespace {

/// One of many alerts: every fourth an ask, a minute between one and the next.
ServedAlert numberedAlert(int number, const Workspace &workspace, Instant now)
{
    Alert alert;
    alert.id = u"n%1"_s.arg(number);
    alert.workspaceId = workspace.id;
    alert.app = u"load-agent"_s;
    alert.title = u"Alert number %1"_s.arg(number);
    alert.body = u"Line %1 of the report: 18,204 rows checked, none out of place."_s.arg(number);
    alert.topic = u"load"_s;
    alert.at = now - Seconds(60.0 * number);
    alert.read = number % 3 == 0;
    if (number % 4 == 0) {
        alert.kind = AlertKind::ask;
        alert.actions = {u"Stop"_s, u"Continue"_s};
        alert.expiresAt = now + Seconds(86400);
    }
    return {alert, std::nullopt};
}

/// Replaces all alerts by as many numbered ones as are asked for.
Reply seedAlerts(ServiceState &state, const Call &call)
{
    const int count = static_cast<int>(numberField(call.body, u"alerts"_s, 0, 200000).value_or(0));
    const Workspace &workspace = state.workspaces.constFirst();
    QList<ServedAlert> alerts;
    alerts.reserve(count);
    for (int number = 0; number < count; ++number)
        alerts.append(numberedAlert(number, workspace, call.now));
    state.alerts = alerts;
    return withData(QJsonObject{{u"alerts"_s, count}});
}

} // namespace

void addTestRoutes(Router &router, ServiceState &state, FaultTable &faults, RequestLog &requests)
{
    const auto add = [&](const QString &method, const QString &path, const Handler &handler) {
        router.add(method, path, Access::open, handler);
    };
    add(u"POST"_s, u"/test/faults"_s, [&faults](const Call &call) {
        faults.add(faultFromJson(call.body));
        return withData(faults.described());
    });
    add(u"DELETE"_s, u"/test/faults"_s, [&faults](const Call &) {
        faults.clear();
        return done();
    });
    add(u"POST"_s, u"/test/sessions"_s, [&state](const Call &) {
        return withData(QJsonObject{{u"token"_s, state.sessions.open()}});
    });
    add(u"GET"_s, u"/test/requests"_s, [&requests](const Call &) { return withData(requests.described()); });
    add(u"DELETE"_s, u"/test/requests"_s, [&requests](const Call &) {
        requests.clear();
        return done();
    });
    add(u"POST"_s, u"/test/seed"_s, [&state](const Call &call) { return seedAlerts(state, call); });
    add(u"GET"_s, u"/test/dashboard"_s, [&state](const Call &) { return withData(dashboardToJson(state)); });
}

} // namespace pingwell::devserver
