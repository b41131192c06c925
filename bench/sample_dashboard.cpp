#include "sample_dashboard.h"

#include <QDateTime>

namespace pingwell {

namespace {

QByteArray sampleAlert(int number, int round, qint64 now)
{
    static const char *const apps[] = {"Cursor", "Claude Code", "research-agent", "on-call-bot"};
    static const char *const topics[] = {"infra", "deploys", "on-call", "research"};
    const QByteArray id = QByteArray::number(number);
    const QByteArray text = id + " of round " + QByteArray::number(round);
    const bool isAsk = number % 10 == 0;
    return R"({"id":"alert-)" + id + R"(","workspaceId":"w1","app":")" + apps[number % 4] + R"(","title":"Alert )" +
           text + R"(","body":"staging-logs-old, tmp-uploads, legacy-assets: no reads in 90 days, says line )" + text +
           R"(.","topic":")" + topics[number % 4] + R"(","priority":"normal","kind":")" + (isAsk ? "ask" : "notify") +
           R"(","actions":)" + (isAsk ? R"(["Keep them","Delete"])" : "[]") +
           R"(,"answerType":"choice","delivered":true,"read":)" + (number % 3 == 0 ? "false" : "true") + R"(,"at":)" +
           QByteArray::number(now - qint64{number} * 60'000) + "}";
}

} // namespace

QByteArray sampleDashboard(int alertCount, int round)
{
    const qint64 now = QDateTime::currentMSecsSinceEpoch();
    QByteArray alerts;
    for (int number = 0; number < alertCount; ++number)
        alerts += (number == 0 ? "" : ",") + sampleAlert(number, round, now);
    return R"({"success":true,"data":{"workspaces":[{"id":"w1","name":"Acme","kind":"team","role":"owner"}],)"
           R"("members":[],"topics":[{"id":"t1","workspaceId":"w1","name":"infra"}],"alerts":[)" +
           alerts + R"(],"devices":[],"settings":{"sound":true},"plan":{"name":"Cloud"}}})";
}

} // namespace pingwell
