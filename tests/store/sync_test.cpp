#include "desktop/preference_keys.h"
#include "store_fixture.h"

#include <QSignalSpy>
#include <QTest>

using namespace pingwell;
using namespace std::chrono_literals;
using namespace Qt::StringLiterals;

namespace {

const QString a1 = u"a1"_s;
const QByteArray user = R"({"user":{"name":"Ada","email":"ada@example.com","provider":"github"}})";
const QByteArray device = R"({"id":"d7","name":"Desk","platform":"macos"})";

} // namespace

class SyncTest : public StoreTest
{
    Q_OBJECT

    void startLoop()
    {
        m->transport->always("GET", "/dashboard", ScriptedAnswer::data(dashboardOf({alertJSON(a1, 60)}).body()));
        m->transport->always("GET", "/auth/user-data", ScriptedAnswer::raw(200, user));
        m->transport->always("POST", "/devices", ScriptedAnswer::data(device));
        m->transport->always("POST", "/devices/d7/heartbeat", ScriptedAnswer::data(device));
        m->transport->always("GET", "/invites", ScriptedAnswer::data(R"([{"token":"i1","workspace":"Acme"}])"));
        m->start();
        store().startSync();
        m->settle();
    }

    void poll(int times)
    {
        for (int tick = 0; tick < times; ++tick) {
            m->clock->advance(15s);
            m->settle();
        }
    }

private slots:
    void theFirstRoundAndTheCadence()
    {
        startLoop();
        QStringList order;
        for (const HTTPRequest &request : m->transport->requests())
            order << request.url.path();
        QCOMPARE(order.join(u' '), u"/dashboard /auth/user-data /devices /invites"_s);
        QCOMPARE(store().account()->name, u"Ada"_s);
        QCOMPARE(store().invitations().first().workspaceName, u"Acme"_s);
        QCOMPARE(store().devices().first().id, u"d7"_s);
        QCOMPARE(m->transport->lastRequest("POST", "/devices").body,
                 QByteArray(R"({"name":"Desk","platform":"macos","version":"1.2"})"));
        poll(20);
        QCOMPARE(m->transport->count("GET", "/dashboard"), 21);
        QCOMPARE(m->transport->count("GET", "/invites"), 6);
        QCOMPARE(m->transport->count("POST", "/devices/d7/heartbeat"), 1);
        QCOMPARE(m->transport->count("POST", "/devices"), 1);
        QCOMPARE(m->transport->count("GET", "/auth/user-data"), 1);
        m->start();
        QVERIFY2(store().account()->name == u"Ada", "kept for the next start");
    }

    void aServiceAwayAtTheStartIsTriedEveryFifteenSeconds()
    {
        for (int time = 0; time < 4; ++time)
            m->transport->plan("GET", "/dashboard", ScriptedAnswer::noAnswer());
        startLoop();
        poll(3);
        QCOMPARE(m->transport->count("GET", "/dashboard"), 4);
        QVERIFY(!store().hasLoaded() && store().connectionProblem());
        poll(1);
        QVERIFY(store().hasLoaded() && !store().connectionProblem());
    }

    /// A device that the service forgot is registered anew.
    void aRefusedHeartbeat()
    {
        const std::tuple<ScriptedAnswer, QString, QString> rows[] = {
            {ScriptedAnswer::failure(404), u"d7"_s, QString()},
            {ScriptedAnswer::failure(503, {}, "Later."), u"d1"_s, u"Later."_s}};
        for (const auto &[answer, identifier, problem] : rows) {
            const InRow row = anew(problem.toUtf8());
            m->preferences->setString(preference_keys::device(*m->backend->baseURLOverride), u"d1"_s);
            m->transport->plan("POST", "/devices/d1/heartbeat", answer);
            startLoop();
            QCOMPARE(store().deviceIdentifier(), identifier);
            QCOMPARE(store().connectionProblem().value_or(QString()), problem);
        }
    }

