#include "service_process.h"

#include <QCryptographicHash>
#include <QTest>

using namespace pingwell;
using namespace Qt::StringLiterals;

/// The stand-in service is what the other tests trust; here it is asked what they rely on.
class DevserverTest : public QObject
{
    Q_OBJECT

private slots:
    void init() { QVERIFY(m_service.start()); }
    void cleanup() { m_service.kill(); }

    void onlyAGoodTokenOpensTheDashboard()
    {
        QCOMPARE(m_service.request("GET", u"/dashboard"_s, {}, {}).status, 401);
        QCOMPARE(m_service.request("GET", u"/dashboard"_s, {}, u"someone-else"_s).status, 401);
        QCOMPARE(m_service.request("GET", u"/dashboard"_s).status, 200);
    }

    void refusesAndLeavesAllAsItWas()
    {
        const QByteArray before = m_service.request("GET", u"/dashboard"_s).body;
        const auto check = [&](int status, const char *method, const char *path, const char *body = "") {
            const ServiceAnswer answer = m_service.request(method, QString::fromLatin1(path), body);
            const bool isWorded = answer.json().value(u"success"_s) == false && !answer.message().isEmpty();
            QVERIFY2(answer.status == status && isWorded, path);
        };
        check(404, "GET", "/nothing");
        check(405, "PUT", "/dashboard");
        check(400, "POST", "/agent/alerts", R"({"title":)");
        check(400, "POST", "/agent/alerts", "[]");
        check(400, "POST", "/agent/alerts", R"({"body":"no title"})");
        check(400, "POST", "/agent/alerts", R"({"title":"no choices","kind":"ask","answerType":"choice"})");
        check(400, "GET", "/agent/alerts/a1?wait=nan");
        check(403, "POST", "/workspaces/w3/alerts/a3/answer", R"({"answer":"Wait"})"); // as a viewer
        check(400, "POST", "/workspaces/w1/alerts/a6/answer", R"({"answer":"ok"})");   // to a notice
        check(400, "POST", "/workspaces/w1/alerts/a1/answer", R"({"answer":"not offered"})");
        check(400, "POST", "/workspaces/w1/alerts/a2/answer", R"({"answer":"  "})");
        check(409, "POST", "/workspaces/w1/alerts/a4/answer", R"({"answer":"Merge"})"); // a second time
        check(409, "POST", "/workspaces/w2/alerts/a5/answer", R"({"answer":"Keep"})");  // too late
        check(404, "DELETE", "/workspaces/w2/alerts/a1");                               // of another workspace
        check(403, "PATCH", "/workspaces/w3", R"({"responseTimeoutMinutes":5})");
        check(400, "PATCH", "/workspaces/w1", R"({"timeoutAction":"escalate"})"); // with nobody there
        check(409, "POST", "/workspaces/w2/members", R"({"email":"LENA@example.com","role":"viewer"})");
        check(404, "POST", "/devices/none/heartbeat", R"({"version":"1"})");
        check(400, "PUT", "/auth/settings", R"({"quietFrom":"25:00"})");
        QCOMPARE(m_service.request("GET", u"/dashboard"_s).body, before);
    }

    void keepsChanges()
    {
        const auto check = [&](const QString &path, const QByteArray &body, const QByteArray &trace) {
            QVERIFY2(!m_service.request("GET", u"/dashboard"_s).body.contains(trace), trace);
            QCOMPARE(m_service.request("POST", path, body).status, 200);
            QVERIFY2(m_service.request("GET", u"/dashboard"_s).body.contains(trace), trace);
        };
        check(u"/workspaces"_s, R"({"name":"Quay"})", R"("kind":"team","name":"Quay")");
        check(u"/invites/invite-observatory/accept"_s, {}, R"("name":"Observatory")");
        check(u"/agent/alerts"_s, R"({"title":"t","topic":"night"})", R"("name":"night")");
        check(u"/devices"_s, R"({"name":"Desk","version":"1.0","platform":"macos"})",
              R"("name":"Desk","platform":"macos")");
    }

