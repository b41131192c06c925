#include "api/dashboard_bounds.h"
#include "api/endpoints.h"
#include "support/in_row.h"
#include "support/scripted_transport.h"
#include "support/settled.h"

#include <QTest>

#include <functional>

using namespace pingwell;
using namespace Qt::StringLiterals;

namespace {

using Change = std::function<void(Dashboard &)>;

/// The records of a dashboard by the key that holds them, each with its required keys only.
const QMap<QByteArray, QByteArray> barest{
    {"workspaces", R"("id":"w1","name":"N","kind":"team","role":"owner")"},
    {"members", R"("id":"m1","workspaceId":"w1","email":"e@x","role":"owner","status":"active")"},
    {"topics", R"("id":"t1","workspaceId":"w1","name":"N")"},
    {"alerts", R"("id":"a1","workspaceId":"w1","title":"T","at":1500)"},
    {"devices", R"("id":"d1","name":"N","platform":"web")"},
    {"settings", R"("unknown":[])"},
    {"plan", R"("unknown":{})"},
};

/// A dashboard of one bare record of each kind, with `key` of the record in `list` changed; without a value it is gone.
QByteArray dashboardWith(const QByteArray &list, const QByteArray &key, const QByteArray &value)
{
    const QByteArray name = '"' + key + "\":";
    QByteArrayList parts;
    for (auto bare = barest.cbegin(); bare != barest.cend(); ++bare) {
        QByteArray record = *bare;
        if (bare.key() == list)
            record = (value.isEmpty() ? QByteArray() : name + value + ',') + record.replace(name, "\"other\":");
        const bool isListed = bare.key() != "settings" && bare.key() != "plan";
        parts.append('"' + bare.key() + (isListed ? "\":[{" : "\":{") + record + (isListed ? "}]" : "}"));
    }
    return R"({"data":{)" + parts.join(',') + "}}";
}

/// The barest dashboard, as it is to be understood.
Dashboard bareDashboard()
{
    const WorkspaceRole owner = WorkspaceRole::owner;
    Alert alert;
    alert.id = u"a1"_s;
    alert.workspaceId = u"w1"_s;
    alert.app = u"Agent"_s;
    alert.title = u"T"_s;
    alert.topic = u"general"_s;
    alert.at = Instant(Seconds(1.5));
    Dashboard dashboard;
    dashboard.workspaces = {{u"w1"_s, u"N"_s, WorkspaceKind::team, owner, 30, TimeoutAction::expire}};
    dashboard.members[u"w1"_s] = {{u"m1"_s, {}, u"e@x"_s, owner, MemberStatus::active, {}, false}};
    dashboard.topics = {{u"t1"_s, u"w1"_s, u"N"_s, Priority::normal, false, false, {}}};
    dashboard.alerts = {alert};
    dashboard.devices = {{u"d1"_s, u"N"_s, DevicePlatform::web, {}, distantPast}};
    dashboard.plan = u"Cloud"_s;
    return dashboard;
}

APIClientPtr clientOf(const ScriptedAnswer &answer)
{
    const auto transport = std::make_shared<ScriptedTransport>();
    transport->planNext(answer);
    return std::make_shared<const APIClient>(QUrl(u"https://h.test"_s), std::nullopt, transport);
}

Outcome<FetchedDashboard> fetched(const QByteArray &body)
{
    return settle(endpoints::fetchDashboard(clientOf(ScriptedAnswer::raw(200, body)), {}));
}

bool isReadAs(const QByteArray &body, const Dashboard &right)
{
    const auto settled = fetched(body);
    if (!settled.value() || !settled.value()->dashboard)
        return false;
    const Dashboard &left = *settled.value()->dashboard;
    return left.workspaces == right.workspaces && left.members == right.members && left.topics == right.topics &&
           left.alerts == right.alerts && left.devices == right.devices && left.settings == right.settings &&
           left.plan == right.plan;
}

} // namespace

