#include "store_fixture.h"

#include <QSignalSpy>
#include <QTest>

using namespace pingwell;
using namespace std::chrono_literals;
using namespace Qt::StringLiterals;

namespace {

const QString own = u"w1"_s;
const QString other = u"w2"_s;

Alert ask(const QString &id, double secondsAgo, double secondsLeft)
{
    Alert alert = noticeOf(id, secondsAgo);
    alert.kind = AlertKind::ask;
    alert.actions = {u"Approve"_s};
    alert.expiresAt = testStart + Seconds(secondsLeft);
    return alert;
}

QString idsOf(const QList<Alert> &alerts)
{
    QStringList ids;
    for (const Alert &alert : alerts)
        ids << alert.id;
    return ids.join(u' ');
}

} // namespace

/// What the screens read, of a store that stands still but for its clock.
class ViewsTest : public QObject
{
    Q_OBJECT

    std::shared_ptr<ManualClock> m_clock;

    std::unique_ptr<AppStore> storeWith(const QList<Alert> &alerts, const QList<Topic> &topics = {})
    {
        SeedData seed;
        seed.alerts = alerts;
        seed.topics = topics;
        for (const QString &id : {own, other})
            seed.workspaces.emplace_back().id = id;
        return std::make_unique<AppStore>(seed, true, nullptr, m_clock->now(), nullptr, m_clock);
    }

private slots:
    void init() { m_clock = std::make_shared<ManualClock>(testStart); }

    // Lets the stopped clock and toasts of the last store end.
    void cleanup() { QCoreApplication::processEvents(); }

    void activeAlertsAreNewestFirst()
    {
        const auto store = storeWith({noticeOf(u"old"_s, 50), noticeOf(u"twin1"_s, 10), noticeOf(u"far"_s, 1, other),
                                      noticeOf(u"twin2"_s, 10), noticeOf(u"new"_s, 5)});
        QCOMPARE(idsOf(store->activeAlerts()), u"new twin1 twin2 old"_s);
        QCOMPARE(store->unreadCount(), 4);
        store->selectAlert(u"far"_s);
        QVERIFY(!store->selectedAlert());
        store->selectAlert(u"old"_s);
        QCOMPARE(store->selectedAlert()->id, u"old"_s);
    }

    void filterNarrows()
    {
        Alert question = ask(u"ask"_s, 5, 60);
        question.topic = u"deploys-eu"_s;
        const auto store =
            storeWith({noticeOf(u"old"_s, 50, own, u"deploys"_s), noticeOf(u"far"_s, 1, other, u"deploys"_s),
                       noticeOf(u"new"_s, 10, own, u"deploys"_s), question});
        for (const auto &[filter, shown] :
             {std::pair(InboxFilter::all(), u"ask new old"_s), std::pair(InboxFilter::asks(), u"ask"_s),
              std::pair(InboxFilter::topic(u"deploys"_s), u"new old"_s)}) {
            store->setFilter(filter);
            QCOMPARE(idsOf(store->filteredAlerts()), shown);
        }
    }

    void today()
    {
        const QString id = u"a"_s;
        Alert high = noticeOf(id, 60);
        high.priority = Priority::high;
        Topic topic;
        topic.name = u"muted"_s;
        topic.workspaceId = own;
        topic.muted = true;
        const std::tuple<const char *, Alert, bool, bool> rows[] = {
            {"a day old", noticeOf(id, 86400), false, true},
            {"a second more", noticeOf(id, 86401), false, false},
            {"an open ask waits elsewhere", ask(id, 60, 60), false, false},
            {"an ask timed out", ask(id, 60, 0), false, true},
            {"of another workspace", noticeOf(id, 60, other), false, false},
            {"of a muted topic", noticeOf(id, 60, own, u"muted"_s), false, false},
            {"focus drops the normal", noticeOf(id, 60), true, false},
            {"focus keeps the high", high, true, true}};
        for (const auto &[name, alert, focus, isShown] : rows) {
            const auto store = storeWith({alert}, {topic});
            store->setFocusMode(focus);
            QVERIFY2(store->todayAlerts().isEmpty() != isShown, name);
        }
    }

