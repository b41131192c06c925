#include "api/endpoints.h"
#include "support/scripted_transport.h"
#include "support/settled.h"

#include <QTest>

#include <functional>

using namespace pingwell;
using namespace Qt::StringLiterals;

namespace {

const QByteArray alertJSON = R"({"id":"a1","workspaceId":"w1","title":"T","at":1})";
const QByteArray workspaceJSON = R"({"id":"w1","name":"N","kind":"team","role":"owner"})";
const QByteArray memberJSON = R"({"id":"m1","workspaceId":"w1","email":"e@x.test","role":"admin","status":"active"})";
const QByteArray topicJSON = R"({"id":"t1","workspaceId":"w1","name":"N"})";
const QByteArray deviceJSON = R"({"id":"d1","name":"N","platform":"web"})";
const QByteArray sessionJSON = R"({"token":"new","user":{"name":"Ada"}})";
const QByteArray dashboardJSON = R"({"workspaces":[],"members":[],"topics":[],"alerts":[]})";

/// How an operation ended, whatever it returns: empty when it did well, else the error's code.
using Ending = QString;
using Operation = std::function<Ending(const APIClientPtr &)>;

template<typename Value>
Ending endingOf(QCoro::Task<Value> task)
{
    const auto settled = settle(std::move(task));
    if (settled.value)
        return {};
    return settled.error ? settled.error->code().value_or(u"no code"_s) : u"no ending"_s;
}

} // namespace


class TestEndpoints : public QObject
{
    Q_OBJECT

private slots:
    void init()
    {
        m_transport = std::make_shared<ScriptedTransport>();
        m_client = std::make_shared<const APIClient>(QUrl(u"https://h.test/api"_s), u"t0k"_s, m_transport);
    }