class TestWireMapping : public QObject
{
    Q_OBJECT

private slots:
    void maps()
    {
        using D = Dashboard;
        const QByteArrayList none;
        const QByteArrayList text{"", "null", "7", "true", "[]", "{}"};
        const QByteArrayList word = text + QByteArrayList{R"("ESCALATE")", R"("Critical")", R"("Ask")", R"("number")"};
        const QByteArrayList flag{"", "null", "0", R"("true")", "[]", "{}"};
        // Of the numbers, some are more than the parser takes.
        const QByteArrayList date{"", "null", R"("5")", "true"};
        const QByteArrayList number = date + QByteArrayList{"-1e300", "1e999", "12345678901234567890123",
                                                            "-9223372036854775809", QByteArray(400, '9') + "e-9"};
        const QByteArrayList integer = number + QByteArrayList{"0.5", "9223372036854775808"};
        const QByteArrayList texts{"", "null", R"("Yes")", R"([1,null])", "{}"};
        const auto row = [](const char *list, const char *key, const QByteArrayList &unfit, const char *value,
                            const Change &change) {
            const InRow here(QByteArray(list) + ' ' + key + ' ' + value);
            Dashboard expected = bareDashboard();
            for (const QByteArray &nonsense : unfit)
                QVERIFY2(isReadAs(dashboardWith(list, key, nonsense), expected), nonsense.constData());
            change(expected);
            QVERIFY(isReadAs(dashboardWith(list, key, value), expected));
        };
        const auto alert = [&row](const char *key, const QByteArrayList &unfit, const char *value, auto change) {
            row("alerts", key, unfit, value, [change](D &d) { change(d.alerts[0]); });
        };

        alert("app", text, R"("")", [](Alert &a) { a.app.clear(); });
        alert("title", none, R"("B\u0000\n\ud83d\ude00")", [](Alert &a) { a.title = u"B\0\n\U0001F600"_s; });
        alert("body", text, R"("B")", [](Alert &a) { a.body = u"B"_s; });
        alert("topic", text, R"("ops")", [](Alert &a) { a.topic = u"ops"_s; });
        alert("priority", word, R"("critical")", [](Alert &a) { a.priority = Priority::critical; });
        alert("kind", word, R"("ask")", [](Alert &a) { a.kind = AlertKind::ask; });
        alert("actions", texts, R"(["Yes",1,{},"Yes"])", [](Alert &a) { a.actions = {u"Yes"_s, u"Yes"_s}; });
        alert("answerType", word, R"("text")", [](Alert &a) { a.answerType = AnswerType::text; });
        alert("placeholder", text + QByteArrayList{R"("")"}, R"("?")", [](Alert &a) { a.placeholder = u"?"_s; });
        alert("delivered", flag, "false", [](Alert &a) { a.delivered = false; });
        alert("at", none, "-8.64e15", [](Alert &a) { a.at = Instant(Seconds(-8.64e12)); });
        alert("expiresAt", date, "8.64e15", [](Alert &a) { a.expiresAt = Instant(Seconds(8.64e12)); });
        alert("answer", text, R"("")", [](Alert &a) { a.answer = u""_s; });
        alert("timedOutAt", date, "0", [](Alert &a) { a.timedOutAt = Instant(); });
        alert("outcome", text, R"("escalated")", [](Alert &a) { a.outcome = u"escalated"_s; });
        alert("read", flag, "true", [](Alert &a) { a.read = true; });
        // Nanoseconds are no milliseconds, but no reason to lose the alert either.
        for (const char *late : {"1.7e18", "8640000000000001", "1e999", "12345678901234567890123"})
            alert("at", none, late, [](Alert &a) { a.at = Instant(Seconds(8.64e12)); });
        alert("expiresAt", none, "-9223372036854775809", [](Alert &a) { a.expiresAt = Instant(Seconds(-8.64e12)); });
        alert("future", none, R"([{"deep":[1e999,-99999999999999999999]}])", [](Alert &) {});
        // An agent cut a text within an emoji; another wrote more digits than any number has.
        alert("title", none, R"("\ude00\ud83d\ud83d\ude00")", [](Alert &a) { a.title = u"\ufffd\ufffd\U0001F600"_s; });
        alert("title", none, "\"\\\\ud83d \\\" 123456789012345678901234567890 \\ud83d\"",
              [](Alert &a) { a.title = u"\\ud83d \" 123456789012345678901234567890 \ufffd"_s; });

        // Bytes that are no UTF-8, and control characters as they are.
        alert("title", none, "\"\xff\xfeT\xf0\x9f\x98 \xc3\xa9\"",
              [](Alert &a) { a.title = u"\ufffd\ufffdT\ufffd \u00e9"_s; });
        alert("title", none, "\"a\nb\t\rc\x01\\\"\\\\\"", [](Alert &a) { a.title = u"a\nb\t\rc\ufffd\"\\"_s; });

        row("workspaces", "kind", none, R"("Team")", [](D &d) { d.workspaces[0].kind = WorkspaceKind::personal; });
        row("workspaces", "role", none, R"("boss")", [](D &d) { d.workspaces[0].role = WorkspaceRole::viewer; });
        row("workspaces", "responseTimeoutMinutes", integer, "15.0",
            [](D &d) { d.workspaces[0].responseTimeoutMinutes = 15; });
        row("workspaces", "timeoutAction", word, R"("escalate")",
            [](D &d) { d.workspaces[0].timeoutAction = TimeoutAction::escalate; });
        row("members", "workspaceId", none, R"("w2")", [](D &d) { d.members = {{u"w2"_s, d.members[u"w1"_s]}}; });
        row("members", "name", text + QByteArrayList{R"("")"}, R"("Ada")",
            [](D &d) { d.members[u"w1"_s][0].name = u"Ada"_s; });
        row("members", "role", none, R"("boss")", [](D &d) { d.members[u"w1"_s][0].role = WorkspaceRole::member; });
        row("members", "status", QByteArrayList{R"("Invited")"}, R"("invited")",
            [](D &d) { d.members[u"w1"_s][0].status = MemberStatus::invited; });
        row("members", "invitedAt", date, "2000", [](D &d) { d.members[u"w1"_s][0].invitedAt = Instant(Seconds(2)); });
        row("members", "isSelf", flag, "true", [](D &d) { d.members[u"w1"_s][0].isYou = true; });
        row("topics", "minPriority", word, R"("high")", [](D &d) { d.topics[0].minPriority = Priority::high; });
        row("topics", "quietHours", flag, "true", [](D &d) { d.topics[0].quietHours = true; });
        row("topics", "muted", flag, "true", [](D &d) { d.topics[0].muted = true; });
        row("topics", "responseTimeoutMinutes", integer, "5", [](D &d) { d.topics[0].responseTimeoutMinutes = 5; });
        row("devices", "platform", QByteArrayList{R"("toaster")"}, R"("linux")",
            [](D &d) { d.devices[0].platform = DevicePlatform::linux_; });
        row("devices", "version", text, R"("2.1")", [](D &d) { d.devices[0].version = u"2.1"_s; });
        row("devices", "lastSeen", date, "1", [](D &d) { d.devices[0].lastSeen = Instant(Seconds(0.001)); });
        row("settings", "quietFrom", text, R"("21:00")", [](D &d) { d.settings.quietFrom = u"21:00"_s; });
        row("settings", "quietTo", text, R"("06:30")", [](D &d) { d.settings.quietTo = u"06:30"_s; });
        row("settings", "digest", flag, "false", [](D &d) { d.settings.digest = false; });
        row("settings", "sound", flag, "false", [](D &d) { d.settings.sound = false; });
        row("plan", "name", text, R"("Team")", [](D &d) { d.plan = u"Team"_s; });
    }

