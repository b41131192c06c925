#include "desktop/preference_keys.h"
#include "store_fixture.h"

#include <QTest>

using namespace pingwell;
using namespace Qt::StringLiterals;

/// The store without a service.
class DemoTest : public QObject
{
    Q_OBJECT

    std::shared_ptr<ManualClock> m_clock;
    std::shared_ptr<MemoryPreferences> m_preferences;

    /// With a personal workspace, a team and an ask; signed in when nothing is remembered.
    std::unique_ptr<AppStore> make(const std::shared_ptr<Preferences> &preferences)
    {
        SeedData seed;
        seed.workspaces = {{u"home"_s, u"Home"_s, WorkspaceKind::personal, WorkspaceRole::owner},
                           {u"team"_s, u"Team"_s, WorkspaceKind::team, WorkspaceRole::owner}};
        Alert &ask = seed.alerts.emplace_back(noticeOf(u"a"_s, 0, u"home"_s));
        ask.kind = AlertKind::ask;
        ask.actions = {u"Approve"_s};
        return std::make_unique<AppStore>(seed, true, preferences, testStart, nullptr, m_clock);
    }

private slots:
    void init()
    {
        m_clock = std::make_shared<ManualClock>(testStart);
        m_preferences = std::make_shared<MemoryPreferences>();
    }

    // Lets the stopped toasts of the last store end.
    void cleanup() { QCoreApplication::processEvents(); }

    void restoresItsPreferences()
    {
        m_preferences->setString(preference_keys::sessionProvider, u"github"_s);
        m_preferences->setString(preference_keys::activeWorkspace, u"team"_s);
        m_preferences->setString(preference_keys::serverKind, u"SelfHosted"_s);
        m_preferences->setString(preference_keys::selfHostedURL, u" my.server "_s);
        m_preferences->setNumber(preference_keys::responseTimeoutMinutes(u"home"_s), 15);
        m_preferences->setNumber(preference_keys::responseTimeoutMinutes(u"team"_s), 10);
        for (const QString &id : {u"home"_s, u"team"_s})
            m_preferences->setString(preference_keys::timeoutAction(id), u"escalate"_s);
        const auto store = make(m_preferences);
        QCOMPARE(store->account()->provider, AuthProvider::github);
        QCOMPARE(store->activeWorkspaceID(), u"team"_s);
        QCOMPARE(store->server(), ServerKind::cloud);
        QCOMPARE(store->selfHostedURL(), u" my.server "_s);
        QCOMPARE(store->workspaces().at(0).responseTimeoutMinutes, 15);
        QCOMPARE(store->workspaces().at(1).responseTimeoutMinutes, 30);
        QCOMPARE(store->workspaces().at(0).timeoutAction, TimeoutAction::expire);
        QCOMPARE(store->workspaces().at(1).timeoutAction, TimeoutAction::escalate);
    }

    void remembersItsChoices()
    {
        const auto store = make(m_preferences);
        store->selectWorkspace(u"team"_s);
        store->setResponseTimeout(60);
        store->setTimeoutAction(TimeoutAction::default_);
        const auto next = make(m_preferences);
        QCOMPARE(next->activeWorkspace()->responseTimeoutMinutes, 60);
        QCOMPARE(next->activeWorkspace()->timeoutAction, TimeoutAction::default_);
        store->setResponseTimeout(45);
        QCOMPARE(store->activeWorkspace()->responseTimeoutMinutes, 45);
        QCOMPARE(make(m_preferences)->activeWorkspace()->responseTimeoutMinutes, 30);
    }

    void signsOutAndInAgain()
    {
        const auto store = make(m_preferences);
        QVERIFY(!store->isSignedIn());
        store->signIn(u"github"_s);
        QCOMPARE(make(m_preferences)->account()->provider, AuthProvider::github);
        store->selectAlert(u"a"_s);
        store->signOut();
        QVERIFY(!store->isSignedIn() && store->alerts().isEmpty() && !store->selectedAlertID());
        QVERIFY(!make(m_preferences)->isSignedIn());
        store->signIn(u"google"_s);
        QCOMPARE(store->activeAlerts().size(), 1);
    }

    void actionsAreTheirWholeEffect()
    {
        const auto store = make(nullptr);
        store->answer(u"a"_s, u"Approve"_s);
        QCOMPARE(store->alerts().first().answer, std::optional(u"Approve"_s));
        store->sendTestAlert();
        QCOMPARE(store->alerts().last().title, u"Test alert from your Mac"_s);
        QVERIFY(!store->toast());
        store->createWorkspace(u"  "_s + u"e\u0301"_s.repeated(60));
        QCOMPARE(store->activeWorkspace()->name, u"e\u0301"_s.repeated(48));
        QCOMPARE(store->members().value(store->activeWorkspaceID()).first().role, WorkspaceRole::owner);
        store->createTopic(u"Deploys"_s);
        store->createTopic(u"deploys!"_s);
        QCOMPARE(store->activeTopicNames(), QStringList{u"deploys"_s});
        store->leaveWorkspace();
        QCOMPARE(store->activeWorkspaceID(), u"home"_s);
    }
};

QTEST_GUILESS_MAIN(DemoTest)
#include "demo_test.moc"
