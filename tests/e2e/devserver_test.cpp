#include "service_process.h"

#include <QCryptographicHash>
#include <QJsonArray>
#include <QJsonDocument>
#include <QTest>

#include <algorithm>

using namespace pingwell;
using namespace Qt::StringLiterals;

/// The stand-in service is what the other tests trust; here it is asked what they rely on.
class DevserverTest : public QObject
{
    Q_OBJECT

private slots:
    void init() { QVERIFY(m_service.start()); }
    void cleanup() { m_service.kill(); }

    void onlyAGoodTokenOpensTheDashboard_data()
    {
        QTest::addColumn<QString>("bearer");
        QTest::addColumn<int>("status");
        QTest::newRow("none") << QString() << 401;
        QTest::newRow("wrong") << u"someone-else"_s << 401;
        QTest::newRow("good") << ServiceProcess::token() << 200;
    }
    void onlyAGoodTokenOpensTheDashboard()
    {
        QFETCH(QString, bearer);
        QTEST(m_service.request("GET", u"/dashboard"_s, {}, bearer).status, "status");
    }

    void refusals_data()
    {
        QTest::addColumn<QByteArray>("method");
        QTest::addColumn<QString>("path");
        QTest::addColumn<QByteArray>("body");
        QTest::addColumn<int>("status");
        const auto row = [](const char *name, const char *method, const char16_t *path, const char *body, int status) {
            QTest::newRow(name) << QByteArray(method) << QString::fromUtf16(path) << QByteArray(body) << status;
        };
        row("no such address", "GET", u"/nothing", "", 404);
        row("no such method there", "PUT", u"/dashboard", "", 405);
        row("body cut short", "POST", u"/agent/alerts", R"({"title":)", 400);
        row("body of another kind", "POST", u"/agent/alerts", "[]", 400);
        row("alert without a title", "POST", u"/agent/alerts", R"({"body":"b"})", 400);
        row("choice without choices", "POST", u"/agent/alerts", R"({"title":"t","kind":"ask","answerType":"choice"})",
            400);
        row("unknown priority", "POST", u"/agent/alerts", R"({"title":"t","priority":"urgent"})", 400);
        row("endless wait", "GET", u"/agent/alerts/a1?wait=nan", "", 400);
        row("answer of a viewer", "POST", u"/workspaces/w3/alerts/a3/answer", R"({"answer":"Wait"})", 403);
        row("answer to a notice", "POST", u"/workspaces/w1/alerts/a6/answer", R"({"answer":"ok"})", 400);
        row("answer that wasn't offered", "POST", u"/workspaces/w1/alerts/a1/answer", R"({"answer":"ship"})", 400);
        row("empty text answer", "POST", u"/workspaces/w1/alerts/a2/answer", R"({"answer":"  "})", 400);
        row("second answer", "POST", u"/workspaces/w1/alerts/a4/answer", R"({"answer":"Merge"})", 409);
        row("answer after the deadline", "POST", u"/workspaces/w2/alerts/a5/answer", R"({"answer":"Keep"})", 409);
        row("alert of another workspace", "DELETE", u"/workspaces/w2/alerts/a1", "", 404);
        row("escalating with nobody there", "PATCH", u"/workspaces/w1", R"({"timeoutAction":"escalate"})", 400);
        row("settings of a viewer", "PATCH", u"/workspaces/w3", R"({"responseTimeoutMinutes":5})", 403);
        row("leaving one's own", "POST", u"/workspaces/w1/leave", "", 400);
        row("inviting a member again", "POST", u"/workspaces/w2/members",
            R"({"email":"LENA@example.com","role":"viewer"})", 409);
        row("demoting the owner", "PATCH", u"/workspaces/w2/members/m-iris", R"({"role":"viewer"})", 403);
        row("topic that exists", "POST", u"/workspaces/w1/topics", R"({"name":"builds"})", 409);
        row("heartbeat of a stranger", "POST", u"/devices/none/heartbeat", R"({"version":"1"})", 404);
        row("quiet hours at 25:00", "PUT", u"/auth/settings", R"({"quietFrom":"25:00"})", 400);
    }
    void refusals()
    {
        QFETCH(QByteArray, method);
        QFETCH(QString, path);
        QFETCH(QByteArray, body);
        const QByteArray before = m_service.request("GET", u"/dashboard"_s).body;
        const ServiceAnswer answer = m_service.request(method, path, body);
        QTEST(answer.status, "status");
        QCOMPARE(answer.json().value(u"success"_s), QJsonValue(false));
        QVERIFY(!answer.message().isEmpty());
        QCOMPARE(m_service.request("GET", u"/dashboard"_s).body, before);
    }

