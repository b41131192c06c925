#include "desktop/preference_keys.h"
#include "store_fixture.h"

#include <QTest>

#include <functional>

using namespace pingwell;
using namespace Qt::StringLiterals;

namespace {

using Act = std::function<void(AppStore &)>;

const ScriptedAnswer registered = ScriptedAnswer::data(R"({"id":"d9","name":"Desk","platform":"linux"})");

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
    DashboardJSON dashboard;
    dashboard.workspaces = {workspace, workspaceJSON(u"w2"_s), workspaceJSON(u"w3"_s)};
    dashboard.members = {member(u"own"_s, u"owner"_s, u"active"_s, role == u"owner"),
                         member(u"adm"_s, u"admin"_s, u"active"_s, role == u"admin"),
                         member(u"ann"_s, u"member"_s, u"active"_s, role == u"member"),
                         member(u"new"_s, u"owner"_s, u"invited"_s)};
    dashboard.topics = {QJsonObject{{u"id"_s, u"t1"_s}, {u"workspaceId"_s, u"w1"_s}, {u"name"_s, u"deploys"_s}}};
    dashboard.devices = {QJsonObject{{u"id"_s, u"here"_s}, {u"name"_s, u"Desk"_s}, {u"platform"_s, u"linux"_s}},
                         QJsonObject{{u"id"_s, u"phone"_s}, {u"name"_s, u"Phone"_s}, {u"platform"_s, u"android"_s}}};
    dashboard.alerts = {alertJSON(u"a1"_s, 60), askJSON(u"q1"_s, 50),
                        askJSON(u"q9"_s, 30, {{u"workspaceId"_s, u"w9"_s}}),
                        askJSON(u"q2"_s, 40, {{u"answerType"_s, u"text"_s}})};
    return dashboard;
}

QStringList alertWords(const AppStore &store)
{
    QStringList words;
    for (const Alert &alert : store.alerts())
        words << alert.id + (alert.read ? u"" : u":unread") +
                     (alert.answer ? QString(u':' + *alert.answer) : QString());
    return words;
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
    words << settings.quietFrom << settings.quietTo << (settings.digest ? u"digest"_s : u"no digest"_s)
          << (settings.sound ? u"sound"_s : u"silent"_s) << (settings.quietHoursEnabled ? u"quiet"_s : u"loud"_s);
    for (const Invitation &invitation : store.invitations())
        words << invitation.token;
    return (words + alertWords(store)).join(u' ');
}

/// Something the person does, and how it is said to the service.
struct Action
{
    QByteArray name;
    Act act;
    /// "<method> <path> <body>"
    QByteArray request;
    ScriptedAnswer answer;
    /// What is then shown at once; empty where the service has to agree first.
    QString atOnce = {};
    QString toast = {};

    [[nodiscard]] QByteArray method() const { return request.split(' ').value(0); }
    [[nodiscard]] QByteArray path() const { return request.split(' ').value(1); }
    [[nodiscard]] QByteArray body() const { return request.sliced(method().size() + path().size() + 2); }
};

