#include "store/preference_keys.h"
#include "store_fixture.h"

#include <QTest>

#include <functional>

using namespace pingwell;
using namespace Qt::StringLiterals;

namespace {

using Act = std::function<void(AppStore &)>;

QJsonObject member(const QString &id, const QString &role, const QString &status, bool isSelf = false)
{
    return {{u"id"_s, id},     {u"workspaceId"_s, u"w1"_s}, {u"email"_s, QString(id + u"@x.test")},
            {u"role"_s, role}, {u"status"_s, status},       {u"isSelf"_s, isSelf}};
}

/// A team in which the person has `role`, with everything that can be changed.
DashboardJSON team(const QString &role, const QString &kind = u"team"_s)
{
    QJsonObject workspace = workspaceJSON(u"w1"_s, role);
    workspace[u"kind"_s] = kind;
    QJsonObject second = workspaceJSON(u"w2"_s);
    DashboardJSON dashboard;
    dashboard.workspaces = {workspace, second};
    dashboard.members = {member(u"own"_s, u"owner"_s, u"active"_s, role == u"owner"),
                         member(u"adm"_s, u"admin"_s, u"active"_s, role == u"admin"),
                         member(u"ann"_s, u"member"_s, u"active"_s, role == u"member"),
                         member(u"new"_s, u"owner"_s, u"invited"_s)};
    dashboard.topics = {QJsonObject{{u"id"_s, u"t1"_s}, {u"workspaceId"_s, u"w1"_s}, {u"name"_s, u"deploys"_s}}};
    dashboard.devices = {QJsonObject{{u"id"_s, u"here"_s}, {u"name"_s, u"Desk"_s}, {u"platform"_s, u"linux"_s}},
                         QJsonObject{{u"id"_s, u"phone"_s}, {u"name"_s, u"Phone"_s}, {u"platform"_s, u"android"_s}}};
    dashboard.alerts = {alertJSON(u"a1"_s, 60)};
    return dashboard;
}

/// All that these actions can change, on one line.
QString state(const AppStore &store)
{
    QStringList words{store.activeWorkspaceID()};
    for (const Workspace &workspace : store.workspaces())
        words << workspace.id + u':' + workspace.name + u':' + QString::number(workspace.responseTimeoutMinutes) +
                     u':' + rawValue(workspace.timeoutAction);
    for (const Member &one : store.members().value(u"w1"_s))
        words << one.email + u':' + rawValue(one.role) + u':' + rawValue(one.status) + (one.invitedAt ? u"!" : u"");
    for (const Topic &topic : store.topics())
        words << topic.name + u':' + rawValue(topic.minPriority) + (topic.muted ? u":muted" : u"") +
                     (topic.quietHours ? u":quiet" : u"");
    for (const Device &device : store.devices())
        words << device.id;
    const NotificationSettings &settings = store.settings();
    words << settings.quietFrom << (settings.digest ? u"digest"_s : u"no digest"_s)
          << (settings.quietHoursEnabled ? u"quiet"_s : u"loud"_s);
    for (const Invitation &invitation : store.invitations())
        words << invitation.token;
    words << QString::number(store.alerts().size()) + u" alerts";
    return words.join(u' ');
}

const QByteArray invited = R"({"id":"srv","workspaceId":"w1","email":"eve@x.test","role":"viewer","status":"invited"})";
const QByteArray topicAnswer = R"({"id":"t9","workspaceId":"w1","name":"new-one"})";
const QByteArray hereAnswer = R"({"id":"here","name":"Desk","platform":"linux"})";
const QByteArray createdAnswer = R"({"workspace":{"id":"w9","name":"Ops","kind":"team","role":"owner"},"members":[]})";

} // namespace

class ActionsTest : public QObject
{
    Q_OBJECT

    std::unique_ptr<StoreFixture> m;

    AppStore &store() { return *m->store; }

