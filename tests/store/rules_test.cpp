#include "store/invite_rules.h"
#include "store/outcome_text.h"
#include "store/text_cut.h"
#include "store/topic_slug.h"

#include <QTest>

using namespace pingwell;
using namespace Qt::StringLiterals;

/// The store's decisions that need nothing but values.
class RulesTest : public QObject
{
    Q_OBJECT

private slots:
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
};

QTEST_APPLESS_MAIN(RulesTest)
#include "rules_test.moc"
