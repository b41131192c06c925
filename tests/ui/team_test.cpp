#include "screen_fixture.h"
#include "store_fixture.h"
#include "ui/initials.h"

#include <QTest>

using namespace pingwell;
using namespace Qt::StringLiterals;

namespace {

/// The team section in a window of its own.
struct TeamScreen : Screen
{
    template<typename Source>
    explicit TeamScreen(Source &&source)
        : Screen(u"TeamView"_s, std::forward<Source>(source))
    {
        view().resize(800, 600);
        settle();
    }
};

Member makeMember(const QString &id, WorkspaceRole role, MemberStatus status = MemberStatus::active)
{
    Member member;
    member.id = id;
    member.email = id + u"@x.test"_s;
    member.role = role;
    member.status = status;
    if (status == MemberStatus::active)
        member.name = u"Name "_s + id;
    else
        member.invitedAt = dayEnd - Seconds(7200);
    return member;
}

/// The person, "you", with three others: "own", who owns the team, "ann", and "new", who has yet to join.
SeedData teamSeed(WorkspaceRole role)
{
    SeedData seed = makeSeed({}, role);
    Member you = makeMember(u"you"_s, role);
    you.isYou = true;
    seed.members[u"w1"_s] = {you, makeMember(u"own"_s, WorkspaceRole::owner),
                             makeMember(u"ann"_s, WorkspaceRole::member),
                             makeMember(u"new"_s, WorkspaceRole::viewer, MemberStatus::invited)};
    seed.members[u"w2"_s] = {you};
    return seed;
}

QString memberID(const QString &id, const QString &suffix)
{
    return u"team.member."_s + id + suffix;
}

/// "-" for what is not shown, "+" for what can be used, "o" for what cannot.
QString standing(const Screen &screen, const QStringList &identifiers)
{
    QString text;
    for (const QString &identifier : identifiers) {
        const QQuickItem *const item = screen.find(identifier);
        text += !item ? u'-' : item->isEnabled() ? u'+' : u'o';
    }
    return text;
}

std::optional<Member> memberOf(AppStore &store, const QString &id)
{
    for (const Member &member : store.members().value(u"w1"_s)) {
        if (member.id == id)
            return member;
    }
    return std::nullopt;
}

QString textOf(const Screen &screen, const QString &identifier, const char *property = "text")
{
    return screen.find(identifier)->property(property).toString();
}

} // namespace

class TeamTest : public QObject
{
    Q_OBJECT

private slots:
    void whoSeesWhat_data()
    {
        QTest::addColumn<WorkspaceRole>("role");
        QTest::addColumn<QString>("workspace");
        QTest::addColumn<QString>("shown");
        QTest::addColumn<QString>("leave");

        const QString team = u"w1"_s;
        QTest::newRow("owner") << WorkspaceRole::owner << team << u"++-+-+-+++"_s << u"Delete workspace…"_s;
        QTest::newRow("admin") << WorkspaceRole::admin << team << u"++-+-+-+++"_s << u"Leave workspace…"_s;
        QTest::newRow("member") << WorkspaceRole::member << team << u"o-++-+----"_s << u"Leave workspace…"_s;
        QTest::newRow("viewer") << WorkspaceRole::viewer << team << u"--++-+----"_s << u"Leave workspace…"_s;
        QTest::newRow("personal") << WorkspaceRole::owner << u"w2"_s << u"----+-----"_s << QString();
    }
    void whoSeesWhat()
    {
        QFETCH(WorkspaceRole, role);
        QFETCH(QString, workspace);
        TeamScreen screen(teamSeed(role));
        screen.store().selectWorkspace(workspace);
        screen.settle();
        QTEST(standing(screen, {u"team.invite"_s, u"team.menu"_s, u"team.locked"_s, u"team.list"_s, u"team.empty"_s,
                                u"team.leave"_s, memberID(u"you"_s, u".menu"_s), memberID(u"own"_s, u".menu"_s),
                                memberID(u"ann"_s, u".menu"_s), memberID(u"new"_s, u".menu"_s)}),
              "shown");
        QTEST(screen.name(u"team.leave"_s), "leave");
        QCOMPARE(screen.name(u"team.subtitle"_s), workspace == u"w1"_s ? u"4 members · 1 pending"_s : u"1 member"_s);
    }

