#include "store/test_alert.h"

#include "store/local_id.h"

namespace pingwell {

namespace {

const QString app = QStringLiteral("Pingwell");
const QString title = QStringLiteral("Test alert from your Mac");
const QString body = QStringLiteral("If you can see this, Pingwell is wired up.");
const QString topic = QStringLiteral("test");
constexpr Priority priority = Priority::normal;

} // namespace

Alert localTestAlert(const QString &workspaceID, Instant now)
{
    Alert alert;
    alert.id = newLocalID(u'a');
    alert.workspaceId = workspaceID;
    alert.app = app;
    alert.title = title;
    alert.body = body;
    alert.topic = topic;
    alert.priority = priority;
    alert.at = now;
    return alert;
}

JSONObject testAlertBody()
{
    return {{QStringLiteral("app"), app},
            {QStringLiteral("title"), title},
            {QStringLiteral("body"), body},
            {QStringLiteral("topic"), topic},
            {QStringLiteral("priority"), QString(rawValue(priority))}};
}

} // namespace pingwell
