#include "store/preference_keys.h"
#include "store_fixture.h"

#include <QJsonDocument>
#include <QTest>

using namespace pingwell;
using namespace std::chrono_literals;

namespace {

const QByteArray answerPath = "/workspaces/w1/alerts/a1/answer";
const QByteArray readPath = "/workspaces/w1/alerts/a1/read";
const QByteArray readAllPath = "/workspaces/w1/alerts/read-all";
const QByteArray deletePath = "/workspaces/w1/alerts/a1";
const QString a1 = QStringLiteral("a1");

QByteArray answeredAlert()
{
    const QJsonObject alert = askJSON(a1, 60, {{QStringLiteral("answer"), QStringLiteral("Approve")}});
    return QJsonDocument(alert).toJson();
}

DashboardJSON oneAsk(const QJsonObject &more = {})
{
    DashboardJSON dashboard;
    dashboard.alerts = {askJSON(a1, 60, more)};
    return dashboard;
}

QJsonObject takesText()
{
    return {{QStringLiteral("answerType"), QStringLiteral("text")}};
}

} // namespace

class AlertActionsTest : public QObject
{
    Q_OBJECT

    std::unique_ptr<StoreFixture> m;

    AppStore &store() { return *m->store; }

private slots:
    void init() { m = std::make_unique<StoreFixture>(); }
    void cleanup() { m.reset(); }

    void anAnswerShowsAtOnceAndIsSent()
    {
        m->startWith(oneAsk());
        m->transport->plan("POST", answerPath, ScriptedAnswer::data(answeredAlert()).heldBack());
        store().answer(a1, QStringLiteral("Approve"));
        QCOMPARE(m->alert(a1).answer, std::optional(QStringLiteral("Approve")));
        QVERIFY(m->alert(a1).read);
        QCOMPARE(store().needsReplyCount(), 0);
        QCOMPARE(m->notifier->removed, QStringList{a1});
        m->settle();
        QCOMPARE(m->transport->lastRequest("POST", answerPath).body, QByteArray("{\"answer\":\"Approve\"}"));
        store().answer(a1, QStringLiteral("Deny"));
        m->transport->release();
        m->settle();
        QCOMPARE(m->transport->count("POST", answerPath), 1);
        QVERIFY(!store().toast());
    }

    void whoeverMayNotAnswerDoesNot_data()
    {
        QTest::addColumn<QString>("role");
        QTest::addColumn<QJsonObject>("more");
        QTest::addColumn<QString>("text");
        QTest::newRow("a viewer") << "viewer" << QJsonObject() << "Approve";
        QTest::newRow("a choice not offered") << "owner" << QJsonObject() << "approve";
        QTest::newRow("blank text") << "owner" << takesText() << "  \n";
        QTest::newRow("a notice") << "owner" << QJsonObject{{QStringLiteral("kind"), QStringLiteral("notify")}}
                                  << "Approve";
        QTest::newRow("of a workspace unknown here")
            << "owner" << QJsonObject{{QStringLiteral("workspaceId"), QStringLiteral("w9")}} << "Approve";
    }

    void whoeverMayNotAnswerDoesNot()
    {
        QFETCH(QString, role);
        QFETCH(QJsonObject, more);
        QFETCH(QString, text);
        DashboardJSON dashboard = oneAsk(more);
        dashboard.workspaces = {workspaceJSON(QStringLiteral("w1"), role)};
        m->startWith(dashboard);
        store().answer(a1, text);
        m->settle();
        QVERIFY(!m->alert(a1).answer);
        QVERIFY(!store().toast());
    }

