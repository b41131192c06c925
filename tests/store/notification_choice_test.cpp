#include "store/notification_choice.h"

#include "store_fixture.h"

#include <QTest>

using namespace pingwell;
using namespace Qt::StringLiterals;

namespace {

using Change = void (*)(Alert &);

Dashboard dashboardOf(const Alert &alert)
{
    Dashboard dashboard;
    dashboard.alerts = {alert};
    return dashboard;
}

const NotificationMoment noon{
    .after = testStart - Seconds(10'000), .now = testStart, .minuteOfDay = 12 * 60, .hasLoaded = true};

} // namespace

class NotificationChoiceTest : public QObject
{
    Q_OBJECT

private slots:
    void oneAlert()
    {
        const Change none = [](Alert &) {};
        const std::tuple<const char *, double, bool, bool, Change> rows[] = {
            {"a new notice", 60, true, true, none},
            {"posted at the mark", 10'000, true, false, none},
            {"just after the mark", 9'999, true, true, none},
            {"already held", 60, true, false, [](Alert &a) { a.id = u"held"_s; }},
            {"read", 60, true, false, [](Alert &a) { a.read = true; }},
            {"not delivered", 60, true, false, [](Alert &a) { a.delivered = false; }},
            {"an open ask", 60, true, true, [](Alert &a) { a.kind = AlertKind::ask; }},
            {"answered", 60, true, false, [](Alert &a) { a.kind = AlertKind::ask, a.answer = u"Approve"_s; }},
            {"past its deadline", 60, true, false, [](Alert &a) { a.kind = AlertKind::ask, a.expiresAt = testStart; }},
            {"half an hour old at the first sync", 1800, false, true, none},
            {"an hour old at the first sync", 3600, false, false, none}};
        for (const auto &[name, secondsAgo, hasLoaded, isChosen, change] : rows) {
            Alert alert = noticeOf(u"a"_s, secondsAgo);
            change(alert);
            NotificationMoment moment = noon;
            moment.hasLoaded = hasLoaded;
            const auto chosen = chooseAlertsToNotify(dashboardOf(alert), {noticeOf(u"held"_s, 60)}, moment);
            QVERIFY2(chosen.isEmpty() != isChosen, name);
        }
    }

    void fiveNewestOfEight()
    {
        Dashboard fresh;
        for (const int minutes : {3, 8, 1, 6, 2, 7, 5, 4})
            fresh.alerts << noticeOf(QString::number(minutes), minutes * 60);
        QString chosen;
        for (const AlertToNotify &entry : chooseAlertsToNotify(fresh, {}, noon))
            chosen += entry.alert.id;
        QCOMPARE(chosen, u"12345"_s);
    }

    void whatDependsOnTheWorkspace()
    {
        Dashboard fresh = dashboardOf(noticeOf(u"a"_s, 60));
        Workspace &own = fresh.workspaces.emplace_back();
        own.id = u"w1"_s;
        own.name = u"Acme"_s;
        own.role = WorkspaceRole::member;
        AlertToNotify told = chooseAlertsToNotify(fresh, {}, noon).first();
        QVERIFY(!told.workspaceName && told.canAnswer);
        own.role = WorkspaceRole::viewer;
        fresh.workspaces << Workspace();
        told = chooseAlertsToNotify(fresh, {}, noon).first();
        QVERIFY(told.workspaceName == u"Acme"_s && !told.canAnswer);
    }

    void quietWindow()
    {
        const std::tuple<const char *, QString, QString, int, bool> rows[] = {
            {"within a day: start", u"12:00"_s, u"14:00"_s, 720, true},
            {"within a day: end", u"12:00"_s, u"14:00"_s, 840, false},
            {"over midnight: late", u"22:00"_s, u"07:00"_s, 1320, true},
            {"over midnight: early", u"22:00"_s, u"07:00"_s, 419, true},
            {"over midnight: morning", u"22:00"_s, u"07:00"_s, 420, false},
            {"empty window", u"09:00"_s, u"09:00"_s, 540, false},
            {"not a time", u"late"_s, u"07:00"_s, 1430, false},
            {"three numbers", u"22:00:00"_s, u"07:00"_s, 1430, false},
            {"pieces that are no numbers", u"x:22:00"_s, u":07:00:"_s, 1430, true},
            {"hours beyond the day are not checked", u"30:00"_s, u"07:00"_s, 60, true},
            {"enormous hours", u"2147483647:00"_s, u"07:00"_s, 60, true}};
        for (const auto &[name, from, to, minute, quiet] : rows) {
            NotificationSettings settings{.quietHoursEnabled = true, .quietFrom = from, .quietTo = to};
            QVERIFY2(isQuiet(settings, minute) == quiet, name);
            settings.quietHoursEnabled = false;
            QVERIFY2(!isQuiet(settings, minute), name);
        }
    }

    void sound()
    {
        const std::tuple<const char *, bool, bool, bool, bool, bool> rows[] = {
            {"by day", true, false, true, false, true},
            {"by night in a quiet topic", true, true, true, false, false},
            {"by night in another topic", true, true, false, false, true},
            {"by night, critical", true, true, true, true, true},
            {"sound is off", false, false, false, true, false}};
        for (const auto &[name, soundOn, night, topicIsQuiet, critical, sounds] : rows) {
            Alert alert = noticeOf(u"a"_s, 60, u"w1"_s, u"infra"_s);
            alert.priority = critical ? Priority::critical : Priority::normal;
            Dashboard fresh = dashboardOf(alert);
            fresh.settings = {.quietHoursEnabled = true, .sound = soundOn};
            // The topic of the same name elsewhere is none of this alert's.
            for (const QString &workspace : {u"w2"_s, u"w1"_s}) {
                Topic &topic = fresh.topics.emplace_back();
                topic.workspaceId = workspace;
                topic.name = u"infra"_s;
                topic.quietHours = topicIsQuiet == (workspace == u"w1");
            }
            NotificationMoment moment = noon;
            moment.minuteOfDay = night ? 23 * 60 : 12 * 60;
            QVERIFY2(chooseAlertsToNotify(fresh, {}, moment).first().sound == sounds, name);
        }
    }
};

QTEST_APPLESS_MAIN(NotificationChoiceTest)
#include "notification_choice_test.moc"