QList<Action> allActions()
{
    const ScriptedAnswer workspace = ScriptedAnswer::data(R"({"id":"w1","name":"x","kind":"team","role":"owner"})");
    const ScriptedAnswer created =
        ScriptedAnswer::data(R"({"workspace":{"id":"w9","name":"Ops","kind":"team","role":"owner"},"members":[]})");
    const ScriptedAnswer person = ScriptedAnswer::message(
        "Done.", R"({"id":"srv","workspaceId":"w1","email":"eve@x.test","role":"viewer","status":"invited"})");
    const ScriptedAnswer topic = ScriptedAnswer::data(R"({"id":"t9","workspaceId":"w1","name":"new-one"})");
    const ScriptedAnswer alert = ScriptedAnswer::data(R"({"id":"a9","workspaceId":"w1","title":"x","at":1})");
    const ScriptedAnswer settings = ScriptedAnswer::data("{}");
    const ScriptedAnswer nothing = ScriptedAnswer::raw(200, {});
    const QString later;
    return {
        {"answer", [](AppStore &s) { s.answer(u"q1"_s, u"Deny"_s); },
         R"(POST /workspaces/w1/alerts/q1/answer {"answer":"Deny"})", alert, u"q1:Deny q9"_s},
        {"read", [](AppStore &s) { s.toggleRead(u"a1"_s); }, "POST /workspaces/w1/alerts/a1/read ", nothing,
         u"a1 q1:unread"_s},
        {"read all", [](AppStore &s) { s.markAllRead(); }, "POST /workspaces/w1/alerts/read-all ", nothing,
         u"a1 q1 q9:unread q2"_s},
        {"delete", [](AppStore &s) { s.deleteAlert(u"q2"_s); }, "DELETE /workspaces/w1/alerts/q2 ", nothing,
         u"q1:unread q9:unread"_s},
        {"send a test alert", [](AppStore &s) { s.sendTestAlert(); },
         R"(POST /workspaces/w1/alerts/test {"app":"Pingwell","body":"If you can see this, Pingwell is wired up.",)"
         R"("priority":"normal","title":"Test alert from your Mac","topic":"test"})",
         alert, later, u"Test alert sent."_s},
        {"rename", [](AppStore &s) { s.renameWorkspace(u"  Sea "_s); }, R"(PATCH /workspaces/w1 {"name":"Sea"})",
         workspace, u"w1:Sea:"_s},
        {"time-out", [](AppStore &s) { s.setResponseTimeout(45); },
         R"(PATCH /workspaces/w1 {"responseTimeoutMinutes":45})", workspace, u"w1:Workspace w1:45:"_s},
        {"time-out action", [](AppStore &s) { s.setTimeoutAction(TimeoutAction::escalate); },
         R"(PATCH /workspaces/w1 {"timeoutAction":"escalate"})", workspace, u":escalate"_s},
        {"leave, pressed twice", [](AppStore &s) { s.leaveWorkspace(), s.leaveWorkspace(); },
         "POST /workspaces/w1/leave ", nothing},
        {"create a workspace", [](AppStore &s) { s.createWorkspace(u" Ops "_s); }, R"(POST /workspaces {"name":"Ops"})",
         created, later, u"Ops is ready. Invite your team from the Team tab."_s},
        {"invite", [](AppStore &s) { QVERIFY(!s.invite(u" Eve@X.test"_s, WorkspaceRole::viewer)); },
         R"(POST /workspaces/w1/members {"email":"eve@x.test","role":"viewer"})", person,
         u"eve@x.test:viewer:invited!"_s, u"Done."_s},
        {"change a role", [](AppStore &s) { s.changeRole(u"ann"_s, WorkspaceRole::viewer); },
         R"(PATCH /workspaces/w1/members/ann {"role":"viewer"})", person, u"ann@x.test:viewer:"_s, u"Done."_s},
        {"remove a member", [](AppStore &s) { s.removeMember(u"ann"_s); }, "DELETE /workspaces/w1/members/ann ",
         ScriptedAnswer::message("Gone."), u"adm@x.test:admin:active new@x.test"_s, u"Gone."_s},
        {"revoke an owner's invitation", [](AppStore &s) { s.removeMember(u"new"_s); },
         "DELETE /workspaces/w1/members/new ", nothing, u"ann@x.test:member:active deploys"_s},
        {"resend", [](AppStore &s) { s.resendInvitation(u"new"_s); }, "POST /workspaces/w1/members/new/resend ", person,
         u"new@x.test:owner:invited!"_s, u"Done."_s},
        {"decline", [](AppStore &s) { s.rejectInvitation(u"tok"_s); }, "POST /invites/tok/reject ",
         ScriptedAnswer::message("Declined."), u"loud tok2 a1"_s, u"Declined."_s},
        {"accept", [](AppStore &s) { s.acceptInvitation(u"tok"_s); }, "POST /invites/tok/accept ",
         ScriptedAnswer::message("Welcome."), u"loud tok2 a1"_s, u"Welcome."_s},
        {"create a topic", [](AppStore &s) { s.createTopic(u"New one!"_s); },
         R"(POST /workspaces/w1/topics {"name":"new-one"})", topic},
        {"mute", [](AppStore &s) { s.setTopicMuted(u"t1"_s, true); },
         R"(PATCH /workspaces/w1/topics/t1 {"muted":true})", topic, u"deploys:normal:muted"_s},
        {"priority", [](AppStore &s) { s.setTopicMinPriority(u"t1"_s, Priority::high); },
         R"(PATCH /workspaces/w1/topics/t1 {"minPriority":"high"})", topic, u"deploys:high"_s},
        {"quiet topic", [](AppStore &s) { s.setTopicQuietHours(u"t1"_s, true); },
         R"(PATCH /workspaces/w1/topics/t1 {"quietHours":true})", topic, u"deploys:normal:quiet"_s},
        {"delete a topic", [](AppStore &s) { s.deleteTopic(u"t1"_s); }, "DELETE /workspaces/w1/topics/t1 ", nothing,
         u"invited here"_s},
        {"quiet hours",
         [](AppStore &s) { s.updateSettings([](auto &all) { all.quietFrom = all.quietTo = u"9:00"_s; }); },
         R"(PUT /auth/settings {"quietFrom":"9:00","quietTo":"9:00"})", settings, u"9:00 9:00"_s},
        {"digest and sound", [](AppStore &s) { s.updateSettings([](auto &all) { all.digest = all.sound = false; }); },
         R"(PUT /auth/settings {"digest":false,"sound":false})", settings, u"no digest silent"_s},
        {"remove a device", [](AppStore &s) { s.removeDevice(u"phone"_s); }, "DELETE /devices/phone ",
         ScriptedAnswer::message("Signed out."), u"here 22:00"_s, u"Signed out."_s},
    };
}