    void aRefusedAnswerIsTakenBack()
    {
        m->startWith(oneAsk(takesText()));
        m->transport->plan("POST", answerPath, ScriptedAnswer::failure(409, "closed", "Somebody was faster."));
        m->transport->plan("GET", "/dashboard", ScriptedAnswer::data(oneAsk(takesText()).body()));
        store().setReplyDraft(QStringLiteral("  yes "), a1);
        store().answer(a1, store().replyDraft(a1));
        QCOMPARE(store().replyDraft(a1), QString());
        m->settle();
        QVERIFY(!m->alert(a1).answer);
        QVERIFY(!m->alert(a1).read);
        QCOMPARE(store().replyDraft(a1), QStringLiteral("yes"));
        QCOMPARE(store().toast()->message, QStringLiteral("Somebody was faster."));
        QVERIFY(store().toast()->isError);
        // The refresh that follows isn't thrown away by the mutation it follows.
        QCOMPARE(m->transport->plannedCount(), 0);
        QCOMPARE(store().lastSyncedAt(), std::optional(testStart));
    }

    void aRefusalOfABannersAnswerIsToldInABanner()
    {
        m->startWith(oneAsk());
        m->transport->plan("POST", answerPath, ScriptedAnswer::failure(409, "closed", "Somebody was faster."));
        m->transport->plan("GET", "/dashboard", ScriptedAnswer::noAnswer());
        store().answerFromNotification(a1, QStringLiteral("Approve"));
        m->settle();
        QCOMPARE(m->notifier->refused, QStringList{QStringLiteral("a1 in Workspace w1: Somebody was faster.")});
        QVERIFY(!m->alert(a1).answer);
    }

    void aBannersAnswerThatMayNotBeGivenIsToldToo()
    {
        m->startWith(oneAsk(takesText()));
        store().answerFromNotification(a1, QString(1001, u'x'));
        QCOMPARE(m->notifier->refused.size(), 1);
        QCOMPARE(store().replyDraft(a1).size(), 1000);
        store().answerFromNotification(QStringLiteral("unknown"), QStringLiteral("x"));
        QCOMPARE(m->notifier->refused.size(), 1);
    }

    void failures_data()
    {
        QTest::addColumn<ScriptedAnswer>("answer");
        QTest::addColumn<QString>("toast");
        QTest::newRow("no connection") << ScriptedAnswer::noAnswer()
                                       << "Can't reach the Pingwell server. Check your connection.";
        QTest::newRow("not understood")
            << ScriptedAnswer::raw(200, "{}")
            << "The server sent something this app doesn't understand. Update the app and try again.";
        QTest::newRow("no words") << ScriptedAnswer::raw(503, "") << "Something went wrong (HTTP 503). Try again.";
    }

    void failures()
    {
        QFETCH(ScriptedAnswer, answer);
        m->startWith(oneAsk());
        m->transport->plan("POST", answerPath, answer);
        m->transport->plan("GET", "/dashboard", ScriptedAnswer::noAnswer());
        store().answer(a1, QStringLiteral("Deny"));
        m->settle();
        QVERIFY(!m->alert(a1).answer);
        QTEST(store().toast()->message, "toast");
        QVERIFY(store().connectionProblem());
    }

    void unauthorizedEndsTheSession()
    {
        m->startWith(oneAsk());
        m->transport->plan("POST", answerPath, ScriptedAnswer::raw(401, "gone"));
        store().answer(a1, QStringLiteral("Deny"));
        m->settle();
        QVERIFY(!store().isSignedIn());
        QCOMPARE(store().signInError(), std::optional(QStringLiteral("Your session has ended. Sign in again.")));
        QVERIFY(!store().toast());
        QCOMPARE(m->transport->count("GET", "/dashboard"), 1);
    }

    void aRefusedSessionEndsAmongOtherChanges()
    {
        DashboardJSON dashboard = oneAsk();
        dashboard.alerts << alertJSON(QStringLiteral("b"), 60) << alertJSON(QStringLiteral("c"), 60);
        m->startWith(dashboard);
        m->transport->plan("POST", answerPath, ScriptedAnswer::failure(409, "no", "No.").heldBack());
        m->transport->plan("DELETE", "/workspaces/w1/alerts/c", ScriptedAnswer::noAnswer().heldBack());
        m->transport->plan("POST", "/workspaces/w1/alerts/b/read", ScriptedAnswer::raw(401, ""));
        store().answer(a1, QStringLiteral("Deny"));
        store().deleteAlert(QStringLiteral("c"));
        store().setRead(QStringLiteral("b"), true);
        m->settle();
        QVERIFY(!store().isSignedIn() && store().hasMutationsInFlight());
        m->transport->release();
        m->transport->release();
        m->settle();
        // What the others come back with is nothing to the next person at this screen.
        QVERIFY(store().alerts().isEmpty() && !store().toast() && !store().hasMutationsInFlight());
        QCOMPARE(store().signInError(), std::optional(QStringLiteral("Your session has ended. Sign in again.")));
    }

