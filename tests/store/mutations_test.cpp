#include "desktop/preference_keys.h"
#include "store_fixture.h"

#include <QTest>

using namespace pingwell;
using namespace Qt::StringLiterals;

namespace {

const QString a1 = u"a1"_s;
const QByteArray answerPath = "/workspaces/w1/alerts/a1/answer";
const QByteArray readPath = "/workspaces/w1/alerts/a1/read";
const QByteArray topicPath = "/workspaces/w1/topics/t1";
const QByteArray settingsPath = "/auth/settings";
const ScriptedAnswer refusal = ScriptedAnswer::failure(409, "no", "No.");
const ScriptedAnswer alertAnswer = ScriptedAnswer::data(R"({"id":"a1","workspaceId":"w1","title":"x","at":1})");
const ScriptedAnswer nothing = ScriptedAnswer::raw(204, "");

DashboardJSON oneAsk()
{
    return {.alerts = {askJSON(a1, 60)}};
}

DashboardJSON oneTopic(const QString &priority)
{
    return {
        .topics = {QJsonObject{
            {u"id"_s, u"t1"_s}, {u"workspaceId"_s, u"w1"_s}, {u"name"_s, u"deploys"_s}, {u"minPriority"_s, priority}}}};
}

} // namespace

/// What becomes of changes under way: among each other, beside the dashboards, and at the end of a session.
class MutationsTest : public StoreTest
{
    Q_OBJECT

private slots:
    void noDashboardIsMergedAcrossOne()
    {
        m->startWith(oneAsk());
        // It begins and ends while a dashboard is on its way.
        m->refreshWith(ScriptedAnswer::data(DashboardJSON().body()).heldBack());
        m->transport->plan("POST", readPath, nothing);
        store().setRead(a1, true);
        m->settle();
        m->release();
        QVERIFY(m->alert(a1).read);
        // It ends while a dashboard that was asked for beside it is on its way.
        store().setRead(a1, false);
        m->transport->plan("POST", readPath, nothing.heldBack());
        m->transport->plan("GET", "/dashboard", ScriptedAnswer::data(oneAsk().body()).heldBack());
        store().setRead(a1, true);
        store().refresh();
        m->settle();
        m->release("POST", readPath);
        m->release("GET", "/dashboard");
        QVERIFY(m->alert(a1).read);
        // A dashboard comes and goes while two of them are on their way; they end in any order.
        m->transport->plan("POST", answerPath, alertAnswer.heldBack());
        m->transport->plan("PUT", settingsPath, ScriptedAnswer::data("{}").heldBack());
        store().answer(a1, u"Approve"_s);
        store().updateSettings([](auto &settings) { settings.digest = false; });
        m->settle();
        m->refreshWith(oneAsk());
        m->release("PUT", settingsPath);
        m->refreshWith(oneAsk());
        QCOMPARE(m->alert(a1).answer, std::optional(u"Approve"_s));
        m->release("POST", answerPath);
        m->refreshWith(oneAsk());
        QVERIFY(!m->alert(a1).answer);
    }

    /// While later changes of one thing wait for their turn, dashboards come in beneath them.
    void theMergeWaitsForOneRequest()
    {
        m->startWith(oneTopic(u"normal"_s));
        m->transport->plan("PATCH", topicPath,
                           ScriptedAnswer::data(R"({"id":"t1","workspaceId":"w1","name":"x"})").heldBack());
        m->transport->plan("PATCH", topicPath, refusal.heldBack());
        for (const Priority priority : {Priority::high, Priority::silent, Priority::critical})
            store().setTopicMinPriority(u"t1"_s, priority);
        m->settle();
        m->refreshWith(DashboardJSON());
        QCOMPARE(store().topics().size(), 1);
        m->release();
        QCOMPARE(m->transport->lastRequest("PATCH", topicPath).body, QByteArray(R"({"minPriority":"critical"})"));
        DashboardJSON fresh = oneTopic(u"normal"_s);
        fresh.alerts = {alertJSON(u"new"_s, 1)};
        m->refreshWith(fresh);
        QCOMPARE(m->alert(u"new"_s).id, u"new"_s);
        QVERIFY(store().topics().first().minPriority == Priority::critical);
        // What the service was seen to hold in between is what a refusal leaves; a dashboard fetched across it is not.
        m->transport->plan("GET", "/dashboard", ScriptedAnswer::data(DashboardJSON().body()).heldBack());
        m->refreshWith(ScriptedAnswer::noAnswer());
        m->release("PATCH", topicPath);
        QVERIFY(store().topics().first().minPriority == Priority::normal && store().toast());
        m->release();
        QCOMPARE(store().topics().size(), 1);
    }

    void aRemovalWaitsForTheChangesBeforeIt()
    {
        m->startWith(oneTopic(u"normal"_s));
        m->transport->plan("PATCH", topicPath, refusal.heldBack());
        m->transport->plan("DELETE", topicPath, refusal.heldBack());
        m->transport->plan("GET", "/dashboard", ScriptedAnswer::data(oneTopic(u"normal"_s).body()));
        m->transport->always("GET", "/dashboard", ScriptedAnswer::noAnswer());
        store().setTopicMuted(u"t1"_s, true);
        store().deleteTopic(u"t1"_s);
        m->settle();
        QVERIFY(store().topics().isEmpty() && m->transport->count("DELETE", topicPath) == 0);
        m->release();
        QVERIFY2(store().topics().isEmpty() && m->transport->plannedCount() == 0, "merged beneath the removal");
        m->release();
        QVERIFY(store().topics().size() == 1 && !store().topics().first().muted);
    }