    void begin(const DashboardJSON &dashboard)
    {
        m->preferences->setString(preference_keys::device(QUrl(u"https://pingwell.test"_s)), u"here"_s);
        m->startWith(dashboard);
        m->transport->plan("GET", "/invites",
                           ScriptedAnswer::data(R"([{"token":"tok","workspace":"Sea"},{"token":"tok2"}])"));
        m->transport->plan("GET", "/dashboard", ScriptedAnswer::data(dashboard.body()));
        m->transport->plan("GET", "/auth/user-data", ScriptedAnswer::noAnswer());
        m->transport->plan("POST", "/devices/here/heartbeat", ScriptedAnswer::data(hereAnswer));
        store().startSync();
        m->settle();
    }

private slots:
    void init() { m = std::make_unique<StoreFixture>(); }
    void cleanup() { m.reset(); }

    void actions_data()
    {
        QTest::addColumn<Act>("act");
        QTest::addColumn<QByteArray>("method");
        QTest::addColumn<QByteArray>("path");
        QTest::addColumn<QByteArray>("body");
        QTest::addColumn<ScriptedAnswer>("answer");
        QTest::addColumn<QString>("atOnce");
        QTest::addColumn<QString>("toast");
        const auto row = [](const char *name, const Act &act, const QByteArray &method, const QByteArray &path,
                            const QByteArray &body, const ScriptedAnswer &answer, const QString &atOnce,
                            const QString &toast = {}) {
            QTest::newRow(name) << act << method << path << body << answer << atOnce << toast;
        };
        const ScriptedAnswer workspace = ScriptedAnswer::data(R"({"id":"w1","name":"x","kind":"team","role":"owner"})");
        const ScriptedAnswer nothing = ScriptedAnswer::raw(200, {});
        const ScriptedAnswer person = ScriptedAnswer::message("Done.", invited);
        const ScriptedAnswer topic = ScriptedAnswer::data(topicAnswer);
        const QByteArray w1 = "/workspaces/w1";

        row(
            "rename", [](AppStore &s) { s.renameWorkspace(u"  Sea "_s); }, "PATCH", w1, R"({"name":"Sea"})", workspace,
            u"w1:Sea:"_s);
        row(
            "time-out", [](AppStore &s) { s.setResponseTimeout(45); }, "PATCH", w1, R"({"responseTimeoutMinutes":45})",
            workspace, u"w1:45:"_s);
        row(
            "time-out action", [](AppStore &s) { s.setTimeoutAction(TimeoutAction::escalate); }, "PATCH", w1,
            R"({"timeoutAction":"escalate"})", workspace, u":escalate"_s);
        row("leave",
            [](AppStore &s) {
                s.leaveWorkspace();
                s.leaveWorkspace();
            },
            "POST", w1 + "/leave", "", nothing, {});
        row(
            "create a workspace", [](AppStore &s) { s.createWorkspace(u" Ops "_s); }, "POST", "/workspaces",
            R"({"name":"Ops"})", ScriptedAnswer::data(createdAnswer), {},
            u"Ops is ready. Invite your team from the Team tab."_s);
        row(
            "invite", [](AppStore &s) { QVERIFY(!s.invite(u" Eve@X.test"_s, WorkspaceRole::viewer)); }, "POST",
            w1 + "/members", R"({"email":"eve@x.test","role":"viewer"})", person, u"eve@x.test:viewer:invited!"_s,
            u"Done."_s);
        row(
            "change a role", [](AppStore &s) { s.changeRole(u"ann"_s, WorkspaceRole::viewer); }, "PATCH",
            w1 + "/members/ann", R"({"role":"viewer"})", person, u"ann@x.test:viewer:"_s, u"Done."_s);
        row(
            "remove a member", [](AppStore &s) { s.removeMember(u"ann"_s); }, "DELETE", w1 + "/members/ann", "",
            ScriptedAnswer::message("Gone."), u"adm@x.test:admin:active new@x.test"_s, u"Gone."_s);
        row(
            "revoke an owner's invitation", [](AppStore &s) { s.removeMember(u"new"_s); }, "DELETE",
            w1 + "/members/new", "", nothing, u"ann@x.test:member:active deploys"_s);
        row(
            "resend", [](AppStore &s) { s.resendInvitation(u"new"_s); }, "POST", w1 + "/members/new/resend", "", person,
            u"new@x.test:owner:invited!"_s, u"Done."_s);
        row(
            "decline", [](AppStore &s) { s.rejectInvitation(u"tok"_s); }, "POST", "/invites/tok/reject", "",
            ScriptedAnswer::message("Declined."), u"loud tok2 1 alerts"_s, u"Declined."_s);
        row(
            "accept", [](AppStore &s) { s.acceptInvitation(u"tok"_s); }, "POST", "/invites/tok/accept", "",
            ScriptedAnswer::message("Welcome."), u"loud tok2 1 alerts"_s, u"Welcome."_s);
        row("create a topic", [](AppStore &s) { s.createTopic(u"New one!"_s); }, "POST", w1 + "/topics",
            R"({"name":"new-one"})", topic, {});
        row(
            "mute", [](AppStore &s) { s.setTopicMuted(u"t1"_s, true); }, "PATCH", w1 + "/topics/t1",
            R"({"muted":true})", topic, u"deploys:normal:muted"_s);
        row(
            "priority", [](AppStore &s) { s.setTopicMinPriority(u"t1"_s, Priority::high); }, "PATCH", w1 + "/topics/t1",
            R"({"minPriority":"high"})", topic, u"deploys:high"_s);
        row(
            "quiet topic", [](AppStore &s) { s.setTopicQuietHours(u"t1"_s, true); }, "PATCH", w1 + "/topics/t1",
            R"({"quietHours":true})", topic, u"deploys:normal:quiet"_s);
        row(
            "delete a topic", [](AppStore &s) { s.deleteTopic(u"t1"_s); }, "DELETE", w1 + "/topics/t1", "", nothing,
            u"invited here"_s);
        row(
            "quiet from",
            [](AppStore &s) { s.updateSettings([](auto &settings) { settings.quietFrom = u"21:00"_s; }); }, "PUT",
            "/auth/settings", R"({"quietFrom":"21:00"})", ScriptedAnswer::data("{}"), u"21:00"_s);
        row(
            "digest", [](AppStore &s) { s.updateSettings([](auto &settings) { settings.digest = false; }); }, "PUT",
            "/auth/settings", R"({"digest":false})", ScriptedAnswer::data("{}"), u"no digest"_s);
        row(
            "remove a device", [](AppStore &s) { s.removeDevice(u"phone"_s); }, "DELETE", "/devices/phone", "",
            ScriptedAnswer::message("Signed out."), u"here 22:00"_s, u"Signed out."_s);
    }

