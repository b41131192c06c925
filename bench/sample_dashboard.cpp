#include "sample_dashboard.h"

#include <QDateTime>

#include <functional>

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

QByteArray sampleMember(int number)
{
    const QByteArray id = QByteArray::number(number);
    return R"({"id":"m)" + id + R"(","workspaceId":"w1","name":"Member )" + id + R"(","email":"member)" + id +
           R"(@example.com","role":"member","status":")" + (number % 7 == 0 ? "invited" : "active") + R"("})";
}

QByteArray sampleTopic(int number)
{
    const QByteArray id = QByteArray::number(number);
    return R"({"id":"t)" + id + R"(","workspaceId":"w1","name":"topic-)" + id + R"("})";
}

QByteArray list(int count, const std::function<QByteArray(int)> &record)
{
    QByteArray records;
    for (int number = 0; number < count; ++number)
        records += (number == 0 ? "" : ",") + record(number);
    return records;
}

QByteArray dashboard(const QByteArray &members, const QByteArray &topics, const QByteArray &alerts)
{
    return R"({"success":true,"data":{"workspaces":[{"id":"w1","name":"Acme","kind":"team","role":"owner"}],"members":[)" +
           members + R"(],"topics":[)" + topics + R"(],"alerts":[)" + alerts +
           R"(],"devices":[],"settings":{"sound":true},"plan":{"name":"Cloud"}}})";
}

} // namespace

QByteArray sampleDashboard(int alertCount, int round)
{
    const qint64 now = QDateTime::currentMSecsSinceEpoch();
    const QByteArray alerts = list(alertCount, [round, now](int number) { return sampleAlert(number, round, now); });
    return dashboard("", R"({"id":"t1","workspaceId":"w1","name":"infra"})", alerts);
}

QByteArray largeTeamDashboard(int memberCount, int topicCount)
{
    return dashboard(list(memberCount, sampleMember), list(topicCount, sampleTopic), "");
}

} // namespace pingwell