    void rowTellsWhoItIs()
    {
        TeamScreen screen(teamSeed(WorkspaceRole::admin));
        QCOMPARE(screen.name(u"team.member.ann"_s), u"Name ann, ann@x.test, member"_s);
        QCOMPARE(screen.name(u"team.member.new"_s), u"new@x.test, Invited, 2h ago, viewer"_s);
        QCOMPARE(screen.name(memberID(u"new"_s, u".role"_s)), u"viewer"_s);
        QVERIFY(screen.shows(memberID(u"new"_s, u".invited"_s)) && !screen.shows(memberID(u"ann"_s, u".invited"_s)));
    }

    void initials_data()
    {
        QTest::addColumn<QString>("name");
        QTest::addColumn<QString>("letters");
        QTest::newRow("two words") << u"ann lee"_s << u"AL"_s;
        QTest::newRow("more") << u"Ann van der Lee"_s << u"AL"_s;
        QTest::newRow("one") << u"ann"_s << u"A"_s;
        QTest::newRow("written apart") << u"e\u0301va"_s << u"E\u0301"_s;
        QTest::newRow("none") << u" "_s << u"?"_s;
    }
    void initials()
    {
        QFETCH(QString, name);
        QTEST(initialsOf(name), "letters");
    }

    void menuOffersWhatMayBeDone_data()
    {
        QTest::addColumn<QString>("member");
        QTest::addColumn<QString>("entries");
        QTest::addColumn<QString>("roles");
        QTest::addColumn<QString>("current");
        QTest::newRow("active") << u"ann"_s << u"++--"_s << u"o+++"_s << u"member"_s;
        QTest::newRow("owner") << u"own"_s << u"+o--"_s << u"+ooo"_s << u"owner"_s;
        QTest::newRow("invited") << u"new"_s << u"--++"_s << QString() << QString();
    }
    void menuOffersWhatMayBeDone()
    {
        QFETCH(QString, member);
        QFETCH(QString, roles);
        TeamScreen screen(teamSeed(WorkspaceRole::admin));
        screen.click(memberID(member, u".menu"_s));
        const auto ids = [&member](const QStringList &suffixes) {
            QStringList all;
            for (const QString &suffix : suffixes)
                all << memberID(member, suffix);
            return all;
        };
        QTEST(standing(screen, ids({u".changeRole"_s, u".remove"_s, u".resend"_s, u".revoke"_s})), "entries");
        if (roles.isEmpty())
            return;
        screen.click(memberID(member, u".changeRole"_s));
        const QStringList choices = ids({u".role.owner"_s, u".role.admin"_s, u".role.member"_s, u".role.viewer"_s});
        QTRY_COMPARE(standing(screen, choices), roles);
        QFETCH(QString, current);
        for (const QString &choice : choices)
            QCOMPARE(textOf(screen, choice, "symbolName"), choice.endsWith(current) ? u"checkmark"_s : QString());
    }

    void menuDoesIt()
    {
        TeamScreen screen(teamSeed(WorkspaceRole::owner));
        AppStore &store = screen.store();
        screen.click(memberID(u"ann"_s, u".menu"_s));
        screen.click(memberID(u"ann"_s, u".changeRole"_s));
        QTRY_VERIFY(screen.shows(memberID(u"ann"_s, u".role.admin"_s)));
        screen.click(memberID(u"ann"_s, u".role.admin"_s));
        QCOMPARE(memberOf(store, u"ann"_s)->role, WorkspaceRole::admin);
        QCOMPARE(screen.name(memberID(u"ann"_s, u".role"_s)), u"admin"_s);
        screen.click(memberID(u"new"_s, u".menu"_s));
        screen.click(memberID(u"new"_s, u".resend"_s));
        QCOMPARE(memberOf(store, u"new"_s)->invitedAt, dayEnd);
        screen.click(memberID(u"new"_s, u".menu"_s));
        screen.click(memberID(u"new"_s, u".revoke"_s));
        QVERIFY(!memberOf(store, u"new"_s) && !screen.shows(u"team.member.new"_s));
        screen.click(memberID(u"ann"_s, u".menu"_s));
        screen.click(memberID(u"ann"_s, u".remove"_s));
        QVERIFY(!memberOf(store, u"ann"_s) && !screen.shows(memberID(u"ann"_s, u".remove"_s)));
        QCOMPARE(screen.name(u"team.subtitle"_s), u"2 members"_s);
    }