    void aRefusedSessionEnds()
    {
        for (const QByteArray request :
             {"GET /dashboard", "GET /auth/user-data", "POST /devices", "POST /devices/d7/heartbeat", "GET /invites"}) {
            const InRow row = anew(request);
            if (request.endsWith("heartbeat"))
                m->preferences->setString(preference_keys::device(*m->backend->baseURLOverride), u"d7"_s);
            const QByteArrayList route = request.split(' ');
            m->transport->plan(route.first(), route.last(), ScriptedAnswer::failure(401, {}, "Signed out elsewhere."));
            startLoop();
            QVERIFY(!store().isSignedIn());
            QCOMPARE(store().signInError(), std::optional(u"Signed out elsewhere."_s));
            const auto polls = m->transport->count("GET", "/dashboard");
            poll(4);
            QCOMPARE(m->transport->count("GET", "/dashboard"), polls);
        }
    }

    void aSecondStartReplacesTheLoop()
    {
        startLoop();
        store().startSync();
        m->settle();
        QCOMPARE(m->transport->count("GET", "/dashboard"), 2);
        poll(1);
        QCOMPARE(m->transport->count("GET", "/dashboard"), 3);
        m->transport->plan("DELETE", "/devices/d7", ScriptedAnswer::raw(204, ""));
        m->changeSession();
        poll(2);
        QCOMPARE(m->transport->count("GET", "/dashboard"), 3);
        store().startSync();
        m->settle();
        poll(1);
        QCOMPARE(m->transport->count("GET", "/dashboard"), 5);
    }

    void theSameBytesAgainChangeNothing()
    {
        const DashboardJSON dashboard = dashboardOf({alertJSON(a1, 60)});
        m->startWith(dashboard);
        const QSignalSpy alerts(m->store.get(), &AppStore::alertsChanged);
        const QSignalSpy workspaces(m->store.get(), &AppStore::workspacesChanged);
        m->clock->advance(15s);
        m->refreshWith(dashboard);
        QCOMPARE(store().lastSyncedAt(), std::optional(testStart + Seconds(15)));
        // After a change of the person's the same bytes are news again.
        m->transport->plan("POST", "/workspaces/w1/alerts/a1/read", ScriptedAnswer::raw(204, ""));
        store().setRead(a1, true);
        m->settle();
        QCOMPARE(alerts.size(), 1);
        m->refreshWith(dashboard);
        QVERIFY(!m->alert(a1).read);
        QCOMPARE(workspaces.size(), 0);
    }

    void problemsShowAndClear()
    {
        const QString incomprehensible =
            u"The server sent something this app doesn't understand. Update the app and try again."_s;
        m->startWith(dashboardOf({alertJSON(a1, 60)}));
        for (const auto &[answer, problem] :
             {std::pair(ScriptedAnswer::noAnswer(), u"Can't reach the Pingwell server. Check your connection."_s),
              std::pair(ScriptedAnswer::raw(200, "[]"), incomprehensible),
              std::pair(ScriptedAnswer::raw(200, ""), incomprehensible),
              std::pair(ScriptedAnswer::failure(503, {}, "Back at noon."), u"Back at noon."_s)}) {
            m->refreshWith(answer);
            QCOMPARE(store().connectionProblem(), std::optional(problem));
            QCOMPARE(store().alerts().size(), 1);
            m->refreshWith(dashboardOf({alertJSON(a1, 60)}));
            QVERIFY(!store().connectionProblem());
        }
    }

    void whatIsLeftOutIsTold()
    {
        m->startWith(dashboardOf({alertJSON(a1, 60), 5}));
        QCOMPARE(store().leftOut(),
                 u"The server sent something this app doesn't understand. Not shown: 1 of 2 alerts."_s);
        m->refreshWith(dashboardOf({alertJSON(a1, 60)}));
        QCOMPARE(store().leftOut(), QString());
    }