    void leavesOutWhatIsUnfit()
    {
        const QByteArray book = "\"id\":\"" + QByteArray(4097, 'x') + "\",\"x\":";
        QList<std::pair<QByteArray, QByteArray>> rows{
            {"devices", R"({"id":"d","platform":"web"})"},
            {"alerts", R"({"id":"a","workspaceId":"w1","title":"T","at":"1"})"}};
        for (const QByteArray list : {"alerts", "members", "topics", "workspaces", "devices"}) {
            const QByteArray bare = '{' + barest[list] + '}';
            for (const QByteArray &unfit : {QByteArray(bare).replace(R"("id":)", R"("id":7,"x":)"),
                                            QByteArray(bare).replace(R"("id":)", book), QByteArray("5")})
                rows.emplaceBack(list, unfit);
        }
        for (const auto &[list, unfit] : rows) {
            const InRow row(list + ' ' + unfit.left(60));
            const QByteArray start = '"' + list + "\":[";
            const QByteArray withOneMore = start + unfit + ',';
            const QByteArray body = dashboardWith("plan", "x", "").replace(start, withOneMore);
            QVERIFY(isReadAs(body, bareDashboard()));
            const DashboardCounts counts = fetched(body).value()->dashboard->counts;
            const QMap<QByteArray, ListCount> byList{{"alerts", counts.alerts},
                                                     {"members", counts.members},
                                                     {"topics", counts.topics},
                                                     {"workspaces", counts.workspaces},
                                                     {"devices", counts.devices}};
            QCOMPARE(byList[list], (ListCount{.sent = 2, .unfit = 1, .beyond = 0}));
        }
    }