    void agentIsToldOfTheTimeOut()
    {
        const auto check = [this](const QByteArray &ask, const QString &outcome) {
            const QString id = post(ask + R"("title":"Quick?","expiresInSeconds":0.2})");
            const QJsonObject told = m_service.request("GET", u"/agent/alerts/%1?wait=8"_s.arg(id)).data();
            QCOMPARE(told.value(u"state"_s), u"timedOut"_s);
            QCOMPARE(told.value(u"outcome"_s), outcome);
            QVERIFY(told.contains(u"timedOutAt"_s));
        };
        check(R"({"workspaceId":"w1","actions":["Wait","Go"],)", u"default"_s);
        check(R"({"workspaceId":"w1","answerType":"text",)", u"expired"_s);
        check(R"({"workspaceId":"w2","actions":["Wait","Go"],)", u"escalated"_s);
        check(R"({"workspaceId":"w3","actions":["Wait","Go"],)", u"expired"_s);
    }

    void signInNeedsTheVerifierOfItsChallenge()
    {
        for (const QString &tried : {verifier(), QString(43, u'a')}) {
            const ServiceAnswer agreed = m_service.request("GET", u"/auth/github/continue?"_s + signInQuery(), {}, {});
            const QString start = u"pingwell://auth/callback?code="_s;
            QVERIFY(QString::fromUtf8(agreed.location).startsWith(start));
            const QString code = QString::fromUtf8(agreed.location).mid(start.size());
            const QByteArray body = u"{\"code\":\"%1\",\"code_verifier\":\"%2\"}"_s.arg(code, tried).toUtf8();
            const ServiceAnswer session = m_service.request("POST", u"/auth/native/token"_s, body, {});
            QCOMPARE(session.status, tried == verifier() ? 200 : 400);
            const QString token = session.json().value(u"token"_s).toString();
            QCOMPARE(m_service.request("GET", u"/auth/user-data"_s, {}, token).status, token.isEmpty() ? 401 : 200);
            QCOMPARE(m_service.request("POST", u"/auth/native/token"_s, body, {}).status, 400);
        }
    }

    void faults()
    {
        const auto check = [this](const QByteArray &fault, int status, bool isCut) {
            const QByteArray right = m_service.request("GET", u"/dashboard"_s).body;
            m_service.request("POST", u"/test/faults"_s, R"({"times":1,"route":"GET /dashboard",)" + fault + '}');
            const ServiceAnswer wrong = m_service.request("GET", u"/dashboard"_s);
            m_service.request("DELETE", u"/test/faults"_s);
            QVERIFY2(wrong.status == status && wrong.body != right, fault);
            // Qt takes what came before a cut for all there is, now and then.
            const bool isPart = !wrong.body.isEmpty() && right.startsWith(wrong.body);
            QCOMPARE(wrong.error == QNetworkReply::RemoteHostClosedError || isPart, isCut);
            QCOMPARE(m_service.request("GET", u"/dashboard"_s).body, right);
        };
        check(R"("mode":"status","status":503)", 503, false);
        check(R"("mode":"malformed")", 200, false);
        check(R"("mode":"empty")", 200, false);
        check(R"("mode":"huge","bytes":3000000)", 200, false);
        check(R"("mode":"truncated")", 200, true);
        check(R"("mode":"stall","seconds":0.1)", 200, true);
        // Many times: a client may ask again by itself when its connection is cut before anything came.
        check(R"("mode":"drop","times":9)", 0, true);
    }

    void comesBackFromAnOutageWithAllItHad()
    {
        const QString id = post(R"({"id":"7-a/b?c","title":"Kept?","actions":["Yes"]})");
        QCOMPARE(id, u"7-a/b?c"_s);
        QVERIFY(post(R"({"id":"7-a/b?c","title":"Again"})").isEmpty());
        m_service.request("POST", u"/test/outage"_s, R"({"seconds":0.2})");
        const auto answerOf = [this] { return m_service.request("GET", u"/test/dashboard"_s); };
        QTRY_VERIFY(answerOf().error != QNetworkReply::NoError);
        QTRY_VERIFY(answerOf().body.contains("7-a/b?c"));
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