    void reconnectingAsksOverNewConnections()
    {
        m->startWith(dashboardOf({}));
        m->transport->plan("GET", "/dashboard", ScriptedAnswer::data(dashboardOf({alertJSON(a1, 60)}).body()));
        store().reconnect();
        QCOMPARE(m->transport->dropCount(), 1);
        m->settle();
        QCOMPARE(store().alerts().size(), 1);
    }

    void whatIsNewIsAnnouncedOnce()
    {
        const auto isAt = [this](double secondsAgo) {
            return m->preferences->number(preference_keys::lastNotifiedAt) ==
                   millisecondsFromInstant(testStart - Seconds(secondsAgo));
        };
        // An installation's first dashboard is no news.
        m->startWith({});
        QVERIFY(isAt(0));
        m->preferences->remove(preference_keys::lastNotifiedAt);
        m->refreshWith(dashboardOf({alertJSON(a1, 60), alertJSON(u"a2"_s, 30)}));
        QVERIFY(isAt(30) && m->notifier->delivered.isEmpty());
        m->refreshWith(dashboardOf({alertJSON(a1, 60)}));
        QVERIFY2(isAt(30), "the mark never goes back");
        m->refreshWith(dashboardOf({alertJSON(u"a2"_s, 30), alertJSON(u"a3"_s, -60)}));
        QCOMPARE(m->notifier->delivered, QStringList{u"a3, sounds"_s});
    }

    void aStartLooksBackAnHour()
    {
        m->startWith(dashboardOf({alertJSON(a1, 9000)}));
        m->startWith(dashboardOf({alertJSON(u"a2"_s, 7200), alertJSON(u"a3"_s, 1800)}));
        QCOMPARE(m->notifier->delivered, QStringList{u"a3, sounds"_s});
        // Known, though the service gives it a later time.
        m->refreshWith(dashboardOf({alertJSON(u"a3"_s, 900)}));
        QCOMPARE(m->notifier->delivered.size(), 1);
    }

    void quietHoursAreThisComputers()
    {
        // Five hours ahead: the tests begin at 22:13 in Greenwich, 3:13 here.
        qputenv("TZ", "HERE-5");
        const std::tuple<const char *, bool, QString, QString, QString> rows[] = {
            {"quiet here and now", true, u"03:00"_s, u"04:00"_s, u"a2"_s},
            {"switched off here", false, u"03:00"_s, u"04:00"_s, u"a2, sounds"_s},
            {"quiet in Greenwich", true, u"22:00"_s, u"23:00"_s, u"a2, sounds"_s}};
        for (const auto &[name, on, from, to, delivered] : rows) {
            const InRow row = anew(name);
            m->preferences->setBoolean(preference_keys::quietHoursEnabled, on);
            DashboardJSON dashboard = dashboardOf({alertJSON(a1, 60)});
            m->startWith(dashboard);
            dashboard.alerts << alertJSON(u"a2"_s, 5, {{u"topic"_s, u"deploys"_s}});
            dashboard.topics << QJsonObject{
                {u"id"_s, u"t"_s}, {u"workspaceId"_s, u"w1"_s}, {u"name"_s, u"deploys"_s}, {u"quietHours"_s, true}};
            dashboard.settings = {{u"quietFrom"_s, from}, {u"quietTo"_s, to}};
            m->refreshWith(dashboard);
            QCOMPARE(m->notifier->delivered.join(u' '), delivered);
            QCOMPARE(store().settings().quietFrom, from);
            QCOMPARE(store().settings().quietHoursEnabled, on);
        }
    }