    void changesAreKept_data()
    {
        QTest::addColumn<QByteArray>("method");
        QTest::addColumn<QString>("path");
        QTest::addColumn<QByteArray>("body");
        QTest::addColumn<QString>("list");
        QTest::addColumn<QByteArray>("expected");
        const auto row = [](const char *name, const char *method, const char16_t *path, const char *body,
                            const char16_t *list, const char *expected) {
            QTest::newRow(name) << QByteArray(method) << QString::fromUtf16(path) << QByteArray(body)
                                << QString::fromUtf16(list) << QByteArray(expected);
        };
        row("response time", "PATCH", u"/workspaces/w1", R"({"responseTimeoutMinutes":5})", u"workspaces",
            R"({"id":"w1","responseTimeoutMinutes":5})");
        row("created workspace", "POST", u"/workspaces", R"({"name":"Quay"})", u"workspaces",
            R"({"name":"Quay","kind":"team","role":"owner"})");
        row("accepted invitation", "POST", u"/invites/invite-observatory/accept", "", u"workspaces",
            R"({"name":"Observatory","role":"member"})");
        row("invited member", "POST", u"/workspaces/w2/members", R"({"email":" Ada@Example.com ","role":"viewer"})",
            u"members", R"({"email":"ada@example.com","status":"invited","role":"viewer"})");
        row("changed role", "PATCH", u"/workspaces/w2/members/m-lena", R"({"role":"admin"})", u"members",
            R"({"id":"m-lena","role":"admin"})");
        row("muted topic", "PATCH", u"/workspaces/w1/topics/t1", R"({"muted":true})", u"topics",
            R"({"id":"t1","muted":true,"quietHours":true})");
        row("read alert", "POST", u"/workspaces/w1/alerts/a1/read", "", u"alerts", R"({"id":"a1","read":true})");
        row("answered by text", "POST", u"/workspaces/w1/alerts/a2/answer", R"({"answer":" Sheet "})", u"alerts",
            R"({"id":"a2","answer":"Sheet","read":true})");
        row("topic made by an alert", "POST", u"/agent/alerts", R"({"title":"t","topic":"night"})", u"topics",
            R"({"workspaceId":"w1","name":"night"})");
        row("device", "POST", u"/devices", R"({"name":"Desk","version":"1.0","platform":"macos"})", u"devices",
            R"({"name":"Desk","platform":"macos"})");
    }
    void changesAreKept()
    {
        QFETCH(QByteArray, method);
        QFETCH(QString, path);
        QFETCH(QByteArray, body);
        QFETCH(QString, list);
        QFETCH(QByteArray, expected);
        QCOMPARE(m_service.request(method, path, body).status, 200);
        const QJsonArray records = m_service.request("GET", u"/dashboard"_s).data().value(list).toArray();
        const QJsonObject wanted = QJsonDocument::fromJson(expected).object();
        QVERIFY(std::any_of(records.cbegin(), records.cend(), [&](const QJsonValue &record) {
            const QStringList keys = wanted.keys();
            return std::all_of(keys.cbegin(), keys.cend(),
                               [&](const QString &key) { return record[key] == wanted.value(key); });
        }));
    }

    void agentWaitsForTheAnswer()
    {
        const QString id = post(R"({"title":"Deploy?","actions":["Wait","Deploy"]})");
        const auto waiting = m_service.send("GET", u"/agent/alerts/%1?wait=8"_s.arg(id));
        // Answered on the same thread of the service: had it not been held open, it would have come by now.
        QCOMPARE(m_service.request("GET", u"/agent/alerts/%1"_s.arg(id)).data().value(u"state"_s), u"waiting"_s);
        QVERIFY(!waiting->isFinished());

        const QString path = u"/workspaces/w1/alerts/%1/answer"_s.arg(id);
        QCOMPARE(m_service.request("POST", path, R"({"answer":"Deploy"})").status, 200);
        const QJsonObject told = ServiceProcess::finished(waiting.get()).data();
        QCOMPARE(told.value(u"state"_s), u"answered"_s);
        QCOMPARE(told.value(u"answer"_s), u"Deploy"_s);
        QVERIFY(m_service.request("POST", path, R"({"answer":"Wait"})").message().contains(u"“Deploy”"));
    }

    void agentIsToldOfTheTimeOut_data()
    {
        QTest::addColumn<QByteArray>("ask");
        QTest::addColumn<QString>("outcome");
        QTest::newRow("default") << QByteArray(R"({"workspaceId":"w1","actions":["Wait","Go"],)") << u"default"_s;
        QTest::newRow("default, text") << QByteArray(R"({"workspaceId":"w1","answerType":"text",)") << u"expired"_s;
        QTest::newRow("escalate") << QByteArray(R"({"workspaceId":"w2","actions":["Wait","Go"],)") << u"escalated"_s;
        QTest::newRow("expire") << QByteArray(R"({"workspaceId":"w3","actions":["Wait","Go"],)") << u"expired"_s;
    }
    void agentIsToldOfTheTimeOut()
    {
        QFETCH(QByteArray, ask);
        const QString id = post(ask + R"("title":"Quick?","expiresInSeconds":0.2})");
        const QJsonObject told = m_service.request("GET", u"/agent/alerts/%1?wait=8"_s.arg(id)).data();
        QCOMPARE(told.value(u"state"_s), u"timedOut"_s);
        QTEST(told.value(u"outcome"_s).toString(), "outcome");
        QVERIFY(told.contains(u"timedOutAt"_s));
    }

