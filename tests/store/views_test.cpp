#include "store/app_store.h"

#include "async/launch.h"
#include "store/preference_keys.h"
#include "store_fixture.h"

#include <QSignalSpy>
#include <QTest>

using namespace pingwell;
using namespace std::chrono_literals;

namespace {

const QString own = QStringLiteral("w1");
const QString other = QStringLiteral("w2");

Alert notice(const QString &id, double secondsAgo, const QString &workspace = own)
{
    Alert alert;
    alert.id = id;
    alert.workspaceId = workspace;
    alert.topic = QStringLiteral("infra");
    alert.at = testStart - Seconds(secondsAgo);
    return alert;
}

Alert ask(const QString &id, double secondsAgo, double secondsLeft)
{
    Alert alert = notice(id, secondsAgo);
    alert.kind = AlertKind::ask;
    alert.actions = {QStringLiteral("Approve")};
    alert.expiresAt = testStart + Seconds(secondsLeft);
    return alert;
}

Workspace workspace(const QString &id, WorkspaceKind kind)
{
    Workspace made;
    made.id = id;
    made.name = id;
    made.kind = kind;
    made.role = WorkspaceRole::owner;
    return made;
}

QString idsOf(const QList<Alert> &alerts)
{
    QStringList ids;
    for (const Alert &alert : alerts)
        ids << alert.id;
    return ids.join(u' ');
}

} // namespace

class ViewsTest : public QObject
{
    Q_OBJECT

    std::shared_ptr<ManualClock> m_clock;
    SeedData m_seed;

    std::unique_ptr<AppStore> demo(std::shared_ptr<Preferences> preferences = nullptr, bool signedIn = true)
    {
        return std::make_unique<AppStore>(m_seed, signedIn, std::move(preferences), m_clock->now(), nullptr, m_clock);
    }

private slots:
    void init()
    {
        m_clock = std::make_shared<ManualClock>(testStart);
        m_seed = {};
        m_seed.workspaces = {workspace(own, WorkspaceKind::personal), workspace(other, WorkspaceKind::team)};
    }

    // Lets the stopped clock and toasts of the last store end.
    void cleanup() { QCoreApplication::processEvents(); }

    void activeAlertsAreNewestFirst()
    {
        m_seed.alerts = {notice(QStringLiteral("old"), 50), notice(QStringLiteral("twin1"), 10),
                         notice(QStringLiteral("far"), 1, other), notice(QStringLiteral("twin2"), 10),
                         notice(QStringLiteral("new"), 5)};
        const auto store = demo();
        QCOMPARE(idsOf(store->activeAlerts()), QStringLiteral("new twin1 twin2 old"));
        store->selectAlert(QStringLiteral("far"));
        QVERIFY(!store->selectedAlert());
        store->selectAlert(QStringLiteral("old"));
        QCOMPARE(store->selectedAlert()->id, QStringLiteral("old"));
    }

    void filters()
    {
        Alert deploy = notice(QStringLiteral("deploy"), 2);
        deploy.topic = QStringLiteral("deploys");
        m_seed.alerts = {ask(QStringLiteral("ask"), 1, 60), deploy, notice(QStringLiteral("infra"), 3)};
        const auto store = demo();
        store->setFilter(InboxFilter::asks());
        QCOMPARE(idsOf(store->filteredAlerts()), QStringLiteral("ask"));
        store->setFilter(InboxFilter::topic(QStringLiteral("deploys")));
        QCOMPARE(idsOf(store->filteredAlerts()), QStringLiteral("deploy"));
        store->setFilter(InboxFilter::topic(QStringLiteral("Deploys")));
        QCOMPARE(idsOf(store->filteredAlerts()), QString());
        store->setFilter(InboxFilter::all());
        QCOMPARE(idsOf(store->filteredAlerts()), QStringLiteral("ask deploy infra"));
    }