    /// Shown at once, said to the service in its words, and still so when it agrees.
    void actions()
    {
        QFETCH(Act, act);
        QFETCH(QByteArray, method);
        QFETCH(QByteArray, path);
        QFETCH(QByteArray, body);
        QFETCH(ScriptedAnswer, answer);
        QFETCH(QString, atOnce);
        QFETCH(QString, toast);
        begin(team(u"owner"_s));
        const QString before = state(store());
        // What follows accepting: a refresh, not thrown away.
        m->transport->always("GET", "/dashboard", ScriptedAnswer::noAnswer());
        m->transport->plan(method, path, answer.heldBack());
        act(store());
        QCOMPARE(state(store()) == before, atOnce.isEmpty());
        QVERIFY2(state(store()).contains(atOnce.section(u':', 0, 0)), qPrintable(state(store())));
        m->settle();
        QCOMPARE(m->transport->count(method, path), 1);
        QCOMPARE(m->transport->lastRequest(method, path).body.value_or(QByteArray()), body);
        const QString waiting = state(store());
        m->transport->release();
        m->settle();
        QCOMPARE(state(store()) == waiting, !atOnce.isEmpty() && QByteArray(QTest::currentDataTag()) != "invite");
        QCOMPARE(store().toast() ? store().toast()->message : QString(), toast);
        QCOMPARE(store().connectionProblem().has_value(), QByteArray(QTest::currentDataTag()) == "accept");
    }

    void refusals_data() { actions_data(); }

