#include "desktop/preference_keys.h"
#include "store/answer_rules.h"
#include "store/invite_rules.h"
#include "store/left_out_text.h"
#include "store/outcome_text.h"
#include "store/service_clock.h"
#include "store/topic_slug.h"
#include "store/waiting_asks.h"
#include "support/in_row.h"
#include "support/manual_clock.h"
#include "text/text_cut.h"

#include <QTest>

using namespace pingwell;
using namespace Qt::StringLiterals;

/// The store's decisions that need nothing but values.
class RulesTest : public QObject
{
    Q_OBJECT

private slots:
    /// What a version wrote, the next one finds.
    void namesInThePreferencesStay()
    {
        using namespace preference_keys;
        QCOMPARE(QStringList({sessionAccount, sessionBaseURL, sessionProvider, serverKind, selfHostedURL,
                              device(QUrl(u"https://x.test/api"_s)), quietHoursEnabled, activeWorkspace,
                              responseTimeoutMinutes(u"w1"_s), timeoutAction(u"w1"_s), unreadAlerts, lastNotifiedAt,
                              lastNotifiedOwner, notifiedAhead, promptDismissed})
                     .join(u' '),
                 u"pingwell.session.account pingwell.session.baseURL pingwell.session.provider pingwell.server.kind"
                 " pingwell.server.selfHostedURL pingwell.device.https://x.test/api"
                 " pingwell.settings.quietHoursEnabled pingwell.workspace.active"
                 " pingwell.workspace.w1.responseTimeoutMinutes pingwell.workspace.w1.timeoutAction"
                 " pingwell.alerts.unread pingwell.notifications.lastAt pingwell.notifications.owner"
                 " pingwell.notifications.ahead pingwell.notifications.promptDismissed"_s);
    }

    void slugs()
    {
        const std::pair<QString, QString> rows[] = {{u"  Deploy Alerts!! 2024 "_s, u"deploy-alerts-2024"_s},
                                                    {u" --- "_s, u""_s},
                                                    {u"a--b c"_s, u"a--b-c"_s},
                                                    {u"\n\tx\n"_s, u"x"_s},
                                                    {u"Ärger über Köln"_s, u"rger-ber-k-ln"_s},
                                                    // It is cut before signs are replaced, and by characters.
                                                    {QString(39, u'a') + u"!bcd"_s, QString(39, u'a')},
                                                    {u"👩‍👩‍👧‍👦"_s.repeated(39) + u"abc"_s, u"a"_s}};
        for (const auto &[name, expected] : rows)
            QCOMPARE(slug(name), expected);
    }

    /// Between characters only.
    void cuts()
    {
        const std::pair<QString, QString> rows[] = {{u"12345"_s, u"12345"_s},
                                                    {u"123456"_s, u"12345"_s},
                                                    {u"1234😀"_s, u"1234"_s},
                                                    {u"12👩‍👩‍👧"_s, u"12"_s},
                                                    {u"e"_s + QString(20, QChar(0x0301)), u""_s}};
        for (const auto &[text, expected] : rows)
            QCOMPARE(withinUnits(text, 5), expected);
    }