/// What is asked of the service besides: by the live loop, and to leave for good.
QList<Action> allQuestions()
{
    const Act poll = [](AppStore &s) { s.startSync(); };
    return {
        {"account", poll, "GET /auth/user-data ", ScriptedAnswer::raw(200, R"({"user":{"name":"Ada"}})")},
        {"invitations", poll, "GET /invites ", ScriptedAnswer::data(R"([{"token":"late"}])")},
        {"heartbeat", poll, "POST /devices/here/heartbeat ", ScriptedAnswer::failure(404)},
        {"registration", poll, "POST /devices ", registered},
        {"deletion of the account", [](AppStore &s) { s.deleteAccount(); }, "DELETE /auth/account ",
         ScriptedAnswer::message("Goodbye.")},
    };
}

} // namespace

/// What a person can do to the things of the service.
class ActionsTest : public StoreTest
{
    Q_OBJECT

    void begin(const DashboardJSON &dashboard)
    {
        m->preferences->setString(preference_keys::device(QUrl(u"https://pingwell.test"_s)), u"here"_s);
        m->startWith(dashboard);
        m->transport->plan("GET", "/invites",
                           ScriptedAnswer::data(R"([{"token":"tok","workspace":"Sea"},{"token":"tok2"}])"));
        m->transport->plan("GET", "/dashboard", ScriptedAnswer::data(dashboard.body()));
        m->transport->plan("GET", "/auth/user-data", ScriptedAnswer::noAnswer());
        m->transport->plan("POST", "/devices/here/heartbeat",
                           ScriptedAnswer::data(R"({"id":"here","name":"Desk","platform":"linux"})"));
        store().startSync();
        m->settle();
    }

private slots:
    /// Shown at once, said to the service in its words, and still so when it agrees.
    void actions()
    {
        for (const Action &action : allActions()) {
            const InRow row = anew(action.name);
            begin(team(u"owner"_s));
            const QString before = state(store());
            // What follows accepting: a refresh, not thrown away.
            m->transport->always("GET", "/dashboard", ScriptedAnswer::noAnswer());
            m->transport->plan(action.method(), action.path(), action.answer.heldBack());
            action.act(store());
            QCOMPARE(state(store()) == before, action.atOnce.isEmpty());
            QVERIFY2(state(store()).contains(action.atOnce), qPrintable(state(store())));
            m->settle();
            QCOMPARE(m->transport->count(action.method(), action.path()), 1);
            QCOMPARE(m->transport->lastRequest(action.method(), action.path()).body.value_or(QByteArray()),
                     action.body());
            const QString waiting = state(store());
            m->release();
            QCOMPARE(state(store()) == waiting, !action.atOnce.isEmpty() && action.name != "invite");
            QCOMPARE(store().toast() ? store().toast()->message : QString(), action.toast);
            QCOMPARE(store().connectionProblem().has_value(), action.name == "accept");
        }
    }