    void takesInSoManyRecords()
    {
        const auto records = [](const QByteArray &first, const QByteArray &more, qsizetype count) {
            return QByteArray(first + QByteArray(',' + more).repeated(count));
        };
        const QByteArray ask = R"({"id":"old","workspaceId":"w","title":"T","kind":"ask","at":1})";
        const QByteArray notice = R"({"id":"n","workspaceId":"w","title":"T","at":5})";
        const QByteArray early = R"({"id":"e","workspaceId":"w","title":"T","at":2})";
        const QByteArray member = '{' + barest["members"] + '}';
        const QByteArray topic = '{' + barest["topics"] + '}';
        const QByteArray body = R"({"data":{"workspaces":[],"members":[)" + records(member, member, maximumMembers) +
                                R"(],"topics":[)" + records(topic, topic, maximumTopics + 2) + R"(],"alerts":[)" +
                                records(early + ',' + ask, notice, maximumAlerts) + "]}}";
        const Dashboard dashboard = *fetched(body).value()->dashboard;
        QCOMPARE(dashboard.alerts.size(), maximumAlerts);
        QCOMPARE(dashboard.alerts.first().id, u"old"_s);
        QCOMPARE(dashboard.alerts.at(1).id, u"n"_s);
        QCOMPARE(dashboard.counts.alerts, (ListCount{.sent = maximumAlerts + 2, .unfit = 0, .beyond = 2}));
        QCOMPARE(dashboard.members[u"w1"_s].size(), maximumMembers);
        QCOMPARE(dashboard.counts.members.beyond, 1);
        QCOMPARE(dashboard.topics.size(), maximumTopics);
        QCOMPARE(dashboard.counts.topics.beyond, 3);
    }

    void keepsSoManyChoices()
    {
        const QByteArray choices = R"("Yes")" + QByteArray(R"(,"No")").repeated(maximumKeptChoices + 4);
        const Alert ask =
            fetched(dashboardWith("alerts", "actions", '[' + choices + ']')).value()->dashboard->alerts.first();
        QCOMPARE(ask.actions.size(), maximumKeptChoices);
        QCOMPARE(ask.actions.first(), u"Yes"_s);
        QCOMPARE(ask.furtherChoices, 5);
    }

    void needsKeys()
    {
        const QMap<QByteArray, QByteArrayList> needed{{"workspaces", {"id", "name", "kind", "role"}},
                                                      {"members", {"id", "workspaceId", "email", "role", "status"}},
                                                      {"topics", {"id", "workspaceId", "name"}},
                                                      {"alerts", {"id", "workspaceId", "title", "at"}}};
        for (auto list = needed.cbegin(); list != needed.cend(); ++list) {
            for (const QByteArray &key : *list) {
                for (const char *value : {"", "null"})
                    QCOMPARE(fetched(dashboardWith(list.key(), key, value)).error(), APIError::badResponse());
            }
        }
    }

    void needsLists()
    {
        const QByteArray body = R"({"data":{"workspaces":[],"members":[],"topics":[],"alerts":[]}})";
        Dashboard empty;
        empty.plan = u"Cloud"_s;
        QVERIFY(isReadAs(body, empty));
        QVERIFY(isReadAs(QByteArray(body).replace("}}", R"(,"devices":{},"settings":5,"plan":[]}})"), empty));
        for (const QByteArray list : {"workspaces", "members", "topics", "alerts"}) {
            const QByteArray whole = '"' + list + "\":[]";
            for (const QByteArray &unfit : QByteArrayList{R"("x":0)", whole.chopped(2) + "5"})
                QCOMPARE(fetched(QByteArray(body).replace(whole, unfit)).error(), APIError::badResponse());
        }
    }

