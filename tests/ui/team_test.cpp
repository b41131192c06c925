#include "screen_fixture.h"
#include "text/initials.h"

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

    /// Goes on with Tab until the person's own row has the focus.
    void tabToTheList()
    {
        for (int steps = 0; steps < 10 && focused() != u"team.member.you"_s; ++steps)
            press(Qt::Key_Tab);
    }

    /// The elements that are shown, in parentheses where they can't be used.
    [[nodiscard]] QString shown(const QString &prefix, const QStringList &names) const
    {
        QStringList found;
        for (const QString &name : names) {
            if (shows(prefix + name))
                found << (canUse(prefix + name) ? name : u'(' + name + u')');
        }
        return found.join(u' ');
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

} // namespace

class TeamTest : public QObject
{
    Q_OBJECT

private slots:
    void whoSeesWhat()
    {
        using enum WorkspaceRole;
        const QString team = u"w1"_s;
        const QString all = u"invite menu list leave member.own.menu member.ann.menu member.new.menu"_s;
        const QString leave = u"Leave workspace…"_s;
        const QString leaves =
            u"*Leave Platform? | You'll stop getting its alerts. An admin can invite you again. | Cancel | Leave"_s;
        const QString deletes = u"*Delete Platform? | You own this workspace. Deleting it removes its alerts, topics "
                                "and API keys for every member. | Cancel | Delete for everyone"_s;
        const QStringList names{u"invite"_s,          u"menu"_s,           u"locked"_s,          u"list"_s,
                                u"empty"_s,           u"leave"_s,          u"member.you.menu"_s, u"member.own.menu"_s,
                                u"member.ann.menu"_s, u"member.new.menu"_s};
        const std::tuple<WorkspaceRole, QString, QString, QString, QString> rows[] = {
            {owner, team, all, u"Delete workspace…"_s, deletes},
            {admin, team, all, leave, leaves},
            {member, team, u"(invite) locked list leave"_s, leave, leaves},
            {viewer, team, u"locked list leave"_s, leave, leaves},
            {owner, u"w2"_s, u"empty"_s, {}, {}}};
        for (const auto &[role, workspace, shown, button, question] : rows) {
            TeamScreen screen(teamSeed(role));
            screen.store().selectWorkspace(workspace);
            QCOMPARE(screen.shown(u"team."_s, names), shown);
            QCOMPARE(screen.name(u"team.leave"_s), button);
            QCOMPARE(screen.name(u"team.subtitle"_s), workspace == team ? u"4 members · 1 pending"_s : u"1 member"_s);
            if (screen.shows(u"team.leave"_s))
                screen.click(u"team.leave"_s);
            QCOMPARE(screen.drawnOver().join(u" | "), question);
        }
    }

    void initials()
    {
        QCOMPARE(initialsOf(u"ann lee"_s), u"AL"_s);
        QCOMPARE(initialsOf(u"Ann van der Lee"_s), u"AL"_s);
        QCOMPARE(initialsOf(u"ann"_s), u"A"_s);
        QCOMPARE(initialsOf(u"e\u0301va"_s), u"E\u0301"_s);
        QCOMPARE(initialsOf(u" "_s), u"?"_s);
    }

    void menuOffersWhatMayBeDone()
    {
        const std::tuple<QString, QString, QString, QString> rows[] = {
            {u"team.member.ann"_s, u"changeRole remove"_s, u"(owner) admin member viewer"_s, u"member"_s},
            {u"team.member.own"_s, u"changeRole (remove)"_s, u"owner (admin) (member) (viewer)"_s, u"owner"_s},
            {u"team.member.new"_s, u"resend revoke"_s, {}, {}}};
        for (const auto &[member, entries, offered, current] : rows) {
            TeamScreen screen(teamSeed(WorkspaceRole::admin));
            screen.click(member + u".menu"_s);
            QCOMPARE(screen.shown(member + u'.', {u"changeRole"_s, u"remove"_s, u"resend"_s, u"revoke"_s}), entries);
            screen.press({Qt::Key_Down, Qt::Key_Right});
            const QString prefix = member + u".role."_s;
            const QStringList roles{u"owner"_s, u"admin"_s, u"member"_s, u"viewer"_s};
            QTRY_VERIFY(current.isEmpty() || screen.shows(prefix + current));
            QCOMPARE(screen.shown(prefix, roles), offered);
            for (const QString &role : roles)
                QCOMPARE(screen.value(prefix + role) == u"selected"_s, role == current);
        }
    }