    /// The computer's clock is an hour fast: nothing that waits is hidden, and it can be answered.
    void deadlinesAreTheServices()
    {
        m->startWith({});
        m->clock->jump(1h);
        store().startClock();
        const QJsonObject soon{{u"expiresAt"_s, millisecondsFromInstant(testStart + Seconds(600))}};
        const QJsonObject late{{u"expiresAt"_s, millisecondsFromInstant(testStart + Seconds(1))}};
        ScriptedAnswer answer =
            ScriptedAnswer::data(dashboardOf({askJSON(a1, -1, soon), askJSON(u"late"_s, -1, late)}).body());
        answer.response->date = testStart + Seconds(2);
        m->refreshWith(answer);
        QCOMPARE(m->notifier->delivered, QStringList{u"a1, sounds"_s});
        QCOMPARE(store().needsReplyCount(), 1);
        QVERIFY(store().canAnswer(m->alert(a1)));
        QCOMPARE(store().lastSyncedAt(), std::optional(store().now()));
        QCOMPARE(m->preferences->number(preference_keys::lastNotifiedAt),
                 std::optional(millisecondsFromInstant(testStart + Seconds(1))));
        m->clock->jump(-3h);
        m->clock->advance(598s);
        QCOMPARE(store().needsReplyCount(), 0);
        // Another server has another clock.
        m->changeSession();
        m->clock->advance(1s);
        QCOMPARE(store().now(), m->clock->now());
    }

    void anAskThatTimedOutOnItsWayIsNotAnnounced()
    {
        m->startWith({});
        store().startClock();
        store().setWatched(false);
        const QJsonObject soon{{u"expiresAt"_s, millisecondsFromInstant(testStart + Seconds(10))}};
        m->refreshWith(ScriptedAnswer::data(dashboardOf({askJSON(a1, -1, soon)}).body()).heldBack());
        m->clock->advance(14s);
        m->release();
        QVERIFY(store().alerts().size() == 1 && m->notifier->delivered.isEmpty());
    }

    void oneDatedAheadSilencesNobodyAndIsAnnouncedOnce()
    {
        // As an earlier version left it behind.
        m->preferences->setNumber(preference_keys::lastNotifiedAt, millisecondsFromInstant(testStart + Seconds(9e5)));
        m->startWith({});
        QJsonArray alerts{alertJSON(u"ahead"_s, -86400)};
        const auto delivered = [&](const QString &id, double secondsAfter) {
            m->notifier->delivered.clear();
            m->clock->advance(10s);
            alerts << alertJSON(id, -secondsAfter);
            m->refreshWith(dashboardOf(alerts));
            return m->notifier->delivered.join(u' ');
        };
        QCOMPARE(delivered(u"b"_s, 5), u"ahead, sounds b, sounds"_s);
        QCOMPARE(delivered(u"c"_s, 15), u"c, sounds"_s);
        m->start();
        QCOMPARE(delivered(u"d"_s, 25), u"d, sounds"_s);
        m->clock->advance(24h);
        m->start();
        QCOMPARE(delivered(u"e"_s, 86430), u"e, sounds"_s);
        QCOMPARE(m->preferences->strings(preference_keys::notifiedAhead), std::nullopt);
    }

    /// Who signs in again hears of what came meanwhile; of another person's or server's alerts none is news at first.
    void theMarkBelongsToOnePersonAtOneServer()
    {
        const Account ada{u"Ada"_s, u"ada@example.com"_s, AuthProvider::github, u"Pro"_s};
        const Account eve{u"Eve"_s, u"eve@example.com"_s, AuthProvider::github, u"Pro"_s};
        m->preferences->setNumber(preference_keys::lastNotifiedAt, millisecondsFromInstant(testStart - Seconds(100)));
        m->start();
        int number = 0;
        const auto announcedTo = [&](const Account &account, const QString &server) {
            m->notifier->delivered.clear();
            store().signOut();
            store().persistSession(u"t"_s, QUrl(server), account);
            ++number;
            m->refreshWith(dashboardOf({alertJSON(u"n%1"_s.arg(number), 60 - number)}));
            return m->notifier->delivered.size();
        };
        QCOMPARE(announcedTo(ada, u"https://one.test"_s), 1);
        QCOMPARE(announcedTo(ada, u"https://one.test"_s), 1);
        QCOMPARE(announcedTo(eve, u"https://one.test"_s), 0);
        QCOMPARE(announcedTo(eve, u"https://two.test"_s), 0);
        QCOMPARE(announcedTo(eve, u"https://two.test"_s), 1);
        QVERIFY(!m->preferences->string(preference_keys::lastNotifiedOwner)->contains(u"eve"_s));
    }