    /// Taken back to the last detail, told, and followed by a refresh that counts.
    void refusals()
    {
        QFETCH(Act, act);
        QFETCH(QByteArray, method);
        QFETCH(QByteArray, path);
        begin(team(u"owner"_s));
        const QString before = state(store());
        m->transport->plan(method, path, ScriptedAnswer::failure(409, "no", "Not today."));
        m->transport->plan("GET", "/dashboard", ScriptedAnswer::noAnswer());
        act(store());
        m->settle();
        QCOMPARE(state(store()), before);
        QCOMPARE(store().toast()->message, u"Not today."_s);
        QCOMPARE(m->transport->plannedCount(), 0);
    }

    void whoMayNotCannot_data()
    {
        QTest::addColumn<QString>("role");
        QTest::addColumn<QString>("kind");
        QTest::addColumn<Act>("act");
        const auto row = [](const char *name, const char *role, const char *kind, const Act &act) {
            QTest::newRow(name) << QString::fromLatin1(role) << QString::fromLatin1(kind) << act;
        };
        const Act invite = [](AppStore &s) {
            QVERIFY(s.invite(u"eve@x.test"_s, WorkspaceRole::viewer) == InviteError::notAllowed);
        };
        const Act timeout = [](AppStore &s) { s.setResponseTimeout(5); };
        row("a member invites", "member", "team", invite);
        row("into a personal workspace", "owner", "personal", invite);
        row("a known address", "owner", "team",
            [](AppStore &s) { QVERIFY(s.invite(u"ANN@x.test "_s, WorkspaceRole::viewer) == InviteError::duplicate); });
        row("a viewer's time-out", "viewer", "team", timeout);
        row("a member's time-out", "member", "team", timeout);
        row("escalating alone", "owner", "personal", [](AppStore &s) { s.setTimeoutAction(TimeoutAction::escalate); });
        row("a member renames", "member", "team", [](AppStore &s) { s.renameWorkspace(u"Sea"_s); });
        row("to a blank name", "owner", "team", [](AppStore &s) { s.renameWorkspace(u"  "_s); });
        row("leaving a personal one", "owner", "personal", [](AppStore &s) { s.leaveWorkspace(); });
        row("the owner's role", "admin", "team", [](AppStore &s) { s.changeRole(u"own"_s, WorkspaceRole::viewer); });
        row("one's own role", "admin", "team", [](AppStore &s) { s.changeRole(u"adm"_s, WorkspaceRole::viewer); });
        row("to owner", "owner", "team", [](AppStore &s) { s.changeRole(u"ann"_s, WorkspaceRole::owner); });
        row("removing the owner", "admin", "team", [](AppStore &s) { s.removeMember(u"own"_s); });
        row("removing oneself", "admin", "team", [](AppStore &s) { s.removeMember(u"adm"_s); });
        row("a member removes", "member", "team", [](AppStore &s) { s.removeMember(u"adm"_s); });
        row("inviting again who is in", "owner", "team", [](AppStore &s) { s.resendInvitation(u"ann"_s); });
        row("a topic of hyphens", "owner", "team", [](AppStore &s) { s.createTopic(u"---"_s); });
        row("an unknown topic", "owner", "team", [](AppStore &s) { s.setTopicMuted(u"t7"_s, true); });
        row("this computer", "owner", "team", [](AppStore &s) { s.removeDevice(u"here"_s); });
        row("an unknown invitation", "owner", "team", [](AppStore &s) { s.acceptInvitation(u"none"_s); });
        row("nothing changed", "owner", "team", [](AppStore &s) { s.updateSettings([](auto &) {}); });
    }

    void whoMayNotCannot()
    {
        QFETCH(QString, role);
        QFETCH(QString, kind);
        QFETCH(Act, act);
        begin(team(role, kind));
        const QString before = state(store());
        const auto sent = m->transport->requests().size();
        act(store());
        m->settle();
        QCOMPARE(state(store()), before);
        QCOMPARE(m->transport->requests().size(), sent);
    }

    /// Two quick changes of one thing: said in order, and whatever becomes of them, what the service holds is shown.
    void quickChangesConverge_data()
    {
        QTest::addColumn<bool>("firstRefused");
        QTest::addColumn<bool>("secondRefused");
        QTest::newRow("both taken") << false << false;
        QTest::newRow("the first refused") << true << false;
        QTest::newRow("the second refused") << false << true;
        QTest::newRow("both refused") << true << true;
    }