    void menuDoesIt()
    {
        TeamScreen screen(teamSeed(WorkspaceRole::owner));
        QCOMPARE(screen.name(u"team.member.ann"_s), u"Name ann, ann@x.test, member"_s);
        QCOMPARE(screen.name(u"team.member.new"_s), u"new@x.test, Invited, 2h ago, viewer"_s);
        QCOMPARE(screen.shown(u"team.member."_s, {u"new.invited"_s, u"ann.invited"_s}), u"new.invited"_s);
        screen.click({u"team.member.new.menu"_s, u"team.member.new.resend"_s});
        QCOMPARE(screen.name(u"team.member.new"_s), u"new@x.test, Invited, just now, viewer"_s);
        screen.click({u"team.member.new.menu"_s, u"team.member.new.revoke"_s});
        QVERIFY(!screen.shows(u"team.member.new"_s));
        screen.click({u"team.member.ann.menu"_s, u"team.member.ann.remove"_s});
        QVERIFY(!screen.shows(u"team.member.ann"_s) && !screen.shows(u"team.member.ann.remove"_s));
        QCOMPARE(screen.name(u"team.subtitle"_s), u"2 members"_s);
    }

    void keyboardAloneChangesARole()
    {
        TeamScreen screen(teamSeed(WorkspaceRole::owner));
        screen.tabToTheList();
        screen.press({Qt::Key_Down, Qt::Key_Down});
        QCOMPARE(screen.focused(), u"team.member.ann"_s);
        screen.press({Qt::SHIFT | Qt::Key_F10, Qt::Key_Down, Qt::Key_Right});
        QTRY_VERIFY(screen.shows(u"team.member.ann.role.viewer"_s));
        screen.press(Qt::Key_Return);
        QCOMPARE(screen.name(u"team.member.ann.role"_s), u"admin"_s);
        QTRY_COMPARE(screen.focused(), u"team.member.ann"_s);
        screen.press(Qt::Key_Tab);
        QCOMPARE(screen.focused(), u"team.leave"_s);
        screen.press({Qt::SHIFT | Qt::Key_Tab, Qt::SHIFT | Qt::Key_Tab});
        QCOMPARE(screen.focused(), u"team.menu"_s);
    }

    void provisionalMemberWaits()
    {
        StoreFixture live;
        live.startWith({});
        const QByteArray answer =
            R"({"id":"m9","workspaceId":"w1","email":"eve@x.test","role":"member","status":"invited"})";
        live.transport->plan("POST", "/workspaces/w1/members", ScriptedAnswer::data(answer).heldBack());
        live.store->invite(u"eve@x.test"_s, WorkspaceRole::member);
        TeamScreen screen(*live.store);
        const QString provisional = u"team.member."_s + live.store->members().value(u"w1"_s).last().id;
        const QStringList entries{u".resend"_s, u".revoke"_s};
        screen.click(provisional + u".menu"_s);
        QCOMPARE(screen.shown(provisional, entries), u"(.resend) (.revoke)"_s);
        live.transport->release();
        live.settle();
        QTRY_VERIFY(!screen.shows(provisional + u".resend"_s));
        screen.click(u"team.member.m9.menu"_s);
        QCOMPARE(screen.shown(u"team.member.m9"_s, entries), u".resend .revoke"_s);
    }