    void asksTheService_data()
    {
        QTest::addColumn<Operation>("operation");
        QTest::addColumn<QByteArray>("method");
        QTest::addColumn<QByteArray>("path");
        QTest::addColumn<QByteArray>("body");
        QTest::addColumn<QByteArray>("answer");
        using C = APIClientPtr;
        namespace e = endpoints;
        const auto row = [](const char *name, const Operation &operation, const char *method, const char *path,
                            const char *body, const QByteArray &answer) {
            QTest::newRow(name) << operation << QByteArray(method) << QByteArray(path) << QByteArray(body) << answer;
        };
        const auto data = [](const QByteArray &json) { return QByteArray(R"({"success":true,"data":)" + json + '}'); };
        row(
            "providers", [](C c) { return endingOf(e::listProviders(c)); }, "GET", "/auth/providers", "",
            data(R"({"providers":["github"]})"));
        row(
            "exchange", [](C c) { return endingOf(e::exchangeCode(c, u"c"_s, u"v"_s)); }, "POST", "/auth/native/token",
            R"({"code":"c","code_verifier":"v"})", sessionJSON);
        row(
            "user data", [](C c) { return endingOf(e::fetchUserData(c)); }, "GET", "/auth/user-data", "", sessionJSON);
        row(
            "settings",
            [](C c) {
                return endingOf(e::saveSettings(c, {{u"sound"_s, false}}));
            },
            "PUT", "/auth/settings", R"({"sound":false})", data("{}"));
        row(
            "dashboard", [](C c) { return endingOf(e::fetchDashboard(c, {})); }, "GET", "/dashboard", "",
            data(dashboardJSON));
        row(
            "answer", [](C c) { return endingOf(e::answerAlert(c, u"w1"_s, u"a1"_s, u"Yes"_s)); }, "POST",
            "/workspaces/w1/alerts/a1/answer", R"({"answer":"Yes"})", data(alertJSON));
        row(
            "read", [](C c) { return endingOf(e::markAlertRead(c, u"w1"_s, u"a1"_s)); }, "POST",
            "/workspaces/w1/alerts/a1/read", "", "");
        row(
            "all read", [](C c) { return endingOf(e::markAllAlertsRead(c, u"w1"_s)); }, "POST",
            "/workspaces/w1/alerts/read-all", "", "");
        row(
            "delete alert", [](C c) { return endingOf(e::deleteAlert(c, u"w1"_s, u"a1"_s)); }, "DELETE",
            "/workspaces/w1/alerts/a1", "", "");
        row(
            "test alert",
            [](C c) {
                return endingOf(e::sendTestAlert(c, u"w1"_s, {{u"app"_s, u"P"}}));
            },
            "POST", "/workspaces/w1/alerts/test", R"({"app":"P"})", data(alertJSON));
        row(
            "change workspace",
            [](C c) {
                return endingOf(e::changeWorkspace(c, u"w1"_s, {{u"responseTimeoutMinutes"_s, 15}}));
            },
            "PATCH", "/workspaces/w1", R"({"responseTimeoutMinutes":15})", data(workspaceJSON));
        row(
            "create workspace", [](C c) { return endingOf(e::createWorkspace(c, u"N"_s)); }, "POST", "/workspaces",
            R"({"name":"N"})", data(R"({"workspace":)" + workspaceJSON + R"(,"members":[]})"));
        row(
            "leave", [](C c) { return endingOf(e::leaveWorkspace(c, u"w1"_s)); }, "POST", "/workspaces/w1/leave", "",
            "");
        row(
            "invite", [](C c) { return endingOf(e::inviteMember(c, u"w1"_s, u"e@x"_s, WorkspaceRole::viewer)); },
            "POST", "/workspaces/w1/members", R"({"email":"e@x","role":"viewer"})", data(memberJSON));
        row(
            "resend", [](C c) { return endingOf(e::resendInvitation(c, u"w1"_s, u"m1"_s)); }, "POST",
            "/workspaces/w1/members/m1/resend", "", data(memberJSON));
        row(
            "role", [](C c) { return endingOf(e::changeMemberRole(c, u"w1"_s, u"m1"_s, WorkspaceRole::admin)); },
            "PATCH", "/workspaces/w1/members/m1", R"({"role":"admin"})", data(memberJSON));
        row(
            "remove member", [](C c) { return endingOf(e::removeMember(c, u"w1"_s, u"m1"_s)); }, "DELETE",
            "/workspaces/w1/members/m1", "", "");
        row(
            "create topic", [](C c) { return endingOf(e::createTopic(c, u"w1"_s, u"N"_s)); }, "POST",
            "/workspaces/w1/topics", R"({"name":"N"})", data(topicJSON));
        row(
            "change topic",
            [](C c) {
                return endingOf(e::changeTopic(c, u"w1"_s, u"t1"_s, {{u"muted"_s, true}}));
            },
            "PATCH", "/workspaces/w1/topics/t1", R"({"muted":true})", data(topicJSON));
        row(
            "delete topic", [](C c) { return endingOf(e::deleteTopic(c, u"w1"_s, u"t1"_s)); }, "DELETE",
            "/workspaces/w1/topics/t1", "", "");
        row(
            "invitations", [](C c) { return endingOf(e::listInvitations(c)); }, "GET", "/invites", "", data("[]"));
        row(
            "accept", [](C c) { return endingOf(e::acceptInvitation(c, u"tok"_s)); }, "POST", "/invites/tok/accept", "",
            data(workspaceJSON));
        row(
            "decline", [](C c) { return endingOf(e::declineInvitation(c, u"tok"_s)); }, "POST", "/invites/tok/reject",
            "", "");
        row(
            "register", [](C c) { return endingOf(e::registerDevice(c, u"Desk"_s, u"1.0"_s)); }, "POST", "/devices",
            R"({"name":"Desk","platform":"macos","version":"1.0"})", data(deviceJSON));
        row(
            "heartbeat", [](C c) { return endingOf(e::sendHeartbeat(c, u"d1"_s, u"1.0"_s)); }, "POST",
            "/devices/d1/heartbeat", R"({"version":"1.0"})", data(deviceJSON));
        row(
            "unregister", [](C c) { return endingOf(e::unregisterDevice(c, u"d1"_s)); }, "DELETE", "/devices/d1", "",
            "");
        row(
            "delete account", [](C c) { return endingOf(e::deleteAccount(c)); }, "DELETE", "/auth/account", "", "");
    }