    void anAnswerOfAnEarlierSessionTouchesNothing()
    {
        m->startWith(oneAsk());
        m->transport->plan("POST", answerPath, ScriptedAnswer::failure(500).heldBack());
        store().answer(a1, QStringLiteral("Deny"));
        m->settle();
        store().signOut();
        store().persistSession(QStringLiteral("token-2"), QUrl(QStringLiteral("https://pingwell.test")), Account());
        m->transport->always("GET", "/dashboard", ScriptedAnswer::data(oneAsk().body()));
        store().refresh();
        m->settle();
        QVERIFY2(!store().hasLoaded(), "a dashboard fetched across a mutation is not merged");
        m->transport->release();
        m->settle();
        QVERIFY2(store().hasLoaded(), "the new session must not wait for the next poll");
        QVERIFY(!store().toast());
        QVERIFY(!m->alert(a1).answer);
    }

    void draftsAreCutByCharacter_data()
    {
        QTest::addColumn<QString>("text");
        QTest::addColumn<int>("length");
        QTest::newRow("at the limit") << QString(1000, u'x') << 1000;
        QTest::newRow("one over") << QString(1001, u'x') << 1000;
        QTest::newRow("an emoji across the limit") << QString(QString(999, u'x') + QStringLiteral("😀")) << 999;
        QTest::newRow("a family across the limit")
            << QString(QString(997, u'x') + QStringLiteral("👩‍👩‍👧")) << 997;
        QTest::newRow("one endless character") << QString(QStringLiteral("e") + QString(2000, QChar(0x0301))) << 0;
    }

    void draftsAreCutByCharacter()
    {
        QFETCH(QString, text);
        QFETCH(int, length);
        m->start();
        store().setReplyDraft(text, a1);
        QCOMPARE(store().replyDraft(a1).size(), length);
    }

    void unreadStaysOnThisMachine()
    {
        DashboardJSON dashboard;
        dashboard.alerts = {alertJSON(a1, 60, {{QStringLiteral("read"), true}})};
        m->startWith(dashboard);
        store().toggleRead(a1);
        m->refreshWith(dashboard);
        QVERIFY(!m->alert(a1).read);
        // A restart: another store on the same preferences.
        m->startWith(dashboard);
        QVERIFY(!m->alert(a1).read);
        m->transport->plan("POST", readPath, ScriptedAnswer::raw(204, "").heldBack());
        store().setRead(a1, true);
        QCOMPARE(m->preferences->strings(preference_keys::unreadAlerts), std::optional(QStringList()));
        m->transport->plan("GET", "/dashboard", ScriptedAnswer::noAnswer());
        m->settle();
        m->transport->release();
        m->settle();
        QVERIFY(m->alert(a1).read);
        QCOMPARE(m->transport->count("POST", readPath), 1);
    }

    void unreadMarksOfVanishedAlertsAreDropped()
    {
        DashboardJSON dashboard;
        dashboard.alerts = {alertJSON(a1, 60, {{QStringLiteral("read"), true}})};
        m->preferences->setStrings(preference_keys::unreadAlerts, {a1, QStringLiteral("gone")});
        m->startWith(dashboard);
        QVERIFY2(store().unreadOverrides().contains(QStringLiteral("gone")), "the first merge of a run keeps them all");
        dashboard.alerts << alertJSON(QStringLiteral("a2"), 30);
        m->refreshWith(dashboard);
        QCOMPARE(m->preferences->strings(preference_keys::unreadAlerts), std::optional(QStringList{a1}));
    }

