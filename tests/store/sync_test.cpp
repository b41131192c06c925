#include "store/preference_keys.h"
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

DashboardJSON withAlerts(const QJsonArray &alerts)
{
    return {.alerts = alerts};
}

} // namespace

class SyncTest : public QObject
{
    Q_OBJECT

    std::unique_ptr<StoreFixture> m;

    AppStore &store() { return *m->store; }

    void startLoop()
    {
        m->transport->always("GET", "/dashboard", ScriptedAnswer::data(withAlerts({alertJSON(a1, 60)}).body()));
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
    void init() { m = std::make_unique<StoreFixture>(); }
    void cleanup() { m.reset(); }

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

    void aForgottenDeviceRegistersAnew()
    {
        m->preferences->setString(preference_keys::device(*m->backend->baseURLOverride), u"d1"_s);
        m->transport->plan("POST", "/devices/d1/heartbeat", ScriptedAnswer::failure(404));
        startLoop();
        QCOMPARE(store().deviceIdentifier(), u"d7"_s);
        QVERIFY(!store().connectionProblem());
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
        const DashboardJSON dashboard = withAlerts({alertJSON(a1, 60)});
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
        m->startWith(withAlerts({alertJSON(a1, 60)}));
        for (const auto &[answer, problem] :
             {std::pair(ScriptedAnswer::noAnswer(), u"Can't reach the Pingwell server. Check your connection."_s),
              std::pair(ScriptedAnswer::raw(200, "[]"), incomprehensible),
              std::pair(ScriptedAnswer::raw(200, ""), incomprehensible),
              std::pair(ScriptedAnswer::failure(503, {}, "Back at noon."), u"Back at noon."_s)}) {
            m->transport->plan("GET", "/dashboard", answer);
            store().refresh();
            m->settle();
            QCOMPARE(store().connectionProblem(), std::optional(problem));
            QCOMPARE(store().alerts().size(), 1);
            m->refreshWith(withAlerts({alertJSON(a1, 60)}));
            QVERIFY(!store().connectionProblem());
        }
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
        m->refreshWith(withAlerts({alertJSON(a1, 60), alertJSON(u"a2"_s, 30)}));
        QVERIFY(isAt(30) && m->notifier->delivered.isEmpty());
        m->refreshWith(withAlerts({alertJSON(a1, 60)}));
        QVERIFY2(isAt(30), "the mark never goes back");
        m->refreshWith(withAlerts({alertJSON(u"a2"_s, 30), alertJSON(u"a3"_s, -60)}));
        QCOMPARE(m->notifier->delivered, QStringList{u"a3, sounds"_s});
    }

    void theActiveWorkspaceSurvivesAndMoves()
    {
        m->preferences->setString(preference_keys::activeWorkspace, u"w2"_s);
        m->startWith({.workspaces = {workspaceJSON(u"w1"_s), workspaceJSON(u"w2"_s)}});
        QCOMPARE(store().activeWorkspaceID(), u"w2"_s);
        m->refreshWith({});
        QCOMPARE(store().activeWorkspaceID(), u"w1"_s);
        QCOMPARE(m->preferences->string(preference_keys::activeWorkspace), std::optional(u"w2"_s));
        m->refreshWith({.workspaces = {workspaceJSON(u"w3"_s), workspaceJSON(u"w2"_s)}});
        QCOMPARE(store().activeWorkspaceID(), u"w2"_s);
        m->refreshWith({.workspaces = QJsonArray()});
        QCOMPARE(store().activeWorkspaceID(), QString());
    }

    void quietHoursStayLocal()
    {
        m->preferences->setBoolean(preference_keys::quietHoursEnabled, true);
        m->startWith({.settings = {{u"quietFrom"_s, u"21:00"_s}}});
        QVERIFY(store().settings().quietHoursEnabled);
        QCOMPARE(store().settings().quietFrom, u"21:00"_s);
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
