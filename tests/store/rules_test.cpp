#include "store/answer_rules.h"
#include "store/invite_rules.h"
#include "store/left_out_text.h"
#include "store/outcome_text.h"
#include "store/preference_keys.h"
#include "store/service_clock.h"
#include "store/text_cut.h"
#include "store/topic_slug.h"
#include "store/waiting_asks.h"
#include "support/manual_clock.h"

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

    void slugs_data()
    {
        QTest::addColumn<QString>("name");
        QTest::addColumn<QString>("expected");
        QTest::newRow("words and signs") << u"  Deploy Alerts!! 2024 "_s << u"deploy-alerts-2024"_s;
        QTest::newRow("hyphens alone") << u" --- "_s << u""_s;
        QTest::newRow("hyphens inside") << u"a--b c"_s << u"a--b-c"_s;
        QTest::newRow("cut before it is replaced") << QString(QString(39, u'a') + u"!bcd"_s) << QString(39, u'a');
        QTest::newRow("characters, not units")
            << QString(u"👩‍👩‍👧‍👦"_s.repeated(39) + u"abc"_s) << u"a"_s;
        QTest::newRow("other letters") << u"Ärger über Köln"_s << u"rger-ber-k-ln"_s;
        QTest::newRow("lines") << u"\n\tx\n"_s << u"x"_s;
    }

    void slugs()
    {
        QFETCH(QString, name);
        QTEST(slug(name), "expected");
    }

    void cuts_data()
    {
        QTest::addColumn<QString>("text");
        QTest::addColumn<QString>("expected");
        QTest::newRow("at the limit") << u"12345"_s << u"12345"_s;
        QTest::newRow("one over") << u"123456"_s << u"12345"_s;
        QTest::newRow("an emoji across the limit") << u"1234😀"_s << u"1234"_s;
        QTest::newRow("a family across the limit") << u"12👩‍👩‍👧"_s << u"12"_s;
        QTest::newRow("one endless character") << QString(u"e"_s + QString(20, QChar(0x0301))) << u""_s;
    }

    void cuts()
    {
        QFETCH(QString, text);
        QTEST(withinUnits(text, 5), "expected");
    }

    /// What the service's clock is ahead of this computer's, after answers that said so and took that long.
    void serviceTimes_data()
    {
        QTest::addColumn<QList<double>>("told");
        QTest::addColumn<double>("seconds");
        QTest::addColumn<double>("expected");
        const auto row = [](const char *name, const QList<double> &told, double seconds, double expected) {
            QTest::newRow(name) << told << seconds << expected;
        };
        row("nothing told", {}, 1, 0);
        row("the first answer counts at once", {-3600}, 1, -3600);
        row("the rest of a second that a date leaves out", {1.5}, 0, 0);
        row("beyond what is left out", {2.5}, 0, 2.5);
        row("a slow answer may explain the difference", {10}, 18, 0);
        row("one odd answer among several", {-3600, -3601, 86400, -3599, -3600}, 0, -3600);
        row("the newest five", {0, 0, 0, 60, 60, 60, 60, 60}, 0, 60);
    }

    void serviceTimes()
    {
        QFETCH(QList<double>, told);
        QFETCH(double, seconds);
        QFETCH(double, expected);
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
        if (!told.isEmpty())
            QVERIFY(std::abs((service.now(clock) - before).count() - 5) <= 10);
        service.forget();
        QCOMPARE(service.now(clock), clock.now());
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

    void addresses_data()
    {
        QTest::addColumn<QString>("email");
        QTest::addColumn<std::optional<InviteError>>("expected");
        const auto invalid = std::optional(InviteError::invalidEmail);
        QTest::newRow("plain") << u"a@b.io"_s << std::optional<InviteError>();
        QTest::newRow("blanks around") << u"  Neu@Example.COM\n"_s << std::optional<InviteError>();
        QTest::newRow("one letter at the end") << u"a@b.c"_s << invalid;
        QTest::newRow("two at-signs") << u"a@b@c.io"_s << invalid;
        QTest::newRow("blank inside") << u"a b@c.io"_s << invalid;
        QTest::newRow("no-break space inside") << u"a\u00a0b@c.io"_s << invalid;
        QTest::newRow("dot at the end") << u"a@b.io."_s << invalid;
        QTest::newRow("line break at the end of an inner text") << u"a@b.io\n>c"_s << invalid;
        QTest::newRow("empty") << u""_s << invalid;
        QTest::newRow("known, in other case") << u" BOB@x.test"_s << std::optional(InviteError::duplicate);
    }

    void addresses()
    {
        QFETCH(QString, email);
        QFETCH(std::optional<InviteError>, expected);
        Member bob;
        bob.email = u"Bob@X.test "_s;
        bob.status = MemberStatus::invited;
        QVERIFY(inviteError(email, {bob}) == expected);
    }

    void outcomes_data()
    {
        QTest::addColumn<QString>("outcome");
        QTest::addColumn<QString>("action");
        QTest::addColumn<bool>("team");
        QTest::addColumn<bool>("takesText");
        QTest::addColumn<QString>("ending");
        const QString expired = u"the agent was told nobody answered."_s;
        const QString escalated = u"escalated to workspace admins."_s;
        const QString first = u"the agent continued with “Approve”."_s;
        const QString nothing = u"the agent continued with “”."_s;
        QTest::newRow("reported: default") << u"default"_s << u"expire"_s << true << false << first;
        QTest::newRow("reported: escalated") << u"escalated"_s << u"expire"_s << true << false << escalated;
        QTest::newRow("reported: expired") << u"expired"_s << u"default"_s << true << false << expired;
        QTest::newRow("reported: default, of a text ask") << u"default"_s << u"expire"_s << true << true << nothing;
        QTest::newRow("unknown report: by the settings") << u"x"_s << u"escalate"_s << true << false << escalated;
        QTest::newRow("settings: default") << QString() << u"default"_s << true << false << first;
        QTest::newRow("settings: default, of a text ask") << QString() << u"default"_s << true << true << expired;
        QTest::newRow("settings: escalate, alone") << QString() << u"escalate"_s << false << false << expired;
        QTest::newRow("workspace unknown") << QString() << QString() << false << false << expired;
    }

    void outcomes()
    {
        QFETCH(QString, outcome);
        QFETCH(QString, action);
        QFETCH(bool, team);
        QFETCH(bool, takesText);
        QFETCH(QString, ending);
        Alert alert;
        alert.kind = AlertKind::ask;
        alert.answerType = takesText ? AnswerType::text : AnswerType::choice;
        if (!takesText)
            alert.actions = {u"Approve"_s, u"Reject"_s};
        if (!outcome.isNull())
            alert.outcome = outcome;
        std::optional<Workspace> own;
        if (const auto known = fromRawValue<TimeoutAction>(action)) {
            own.emplace().kind = team ? WorkspaceKind::team : WorkspaceKind::personal;
            own->timeoutAction = *known;
        }
        // Without a deadline of its own it is said to have waited as long as the active workspace allows.
        Workspace active;
        active.responseTimeoutMinutes = 90;
        QCOMPARE(outcomeText(alert, own, active), QString(u"No reply in 1h 30m — "_s + ending));
        QVERIFY(outcomeText(alert, own, std::nullopt).startsWith(u"No reply in 0m — "_s));
        alert.expiresAt = alert.at + Seconds(15 * 60);
        QVERIFY(outcomeText(alert, own, active).startsWith(u"No reply in 15m — "_s));
    }

    void answerRefusals_data()
    {
        QTest::addColumn<std::optional<Alert>>("alert");
        QTest::addColumn<std::optional<WorkspaceRole>>("role");
        QTest::addColumn<QString>("answer");
        QTest::addColumn<QString>("told");
        Alert choice;
        choice.kind = AlertKind::ask;
        choice.actions = QStringList{u"Yes"_s};
        choice.expiresAt = Instant(Seconds(1));
        const auto row = [](const char *name, const std::optional<Alert> &alert, const QString &told,
                            const QString &answer = u"Yes"_s,
                            std::optional<WorkspaceRole> role = WorkspaceRole::member) {
            QTest::newRow(name) << alert << role << answer << told;
        };
        const auto changed = [&choice](auto &&change) {
            Alert alert = choice;
            change(alert);
            return alert;
        };
        row("taken", choice, u"-"_s);
        row("gone", std::nullopt, u"This question no longer exists."_s);
        row("no question", changed([](Alert &alert) { alert.kind = AlertKind::notify; }),
            u"This alert asks for no answer."_s);
        row("answered", changed([](Alert &alert) { alert.answer = u"Yes"_s; }),
            u"This question has already been answered."_s);
        row("too late", changed([](Alert &alert) { alert.expiresAt = Instant(); }),
            u"The time to answer this question is over."_s);
        row("left the workspace", choice, u"You no longer belong to this question's workspace."_s, u"Yes"_s, {});
        row("viewer", choice, u"Viewers can't reply to asks."_s, u"Yes"_s, WorkspaceRole::viewer);
        row("no choice any more", choice, u"The agent no longer offers this choice. Again?"_s, u"No"_s);
        const Alert text = changed([](Alert &alert) { alert.answerType = AnswerType::text; });
        row("text", text, u"-"_s, QString(1000, u'x'));
        row("too long", text, u"An answer has 1 to 1000 characters. Again?"_s, QString(1001, u'x'));
        row("empty", text, u"An answer has 1 to 1000 characters. Again?"_s, u" \n"_s);
    }

    void answerRefusals()
    {
        QFETCH(std::optional<Alert>, alert);
        QFETCH(std::optional<WorkspaceRole>, role);
        QFETCH(QString, answer);
        const auto refusal = refusalOf(alert, role, answer, Instant());
        QTEST(refusal ? refusal->reason + (refusal->canAnswerAgain ? u" Again?"_s : QString()) : u"-"_s, "told");
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