    void invitationsDroppedForAChangeAreAskedForAgain()
    {
        startLoop();
        m->transport->plan("GET", "/invites",
                           ScriptedAnswer::data(R"([{"token":"old","workspace":"Old"}])").heldBack());
        m->transport->plan("POST", "/workspaces/w1/alerts/a1/read", ScriptedAnswer::raw(204, "").heldBack());
        poll(4);
        store().setRead(a1, true);
        m->settle();
        m->release("GET", "/invites");
        QCOMPARE(m->transport->count("GET", "/invites"), 2);
        m->release();
        QCOMPARE(m->transport->count("GET", "/invites"), 3);
        QCOMPARE(store().invitations().first().workspaceName, u"Acme"_s);
    }

    /// What the same bytes mean depends on what else happened.
    void theSameBytesStillApplyTheRest()
    {
        const DashboardJSON dashboard = dashboardOf({alertJSON(a1, 60)});
        m->transport->plan("GET", "/auth/user-data", ScriptedAnswer::raw(200, user));
        m->startLoopWith(dashboard, "[]");
        QCOMPARE(store().account()->plan, u"Cloud"_s);
        poll(1);
        QCOMPARE(store().account()->plan, u"Pro"_s);
        m->transport->plan("POST", "/devices", ScriptedAnswer::data(device));
        m->startLoopWith(dashboard, "[]");
        QCOMPARE(store().devices().size(), 1);
        poll(1);
        QCOMPARE(store().devices().size(), 0);
    }

    void theActiveWorkspaceSurvivesAndMoves()
    {
        m->preferences->setString(preference_keys::activeWorkspace, u"w2"_s);
        m->startWith({.workspaces = {workspaceJSON(u"w1"_s), workspaceJSON(u"w2"_s)}});
        QCOMPARE(store().activeWorkspaceID(), u"w2"_s);
        store().setFilter(InboxFilter::asks());
        store().selectAlert(a1);
        m->refreshWith({.workspaces = {workspaceJSON(u"w2"_s), workspaceJSON(u"w1"_s)}});
        QVERIFY(store().selectedAlertID() == a1 && store().filter() == InboxFilter::asks());
        m->refreshWith(DashboardJSON());
        QVERIFY(!store().selectedAlertID() && store().filter() == InboxFilter::all());
        QCOMPARE(store().activeWorkspaceID(), u"w1"_s);
        QCOMPARE(m->preferences->string(preference_keys::activeWorkspace), std::optional(u"w2"_s));
        m->refreshWith({.workspaces = {workspaceJSON(u"w3"_s), workspaceJSON(u"w2"_s)}});
        QCOMPARE(store().activeWorkspaceID(), u"w2"_s);
        m->refreshWith({.workspaces = QJsonArray()});
        QCOMPARE(store().activeWorkspaceID(), QString());
    }

    void nobodySeesHalfADashboard()
    {
        m->startWith({});
        bool whole = true;
        for (const auto changed : {&AppStore::workspacesChanged, &AppStore::activeWorkspaceIDChanged}) {
            connect(m->store.get(), changed, m->store.get(),
                    [&] { whole &= store().activeWorkspace() && store().activeAlerts().size() == 1; });
        }
        m->refreshWith(
            {.alerts = {alertJSON(a1, 60, {{u"workspaceId"_s, u"w5"_s}})}, .workspaces = {workspaceJSON(u"w5"_s)}});
        QVERIFY(whole);
        QCOMPARE(store().activeWorkspaceID(), u"w5"_s);
        QCOMPARE(store().account()->plan, u"Pro"_s);
    }
};

QTEST_GUILESS_MAIN(SyncTest)
#include "sync_test.moc"