    void mapsSessions()
    {
        const auto session = [](const QByteArray &body) {
            return settle(endpoints::fetchUserData(clientOf(ScriptedAnswer::raw(200, body))));
        };
        const auto full = session(R"({"token":"t","user":{"name":"Ada","email":"a@x","provider":"github","plan":"Old"},
                                      "entitlements":{"name":"Team","id":"t"}})");
        QCOMPARE(full.value()->token, u"t"_s);
        QVERIFY(full.value()->account == (Account{u"Ada"_s, u"a@x"_s, AuthProvider::github, u"Team"_s}));
        const auto bare = session(R"({"user":{}})");
        QVERIFY(!bare.value()->token);
        QVERIFY(bare.value()->account == (Account{u"You"_s, u""_s, AuthProvider::google, u"Cloud"_s}));
        const auto odd = session(R"({"user":{"name":"","provider":"x","plan":"Solo"},"entitlements":{"name":1}})");
        QVERIFY(odd.value()->account == (Account{u"You"_s, u""_s, AuthProvider::google, u"Solo"_s}));
        QCOMPARE(session(R"({"token":"t"})").error(), APIError::badResponse());
        QCOMPARE(session(R"({"data":{"user":{}}})").error(), APIError::badResponse());
    }

    void mapsTheRest()
    {
        const auto providers = ScriptedAnswer::data(R"({"providers":["x","github","google","github"]})");
        QCOMPARE(settle(endpoints::listProviders(clientOf(providers))).value(),
                 QList<AuthProvider>({AuthProvider::google, AuthProvider::github}));
        const auto invited = ScriptedAnswer::data(
            R"([{"token":"a","role":"boss"},{"token":"b","role":"admin","workspace":"W","invitedAt":1000}])");
        QVERIFY(*settle(endpoints::listInvitations(clientOf(invited))).value() ==
                QList<Invitation>({{u"a"_s, {}, WorkspaceRole::member, std::nullopt},
                                   {u"b"_s, u"W"_s, WorkspaceRole::admin, Instant(Seconds(1))}}));
        const auto made = ScriptedAnswer::data(R"({"workspace":{)" + barest["workspaces"] + R"(},"members":[{)" +
                                               barest["members"] + "}]}");
        const auto created = settle(endpoints::createWorkspace(clientOf(made), u"N"_s));
        QVERIFY(created.value()->workspace == bareDashboard().workspaces.first());
        QVERIFY(created.value()->members == bareDashboard().members[u"w1"_s]);
    }

    void survivesHostileBodies()
    {
        const QByteArray whole = dashboardWith("plan", "name", R"("Pro")");
        const QByteArrayList bodies{QByteArray(1000, '\0'),
                                    QByteArray(1'000'000, '['),
                                    QByteArray(R"({"a":)").repeated(100'000),
                                    R"({"data":)" + QByteArray(5000, '[') + QByteArray(5000, ']') + '}',
                                    dashboardWith("alerts", "title", '"' + QByteArray(600'000, '\xff') + '"'),
                                    "\xff" + whole,
                                    dashboardWith("alerts", "title", "\"\\\xff\""),
                                    dashboardWith("alerts", "x", '[' + QByteArray("0,").repeated(2'000'000) + "0]"),
                                    dashboardWith("alerts", "at", "-"),
                                    dashboardWith("alerts", "at", "00000000000000000000000"),
                                    R"({"data":null})",
                                    "{\"data\":\"\\ud83d\\u12",
                                    whole + "x",
                                    whole.first(1),
                                    whole.first(50),
                                    whole.first(300)};
        for (const QByteArray &body : bodies)
            QVERIFY2(fetched(body).error() == APIError::badResponse(),
                     body.first(std::min<qsizetype>(60, body.size())));
    }
};

QTEST_GUILESS_MAIN(TestWireMapping)
#include "test_wire_mapping.moc"
