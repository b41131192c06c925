#include "screen_fixture.h"

#include <QTest>

using namespace pingwell;
using namespace Qt::StringLiterals;

namespace {

Topic makeTopic(const QString &id, const QString &name, const QString &workspace = u"w1"_s)
{
    return {id, workspace, name, Priority::normal, false, false, {}};
}

struct TopicsScreen : Screen
{
    explicit TopicsScreen(const QList<Topic> &topics, const QList<Alert> &alerts = {})
        : Screen(u"TopicsView"_s, seedOf(topics, alerts), true, {{u"width"_s, 640}, {u"height"_s, 480}})
    {
    }

    static SeedData seedOf(const QList<Topic> &topics, const QList<Alert> &alerts)
    {
        SeedData seed = makeSeed(alerts);
        seed.topics = topics;
        return seed;
    }
};

} // namespace

class TopicsTest : public QObject
{
    Q_OBJECT

private slots:
    void rowFollowsItsTopic()
    {
        Alert elsewhere = makeAlert(u"a3"_s, u"Else"_s, 3);
        elsewhere.workspaceId = u"w2"_s;
        TopicsScreen screen({makeTopic(u"t1"_s, u"deploys"_s), makeTopic(u"t2"_s, u"deploys"_s, u"w2"_s)},
                            {makeAlert(u"a1"_s, u"One"_s, 1), makeAlert(u"a2"_s, u"Two"_s, 2), elsewhere});
        QCOMPARE(screen.name(u"topic.t1.count"_s), u"2 alerts"_s);
        QVERIFY(!screen.shows(u"topic.t2"_s));

        screen.click(u"topic.t1.mute"_s);
        QCOMPARE(screen.name(u"topic.t1.mutedBadge"_s), u"Muted"_s);
        screen.click(u"topic.t1.mute"_s);
        QVERIFY(!screen.shows(u"topic.t1.mutedBadge"_s));

        screen.click({u"topic.t1.menu"_s, u"topic.t1.quietHours"_s});
        QCOMPARE(screen.name(u"topic.t1.count"_s), u"2 alerts · respects quiet hours"_s);
        screen.click({u"topic.t1.minPriority"_s, u"topic.t1.minPriority.critical"_s});
        QCOMPARE(screen.value(u"topic.t1.minPriority"_s), u"Critical"_s);

        screen.click({u"topic.t1.menu"_s, u"topic.t1.delete"_s});
        QVERIFY(!screen.shows(u"topic.t1"_s) && screen.shows(u"topics.empty"_s) && screen.shows(u"topics.new.name"_s));
    }

    void newTopic()
    {
        const std::tuple<QString, QString, QString> rows[] = {
            {u""_s, u""_s, u""_s},
            {u"  "_s, u""_s, u""_s},
            {u"--"_s, u"A name needs a letter from a to z or a digit."_s, u""_s},
            {u"new-topic"_s, u""_s, u"new-topic"_s},
            {u" Deploy Alerts!"_s, u"It will be called “deploy-alerts”."_s, u"deploy-alerts"_s}};
        for (const auto &[typed, hint, created] : rows) {
            TopicsScreen screen({});
            screen.click(u"topics.new.name"_s);
            screen.type(typed);
            QCOMPARE(screen.name(u"topics.new.hint"_s), hint);
            QCOMPARE(screen.canUse(u"topics.new.add"_s), !created.isEmpty());
            screen.press(Qt::Key_Return);
            QCOMPARE(screen.store().activeTopicNames().join(u','), created);
            QCOMPARE(screen.text(u"topics.new.name"_s), created.isEmpty() ? typed : QString());
            QCOMPARE(screen.focused(), u"topics.new.name"_s);
        }
    }

    void keyboardReachesEveryRowAndItsControls()
    {
        QList<Topic> topics;
        for (int index = 0; index < 60; ++index)
            topics << makeTopic(u"t%1"_s.arg(index), u"topic-%1"_s.arg(index));
        TopicsScreen screen(topics);
        // Only the rows in sight are made.
        QVERIFY(
            screen.view().rootObject()->findChildren<QQuickItem *>(QRegularExpression(u"^topic\\.t\\d+$"_s)).size() <
            20);
        screen.click(u"topics.new.name"_s);
        screen.press(Qt::Key_Tab);
        QCOMPARE(screen.focused(), u"topic.t0"_s);
        screen.press(Qt::Key_Backtab);
        QCOMPARE(screen.focused(), u"topics.new.name"_s);
        screen.press(Qt::Key_Tab);
        for (int index = 0; index < 12; ++index)
            screen.press(Qt::Key_Down);
        screen.press(Qt::Key_Tab);
        QCOMPARE(screen.focused(), u"topic.t12.minPriority"_s);
        QVERIFY(screen.place(u"topic.t12"_s, {0, 56}).y() <= screen.view().height());

        screen.press({Qt::Key_Space, Qt::Key_Down, Qt::Key_Return});
        QCOMPARE(screen.store().topics().at(12).minPriority, Priority::high);
        QCOMPARE(screen.focused(), u"topic.t12.minPriority"_s);
        screen.press({Qt::Key_Tab, Qt::Key_Space});
        QVERIFY(screen.store().topics().at(12).muted);
        screen.press(Qt::Key_Down);
        QCOMPARE(screen.focused(), u"topic.t13"_s);
        screen.press({Qt::Key_Tab, Qt::SHIFT | Qt::Key_F10, Qt::Key_End, Qt::Key_Return});
        QVERIFY(!screen.shows(u"topic.t13"_s));
        screen.press(Qt::Key_Home);
        QCOMPARE(screen.focused(), u"topic.t0"_s);
    }
};

QTEST_MAIN(TopicsTest)
#include "topics_test.moc"