    /// Taken back to the last detail, told, and followed by a refresh that counts.
    void refusals()
    {
        for (const Action &action : allActions()) {
            const InRow row = anew(action.name);
            begin(team(u"owner"_s));
            const QString before = state(store());
            m->transport->plan(action.method(), action.path(), ScriptedAnswer::failure(409, "no", "Not today."));
            m->transport->plan("GET", "/dashboard", ScriptedAnswer::noAnswer());
            action.act(store());
            m->settle();
            QCOMPARE(state(store()), before);
            QCOMPARE(store().toast()->message, u"Not today."_s);
            QVERIFY(store().toast()->isError);
            QCOMPARE(m->transport->plannedCount(), 0);
        }
    }

    /// They come while another session stands, in a workspace of the same name, and change nothing in it.
    void answersOfAnEarlierSession()
    {
        for (const Action &action : allActions() + allQuestions()) {
            for (const ScriptedAnswer &answer : {action.answer, ScriptedAnswer::failure(401)}) {
                const InRow row = anew(action.name);
                begin(team(u"owner"_s));
                m->letLoopsFail();
                m->transport->always("POST", "/devices/here/heartbeat", ScriptedAnswer::failure(404));
                m->transport->always("POST", "/devices", registered);
                for (const char *path : {"/devices/here", "/devices/d9"})
                    m->transport->always("DELETE", path, ScriptedAnswer::raw(204, {}));
                m->transport->plan(action.method(), action.path(), answer.heldBack());
                action.act(store());
                m->settle();
                m->changeSession();
                m->transport->plan("POST", "/workspaces",
                                   ScriptedAnswer::data(R"({"workspace":{"id":"w1","name":"Own",)"
                                                        R"("kind":"team","role":"owner"},"members":[]})"));
                store().createWorkspace(u"Own"_s);
                m->settle();
                const QString before = state(store());
                const QString said = store().toast()->message;
                QVERIFY2(said.startsWith(u"Own is ready"), qPrintable(said));
                m->release(action.method(), action.path());
                QVERIFY(store().isSignedIn());
                QCOMPARE(state(store()), before);
                QCOMPARE(store().account(), std::optional(Account()));
                QCOMPARE(store().toast()->message, said);
                QVERIFY(m->notifier->delivered.isEmpty());
            }
        }
    }

    void whoMayNotCannot()
    {
        const Act timeout = [](AppStore &s) { s.setResponseTimeout(5); };
        const Act invite = [](AppStore &s) {
            QVERIFY(s.invite(u"eve@x.test"_s, WorkspaceRole::viewer) == InviteError::notAllowed);
        };
        const QString owner = u"owner"_s, admin = u"admin"_s, member = u"member"_s, viewer = u"viewer"_s;
        const std::tuple<const char *, QString, QString, Act> rows[] = {
            {"a viewer answers", viewer, u"team"_s, [](AppStore &s) { s.answer(u"q1"_s, u"Deny"_s); }},
            {"in a workspace unknown here", owner, u"team"_s, [](AppStore &s) { s.answer(u"q9"_s, u"Deny"_s); }},
            {"of which also none is deleted", owner, u"team"_s, [](AppStore &s) { s.deleteAlert(u"q9"_s); }},
            {"a viewer deletes", viewer, u"team"_s, [](AppStore &s) { s.deleteAlert(u"a1"_s); }},
            {"a member invites", member, u"team"_s, invite},
            {"into a personal workspace", owner, u"personal"_s, invite},
            {"a viewer's time-out", viewer, u"team"_s, timeout},
            {"a member's time-out", member, u"team"_s, timeout},
            {"escalating alone", owner, u"personal"_s,
             [](AppStore &s) { s.setTimeoutAction(TimeoutAction::escalate); }},
            {"a member renames", member, u"team"_s, [](AppStore &s) { s.renameWorkspace(u"Sea"_s); }},
            {"to a blank name", owner, u"team"_s, [](AppStore &s) { s.renameWorkspace(u"  "_s); }},
            {"leaving a personal one", owner, u"personal"_s, [](AppStore &s) { s.leaveWorkspace(); }},
            {"the owner's role", admin, u"team"_s, [](AppStore &s) { s.changeRole(u"own"_s, WorkspaceRole::viewer); }},
            {"one's own role", admin, u"team"_s, [](AppStore &s) { s.changeRole(u"adm"_s, WorkspaceRole::viewer); }},
            {"to owner", owner, u"team"_s, [](AppStore &s) { s.changeRole(u"ann"_s, WorkspaceRole::owner); }},
            {"removing the owner", admin, u"team"_s, [](AppStore &s) { s.removeMember(u"own"_s); }},
            {"removing oneself", admin, u"team"_s, [](AppStore &s) { s.removeMember(u"adm"_s); }},
            {"a member removes", member, u"team"_s, [](AppStore &s) { s.removeMember(u"adm"_s); }},
            {"inviting again who is in", owner, u"team"_s, [](AppStore &s) { s.resendInvitation(u"ann"_s); }},
            {"a topic of hyphens", owner, u"team"_s, [](AppStore &s) { s.createTopic(u"---"_s); }},
            {"an unknown topic", owner, u"team"_s, [](AppStore &s) { s.setTopicMuted(u"t7"_s, true); }},
            {"this computer", owner, u"team"_s, [](AppStore &s) { s.removeDevice(u"here"_s); }},
            {"an unknown invitation", owner, u"team"_s, [](AppStore &s) { s.acceptInvitation(u"none"_s); }},
            {"nothing changed", owner, u"team"_s, [](AppStore &s) { s.updateSettings([](auto &) {}); }}};
        for (const auto &[name, role, kind, act] : rows) {
            const InRow row = anew(name);
            begin(team(role, kind));
            const QString before = state(store());
            const auto sent = m->transport->requests().size();
            act(store());
            m->settle();
            QCOMPARE(state(store()), before);
            QCOMPARE(m->transport->requests().size(), sent);
        }
    }