    void anAskLeavesWithItsDeadline()
    {
        const auto store = storeWith({ask(u"a"_s, 60, 2)});
        store->startClock();
        const QSignalSpy ticks(store.get(), &AppStore::nowChanged);
        m_clock->advance(1s);
        QCOMPARE(store->needsReplyCount(), 1);
        m_clock->advance(1s);
        QCOMPARE(ticks.size(), 2);
        QCOMPARE(store->needsReplyCount(), 0);
        QCOMPARE(idsOf(store->needsReply()), QString());
        QCOMPARE(idsOf(store->todayAlerts()), u"a"_s);
        store->answer(u"a"_s, u"Approve"_s);
        QVERIFY(!store->alerts().first().answer);
    }

    // Nobody looks: the computer is left to sleep, but the number in the status area stays true to the second.
    void anUnwatchedClockTicksForDeadlines()
    {
        const auto store = storeWith({ask(u"soon"_s, 60, 20.25), ask(u"later"_s, 60, 600)});
        store->startClock();
        store->setWatched(false);
        const QSignalSpy ticks(store.get(), &AppStore::nowChanged);
        m_clock->advance(20s);
        QCOMPARE(ticks.size(), 1);
        QCOMPARE(store->needsReplyCount(), 2);
        m_clock->advance(250ms);
        QCOMPARE(ticks.size(), 2);
        QCOMPARE(store->needsReplyCount(), 1);
        m_clock->advance(3s);
        store->setWatched(true);
        QCOMPARE(store->now(), m_clock->now());
        m_clock->advance(2s);
        QCOMPARE(ticks.size(), 5);
    }

    void aSetClockCountsFromTheNextSecond()
    {
        const auto store = storeWith({ask(u"a"_s, 60, 600)});
        store->startClock();
        for (const auto &[by, waiting] : {std::pair(-1h, 1), std::pair(25h, 0), std::pair(-24h, 1)}) {
            m_clock->jump(by);
            m_clock->advance(1s);
            QCOMPARE(store->needsReplyCount(), waiting);
        }
    }

    void toastsReplaceEachOther()
    {
        const auto store = storeWith({});
        store->showToast(QString(), true);
        QVERIFY(!store->toast());
        store->showToast(u"first"_s, false);
        m_clock->advance(3400ms);
        store->showToast(u"second"_s, true);
        m_clock->advance(5900ms);
        QCOMPARE(store->toast().value_or(Toast()).message, u"second"_s);
        m_clock->advance(100ms);
        QVERIFY(!store->toast());
        store->showToast(u"third"_s, false);
        m_clock->advance(3500ms);
        QVERIFY(!store->toast());
    }

    void switchingTheWorkspaceClearsSelectionAndFilter()
    {
        const auto store = storeWith({noticeOf(u"a"_s, 60), noticeOf(u"b"_s, 60, other)});
        store->selectAlert(u"a"_s);
        store->setFilter(InboxFilter::asks());
        store->requestReply(u"a"_s);
        store->selectWorkspace(own);
        store->selectWorkspace(u"nowhere"_s);
        QCOMPARE(store->selectedAlertID(), std::optional(u"a"_s));
        store->setSection(SidebarSection::team);
        store->revealAlert(u"b"_s);
        QCOMPARE(store->activeWorkspaceID(), other);
        QCOMPARE(store->selectedAlert()->id, u"b"_s);
        QVERIFY(store->requestedReplyID().isEmpty());
        QVERIFY(store->filter() == InboxFilter::all() && store->section() == SidebarSection::inbox);
    }
};

QTEST_GUILESS_MAIN(ViewsTest)
#include "views_test.moc"