    void today_data()
    {
        QTest::addColumn<Alert>("alert");
        QTest::addColumn<bool>("focus");
        QTest::addColumn<bool>("shown");
        const auto high = [](Alert alert) {
            alert.priority = Priority::high;
            return alert;
        };
        const auto muted = [](Alert alert) {
            alert.topic = QStringLiteral("muted");
            return alert;
        };
        const QString id = QStringLiteral("a");

        QTest::newRow("a day old") << notice(id, 86400) << false << true;
        QTest::newRow("a second more") << notice(id, 86401) << false << false;
        QTest::newRow("an open ask waits elsewhere") << ask(id, 60, 60) << false << false;
        QTest::newRow("an ask timed out") << ask(id, 60, 0) << false << true;
        QTest::newRow("of another workspace") << notice(id, 60, other) << false << false;
        QTest::newRow("of a muted topic") << muted(notice(id, 60)) << false << false;
        QTest::newRow("focus drops the normal") << notice(id, 60) << true << false;
        QTest::newRow("focus keeps the high") << high(notice(id, 60)) << true << true;
    }

    void today()
    {
        QFETCH(Alert, alert);
        QFETCH(bool, focus);
        QFETCH(bool, shown);
        Topic topic;
        topic.name = QStringLiteral("muted");
        topic.workspaceId = own;
        topic.muted = true;
        m_seed.topics = {topic};
        m_seed.alerts = {alert};
        const auto store = demo();
        store->setFocusMode(focus);
        QCOMPARE(store->todayAlerts().size(), shown ? 1 : 0);
    }

    void anAskLeavesWithItsDeadline()
    {
        m_seed.alerts = {ask(QStringLiteral("a"), 60, 2)};
        const auto store = demo();
        store->startClock();
        const QSignalSpy ticks(store.get(), &AppStore::nowChanged);
        m_clock->advance(1s);
        QCOMPARE(store->needsReplyCount(), 1);
        QVERIFY(store->countdownChanged(store->alerts().first(), testStart));
        m_clock->advance(1s);
        QCOMPARE(ticks.size(), 2);
        QCOMPARE(store->needsReplyCount(), 0);
        QCOMPARE(idsOf(store->needsReply()), QString());
        QCOMPARE(idsOf(store->todayAlerts()), QStringLiteral("a"));
        QCOMPARE(AppStore::countdownKey(store->alerts().first(), store->now()), QStringLiteral("timedOut"));
        store->answer(QStringLiteral("a"), QStringLiteral("Approve"));
        QVERIFY(!store->alerts().first().answer);
    }

    void aSetClockCountsFromTheNextSecond()
    {
        m_seed.alerts = {ask(QStringLiteral("a"), 60, 600)};
        const auto store = demo();
        store->startClock();
        for (const auto &[by, waiting] : {std::pair(-1h, 1), std::pair(25h, 0), std::pair(-24h, 1)}) {
            m_clock->jump(by);
            m_clock->advance(1s);
            QCOMPARE(store->needsReplyCount(), waiting);
        }
    }

    void toastsReplaceEachOther()
    {
        const auto store = demo();
        store->showToast(QString(), true);
        QVERIFY(!store->toast());
        store->showToast(QStringLiteral("first"), false);
        m_clock->advance(3400ms);
        store->showToast(QStringLiteral("second"), true);
        m_clock->advance(5900ms);
        QCOMPARE(store->toast()->message, QStringLiteral("second"));
        m_clock->advance(100ms);
        QVERIFY(!store->toast());
        store->showToast(QStringLiteral("third"), false);
        m_clock->advance(3500ms);
        QVERIFY(!store->toast());
    }