    void leavingTakesItsThingsAlong()
    {
        begin(team(u"owner"_s));
        m->transport->plan("POST", "/workspaces/w1/leave", ScriptedAnswer::raw(200, {}).heldBack());
        store().leaveWorkspace();
        m->settle();
        // The person looks at another one meanwhile, and still does afterwards.
        store().selectWorkspace(u"w3"_s);
        m->release();
        QCOMPARE(store().activeWorkspaceID(), u"w3"_s);
        QVERIFY(store().topics().isEmpty());
        QCOMPARE(alertWords(store()), QStringList{u"q9:unread"_s});
        QCOMPARE(m->notifier->removed, (QStringList{u"a1"_s, u"q1"_s, u"q2"_s}));
        QCOMPARE(m->preferences->string(preference_keys::activeWorkspace), std::optional(u"w3"_s));
    }

    /// Whether the person deletes it or somebody else does.
    void aVanishedTopicIsNoFilter()
    {
        begin(team(u"owner"_s));
        m->transport->plan("DELETE", "/workspaces/w1/topics/t1", ScriptedAnswer::raw(200, {}));
        store().setFilter(InboxFilter::topic(u"deploys"_s));
        store().deleteTopic(u"t1"_s);
        QVERIFY(store().filter() == InboxFilter::all());
        m->settle();
        DashboardJSON dashboard = team(u"owner"_s);
        store().setFilter(InboxFilter::topic(u"deploys"_s));
        m->refreshWith(dashboard);
        QVERIFY(store().filter() == InboxFilter::topic(u"deploys"_s));
        dashboard.topics = {};
        m->refreshWith(dashboard);
        QVERIFY(store().filter() == InboxFilter::all());
    }

    void deletingTheAccountEndsTheSession()
    {
        for (const auto &[answer, said] :
             {std::pair(ScriptedAnswer::message("Goodbye."), u"Goodbye."_s),
              std::pair(ScriptedAnswer::raw(200, {}), u"Your account has been deleted."_s)}) {
            m->tokens->save(u"token-1"_s);
            begin(team(u"owner"_s));
            m->transport->plan("DELETE", "/auth/account", ScriptedAnswer::failure(409, "no", "Not today."));
            m->transport->plan("DELETE", "/auth/account", answer);
            store().deleteAccount();
            m->settle();
            QVERIFY(store().isSignedIn() && store().toast()->message == u"Not today.");
            store().deleteAccount();
            m->settle();
            QCOMPARE(store().signInError(), std::optional(said));
            QVERIFY(!m->preferences->contains(preference_keys::device(QUrl(u"https://pingwell.test"_s))));
        }
    }
};

QTEST_GUILESS_MAIN(ActionsTest)
#include "actions_test.moc"
