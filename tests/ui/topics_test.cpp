#include "screen_fixture.h"

#include <QRegularExpression>
#include <QTest>

using namespace pingwell;
using namespace Qt::StringLiterals;

namespace {

const QString view = u"TopicsView"_s;
const QString rows = u"topic\\.[^.]+"_s;

Topic makeTopic(const QString &id, const QString &name, const QString &workspace = u"w1"_s)
{
    Topic topic;
    topic.id = id;
    topic.workspaceId = workspace;
    topic.name = name;
    return topic;
}

const QVariantMap size{{u"width"_s, 640}, {u"height"_s, 480}};

SeedData day(const QList<Topic> &topics, const QList<Alert> &alerts = {})
{
    SeedData seed = makeSeed(alerts);
    seed.topics = topics;
    return seed;
}

} // namespace

class TopicsTest : public QObject
{
    Q_OBJECT

private slots:
    void rowFollowsItsTopic()
    {
        Alert elsewhere = makeAlert(u"a3"_s, u"Else"_s, 3);
        elsewhere.workspaceId = u"w2"_s;
        Screen screen(view,
                      day({makeTopic(u"t1"_s, u"deploys"_s), makeTopic(u"t2"_s, u"deploys"_s, u"w2"_s)},
                          {makeAlert(u"a1"_s, u"One"_s, 1), makeAlert(u"a2"_s, u"Two"_s, 2), elsewhere}),
                      true, size);
        QCOMPARE(screen.count(rows), 1);
        QCOMPARE(screen.name(u"topic.t1.count"_s), u"2 alerts"_s);
        QVERIFY(!screen.shows(u"topic.t1.mutedBadge"_s));

        screen.click(u"topic.t1.mute"_s);
        QVERIFY(screen.store().topics().first().muted);
        QCOMPARE(screen.name(u"topic.t1.mutedBadge"_s), u"Muted"_s);
        screen.click(u"topic.t1.mute"_s);
        QVERIFY(!screen.shows(u"topic.t1.mutedBadge"_s));

        screen.click(u"topic.t1.menu"_s);
        screen.click(u"topic.t1.quietHours"_s);
        QCOMPARE(screen.name(u"topic.t1.count"_s), u"2 alerts · respects quiet hours"_s);
        screen.click(u"topic.t1.minPriority"_s);
        screen.click(u"topic.t1.minPriority.critical"_s);
        QCOMPARE(screen.store().topics().first().minPriority, Priority::critical);

        screen.click(u"topic.t1.menu"_s);
        screen.click(u"topic.t1.delete"_s);
        QCOMPARE(screen.store().topics().size(), 1);
        QCOMPARE(screen.name(u"topics.empty"_s),
                 u"No topics yet. Agents create them by tagging alerts, or add one above."_s);
        QVERIFY(!screen.shows(u"topic.t1"_s) && screen.shows(u"topics.new.name"_s));
    }

    void newTopic_data()
    {
        QTest::addColumn<QString>("typed");
        QTest::addColumn<QString>("hint");
        QTest::addColumn<QString>("created");
        QTest::newRow("nothing") << u""_s << u""_s << u""_s;
        QTest::newRow("blanks") << u"  "_s << u""_s << u""_s;
        QTest::newRow("hyphens") << u"--"_s << u"A name needs a letter from a to z or a digit."_s << u""_s;
        QTest::newRow("as typed") << u"new-topic"_s << u""_s << u"new-topic"_s;
        QTest::newRow("made plain") << u" Deploy Alerts!"_s << u"It will be called “deploy-alerts”."_s
                                    << u"deploy-alerts"_s;
    }

    void newTopic()
    {
        QFETCH(QString, typed);
        QFETCH(QString, hint);
        QFETCH(QString, created);
        Screen screen(view, day({}), true, size);
        screen.click(u"topics.new.name"_s);
        screen.type(typed);
        QCOMPARE(screen.name(u"topics.new.hint"_s), hint);
        QCOMPARE(screen.find(u"topics.new.add"_s)->isEnabled(), !created.isEmpty());
        screen.press(Qt::Key_Return);
        QCOMPARE(screen.store().activeTopicNames(), created.isEmpty() ? QStringList() : QStringList{created});
        QCOMPARE(screen.find(u"topics.new.name"_s)->property("text").toString(), created.isEmpty() ? typed : QString());
        QCOMPARE(screen.focused(), u"topics.new.name"_s);
    }

    void keyboardReachesEveryRowAndItsControls()
    {
        QList<Topic> topics;
        for (int index = 0; index < 30; ++index)
            topics << makeTopic(u"t%1"_s.arg(index), u"topic-%1"_s.arg(index));
        Screen screen(view, day(topics), true, size);
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
        const qreal bottom = screen.find(u"topic.t12"_s)->mapToScene(QPointF(0, 56)).y();
        QVERIFY2(bottom <= screen.view().height(), qPrintable(QString::number(bottom)));

        screen.press(Qt::Key_Space);
        screen.press(Qt::Key_Down);
        screen.press(Qt::Key_Return);
        QCOMPARE(screen.store().topics().at(12).minPriority, Priority::high);
        QCOMPARE(screen.focused(), u"topic.t12.minPriority"_s);
        screen.press(Qt::Key_Tab);
        screen.press(Qt::Key_Space);
        QVERIFY(screen.store().topics().at(12).muted);
        screen.press(Qt::Key_Down);
        QCOMPARE(screen.focused(), u"topic.t13"_s);
        screen.press(Qt::Key_Tab);
        QCOMPARE(screen.focused(), u"topic.t13.minPriority"_s);
        screen.press(Qt::Key_F10, Qt::ShiftModifier);
        screen.press(Qt::Key_Down);
        screen.press(Qt::Key_Down);
        screen.press(Qt::Key_Return);
        QVERIFY(!screen.shows(u"topic.t13"_s));
    }

    void manyTopicsAreMadeAsTheyAreSeen()
    {
        QList<Topic> topics;
        for (int index = 0; index < 200; ++index)
            topics << makeTopic(u"t%1"_s.arg(index), u"topic-%1"_s.arg(index));
        QList<Alert> alerts;
        for (int index = 0; index < 10'000; ++index) {
            alerts << makeAlert(u"a%1"_s.arg(index), u"Notice"_s, index);
            alerts.last().topic = u"topic-%1"_s.arg(index % 200);
        }
        Screen screen(view, day(topics, alerts), true, size);
        QCOMPARE(screen.name(u"topic.t0.count"_s), u"50 alerts"_s);
        QVERIFY(
            screen.view().rootObject()->findChildren<QQuickItem *>(QRegularExpression(u"^topic\\.t\\d+$"_s)).size() <
            30);
    }
};

QTEST_MAIN(TopicsTest)
#include "topics_test.moc"
