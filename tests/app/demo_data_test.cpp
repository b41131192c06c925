#include "app/demo_data.h"

#include <QSet>
#include <QTest>

using namespace pingwell;
using namespace Qt::StringLiterals;

namespace {

const Instant now = instantFromMilliseconds(1'700'000'000'000.0);

template<typename Value, typename Range, typename Of>
QSet<Value> all(const Range &range, Of of)
{
    QSet<Value> values;
    for (const auto &item : range)
        values.insert(Value(of(item)));
    return values;
}

} // namespace

class DemoDataTest : public QObject
{
    Q_OBJECT

private slots:
    void timesAreRelativeToNow();
    void showsEveryState();
    void showsEveryRole();
    void refersOnlyToWhatExists();
    void waitsInTheFirstWorkspace();

private:
    const SeedData m_seed = demoData(now);
};

void DemoDataTest::timesAreRelativeToNow()
{
    QSet<int> offsets;
    const auto take = [&offsets](std::optional<Instant> instant) {
        if (instant)
            offsets.insert(int((*instant - now).count()));
    };
    for (const Alert &alert : m_seed.alerts) {
        take(alert.at);
        take(alert.expiresAt);
        take(alert.timedOutAt);
    }
    QCOMPARE(offsets, (QSet<int>{-172800, -93600, -11400, -8400, -3720, -2280, -1860, -1200, -720, -540, -360, -240,
                                 -120, -60, 60}));
}

void DemoDataTest::showsEveryState()
{
    const QList<Alert> &alerts = m_seed.alerts;
    QStringList ids;
    for (const Alert &alert : alerts)
        ids += alert.id;
    QCOMPARE(ids.join(u' '), u"a1 a2 a3 a4 a5 a6 a7 a8 b1 b2 b3 b4 b5"_s);
    const auto any = [&alerts](auto condition) { return std::any_of(alerts.begin(), alerts.end(), condition); };
    QVERIFY(any([](const Alert &alert) { return alert.kind == AlertKind::notify && !alert.read; }));
    QVERIFY(any([](const Alert &alert) { return alert.kind == AlertKind::notify && alert.read; }));
    QVERIFY(any([](const Alert &alert) { return alert.answer && alert.actions.contains(*alert.answer); }));
    QVERIFY(any([](const Alert &alert) { return isTimedOut(alert.replyState(now)); }));
    QVERIFY(any([](const Alert &alert) { return alert.isWaiting(now) && alert.expiresAt == now + Seconds(60); }));
    QVERIFY(
        any([](const Alert &alert) { return alert.acceptsText() && alert.placeholder == u"e.g. #eng-releases"_s; }));
    QCOMPARE(all<int>(alerts, [](const Alert &alert) { return int(alert.priority); }).size(), 4);
    QCOMPARE(all<QString>(alerts, [](const Alert &alert) { return alert.app; }).size(), 6);
    for (const Alert &alert : alerts)
        QVERIFY2(alert.kind != AlertKind::ask || alert.acceptsText() == alert.actions.isEmpty(), qPrintable(alert.id));
}

void DemoDataTest::showsEveryRole()
{
    QSet<int> own;
    QSet<int> anyone;
    for (const Workspace &workspace : m_seed.workspaces) {
        own.insert(int(workspace.role));
        const QList<Member> members = m_seed.members.value(workspace.id);
        QCOMPARE(std::count_if(members.begin(), members.end(), [](const Member &member) { return member.isYou; }), 1);
        for (const Member &member : members) {
            anyone.insert(int(member.role));
            QVERIFY(!member.isYou || member.role == workspace.role);
        }
    }
    QCOMPARE(anyone.size(), 4);
    QVERIFY(own.contains(int(WorkspaceRole::viewer)) && own.contains(int(WorkspaceRole::member)));
    QVERIFY(m_seed.workspaces.first().canManage());
}

void DemoDataTest::refersOnlyToWhatExists()
{
    const QSet<QString> workspaces = all<QString>(m_seed.workspaces, [](const Workspace &item) { return item.id; });
    const auto topicKey = [](const auto &item, const QString &topic) -> QString {
        return item.workspaceId + u'/' + topic;
    };
    const QSet<QString> topics =
        all<QString>(m_seed.topics, [&](const Topic &item) { return topicKey(item, item.name); });
    for (const Alert &alert : m_seed.alerts) {
        QVERIFY2(workspaces.contains(alert.workspaceId), qPrintable(alert.id));
        QVERIFY2(topics.contains(topicKey(alert, alert.topic)), qPrintable(alert.id));
    }
    QSet<QString> memberIDs;
    qsizetype memberCount = 0;
    for (const QList<Member> &members : m_seed.members) {
        memberCount += members.size();
        memberIDs += all<QString>(members, [](const Member &member) { return member.id; });
    }
    QCOMPARE(memberIDs.size(), memberCount);
}

void DemoDataTest::waitsInTheFirstWorkspace()
{
    qsizetype waiting = 0;
    qsizetype today = 0;
    for (const Alert &alert : m_seed.alerts) {
        if (alert.workspaceId != m_seed.workspaces.first().id)
            continue;
        waiting += alert.isWaiting(now) ? 1 : 0;
        today += !alert.isWaiting(now) && now - alert.at < Seconds(86'400) ? 1 : 0;
    }
    QCOMPARE(waiting, 3);
    QCOMPARE(today, 6);
}

QTEST_GUILESS_MAIN(DemoDataTest)
#include "demo_data_test.moc"
