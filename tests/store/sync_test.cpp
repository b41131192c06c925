#include "store/preference_keys.h"
#include "store_fixture.h"

#include <QSignalSpy>
#include <QTest>

using namespace pingwell;
using namespace std::chrono_literals;

namespace {

const QString a1 = QStringLiteral("a1");
const QByteArray user = R"({"user":{"name":"Ada","email":"ada@example.com","provider":"github"}})";
const QByteArray device = R"({"id":"d7","name":"Desk","platform":"macos"})";

DashboardJSON withAlerts(const QJsonArray &alerts)
{
    DashboardJSON dashboard;
    dashboard.alerts = alerts;
    return dashboard;
}

} // namespace

class SyncTest : public QObject
{
    Q_OBJECT

    std::unique_ptr<StoreFixture> m;

    AppStore &store() { return *m->store; }

    void serveEverything()
    {
        m->transport->always("GET", "/dashboard", ScriptedAnswer::data(withAlerts({alertJSON(a1, 60)}).body()));
        m->transport->always("GET", "/auth/user-data", ScriptedAnswer::raw(200, user));
        m->transport->always("POST", "/devices", ScriptedAnswer::data(device));
        m->transport->always("POST", "/devices/d7/heartbeat", ScriptedAnswer::data(device));
        m->transport->always("GET", "/invites", ScriptedAnswer::data(R"([{"token":"i1","workspace":"Acme"}])"));
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
        serveEverything();
        m->start();
        store().startSync();
        m->settle();
        QStringList order;
        for (const HTTPRequest &request : m->transport->requests())
            order << request.url.path();
        QCOMPARE(order.join(u' '), QStringLiteral("/dashboard /auth/user-data /devices /invites"));
        QCOMPARE(store().account()->name, QStringLiteral("Ada"));
        QCOMPARE(store().invitations().first().workspaceName, QStringLiteral("Acme"));
        QCOMPARE(store().devices().first().id, QStringLiteral("d7"));
        QCOMPARE(m->transport->lastRequest("POST", "/devices").body,
                 QByteArray(R"({"name":"Desk","platform":"macos","version":"1.2"})"));
        poll(20);
        QCOMPARE(m->transport->count("GET", "/dashboard"), 21);
        QCOMPARE(m->transport->count("GET", "/invites"), 6);
        QCOMPARE(m->transport->count("POST", "/devices/d7/heartbeat"), 1);
        QCOMPARE(m->transport->count("POST", "/devices"), 1);
        QCOMPARE(m->transport->count("GET", "/auth/user-data"), 1);
    }

    void aForgottenDeviceRegistersAnew()
    {
        serveEverything();
        m->preferences->setString(preference_keys::device(*m->backend->baseURLOverride), QStringLiteral("d1"));
        m->transport->plan("POST", "/devices/d1/heartbeat", ScriptedAnswer::failure(404));
        m->start();
        store().startSync();
        m->settle();
        QCOMPARE(m->preferences->string(preference_keys::device(*m->backend->baseURLOverride)),
                 std::optional(QStringLiteral("d7")));
        QVERIFY(!store().connectionProblem());
    }

    void aSecondStartReplacesTheLoop()
    {
        serveEverything();
        m->start();
        store().startSync();
        m->settle();
        store().startSync();
        m->settle();
        QCOMPARE(m->transport->count("GET", "/dashboard"), 2);
        poll(1);
        QCOMPARE(m->transport->count("GET", "/dashboard"), 3);
        m->transport->plan("DELETE", "/devices/d7", ScriptedAnswer::raw(204, ""));
        store().signOut();
        poll(2);
        QCOMPARE(m->transport->count("GET", "/dashboard"), 3);
        QCOMPARE(m->transport->count("DELETE", "/devices/d7"), 1);
    }

    void refreshesNeverOverlap()
    {
        m->start();
        m->transport->plan("GET", "/dashboard", ScriptedAnswer::data(DashboardJSON().body()).heldBack());
        store().refresh();
        store().refresh();
        m->settle();
        QCOMPARE(m->transport->count("GET", "/dashboard"), 1);
        m->transport->release();
        m->settle();
        QVERIFY(store().hasLoaded());
        m->refreshWith({});
        QCOMPARE(m->transport->count("GET", "/dashboard"), 2);
    }

