#include "store/invite_rules.h"
#include "store/topic_slug.h"

#include <QTest>

using namespace pingwell;
using namespace Qt::StringLiterals;

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
};

QTEST_APPLESS_MAIN(RulesTest)
#include "rules_test.moc"