    void quickChangesConverge()
    {
        QFETCH(bool, firstRefused);
        QFETCH(bool, secondRefused);
        begin(team(u"owner"_s));
        const auto answer = [](bool refused) {
            return (refused ? ScriptedAnswer::failure(409, "no", "No.") : ScriptedAnswer::data(topicAnswer)).heldBack();
        };
        DashboardJSON held = team(u"owner"_s);
        const QString priority = !secondRefused ? u"critical"_s : !firstRefused ? u"high"_s : u"normal"_s;
        held.topics = {QJsonObject{
            {u"id"_s, u"t1"_s}, {u"workspaceId"_s, u"w1"_s}, {u"name"_s, u"deploys"_s}, {u"minPriority"_s, priority}}};
        const QByteArray path = "/workspaces/w1/topics/t1";
        m->transport->plan("PATCH", path, answer(firstRefused));
        m->transport->plan("PATCH", path, answer(secondRefused));
        // One fetched in between, and one that may count.
        m->transport->always("GET", "/dashboard", ScriptedAnswer::data(held.body()));
        store().setTopicMinPriority(u"t1"_s, Priority::high);
        store().setTopicMinPriority(u"t1"_s, Priority::critical);
        m->settle();
        QCOMPARE(m->transport->count("PATCH", path), 1);
        store().refresh();
        m->settle();
        m->transport->release();
        m->settle();
        QCOMPARE(m->transport->lastRequest("PATCH", path).body, QByteArray(R"({"minPriority":"critical"})"));
        m->transport->release();
        m->settle();
        QCOMPARE(QString(rawValue(store().topics().first().minPriority)), priority);
        QCOMPARE(store().toast().has_value(), firstRefused || secondRefused);
    }

    void whatWaitedIsNotSaidForTheNextSession()
    {
        begin(team(u"owner"_s));
        m->transport->plan("PUT", "/auth/settings", ScriptedAnswer::data("{}").heldBack());
        m->transport->plan("DELETE", "/devices/here", ScriptedAnswer::noAnswer());
        store().updateSettings([](auto &settings) { settings.digest = false; });
        store().updateSettings([](auto &settings) { settings.sound = false; });
        m->settle();
        store().signOut();
        m->transport->release();
        m->settle();
        QCOMPARE(m->transport->count("PUT", "/auth/settings"), 1);
    }

    void quietHoursAreThisMachinesOwn()
    {
        begin(team(u"owner"_s));
        m->transport->plan("PUT", "/auth/settings", ScriptedAnswer::failure(409, "no", "No.").heldBack());
        m->transport->plan("GET", "/dashboard", ScriptedAnswer::noAnswer());
        store().updateSettings([](auto &settings) { settings.digest = false; });
        store().updateSettings([](auto &settings) { settings.quietHoursEnabled = true; });
        m->settle();
        QCOMPARE(m->preferences->boolean(preference_keys::quietHoursEnabled), std::optional(true));
        m->transport->release();
        m->settle();
        QVERIFY(store().settings().quietHoursEnabled);
        QVERIFY(store().settings().digest);
    }

    void whatCannotBeKeptHereIsToldOnce()
    {
        m->preferences->keepsThem = false;
        begin(team(u"owner"_s));
        QVERIFY(!store().toast());
        store().updateSettings([](auto &settings) { settings.quietHoursEnabled = true; });
        QCOMPARE(store().toast()->message,
                 u"Pingwell couldn't save this on your computer. It holds until you quit Pingwell."_s);
        QVERIFY(store().settings().quietHoursEnabled);
        store().showToast(u"Later."_s, false);
        store().updateSettings([](auto &settings) { settings.quietHoursEnabled = false; });
        QCOMPARE(store().toast()->message, u"Later."_s);
    }

