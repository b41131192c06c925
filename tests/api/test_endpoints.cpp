#include "api/endpoints.h"
#include "support/scripted_transport.h"
#include "support/settled.h"

#include <QTest>

#include <functional>

using namespace pingwell;
using namespace Qt::StringLiterals;

namespace {

/// The keys every kind of record needs.
const QByteArray record = R"("id":"x","workspaceId":"w1","name":"N","title":"T","at":1,"email":"e@x.test",)"
                          R"("kind":"team","role":"admin","status":"active","platform":"web")";
const QByteArray dashboard = R"("workspaces":[],"members":[],"topics":[],"alerts":[])";
/// What every operation finds its record in.
const QByteArray anything = R"({"user":{},"message":"Sent.","data":{)" + dashboard + ',' + record + "}}";

/// How an operation ended, whatever it returns: empty when it did well, else the error's code.
using Ending = QString;
using Operation = std::function<Ending(const APIClientPtr &)>;

template<typename Value>
Ending endingOf(QCoro::Task<Value> task)
{
    const auto settled = settle(std::move(task));
    if (settled.value())
        return {};
    return settled.error() ? settled.error()->code().value_or(u"no code"_s) : u"no ending"_s;
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

    /// Each form of a request once; which requests there are is checked where the program makes them.
    void asksTheService()
    {
        using C = APIClientPtr;
        using namespace endpoints;
        const std::tuple<const char *, QByteArray, QByteArray, Operation> rows[] = {
            {"GET", "/dashboard", "", [](const C &c) { return endingOf(fetchDashboard(c, {})); }},
            {"POST", "/workspaces/w/leave", "", [](const C &c) { return endingOf(leaveWorkspace(c, u"w"_s)); }},
            {"POST", "/auth/native/token", R"({"code":"c","code_verifier":"v"})",
             [](const C &c) { return endingOf(exchangeCode(c, u"c"_s, u"v"_s)); }},
            {"POST", "/devices/d1/heartbeat", R"({"version":"1.0"})",
             [](const C &c) { return endingOf(sendHeartbeat(c, u"d1"_s, u"1.0"_s)); }}};
        for (const auto &[method, path, body, operation] : rows) {
            m_transport->planNext(ScriptedAnswer::raw(200, anything));
            QCOMPARE(operation(m_client), Ending());
            const HTTPRequest request = m_transport->lastRequest(method, "/api" + path);
            QCOMPARE(request.body, body.isEmpty() ? std::optional<QByteArray>() : std::optional(body));
            QList<std::pair<QByteArray, QByteArray>> headers{{"Accept", "application/json"}};
            if (path != "/auth/native/token")
                headers.emplaceBack("Authorization", "Bearer t0k");
            if (!body.isEmpty())
                headers.emplaceBack("Content-Type", "application/json");
            QCOMPARE(request.headers, headers);
            QCOMPARE(request.timeout, std::chrono::seconds(20));

            m_transport->planNext(ScriptedAnswer::failure(409, "taken"));
            QCOMPARE(operation(m_client), u"taken"_s);
            QCOMPARE(m_transport->count(method, "/api" + path), 2);
        }
    }

    void encodesIdentifiers()
    {
        const QList<std::pair<QString, QByteArray>> pairs{{u"aZ09-._~!$&'()*+,;=:@"_s, "aZ09-._~!$&'()*+,;=:@"},
                                                          {u"/?#%"_s, "%2F%3F%23%25"},
                                                          {u"%2F%41"_s, "%252F%2541"},
                                                          {u"[]\\^`{|}\"<> "_s, "%5B%5D%5C%5E%60%7B%7C%7D%22%3C%3E%20"},
                                                          {u"\u00e9\U0001F600\r\n"_s, "%C3%A9%F0%9F%98%80%0D%0A"},
                                                          {u"..."_s, "..."}};
        for (const auto &[identifier, expected] : pairs) {
            m_transport->planNext(ScriptedAnswer::raw(204, {}));
            QCOMPARE(endingOf(endpoints::deleteAlert(m_client, identifier, identifier)), Ending());
            QCOMPARE(m_transport->requests().constLast().url.toEncoded(),
                     "https://h.test/api/workspaces/" + expected + "/alerts/" + expected);
        }
    }

    void sendsNothingToAnotherAddress()
    {
        for (const QString &identifier : {u""_s, u"."_s, u".."_s}) {
            QCOMPARE(endingOf(endpoints::deleteAlert(m_client, u"w"_s, identifier)), u"bad_response"_s);
            QCOMPARE(endingOf(endpoints::leaveWorkspace(m_client, identifier)), u"bad_response"_s);
            QCOMPARE(endingOf(endpoints::changeTopic(m_client, u"w"_s, identifier, {})), u"bad_response"_s);
        }
        QVERIFY(m_transport->requests().isEmpty());
    }

    void skipsKnownDashboard()
    {
        const QByteArray body = R"({"data":{)" + dashboard + "}}";
        m_transport->always("GET", "/api/dashboard", ScriptedAnswer::raw(200, body));
        const auto first = settle(endpoints::fetchDashboard(m_client, body + ' '));
        QVERIFY(first.value() && first.value()->dashboard);
        const auto second = settle(endpoints::fetchDashboard(m_client, first.value()->body));
        QVERIFY(second.value() && !second.value()->dashboard);
        QCOMPARE(second.value()->body, body);
        m_transport->plan("GET", "/api/dashboard", ScriptedAnswer::raw(503, body));
        QCOMPARE(settle(endpoints::fetchDashboard(m_client, body)).error()->status(), 503);
    }

    void needsTheRecordOfAChange()
    {
        for (const char *body : {"", R"({"message":"Sent."})", R"({"data":"no record"})"}) {
            m_transport->planNext(ScriptedAnswer::raw(200, body));
            QCOMPARE(endingOf(endpoints::resendInvitation(m_client, u"w"_s, u"m"_s)), u"bad_response"_s);
        }
    }

private:
    std::shared_ptr<ScriptedTransport> m_transport;
    APIClientPtr m_client;
};

QTEST_GUILESS_MAIN(TestEndpoints)
#include "test_endpoints.moc"