    void asksTheService()
    {
        QFETCH(Operation, operation);
        QFETCH(QByteArray, method);
        QFETCH(QByteArray, path);
        QFETCH(QByteArray, body);
        QFETCH(QByteArray, answer);

        m_transport->planNext(ScriptedAnswer::raw(200, answer));
        QCOMPARE(operation(m_client), QString());
        const HTTPRequest request = m_transport->lastRequest(method, "/api" + path);
        QCOMPARE(request.body, body.isEmpty() ? std::optional<QByteArray>() : std::optional(body));
        QCOMPARE(headerOf(request, "Authorization"),
                 path == "/auth/native/token" ? QByteArray() : QByteArray("Bearer t0k"));

        // Success with nothing in it is enough only where nothing is read.
        m_transport->planNext(ScriptedAnswer::raw(200, {}));
        QCOMPARE(operation(m_client), answer.isEmpty() ? Ending() : u"bad_response"_s);
        m_transport->planNext(ScriptedAnswer::failure(409, "taken"));
        QCOMPARE(operation(m_client), u"taken"_s);
        QCOMPARE(m_transport->requests().size(), 3);
    }

    void encodesIdentifiers_data()
    {
        QTest::addColumn<QString>("identifier");
        QTest::addColumn<QByteArray>("expected");
        QTest::newRow("pchar") << u"aZ09-._~!$&'()*+,;=:@"_s << "aZ09-._~!$&'()*+,;=:@"_ba;
        QTest::newRow("delimiters") << u"/?#"_s << "%2F%3F%23"_ba;
        QTest::newRow("percent") << u"%"_s << "%25"_ba;
        QTest::newRow("encoded slash") << u"%2F"_s << "%252F"_ba;
        QTest::newRow("encoded letter") << u"%41"_s << "%2541"_ba;
        QTest::newRow("others") << u"[]\\^`{|}\"<> "_s << "%5B%5D%5C%5E%60%7B%7C%7D%22%3C%3E%20"_ba;
        QTest::newRow("unicode") << u"\u00e9\U0001F600"_s << "%C3%A9%F0%9F%98%80"_ba;
        QTest::newRow("control") << u"a\r\nb"_s << "a%0D%0Ab"_ba;
        QTest::newRow("dot") << u"."_s << "."_ba;
        QTest::newRow("dots") << u".."_s << ".."_ba;
        QTest::newRow("empty") << u""_s << ""_ba;
    }

    void encodesIdentifiers()
    {
        QFETCH(QString, identifier);
        QFETCH(QByteArray, expected);
        m_transport->planNext(ScriptedAnswer::raw(204, {}));
        QCOMPARE(endingOf(endpoints::deleteAlert(m_client, identifier, identifier)), Ending());
        QCOMPARE(m_transport->requests().constFirst().url.toEncoded(),
                 "https://h.test/api/workspaces/" + expected + "/alerts/" + expected);
    }

    void skipsKnownDashboard()
    {
        const QByteArray body = R"({"data":)" + dashboardJSON + '}';
        m_transport->always("GET", "/api/dashboard", ScriptedAnswer::raw(200, body));
        const auto first = settle(endpoints::fetchDashboard(m_client, {}));
        QVERIFY(first.value && first.value->dashboard);
        const auto second = settle(endpoints::fetchDashboard(m_client, first.value->body));
        QVERIFY(second.value && !second.value->dashboard);
        QCOMPARE(second.value->body, body);
        const auto other = settle(endpoints::fetchDashboard(m_client, body + ' '));
        QVERIFY(other.value && other.value->dashboard);

        m_transport->planNext(ScriptedAnswer::raw(503, body));
        QCOMPARE(settle(endpoints::fetchDashboard(m_client, body)).error->status(), 503);
    }

    void handsOnTheMessage()
    {
        m_transport->planNext(ScriptedAnswer::message("Sent.", memberJSON));
        const auto invited = settle(endpoints::inviteMember(m_client, u"w"_s, u"e"_s, WorkspaceRole::member));
        QCOMPARE(invited.value->message, u"Sent."_s);
        QCOMPARE(invited.value->record.role, WorkspaceRole::admin);
        m_transport->planNext(ScriptedAnswer::message("Gone."));
        QCOMPARE(settle(endpoints::deleteAccount(m_client)).value, std::optional<QString>(u"Gone."_s));
    }

private:
    std::shared_ptr<ScriptedTransport> m_transport;
    APIClientPtr m_client;
};

QTEST_GUILESS_MAIN(TestEndpoints)
#include "test_endpoints.moc"