    void keyboardAloneChangesARole()
    {
        TeamScreen screen(teamSeed(WorkspaceRole::owner));
        for (int steps = 0; steps < 10 && screen.focused() != u"team.member.you"_s; ++steps)
            screen.press(Qt::Key_Tab);
        screen.press(Qt::Key_Down);
        screen.press(Qt::Key_Down);
        QCOMPARE(screen.focused(), u"team.member.ann"_s);
        screen.press(Qt::Key_Return);
        screen.press(Qt::Key_Down);
        screen.press(Qt::Key_Right);
        QTRY_VERIFY(screen.shows(memberID(u"ann"_s, u".role.viewer"_s)));
        screen.press(Qt::Key_Return);
        QCOMPARE(memberOf(screen.store(), u"ann"_s)->role, WorkspaceRole::admin);
        QTRY_COMPARE(screen.focused(), u"team.member.ann"_s);
        screen.press(Qt::Key_Tab);
        QCOMPARE(screen.focused(), u"team.leave"_s);
        screen.press(Qt::Key_Tab, Qt::ShiftModifier);
        screen.press(Qt::Key_Tab, Qt::ShiftModifier);
        QCOMPARE(screen.focused(), u"team.menu"_s);
    }

    void provisionalMemberWaits()
    {
        StoreFixture live;
        DashboardJSON dashboard;
        dashboard.workspaces = {workspaceJSON(u"w1"_s)};
        live.startWith(dashboard);
        const QByteArray answer =
            R"({"id":"m9","workspaceId":"w1","email":"eve@x.test","role":"member","status":"invited"})";
        live.transport->plan("POST", "/workspaces/w1/members", ScriptedAnswer::data(answer).heldBack());
        live.store->invite(u"eve@x.test"_s, WorkspaceRole::member);
        TeamScreen screen(*live.store);
        const QString provisional = live.store->members().value(u"w1"_s).last().id;
        screen.click(memberID(provisional, u".menu"_s));
        QCOMPARE(standing(screen, {memberID(provisional, u".resend"_s), memberID(provisional, u".revoke"_s)}), u"oo"_s);
        live.transport->release();
        live.settle();
        screen.settle();
        QTRY_VERIFY(!screen.shows(memberID(provisional, u".resend"_s)));
        screen.click(memberID(u"m9"_s, u".menu"_s));
        QCOMPARE(standing(screen, {memberID(u"m9"_s, u".resend"_s), memberID(u"m9"_s, u".revoke"_s)}), u"++"_s);
    }

    void inviteTellsWhatIsWrong_data()
    {
        QTest::addColumn<QString>("email");
        QTest::addColumn<QString>("error");
        QTest::newRow("empty") << QString() << u"Enter a valid email address."_s;
        QTest::newRow("invalid") << u"ann@x"_s << u"Enter a valid email address."_s;
        QTest::newRow("known") << u"NEW@x.test"_s << u"That email is already a member or has a pending invite."_s;
        QTest::newRow("good") << u"eve@x.test"_s << QString();
    }
    void inviteTellsWhatIsWrong()
    {
        QFETCH(QString, email);
        QFETCH(QString, error);
        TeamScreen screen(teamSeed(WorkspaceRole::owner));
        QQuickItem *const invite = screen.find(u"team.invite"_s);
        invite->forceActiveFocus(Qt::TabFocusReason);
        screen.press(Qt::Key_Return);
        QCOMPARE(screen.name(u"team.inviteSheet"_s), u"Invite to Platform"_s);
        QCOMPARE(screen.focused(), u"team.invite.email"_s);
        screen.type(email);
        screen.click(u"team.invite.role"_s);
        screen.click(u"team.invite.role.admin"_s);
        screen.click(u"team.invite.email"_s);
        screen.press(Qt::Key_Return);
        QCOMPARE(screen.name(u"team.invite.error"_s), error);
        QCOMPARE(screen.shows(u"team.inviteSheet"_s), !error.isEmpty());
        QCOMPARE(screen.store().members().value(u"w1"_s).size(), error.isEmpty() ? 5 : 4);
        if (error.isEmpty()) {
            QCOMPARE(screen.store().members().value(u"w1"_s).last().role, WorkspaceRole::admin);
            return;
        }
        QCOMPARE(screen.focused(), u"team.invite.email"_s);
        screen.type(u"x"_s);
        QVERIFY(!screen.shows(u"team.invite.error"_s));
        screen.press(Qt::Key_Escape);
        QVERIFY(!screen.shows(u"team.inviteSheet"_s));
        QVERIFY(invite->property("visualFocus").toBool());
    }