    void aRefreshAcrossAMutationIsDropped()
    {
        m->startWith(withAlerts({alertJSON(a1, 60)}));
        m->transport->plan("GET", "/dashboard",
                           ScriptedAnswer::data(withAlerts({alertJSON(QStringLiteral("new"), 10)}).body()).heldBack());
        store().refresh();
        m->settle();
        m->transport->plan("POST", "/workspaces/w1/alerts/a1/read", ScriptedAnswer::raw(204, ""));
        store().setRead(a1, true);
        m->settle();
        m->transport->release();
        m->settle();
        QVERIFY(m->alert(a1).read);
        QVERIFY(m->notifier->delivered.isEmpty());
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

    void problemsShowAndClear_data()
    {
        QTest::addColumn<ScriptedAnswer>("answer");
        QTest::addColumn<QString>("problem");
        QTest::newRow("offline") << ScriptedAnswer::noAnswer()
                                 << "Can't reach the Pingwell server. Check your connection.";
        QTest::newRow("down") << ScriptedAnswer::failure(503, {}, "Back at noon.") << "Back at noon.";
        QTest::newRow("garbage")
            << ScriptedAnswer::raw(200, "<html>")
            << "The server sent something this app doesn't understand. Update the app and try again.";
    }

    void problemsShowAndClear()
    {
        QFETCH(ScriptedAnswer, answer);
        m->startWith(withAlerts({alertJSON(a1, 60)}));
        m->transport->plan("GET", "/dashboard", answer);
        store().refresh();
        m->settle();
        QTEST(store().connectionProblem().value_or(QString()), "problem");
        QCOMPARE(store().alerts().size(), 1);
        m->refreshWith(withAlerts({alertJSON(a1, 60)}));
        QVERIFY(!store().connectionProblem());
    }

    void theMarkOnlyAdvances()
    {
        const auto mark = [this] { return m->preferences->number(preference_keys::lastNotifiedAt); };
        m->startWith({});
        QCOMPARE(mark(), std::optional(millisecondsFromInstant(testStart)));
        m->refreshWith(withAlerts({alertJSON(a1, 60)}));
        QCOMPARE(mark(), std::optional(millisecondsFromInstant(testStart)));
        m->refreshWith(withAlerts({alertJSON(a1, 60), alertJSON(QStringLiteral("a2"), -60)}));
        QCOMPARE(mark(), std::optional(millisecondsFromInstant(testStart + Seconds(60))));
        QCOMPARE(m->notifier->delivered, QStringList{QStringLiteral("a2, sounds")});
    }

    void theFirstSyncOfAnInstallationIsSilent()
    {
        m->startWith(withAlerts({alertJSON(a1, 60), alertJSON(QStringLiteral("a2"), 30)}));
        QVERIFY(m->notifier->delivered.isEmpty());
        QCOMPARE(m->preferences->number(preference_keys::lastNotifiedAt),
                 std::optional(millisecondsFromInstant(testStart - Seconds(30))));
    }

    void theActiveWorkspaceSurvivesAndMoves()
    {
        DashboardJSON two;
        two.workspaces = {workspaceJSON(QStringLiteral("w1")), workspaceJSON(QStringLiteral("w2"))};
        m->preferences->setString(preference_keys::activeWorkspace, QStringLiteral("w2"));
        m->startWith(two);
        QCOMPARE(store().activeWorkspaceID(), QStringLiteral("w2"));
        m->refreshWith({});
        QCOMPARE(store().activeWorkspaceID(), QStringLiteral("w1"));
        QCOMPARE(m->preferences->string(preference_keys::activeWorkspace), std::optional(QStringLiteral("w2")));
        DashboardJSON none;
        none.workspaces = {};
        m->refreshWith(none);
        QCOMPARE(store().activeWorkspaceID(), QString());
    }

    void quietHoursStayLocal()
    {
        m->preferences->setBoolean(preference_keys::quietHoursEnabled, true);
        DashboardJSON dashboard;
        dashboard.settings = {{QStringLiteral("quietFrom"), QStringLiteral("21:00")}};
        m->startWith(dashboard);
        QVERIFY(store().settings().quietHoursEnabled);
        QCOMPARE(store().settings().quietFrom, QStringLiteral("21:00"));
    }

    void nobodySeesHalfADashboard()
    {
        m->startWith({});
        DashboardJSON dashboard =
            withAlerts({alertJSON(a1, 60, {{QStringLiteral("workspaceId"), QStringLiteral("w5")}})});
        dashboard.workspaces = {workspaceJSON(QStringLiteral("w5"))};
        bool whole = true;
        for (const auto changed : {&AppStore::workspacesChanged, &AppStore::activeWorkspaceIDChanged}) {
            connect(m->store.get(), changed, m->store.get(),
                    [&] { whole &= store().activeWorkspace() && store().activeAlerts().size() == 1; });
        }
        m->refreshWith(dashboard);
        QVERIFY(whole);
        QCOMPARE(store().account()->plan, QStringLiteral("Pro"));
    }
};

QTEST_GUILESS_MAIN(SyncTest)
#include "sync_test.moc"