    void demoRestoresItsPreferences()
    {
        const auto preferences = std::make_shared<MemoryPreferences>();
        preferences->setString(preference_keys::sessionProvider, QStringLiteral("github"));
        preferences->setString(preference_keys::activeWorkspace, other);
        preferences->setString(preference_keys::serverKind, QStringLiteral("SelfHosted"));
        preferences->setString(preference_keys::selfHostedURL, QStringLiteral(" my.server "));
        preferences->setNumber(preference_keys::responseTimeoutMinutes(own), 15);
        preferences->setNumber(preference_keys::responseTimeoutMinutes(other), 10);
        preferences->setString(preference_keys::timeoutAction(own), QStringLiteral("escalate"));
        preferences->setString(preference_keys::timeoutAction(other), QStringLiteral("escalate"));
        const auto store = demo(preferences);
        QCOMPARE(store->account()->provider, AuthProvider::github);
        QCOMPARE(store->activeWorkspaceID(), other);
        QCOMPARE(store->server(), ServerKind::cloud);
        QCOMPARE(store->selfHostedURL(), QStringLiteral(" my.server "));
        QCOMPARE(store->workspaces().at(0).responseTimeoutMinutes, 15);
        QCOMPARE(store->workspaces().at(1).responseTimeoutMinutes, 30);
        QCOMPARE(store->workspaces().at(0).timeoutAction, TimeoutAction::expire);
        QCOMPARE(store->workspaces().at(1).timeoutAction, TimeoutAction::escalate);
    }

    void demoSignsOutAndInAgain()
    {
        m_seed.alerts = {notice(QStringLiteral("a"), 60)};
        const auto preferences = std::make_shared<MemoryPreferences>();
        const auto store = demo(preferences, true);
        QVERIFY(!store->isSignedIn());
        store->signIn(QStringLiteral("github"));
        QCOMPARE(store->account()->provider, AuthProvider::github);
        QCOMPARE(preferences->string(preference_keys::sessionProvider), std::optional(QStringLiteral("github")));
        store->selectAlert(QStringLiteral("a"));
        store->signOut();
        QVERIFY(!store->isSignedIn());
        QVERIFY(store->alerts().isEmpty());
        QVERIFY(!store->selectedAlertID());
        QVERIFY(!preferences->contains(preference_keys::sessionProvider));
        store->signIn(QStringLiteral("google"));
        QCOMPARE(idsOf(store->activeAlerts()), QStringLiteral("a"));
    }

    void switchingTheWorkspaceClearsSelectionAndFilter()
    {
        m_seed.alerts = {notice(QStringLiteral("a"), 60), notice(QStringLiteral("b"), 60, other)};
        const auto preferences = std::make_shared<MemoryPreferences>();
        const auto store = demo(preferences);
        store->selectAlert(QStringLiteral("a"));
        store->setFilter(InboxFilter::asks());
        store->selectWorkspace(own);
        store->selectWorkspace(QStringLiteral("nowhere"));
        QCOMPARE(store->selectedAlertID(), std::optional(QStringLiteral("a")));
        store->setSection(SidebarSection::team);
        store->revealAlert(QStringLiteral("b"));
        QCOMPARE(store->activeWorkspaceID(), other);
        QCOMPARE(store->selectedAlert()->id, QStringLiteral("b"));
        QCOMPARE(store->filter(), InboxFilter::all());
        QCOMPARE(store->section(), SidebarSection::inbox);
        QCOMPARE(preferences->string(preference_keys::activeWorkspace), std::optional(other));
    }

    void demoActionsAreTheirWholeEffect()
    {
        m_seed.alerts = {ask(QStringLiteral("a"), 60, 60)};
        const auto store = demo();
        store->answer(QStringLiteral("a"), QStringLiteral("Approve"));
        QCOMPARE(store->alerts().first().answer, std::optional(QStringLiteral("Approve")));
        store->sendTestAlert();
        QCOMPARE(store->alerts().last().title, QStringLiteral("Test alert from your Mac"));
        QVERIFY(!store->toast());
        store->createWorkspace(QStringLiteral("  ") + QString(60, u'x'));
        QCOMPARE(store->activeWorkspace()->name, QString(48, u'x'));
        QCOMPARE(store->members().value(store->activeWorkspaceID()).first().role, WorkspaceRole::owner);
    }
};

QTEST_GUILESS_MAIN(ViewsTest)
#include "views_test.moc"
