#include "store/notification_choice.h"

#include "store_fixture.h"

#include <QTest>

using namespace pingwell;

namespace {

Alert notice(const QString &id, double secondsAgo)
{
    Alert alert;
    alert.id = id;
    alert.workspaceId = QStringLiteral("w1");
    alert.topic = QStringLiteral("infra");
    alert.at = testStart - Seconds(secondsAgo);
    return alert;
}

template<typename Change>
Alert with(Alert alert, Change change)
{
    change(alert);
    return alert;
}

const NotificationMoment moment{
    .after = testStart - Seconds(10'000), .now = testStart, .minuteOfDay = 12 * 60, .hasLoaded = true};

QString chosenIDs(const QList<AlertToNotify> &chosen)
{
    QStringList ids;
    for (const AlertToNotify &entry : chosen)
        ids << entry.alert.id;
    return ids.join(u' ');
}

} // namespace

class NotificationChoiceTest : public QObject
{
    Q_OBJECT

private slots:
    void oneAlert_data()
    {
        QTest::addColumn<Alert>("alert");
        QTest::addColumn<bool>("hasLoaded");
        QTest::addColumn<bool>("chosen");
        const auto asking = [](Alert &alert) { alert.kind = AlertKind::ask; };

        QTest::newRow("a new notice") << notice(QStringLiteral("a"), 60) << true << true;
        QTest::newRow("posted at the mark") << notice(QStringLiteral("a"), 10'000) << true << false;
        QTest::newRow("just after the mark") << notice(QStringLiteral("a"), 9'999) << true << true;
        QTest::newRow("already held") << notice(QStringLiteral("held"), 60) << true << false;
        QTest::newRow("read") << with(notice(QStringLiteral("a"), 60), [](Alert &alert) { alert.read = true; }) << true
                              << false;
        QTest::newRow("not delivered") << with(notice(QStringLiteral("a"), 60), [](Alert &alert) {
            alert.delivered = false;
        }) << true << false;
        QTest::newRow("an open ask") << with(notice(QStringLiteral("a"), 60), asking) << true << true;
        QTest::newRow("an answered ask") << with(notice(QStringLiteral("a"), 60), [&](Alert &alert) {
            asking(alert);
            alert.answer = QStringLiteral("Approve");
        }) << true << false;
        QTest::newRow("an ask past its deadline") << with(notice(QStringLiteral("a"), 60), [&](Alert &alert) {
            asking(alert);
            alert.expiresAt = testStart;
        }) << true << false;
        QTest::newRow("half an hour old at the first sync") << notice(QStringLiteral("a"), 1800) << false << true;
        QTest::newRow("an hour old at the first sync") << notice(QStringLiteral("a"), 3600) << false << false;
    }

    void oneAlert()
    {
        QFETCH(Alert, alert);
        QFETCH(bool, hasLoaded);
        QFETCH(bool, chosen);
        Dashboard fresh;
        fresh.alerts = {alert};
        NotificationMoment at = moment;
        at.hasLoaded = hasLoaded;
        const auto result = chooseAlertsToNotify(fresh, {notice(QStringLiteral("held"), 60)}, at);
        QCOMPARE(result.size(), chosen ? 1 : 0);
    }

    void fiveNewestOfEight()
    {
        Dashboard fresh;
        for (const int minutes : {3, 8, 1, 6, 2, 7, 5, 4})
            fresh.alerts << notice(QString::number(minutes), minutes * 60);
        QCOMPARE(chosenIDs(chooseAlertsToNotify(fresh, {}, moment)), QStringLiteral("1 2 3 4 5"));
    }

    void workspaceIsNamedOnlyAmongSeveral()
    {
        Dashboard fresh;
        fresh.alerts = {notice(QStringLiteral("a"), 60)};
        Workspace own;
        own.id = QStringLiteral("w1");
        own.name = QStringLiteral("Acme");
        fresh.workspaces = {own};
        QCOMPARE(chooseAlertsToNotify(fresh, {}, moment).first().workspaceName, std::optional<QString>());
        fresh.workspaces << Workspace();
        QCOMPARE(chooseAlertsToNotify(fresh, {}, moment).first().workspaceName, std::optional(QStringLiteral("Acme")));
    }

    void quietWindow_data()
    {
        QTest::addColumn<QString>("from");
        QTest::addColumn<QString>("to");
        QTest::addColumn<int>("minute");
        QTest::addColumn<bool>("quiet");
        QTest::newRow("within a day: start") << "12:00"
                                             << "14:00" << 720 << true;
        QTest::newRow("within a day: end") << "12:00"
                                           << "14:00" << 840 << false;
        QTest::newRow("over midnight: late") << "22:00"
                                             << "07:00" << 22 * 60 << true;
        QTest::newRow("over midnight: early") << "22:00"
                                              << "07:00" << 6 * 60 + 59 << true;
        QTest::newRow("over midnight: morning") << "22:00"
                                                << "07:00" << 7 * 60 << false;
        QTest::newRow("empty window") << "09:00"
                                      << "09:00" << 540 << false;
        QTest::newRow("not a time") << "late"
                                    << "07:00" << 1430 << false;
        QTest::newRow("three numbers") << "22:00:00"
                                       << "07:00" << 1430 << false;
        QTest::newRow("pieces that are no numbers are dropped") << "x:22:00"
                                                                << ":07:00:" << 1430 << true;
        QTest::newRow("hours beyond the day are not checked") << "30:00"
                                                              << "07:00" << 60 << true;
        QTest::newRow("enormous hours") << "2147483647:00"
                                        << "07:00" << 60 << true;
    }

    void quietWindow()
    {
        QFETCH(QString, from);
        QFETCH(QString, to);
        QFETCH(int, minute);
        QFETCH(bool, quiet);
        NotificationSettings settings{.quietHoursEnabled = true, .quietFrom = from, .quietTo = to};
        QCOMPARE(isQuiet(settings, minute), quiet);
        settings.quietHoursEnabled = false;
        QVERIFY(!isQuiet(settings, minute));
    }

    void sound_data()
    {
        QTest::addColumn<bool>("soundOn");
        QTest::addColumn<bool>("night");
        QTest::addColumn<bool>("topicIsQuiet");
        QTest::addColumn<bool>("critical");
        QTest::addColumn<bool>("sounds");
        QTest::newRow("by day") << true << false << true << false << true;
        QTest::newRow("by night in a quiet topic") << true << true << true << false << false;
        QTest::newRow("by night in another topic") << true << true << false << false << true;
        QTest::newRow("by night, critical") << true << true << true << true << true;
        QTest::newRow("sound is off") << false << false << false << true << false;
    }

    void sound()
    {
        QFETCH(bool, soundOn);
        QFETCH(bool, night);
        QFETCH(bool, topicIsQuiet);
        QFETCH(bool, critical);
        QFETCH(bool, sounds);
        Dashboard fresh;
        fresh.settings = {.quietHoursEnabled = true, .sound = soundOn};
        Topic topic;
        topic.workspaceId = QStringLiteral("w1");
        topic.name = QStringLiteral("infra");
        topic.quietHours = topicIsQuiet;
        Topic elsewhere = topic;
        elsewhere.workspaceId = QStringLiteral("w2");
        elsewhere.quietHours = !topicIsQuiet;
        fresh.topics = {elsewhere, topic};
        Alert alert = notice(QStringLiteral("a"), 60);
        alert.priority = critical ? Priority::critical : Priority::normal;
        fresh.alerts = {alert};
        NotificationMoment at = moment;
        at.minuteOfDay = night ? 23 * 60 : 12 * 60;
        QCOMPARE(chooseAlertsToNotify(fresh, {}, at).first().sound, sounds);
    }
};

QTEST_APPLESS_MAIN(NotificationChoiceTest)
#include "notification_choice_test.moc"