    /// The service took the answer, but nobody heard it say so.
    void aLostWordIsLookedUp()
    {
        m->startWith(oneAsk());
        m->transport->plan("POST", answerPath, ScriptedAnswer::noAnswer());
        const DashboardJSON answered{.alerts = {askJSON(a1, 60, {{u"answer"_s, u"Deny"_s}})}};
        m->transport->plan("GET", "/dashboard", ScriptedAnswer::data(answered.body()));
        store().answer(a1, u"Deny"_s);
        m->settle();
        QCOMPARE(store().toast()->message, u"Can't reach the Pingwell server. Check your connection."_s);
        QCOMPARE(m->alert(a1).answer, std::optional(u"Deny"_s));
        QCOMPARE(m->transport->plannedCount(), 0);
    }

    void onlyWhatWasRefusedIsUndone()
    {
        m->startWith(oneTopic(u"normal"_s));
        m->transport->plan("PATCH", topicPath, refusal.heldBack());
        m->transport->plan("PATCH", topicPath, ScriptedAnswer::noAnswer().heldBack());
        m->transport->always("GET", "/dashboard", ScriptedAnswer::noAnswer());
        store().setTopicMuted(u"t1"_s, true);
        store().setTopicQuietHours(u"t1"_s, true);
        m->settle();
        m->release();
        QVERIFY(!store().topics().first().muted && store().topics().first().quietHours);
        m->transport->plan("PUT", settingsPath, refusal.heldBack());
        store().updateSettings([](auto &settings) { settings.digest = false; });
        // Quiet hours are this machine's own: the service is not told.
        store().updateSettings([](auto &settings) { settings.quietHoursEnabled = true; });
        m->settle();
        m->release("PUT", settingsPath);
        QVERIFY(store().settings().quietHoursEnabled && store().settings().digest);
        QCOMPARE(m->transport->count("PUT", settingsPath), 1);
        QCOMPARE(m->preferences->boolean(preference_keys::quietHoursEnabled), std::optional(true));
    }

    void whatWaitedIsNotSaidForTheNextSession()
    {
        m->startWith({});
        m->transport->plan("PUT", settingsPath, ScriptedAnswer::data("{}").heldBack());
        store().updateSettings([](auto &settings) { settings.digest = false; });
        store().updateSettings([](auto &settings) { settings.sound = false; });
        m->settle();
        m->changeSession();
        m->transport->always("GET", "/dashboard", ScriptedAnswer::noAnswer());
        m->release();
        QCOMPARE(m->transport->count("PUT", settingsPath), 1);
    }

    void aRefusedSessionEndsAmongOtherChanges()
    {
        m->startWith({.alerts = {askJSON(a1, 60), alertJSON(u"b"_s, 60), alertJSON(u"c"_s, 60)}});
        m->transport->plan("POST", answerPath, refusal.heldBack());
        m->transport->plan("DELETE", "/workspaces/w1/alerts/c", ScriptedAnswer::noAnswer().heldBack());
        m->transport->plan("POST", "/workspaces/w1/alerts/b/read", ScriptedAnswer::raw(401, ""));
        store().answer(a1, u"Deny"_s);
        store().deleteAlert(u"c"_s);
        store().setRead(u"b"_s, true);
        m->settle();
        QVERIFY(!store().isSignedIn() && store().hasMutationsInFlight());
        m->release();
        m->release();
        // Of what the others come back with, the answer alone is worth a word.
        QVERIFY(store().alerts().isEmpty() && !store().toast() && !store().hasMutationsInFlight());
        const QString told = u"Your session has ended. Sign in again. Your answer to “Alert a1” wasn't sent."_s;
        QCOMPARE(store().signInError(), std::optional(told));
        QCOMPARE(m->notifier->messages.value(1), u"pingwell.session: You've been signed out | "_s + told);
        QCOMPARE(m->transport->count("GET", "/dashboard"), 1);
    }

    void anAnswerOfAnEarlierSessionTouchesNothing()
    {
        m->startWith(oneAsk());
        m->transport->plan("POST", answerPath, refusal.heldBack());
        store().answer(a1, u"Deny"_s);
        m->settle();
        m->changeSession();
        m->transport->always("GET", "/dashboard", ScriptedAnswer::data(oneAsk().body()));
        store().refresh();
        m->settle();
        QVERIFY2(!store().hasLoaded(), "a dashboard fetched across a mutation is not merged");
        m->release();
        QVERIFY2(store().hasLoaded(), "the new session must not wait for the next poll");
        QVERIFY(!store().toast() && !m->alert(a1).answer);
    }
};

QTEST_GUILESS_MAIN(MutationsTest)
#include "mutations_test.moc"