    /// What the service's clock is ahead of this computer's, after answers that said so and took that long.
    void serviceTimes()
    {
        const std::tuple<const char *, QList<double>, double, double> rows[] = {
            {"nothing told", {}, 1, 0},
            {"the first answer counts at once", {-3600}, 1, -3600},
            {"the rest of a second that a date leaves out", {1.5}, 0, 0},
            {"beyond what is left out", {2.5}, 0, 2.5},
            {"a slow answer may explain the difference", {10}, 18, 0},
            {"one odd answer among several", {-3600, -3601, 86400, -3599, -3600}, 0, -3600},
            {"the newest five", {0, 0, 0, 60, 60, 60, 60, 60}, 0, 60}};
        for (const auto &[name, told, seconds, expected] : rows) {
            const InRow row(name);
            ManualClock clock(Instant(Seconds(1'700'000'000)));
            ServiceClock service;
            for (const double ahead : told) {
                const Seconds sent = clock.uptime();
                clock.advance(std::chrono::milliseconds(qint64(seconds * 1000)));
                service.learn(clock.now() + Seconds(ahead - seconds / 2 - 0.5), sent, clock.uptime());
            }
            QCOMPARE((service.now(clock) - clock.now()).count(), expected);
            // Whoever sets this computer's clock doesn't move the service's.
            const Instant before = service.now(clock);
            clock.jump(std::chrono::hours(24));
            clock.advance(std::chrono::seconds(5));
            QVERIFY(told.isEmpty() || std::abs((service.now(clock) - before).count() - 5) <= 10);
            service.forget();
            QCOMPARE(service.now(clock), clock.now());
        }
    }

    void leftOutTexts()
    {
        DashboardCounts counts;
        counts.alerts = {.sent = 12'000, .unfit = 0, .beyond = 2'000};
        QCOMPARE(leftOutText({}), QString());
        QCOMPARE(leftOutText(counts),
                 u"The server sent more than this app can show. Not shown: 2,000 of 12,000 alerts."_s);
        counts.alerts.unfit = 1;
        counts.devices = {.sent = 3, .unfit = 3, .beyond = 0};
        QVERIFY(leftOutText(counts).endsWith(u" alerts. The server sent something this app doesn't understand. "
                                             "Not shown: 1 of 12,000 alerts, 3 of 3 devices."_s));
    }

    void addresses()
    {
        Member bob;
        bob.email = u"Bob@X.test "_s;
        bob.status = MemberStatus::invited;
        for (const QString &email : {u"a@b.io"_s, u"  Neu@Example.COM\n"_s})
            QVERIFY2(!inviteError(email, {bob}), qPrintable(email));
        for (const QString &email :
             {u"a@b.c"_s, u"a@b@c.io"_s, u"a b@c.io"_s, u"a\u00a0b@c.io"_s, u"a@b.io."_s, u"a@b.io\n>c"_s, u""_s})
            QVERIFY2(inviteError(email, {bob}) == InviteError::invalidEmail, qPrintable(email));
        QVERIFY(inviteError(u" BOB@x.test"_s, {bob}) == InviteError::duplicate);
    }

    /// As the service reports it, else by the settings of the workspace.
    void outcomes()
    {
        const QString expired = u"the agent was told nobody answered."_s;
        const QString escalated = u"escalated to workspace admins."_s;
        const QString first = u"the agent continued with “Approve”."_s;
        const QString nothing = u"the agent continued with “”."_s;
        using enum TimeoutAction;
        using Action = std::optional<TimeoutAction>;
        constexpr bool team = true, alone = false, text = true, choice = false;
        const std::tuple<const char *, Action, bool, bool, QString> rows[] = {
            {"default", expire, team, choice, first},
            {"escalated", expire, team, choice, escalated},
            {"expired", default_, team, choice, expired},
            {"default", expire, team, text, nothing},
            {"unheard of", escalate, team, choice, escalated},
            {nullptr, default_, team, choice, first},
            {nullptr, default_, team, text, expired},
            {nullptr, escalate, alone, choice, expired},
            {nullptr, {}, alone, choice, expired}};
        for (const auto &[reported, action, isTeam, takesText, ending] : rows) {
            Alert alert;
            alert.kind = AlertKind::ask;
            alert.answerType = takesText ? AnswerType::text : AnswerType::choice;
            if (!takesText)
                alert.actions = {u"Approve"_s, u"Reject"_s};
            if (reported)
                alert.outcome = QString::fromLatin1(reported);
            std::optional<Workspace> own;
            if (action) {
                own.emplace().kind = isTeam ? WorkspaceKind::team : WorkspaceKind::personal;
                own->timeoutAction = *action;
            }
            // Without a deadline of its own it is said to have waited as long as the active workspace allows.
            Workspace active;
            active.responseTimeoutMinutes = 90;
            QCOMPARE(outcomeText(alert, own, active), QString(u"No reply in 1h 30m — "_s + ending));
            QVERIFY(outcomeText(alert, own, std::nullopt).startsWith(u"No reply in 0m — "_s));
            alert.expiresAt = alert.at + Seconds(15 * 60);
            QVERIFY(outcomeText(alert, own, active).startsWith(u"No reply in 15m — "_s));
        }
    }

    void answerRefusals()
    {
        Alert choice;
        choice.kind = AlertKind::ask;
        choice.actions = QStringList{u"Yes"_s};
        choice.expiresAt = Instant(Seconds(1));
        const auto told = [](const std::optional<Alert> &alert, const QString &answer = u"Yes"_s,
                             std::optional<WorkspaceRole> role = WorkspaceRole::member) {
            const auto refusal = refusalOf(alert, role, answer, Instant());
            return refusal ? refusal->reason + (refusal->canAnswerAgain ? u" Again?"_s : QString()) : u"taken"_s;
        };
        const auto changed = [&choice](auto &&change) {
            Alert alert = choice;
            change(alert);
            return alert;
        };
        QCOMPARE(told(choice), u"taken"_s);
        QCOMPARE(told(std::nullopt), u"This question no longer exists."_s);
        QCOMPARE(told(changed([](Alert &alert) { alert.kind = AlertKind::notify; })),
                 u"This alert asks for no answer."_s);
        QCOMPARE(told(changed([](Alert &alert) { alert.answer = u"Yes"_s; })),
                 u"This question has already been answered."_s);
        QCOMPARE(told(changed([](Alert &alert) { alert.expiresAt = Instant(); })),
                 u"The time to answer this question is over."_s);
        QCOMPARE(told(choice, u"Yes"_s, {}), u"You no longer belong to this question's workspace."_s);
        QCOMPARE(told(choice, u"Yes"_s, WorkspaceRole::viewer), u"Viewers can't reply to asks."_s);
        QCOMPARE(told(choice, u"No"_s), u"The agent no longer offers this choice. Again?"_s);
        const Alert text = changed([](Alert &alert) { alert.answerType = AnswerType::text; });
        QCOMPARE(told(text, QString(1000, u'x')), u"taken"_s);
        for (const QString &unfit : {QString(1001, u'x'), u" \n"_s})
            QCOMPARE(told(text, unfit), u"An answer has 1 to 1000 characters. Again?"_s);
    }

    void asksEndOnce()
    {
        QList<Alert> alerts(4);
        const auto at = [](int seconds) { return Instant(Seconds(seconds)); };
        for (qsizetype index = 0; index < alerts.size(); ++index) {
            alerts[index].id = QString::number(index);
            alerts[index].kind = index == 3 ? AlertKind::notify : AlertKind::ask;
            alerts[index].expiresAt = at(10 + static_cast<int>(index));
        }
        WaitingAsks asks;
        QCOMPARE(asks.endedIn(alerts, at(0)), QStringList());
        QVERIFY(!asks.mayEndBy(at(9)) && asks.mayEndBy(at(10)));
        alerts[2].answer = u"Yes"_s;
        alerts.removeAt(1);
        QStringList ended = asks.endedIn(alerts, at(9));
        ended.sort();
        QCOMPARE(ended, (QStringList{u"1"_s, u"2"_s}));
        QCOMPARE(asks.endedIn(alerts, at(10)), QStringList{u"0"_s});
        QCOMPARE(asks.endedIn(alerts, at(11)), QStringList());
        QVERIFY(!asks.mayEndBy(at(99)));
    }
};

QTEST_APPLESS_MAIN(RulesTest)
#include "rules_test.moc"