    void inviteTellsWhatIsWrong()
    {
        TeamScreen screen(teamSeed(WorkspaceRole::owner));
        QQuickItem *const invite = screen.find(u"team.invite"_s);
        invite->forceActiveFocus(Qt::TabFocusReason);
        screen.press(Qt::Key_Return);
        QCOMPARE(screen.name(u"team.inviteSheet"_s), u"Invite to Platform"_s);
        QCOMPARE(screen.focused(), u"team.invite.email"_s);
        screen.type(u"NEW@x.test"_s);
        screen.press(Qt::Key_Return);
        QCOMPARE(screen.name(u"team.invite.error"_s), u"That email is already a member or has a pending invite."_s);
        QCOMPARE(screen.focused(), u"team.invite.email"_s);
        screen.type(u"x"_s);
        QVERIFY(!screen.shows(u"team.invite.error"_s));
        screen.press({Qt::Key_Backspace, Qt::Key_Tab, Qt::Key_Space});
        screen.click({u"team.invite.role.admin"_s, u"team.invite.send"_s});
        QVERIFY(screen.shows(u"team.invite.error"_s));
        screen.type(u"x"_s);
        screen.press({Qt::Key_Tab, Qt::Key_Return});
        QVERIFY(!screen.shows(u"team.inviteSheet"_s));
        const Member invited = screen.store().members().value(u"w1"_s).last();
        QCOMPARE(invited.email, u"new@x.testx"_s);
        QCOMPARE(invited.role, WorkspaceRole::admin);
        screen.press(Qt::Key_Return);
        screen.click(u"team.invite.cancel"_s);
        QVERIFY(!screen.shows(u"team.inviteSheet"_s));
        screen.press({Qt::Key_Return, Qt::Key_Escape});
        QVERIFY(!screen.shows(u"team.inviteSheet"_s));
        QVERIFY(invite->property("visualFocus").toBool());
    }

    void renamesTheWorkspace()
    {
        TeamScreen screen(teamSeed(WorkspaceRole::owner));
        const auto open = [&screen] { screen.click({u"team.menu"_s, u"team.rename"_s}); };
        open();
        QCOMPARE(screen.text(u"team.rename.name"_s), u"Platform"_s);
        screen.type(u" "_s);
        QVERIFY(!screen.canUse(u"team.rename.save"_s));
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
        screen.find(u"team.leave.cancel"_s)->parentItem()->forceActiveFocus();
        screen.press(Qt::Key_Return);
        QVERIFY(screen.shows(u"team.leave.confirm"_s));
        screen.find(u"team.leave.cancel"_s)->forceActiveFocus();
        screen.press(Qt::Key_Return);
        QVERIFY(!screen.shows(u"team.leave.confirm"_s) && screen.store().workspaces().size() == 2);

        // What is asked about one workspace is not answered for another.
        screen.click(u"team.leave"_s);
        screen.store().selectWorkspace(u"w2"_s);
        QVERIFY(!screen.shows(u"team.leave.confirm"_s));

        screen.store().selectWorkspace(u"w1"_s);
        screen.click(u"team.leave"_s);
        QCOMPARE(screen.name(u"team.leave.confirm"_s), u"Leave"_s);
        screen.click(u"team.leave.confirm"_s);
        QCOMPARE(screen.store().workspaces().size(), 1);
        screen.click(u"team.createWorkspace"_s);
        QVERIFY(screen.store().isCreatingWorkspace());
    }

    void invitationsAreAnswered()
    {
        StoreFixture live;
        const QByteArray invites = R"([{"token":"t1","workspace":"Ops","role":"admin","invitedAt":1699999700000},
                                       {"token":"t2","workspace":"Docs","role":"viewer"}])";
        live.startLoopWith(DashboardJSON(), invites);
        TeamScreen screen(*live.store);
        QCOMPARE(screen.name(u"team.invitation.t1"_s), u"Ops, Join as admin · 5m ago"_s);
        QCOMPARE(screen.name(u"team.invitation.t2"_s), u"Docs, Join as viewer"_s);
        live.transport->plan("POST", "/invites/t1/accept", ScriptedAnswer::message("Welcome."));
        live.transport->plan("POST", "/invites/t2/reject", ScriptedAnswer::message("Declined."));
        screen.click({u"team.invitation.t1.accept"_s, u"team.invitation.t2.reject"_s});
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
        screen.tabToTheList();
        screen.press(Qt::Key_End);
        QCOMPARE(screen.focused(), u"team.member.m499"_s);
        QVERIFY(screen.place(u"team.member.m499"_s, {0, 52}).y() <= 600);
        QVERIFY(screen.count(u"team\\.member\\.[^.]+"_s) < 60 && !screen.shows(u"team.member.m400"_s));
    }
};

QTEST_MAIN(TeamTest)
#include "team_test.moc"