    void signInNeedsTheVerifierOfItsChallenge_data()
    {
        QTest::addColumn<QString>("verifier");
        QTest::addColumn<int>("status");
        QTest::newRow("right") << verifier() << 200;
        QTest::newRow("another") << QString(43, u'a') << 400;
    }
    void signInNeedsTheVerifierOfItsChallenge()
    {
        QFETCH(QString, verifier);
        const ServiceAnswer agreed = m_service.request("GET", u"/auth/github/continue?"_s + signInQuery(), {}, {});
        const QString start = u"pingwell://auth/callback?code="_s;
        QVERIFY(QString::fromUtf8(agreed.location).startsWith(start));
        const QString code = QString::fromUtf8(agreed.location).mid(start.size());
        const QByteArray body = u"{\"code\":\"%1\",\"code_verifier\":\"%2\"}"_s.arg(code, verifier).toUtf8();

        const ServiceAnswer session = m_service.request("POST", u"/auth/native/token"_s, body, {});
        QTEST(session.status, "status");
        if (session.status == 200) {
            const QString token = session.json().value(u"token"_s).toString();
            QCOMPARE(m_service.request("GET", u"/auth/user-data"_s, {}, token).status, 200);
        }
        QCOMPARE(m_service.request("POST", u"/auth/native/token"_s, body, {}).status, 400);
    }

    void signInPageOffersBothWays()
    {
        const QByteArray shown = m_service.request("GET", u"/auth/google?"_s + signInQuery(), {}, {}).body;
        QVERIFY(shown.contains("Continue as Robin Vale"));
        QVERIFY(shown.contains("pingwell://auth/callback?error=access_denied"));
        QCOMPARE(m_service.request("GET", u"/auth/google?redirect_uri=https://example.com"_s, {}, {}).status, 400);
    }

    void faults_data()
    {
        QTest::addColumn<QByteArray>("fault");
        QTest::addColumn<int>("status");
        QTest::addColumn<bool>("cut");
        QTest::newRow("status") << QByteArray(R"("mode":"status","status":503)") << 503 << false;
        QTest::newRow("malformed") << QByteArray(R"("mode":"malformed")") << 200 << false;
        QTest::newRow("empty") << QByteArray(R"("mode":"empty")") << 200 << false;
        QTest::newRow("huge") << QByteArray(R"("mode":"huge","bytes":3000000)") << 200 << false;
        QTest::newRow("truncated") << QByteArray(R"("mode":"truncated")") << 200 << true;
        QTest::newRow("stall") << QByteArray(R"("mode":"stall","seconds":0.1)") << 200 << true;
        // Twice: a client may ask again by itself when its connection is cut before anything came.
        QTest::newRow("drop") << QByteArray(R"("mode":"drop","times":2)") << 0 << true;
    }
    void faults()
    {
        QFETCH(QByteArray, fault);
        QFETCH(bool, cut);
        const QByteArray right = m_service.request("GET", u"/dashboard"_s).body;
        m_service.request("POST", u"/test/faults"_s, R"({"times":1,"route":"GET /dashboard",)" + fault + '}');
        const ServiceAnswer wrong = m_service.request("GET", u"/dashboard"_s);
        QTEST(wrong.status, "status");
        QVERIFY(wrong.body != right);
        QCOMPARE(wrong.error == QNetworkReply::RemoteHostClosedError, cut);
        m_service.request("DELETE", u"/test/faults"_s);
        QCOMPARE(m_service.request("GET", u"/dashboard"_s).body, right);
    }

    void lostAnswersMayStillCount()
    {
        m_service.request("POST", u"/test/faults"_s,
                          R"({"route":"POST /workspaces/*/alerts/*/answer","mode":"status","applied":true})");
        const QString path = u"/workspaces/w1/alerts/a1/answer"_s;
        QCOMPARE(m_service.request("POST", path, R"({"answer":"Ship"})").status, 500);
        m_service.request("DELETE", u"/test/faults"_s);
        QCOMPARE(m_service.request("POST", path, R"({"answer":"Ship"})").status, 409);
    }

private:
    static QString verifier() { return QString(43, u'v'); }
    static QString signInQuery()
    {
        const QByteArray hash = QCryptographicHash::hash(verifier().toUtf8(), QCryptographicHash::Sha256);
        const QByteArray challenge = hash.toBase64(QByteArray::Base64UrlEncoding | QByteArray::OmitTrailingEquals);
        return u"redirect_uri=pingwell%3A%2F%2Fauth%2Fcallback&code_challenge_method=S256&code_challenge="_s +
               QString::fromLatin1(challenge);
    }

    QString post(const QByteArray &alert)
    {
        return m_service.request("POST", u"/agent/alerts"_s, alert).data().value(u"id"_s).toString();
    }

    ServiceProcess m_service;
};

QTEST_GUILESS_MAIN(DevserverTest)
#include "devserver_test.moc"