    void renamesTheWorkspace()
    {
        TeamScreen screen(teamSeed(WorkspaceRole::owner));
        const auto open = [&screen] {
            screen.click(u"team.menu"_s);
            screen.click(u"team.rename"_s);
        };
        open();
        QCOMPARE(textOf(screen, u"team.rename.name"_s), u"Platform"_s);
        screen.type(u" "_s);
        QVERIFY(!screen.find(u"team.rename.save"_s)->isEnabled());
        screen.type(QString(60, u'x'));
        screen.press(Qt::Key_Return);
        QCOMPARE(screen.store().activeWorkspace()->name, QString(47, u'x'));
        open();
        screen.type(u"other"_s);
        screen.click(u"team.rename.cancel"_s);
        QCOMPARE(screen.store().activeWorkspace()->name, QString(47, u'x'));
    }

    void leavesOnlyWhenToldTwice()
    {
        TeamScreen screen(teamSeed(WorkspaceRole::member));
        screen.click(u"team.leave"_s);
        QCOMPARE(screen.focused(), u"team.leave.cancel"_s);
        screen.press(Qt::Key_Return);
        QVERIFY(!screen.shows(u"team.leave.confirm"_s) && screen.store().workspaces().size() == 2);

        screen.click(u"team.leave"_s);
        screen.store().selectWorkspace(u"w2"_s);
        screen.settle();
        QVERIFY(!screen.shows(u"team.leave.confirm"_s));

        screen.store().selectWorkspace(u"w1"_s);
        screen.click(u"team.leave"_s);
        QCOMPARE(screen.name(u"team.leave.confirm"_s), u"Leave"_s);
        screen.click(u"team.leave.confirm"_s);
        QCOMPARE(screen.store().workspaces().size(), 1);
        QVERIFY(screen.shows(u"team.empty"_s));
        screen.click(u"team.createWorkspace"_s);
        QVERIFY(screen.store().isCreatingWorkspace());
    }

    void invitationsAreAnswered()
    {
        StoreFixture live;
        const QByteArray invites = R"([{"token":"t1","workspace":"Ops","role":"admin","invitedAt":1699999700000},
                                       {"token":"t2","workspace":"Docs","role":"viewer"}])";
        live.transport->always("GET", "/dashboard", ScriptedAnswer::data(DashboardJSON().body()));
        live.transport->always("GET", "/auth/user-data", ScriptedAnswer::noAnswer());
        live.transport->always("POST", "/devices", ScriptedAnswer::noAnswer());
        live.transport->always("GET", "/invites", ScriptedAnswer::data(invites));
        live.start();
        live.store->startSync();
        live.settle();
        TeamScreen screen(*live.store);
        QCOMPARE(screen.name(u"team.invitation.t1"_s), u"Ops, Join as admin · 5m ago"_s);
        QCOMPARE(screen.name(u"team.invitation.t2"_s), u"Docs, Join as viewer"_s);
        live.transport->plan("POST", "/invites/t1/accept", ScriptedAnswer::message("Welcome."));
        live.transport->plan("POST", "/invites/t2/reject", ScriptedAnswer::message("Declined."));
        screen.click(u"team.invitation.t1.accept"_s);
        screen.click(u"team.invitation.t2.reject"_s);
        live.settle();
        QCOMPARE(live.transport->plannedCount(), 0);
        QCOMPARE(screen.count(u"team\\.invitation\\..*"_s), 0);
    }

    void makesOnlyTheMembersInView()
    {
        SeedData seed = teamSeed(WorkspaceRole::owner);
        for (int index = 0; index < 500; ++index)
            seed.members[u"w1"_s] << makeMember(u"m%1"_s.arg(index), WorkspaceRole::member);
        TeamScreen screen(seed);
        const QString rows = u"team\\.member\\.[^.]+"_s;
        QVERIFY(screen.count(rows) < 40);
        for (int steps = 0; steps < 10 && screen.focused() != u"team.member.you"_s; ++steps)
            screen.press(Qt::Key_Tab);
        screen.press(Qt::Key_End);
        screen.settle();
        QCOMPARE(screen.focused(), u"team.member.m499"_s);
        const QQuickItem *const last = screen.find(u"team.member.m499"_s);
        QVERIFY(last->mapToScene({0, last->height()}).y() <= 600);
        QVERIFY(screen.count(rows) < 60 && !screen.shows(u"team.member.m400"_s));
    }
};

QTEST_MAIN(TeamTest)
#include "team_test.moc"