    void readingAllIsUndoneWhenRefused()
    {
        DashboardJSON dashboard;
        dashboard.alerts = {alertJSON(a1, 60), alertJSON(QStringLiteral("a2"), 50, {{QStringLiteral("read"), true}})};
        m->startWith(dashboard);
        m->transport->plan("POST", readAllPath, ScriptedAnswer::failure(500, "x", "Not now."));
        m->transport->plan("GET", "/dashboard", ScriptedAnswer::noAnswer());
        store().markAllRead();
        QCOMPARE(store().unreadCount(), 0);
        m->settle();
        QCOMPARE(store().unreadCount(), 1);
        QVERIFY(store().unreadOverrides().isEmpty());
        m->transport->plan("POST", readAllPath, ScriptedAnswer::raw(204, ""));
        store().markAllRead();
        m->settle();
        store().markAllRead();
        m->settle();
        QCOMPARE(m->transport->count("POST", readAllPath), 2);
    }

    void deletingIsUndoneWhenRefused()
    {
        m->startWith(oneAsk());
        store().selectAlert(a1);
        m->transport->plan("DELETE", deletePath, ScriptedAnswer::failure(403).heldBack());
        m->transport->plan("GET", "/dashboard", ScriptedAnswer::data(oneAsk().body()));
        store().deleteAlert(a1);
        QVERIFY(store().alerts().isEmpty());
        QVERIFY(!store().selectedAlertID());
        QCOMPARE(m->notifier->removed, QStringList{a1});
        m->settle();
        m->transport->release();
        m->settle();
        QCOMPARE(store().alerts().size(), 1);
        DashboardJSON asViewer = oneAsk();
        asViewer.workspaces = {workspaceJSON(QStringLiteral("w1"), QStringLiteral("viewer"))};
        m->refreshWith(asViewer);
        store().deleteAlert(a1);
        QCOMPARE(store().alerts().size(), 1);
    }

    void aTestAlertIsAnnouncedOnce()
    {
        m->startWith({});
        const QJsonObject created = alertJSON(QStringLiteral("t1"), -5);
        m->transport->plan("POST", "/workspaces/w1/alerts/test", ScriptedAnswer::data(QJsonDocument(created).toJson()));
        store().sendTestAlert();
        m->settle();
        QCOMPARE(m->transport->lastRequest("POST", "/workspaces/w1/alerts/test").body,
                 QByteArray("{\"app\":\"Pingwell\",\"body\":\"If you can see this, Pingwell is wired up.\","
                            "\"priority\":\"normal\",\"title\":\"Test alert from your Mac\",\"topic\":\"test\"}"));
        QCOMPARE(store().toast()->message, QStringLiteral("Test alert sent."));
        QCOMPARE(m->notifier->delivered, QStringList{QStringLiteral("t1 in Workspace w1, sounds")});
        DashboardJSON dashboard;
        dashboard.alerts = {created};
        store().signOut();
        store().persistSession(QStringLiteral("token-2"), QUrl(QStringLiteral("https://pingwell.test")), Account());
        m->refreshWith(dashboard);
        QCOMPARE(m->notifier->delivered.size(), 1);
    }

    void manyMutationsFinishInAnyOrder()
    {
        m->startWith(oneAsk());
        m->transport->plan("POST", readPath, ScriptedAnswer::raw(204, "").heldBack());
        store().setRead(a1, true);
        m->transport->plan("POST", answerPath, ScriptedAnswer::data(answeredAlert()).heldBack());
        store().answer(a1, QStringLiteral("Approve"));
        m->settle();
        m->refreshWith(oneAsk());
        QCOMPARE(m->alert(a1).answer, std::optional(QStringLiteral("Approve")));
        m->transport->release("POST", answerPath);
        m->settle();
        m->refreshWith(oneAsk());
        QVERIFY2(m->alert(a1).answer, "one mutation is still in flight");
        m->transport->release("POST", readPath);
        m->settle();
        m->refreshWith(oneAsk());
        QVERIFY(!m->alert(a1).answer);
    }
};

QTEST_GUILESS_MAIN(AlertActionsTest)
#include "alert_actions_test.moc"