    void aProvisionalMemberCanOnlyWait()
    {
        begin(team(u"owner"_s));
        m->transport->plan("POST", "/workspaces/w1/members", ScriptedAnswer::message("Sent.", invited).heldBack());
        QVERIFY(!store().invite(u"eve@x.test"_s, WorkspaceRole::viewer));
        const Member provisional = store().members().value(u"w1"_s).last();
        QVERIFY(!store().canRemoveMember(provisional) && !store().canResendInvitation(provisional));
        m->settle();
        m->transport->release();
        m->settle();
        const Member answered = store().members().value(u"w1"_s).last();
        QCOMPARE(answered.id, u"srv"_s);
        QVERIFY(store().canRemoveMember(answered) && store().canResendInvitation(answered));
    }

    void leavingTakesItsThingsAlong()
    {
        begin(team(u"owner"_s));
        m->transport->plan("POST", "/workspaces/w1/leave", ScriptedAnswer::raw(200, {}));
        store().selectAlert(u"a1"_s);
        store().leaveWorkspace();
        m->settle();
        QCOMPARE(store().activeWorkspaceID(), u"w2"_s);
        QVERIFY(!store().selectedAlertID() && store().alerts().isEmpty() && store().topics().isEmpty());
        QCOMPARE(m->preferences->string(preference_keys::activeWorkspace), std::optional(u"w2"_s));
    }

    void deletingTheFilteredTopicShowsAll()
    {
        begin(team(u"owner"_s));
        m->transport->plan("DELETE", "/workspaces/w1/topics/t1", ScriptedAnswer::raw(200, {}));
        store().setFilter(InboxFilter::topic(u"deploys"_s));
        store().deleteTopic(u"t1"_s);
        m->settle();
        QVERIFY(store().filter() == InboxFilter::all());
    }

    void deletingTheAccount_data()
    {
        QTest::addColumn<ScriptedAnswer>("answer");
        QTest::addColumn<bool>("ends");
        QTest::addColumn<QString>("said");
        QTest::newRow("with a word") << ScriptedAnswer::message("Goodbye.") << true << u"Goodbye."_s;
        QTest::newRow("without") << ScriptedAnswer::raw(200, {}) << true << u"Your account has been deleted."_s;
        QTest::newRow("refused") << ScriptedAnswer::failure(409, "no", "Not today.") << false << u"Not today."_s;
    }

    void deletingTheAccount()
    {
        QFETCH(ScriptedAnswer, answer);
        QFETCH(bool, ends);
        QFETCH(QString, said);
        begin(team(u"owner"_s));
        m->transport->plan("DELETE", "/auth/account", answer);
        store().deleteAccount();
        m->settle();
        QCOMPARE(store().isSignedIn(), !ends);
        QCOMPARE(ends ? store().signInError().value_or(QString()) : store().toast()->message, said);
        QCOMPARE(m->preferences->contains(preference_keys::device(QUrl(u"https://pingwell.test"_s))), !ends);
    }

    void theDemoRemembersItsTimeOut()
    {
        SeedData seed;
        seed.workspaces = {{u"w1"_s, u"Team"_s, WorkspaceKind::team, WorkspaceRole::owner}};
        const auto made = [&] {
            return std::make_unique<AppStore>(seed, true, m->preferences, testStart, nullptr, m->clock);
        };
        const auto first = made();
        first->setResponseTimeout(60);
        first->setTimeoutAction(TimeoutAction::default_);
        QCOMPARE(made()->workspaces().first().responseTimeoutMinutes, 60);
        QVERIFY(made()->workspaces().first().timeoutAction == TimeoutAction::default_);
        first->setResponseTimeout(45);
        QCOMPARE(first->workspaces().first().responseTimeoutMinutes, 45);
        QCOMPARE(made()->workspaces().first().responseTimeoutMinutes, 30);
        first->createWorkspace(u"Ops"_s);
        QCOMPARE(first->activeWorkspace()->name, u"Ops"_s);
        first->createTopic(u"Deploys"_s);
        first->createTopic(u"deploys!"_s);
        QCOMPARE(first->activeTopicNames(), QStringList{u"deploys"_s});
    }
};

QTEST_GUILESS_MAIN(ActionsTest)
#include "actions_test.moc"
