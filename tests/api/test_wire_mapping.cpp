#include "api/endpoints.h"
#include "support/scripted_transport.h"
#include "support/settled.h"

#include <QTest>

#include <functional>

using namespace pingwell;
using namespace Qt::StringLiterals;

namespace {

using Fields = QMap<QByteArray, QByteArray>;

/// The records of a dashboard by the key of their list, each with its required keys only.
const QMap<QByteArray, Fields> barest{
    {"workspaces", {{"id", R"("w1")"}, {"name", R"("N")"}, {"kind", R"("team")"}, {"role", R"("owner")"}}},
    {"members",
     {{"id", R"("m1")"},
      {"workspaceId", R"("w1")"},
      {"email", R"("e@x")"},
      {"role", R"("owner")"},
      {"status", R"("active")"}}},
    {"topics", {{"id", R"("t1")"}, {"workspaceId", R"("w1")"}, {"name", R"("N")"}}},
    {"alerts", {{"id", R"("a1")"}, {"workspaceId", R"("w1")"}, {"title", R"("T")"}, {"at", "1500"}}},
    {"devices", {{"id", R"("d1")"}, {"name", R"("N")"}, {"platform", R"("web")"}}},
    {"settings", {}},
    {"plan", {}},
};

QByteArray objectOf(const Fields &fields)
{
    QByteArrayList pairs;
    for (auto field = fields.cbegin(); field != fields.cend(); ++field)
        pairs.append('"' + field.key() + "\":" + field.value());
    return '{' + pairs.join(',') + '}';
}

/// A dashboard of one bare record of each kind, with `key` of the record in `list` changed; without a value it is gone.
QByteArray dashboardWith(const QByteArray &list, const QByteArray &key, const QByteArray &value)
{
    QMap<QByteArray, Fields> records = barest;
    if (value.isEmpty())
        records[list].remove(key);
    else
        records[list][key] = value;
    Fields dashboard;
    for (auto record = records.cbegin(); record != records.cend(); ++record) {
        const bool isList = record.key() != "settings" && record.key() != "plan";
        dashboard[record.key()] = isList ? '[' + objectOf(*record) + ']' : objectOf(*record);
    }
    return objectOf({{"data", objectOf(dashboard)}});
}

Settled<FetchedDashboard> fetched(const QByteArray &body)
{
    const auto transport = std::make_shared<ScriptedTransport>();
    transport->planNext(ScriptedAnswer::raw(200, body));
    const auto client = std::make_shared<const APIClient>(QUrl(u"https://h.test"_s), std::nullopt, transport);
    return settle(endpoints::fetchDashboard(client, {}));
}

Dashboard dashboardOf(const QByteArray &body)
{
    const auto settled = fetched(body);
    if (settled.value && settled.value->dashboard)
        return *settled.value->dashboard;
    QTest::qFail("the dashboard was not decodable", __FILE__, __LINE__);
    return {};
}

bool areEqual(const Dashboard &left, const Dashboard &right)
{
    return left.workspaces == right.workspaces && left.members == right.members && left.topics == right.topics &&
           left.alerts == right.alerts && left.devices == right.devices && left.settings == right.settings &&
           left.plan == right.plan;
}

/// The barest dashboard, as it is to be understood.
Dashboard bareDashboard()
{
    Dashboard dashboard;
    Workspace workspace;
    workspace.id = u"w1"_s;
    workspace.name = u"N"_s;
    workspace.kind = WorkspaceKind::team;
    workspace.role = WorkspaceRole::owner;
    dashboard.workspaces = {workspace};
    Member member;
    member.id = u"m1"_s;
    member.email = u"e@x"_s;
    member.role = WorkspaceRole::owner;
    dashboard.members[u"w1"_s] = {member};
    Topic topic;
    topic.id = u"t1"_s;
    topic.workspaceId = u"w1"_s;
    topic.name = u"N"_s;
    dashboard.topics = {topic};
    Alert alert;
    alert.id = u"a1"_s;
    alert.workspaceId = u"w1"_s;
    alert.app = u"Agent"_s;
    alert.title = u"T"_s;
    alert.topic = u"general"_s;
    alert.at = Instant(Seconds(1.5));
    dashboard.alerts = {alert};
    Device device;
    device.id = u"d1"_s;
    device.name = u"N"_s;
    dashboard.devices = {device};
    dashboard.plan = u"Cloud"_s;
    return dashboard;
}

using Change = std::function<void(Dashboard &)>;

} // namespace


class TestWireMapping : public QObject
{
    Q_OBJECT

private slots:
    void maps_data()
    {
        QTest::addColumn<QByteArray>("list");
        QTest::addColumn<QByteArray>("key");
        QTest::addColumn<QByteArray>("value");
        QTest::addColumn<Change>("change");
        const auto row = [](const char *list, const char *key, const char *value, const Change &change) {
            QTest::addRow("%s %s %s", list, key, value)
                << QByteArray(list) << QByteArray(key) << QByteArray(value) << change;
        };
        const auto alert = [&row](const char *key, const char *value, const std::function<void(Alert &)> &change) {
            row("alerts", key, value, [change](Dashboard &d) { change(d.alerts.first()); });
        };
        alert("app", R"("CI")", [](Alert &a) { a.app = u"CI"_s; });
        alert("app", R"("")", [](Alert &a) { a.app.clear(); });
        alert("body", R"("B\u0000\n\ud83d\ude00")", [](Alert &a) { a.body = u"B\0\n\U0001F600"_s; });
        alert("topic", R"("ops")", [](Alert &a) { a.topic = u"ops"_s; });
        alert("priority", R"("critical")", [](Alert &a) { a.priority = Priority::critical; });
        alert("priority", R"("Critical")", [](Alert &) {});
        alert("kind", R"("ask")", [](Alert &a) { a.kind = AlertKind::ask; });
        alert("kind", R"("Ask")", [](Alert &) {});
        alert("actions", R"(["Yes","No","Yes"])", [](Alert &a) { a.actions = {u"Yes"_s, u"No"_s, u"Yes"_s}; });
        alert("answerType", R"("text")", [](Alert &a) { a.answerType = AnswerType::text; });
        alert("answerType", R"("number")", [](Alert &) {});
        alert("placeholder", R"("Why?")", [](Alert &a) { a.placeholder = u"Why?"_s; });
        alert("placeholder", R"("")", [](Alert &) {});
        alert("delivered", "false", [](Alert &a) { a.delivered = false; });
        alert("at", "1234.5", [](Alert &a) { a.at = Instant(Seconds(1.2345)); });
        alert("at", "-8.64e15", [](Alert &a) { a.at = Instant(Seconds(-8.64e12)); });
        alert("expiresAt", "8640000000000000", [](Alert &a) { a.expiresAt = Instant(Seconds(8.64e12)); });
        alert("answer", R"("")", [](Alert &a) { a.answer = u""_s; });
        alert("answeredAt", "5", [](Alert &) {});
        alert("timedOutAt", "0", [](Alert &a) { a.timedOutAt = Instant(); });
        alert("outcome", R"("escalated")", [](Alert &a) { a.outcome = u"escalated"_s; });
        alert("read", "true", [](Alert &a) { a.read = true; });
        alert("future", R"([{"deep":[1,{}]}])", [](Alert &) {});

        const auto workspace = [&row](const char *key, const char *value,
                                      const std::function<void(Workspace &)> &change) {
            row("workspaces", key, value, [change](Dashboard &d) { change(d.workspaces.first()); });
        };
        workspace("kind", R"("Team")", [](Workspace &w) { w.kind = WorkspaceKind::personal; });
        workspace("role", R"("boss")", [](Workspace &w) { w.role = WorkspaceRole::viewer; });
        workspace("responseTimeoutMinutes", "60", [](Workspace &w) { w.responseTimeoutMinutes = 60; });
        workspace("responseTimeoutMinutes", "15.0", [](Workspace &w) { w.responseTimeoutMinutes = 15; });
        workspace("responseTimeoutMinutes", "15.5", [](Workspace &) {});
        workspace("responseTimeoutMinutes", "9223372036854775808", [](Workspace &) {});
        workspace("timeoutAction", R"("default")", [](Workspace &w) { w.timeoutAction = TimeoutAction::default_; });
        workspace("timeoutAction", R"("escalate")", [](Workspace &w) { w.timeoutAction = TimeoutAction::escalate; });
        workspace("timeoutAction", R"("Escalate")", [](Workspace &) {});

        const auto member = [&row](const char *key, const char *value, const std::function<void(Member &)> &change) {
            row("members", key, value, [change](Dashboard &d) { change(d.members[u"w1"_s].first()); });
        };
        member("name", R"("Ada")", [](Member &m) { m.name = u"Ada"_s; });
        member("name", R"("")", [](Member &) {});
        member("role", R"("boss")", [](Member &m) { m.role = WorkspaceRole::member; });
        member("status", R"("invited")", [](Member &m) { m.status = MemberStatus::invited; });
        member("status", R"("Invited")", [](Member &) {});
        member("invitedAt", "2000", [](Member &m) { m.invitedAt = Instant(Seconds(2)); });
        member("isSelf", "true", [](Member &m) { m.isYou = true; });
        row("members", "workspaceId", R"("w2")", [](Dashboard &d) { d.members = {{u"w2"_s, d.members[u"w1"_s]}}; });

        const auto topic = [&row](const char *key, const char *value, const std::function<void(Topic &)> &change) {
            row("topics", key, value, [change](Dashboard &d) { change(d.topics.first()); });
        };
        topic("minPriority", R"("high")", [](Topic &t) { t.minPriority = Priority::high; });
        topic("minPriority", R"("urgent")", [](Topic &) {});
        topic("quietHours", "true", [](Topic &t) { t.quietHours = true; });
        topic("muted", "true", [](Topic &t) { t.muted = true; });
        topic("responseTimeoutMinutes", "5", [](Topic &t) { t.responseTimeoutMinutes = 5; });

        const auto device = [&row](const char *key, const char *value, const std::function<void(Device &)> &change) {
            row("devices", key, value, [change](Dashboard &d) { change(d.devices.first()); });
        };
        device("platform", R"("linux")", [](Device &d) { d.platform = DevicePlatform::linux_; });
        device("platform", R"("toaster")", [](Device &d) { d.platform = DevicePlatform::web; });
        device("version", R"("2.1")", [](Device &d) { d.version = u"2.1"_s; });
        device("lastSeen", "1", [](Device &d) { d.lastSeen = Instant(Seconds(0.001)); });

        row("settings", "quietFrom", R"("21:00")", [](Dashboard &d) { d.settings.quietFrom = u"21:00"_s; });
        row("settings", "quietTo", R"("06:30")", [](Dashboard &d) { d.settings.quietTo = u"06:30"_s; });
        row("settings", "digest", "false", [](Dashboard &d) { d.settings.digest = false; });
        row("settings", "sound", "false", [](Dashboard &d) { d.settings.sound = false; });
        row("plan", "name", R"("Team")", [](Dashboard &d) { d.plan = u"Team"_s; });
    }

    void maps()
    {
        QFETCH(QByteArray, list);
        QFETCH(QByteArray, key);
        QFETCH(QByteArray, value);
        QFETCH(Change, change);
        Dashboard expected = bareDashboard();
        change(expected);
        QVERIFY(areEqual(dashboardOf(dashboardWith(list, key, value)), expected));
    }

    void mindsTypes_data()
    {
        QTest::addColumn<QByteArray>("list");
        QTest::addColumn<QByteArray>("key");
        QTest::addColumn<QByteArrayList>("wrong");
        QTest::addColumn<bool>("isRequired");
        const QByteArrayList noText{"null", "7", "true", "[]", "{}"};
        const QByteArrayList noFlag{"null", "0", R"("true")", "[]", "{}"};
        const QByteArrayList noDate{"null",    R"("5")", "true",  "[]",
                                    "8.65e15", "-1e300", "1e999", "123456789012345678901234567890"};
        const QByteArrayList noInteger{"null", R"("5")", "true", "0.5", "1e30", "-1e999", "99999999999999999999"};
        const QByteArrayList noTexts{"null", R"("Yes")", R"(["Yes",1])", "{}"};
        const auto rows = [](const char *list, const QByteArrayList &keys, const QByteArrayList &wrong,
                             bool isRequired) {
            for (const QByteArray &key : keys)
                QTest::addRow("%s %s", list, key.constData()) << QByteArray(list) << key << wrong << isRequired;
        };
        rows("workspaces", {"id", "name", "kind", "role"}, noText, true);
        rows("workspaces", {"timeoutAction"}, noText, false);
        rows("workspaces", {"responseTimeoutMinutes"}, noInteger, false);
        rows("members", {"id", "workspaceId", "email", "role", "status"}, noText, true);
        rows("members", {"name"}, noText, false);
        rows("members", {"invitedAt"}, noDate, false);
        rows("members", {"isSelf"}, noFlag, false);
        rows("topics", {"id", "workspaceId", "name"}, noText, true);
        rows("topics", {"minPriority"}, noText, false);
        rows("topics", {"quietHours", "muted"}, noFlag, false);
        rows("topics", {"responseTimeoutMinutes"}, noInteger, false);
        rows("alerts", {"id", "workspaceId", "title"}, noText, true);
        rows("alerts", {"at"}, noDate, true);
        rows("alerts", {"app", "body", "topic", "priority", "kind", "answerType", "placeholder", "answer", "outcome"},
             noText, false);
        rows("alerts", {"expiresAt", "timedOutAt"}, noDate, false);
        rows("alerts", {"delivered", "read"}, noFlag, false);
        rows("alerts", {"actions"}, noTexts, false);
        rows("devices", {"version"}, noText, false);
        rows("devices", {"lastSeen"}, noDate, false);
        rows("settings", {"quietFrom", "quietTo"}, noText, false);
        rows("settings", {"digest", "sound"}, noFlag, false);
        rows("plan", {"name"}, noText, false);
    }

    void mindsTypes()
    {
        QFETCH(QByteArray, list);
        QFETCH(QByteArray, key);
        QFETCH(QByteArrayList, wrong);
        QFETCH(bool, isRequired);
        for (const QByteArray &value : wrong + QByteArrayList{""}) {
            const QByteArray body = dashboardWith(list, key, value);
            if (isRequired)
                QCOMPARE(fetched(body).error, APIError::badResponse());
            else
                QVERIFY2(areEqual(dashboardOf(body), bareDashboard()), value.constData());
        }
    }

    void needsLists()
    {
        const QByteArray body = R"({"data":{"workspaces":[],"members":[],"topics":[],"alerts":[]}})";
        const Dashboard dashboard = dashboardOf(body);
        QVERIFY(dashboard.devices.isEmpty() && dashboard.settings == NotificationSettings());
        QCOMPARE(dashboard.plan, u"Cloud"_s);
        for (const char *list : {"workspaces", "members", "topics", "alerts"}) {
            const QByteArray whole = '"' + QByteArray(list) + "\":[]";
            QCOMPARE(fetched(QByteArray(body).replace(whole, R"("x":0)")).error, APIError::badResponse());
            const QByteArray unfit = whole.chopped(1) + "5]";
            QCOMPARE(fetched(QByteArray(body).replace(whole, unfit)).error, APIError::badResponse());
        }
        // A device that makes no sense is not worth losing the alerts for.
        QVERIFY(dashboardOf(dashboardWith("devices", "id", "5")).devices.isEmpty());
    }

    void mapsSessions_data()
    {
        QTest::addColumn<QByteArray>("body");
        QTest::addColumn<std::optional<Account>>("expected");
        const auto account = [](const QString &name, const QString &email, AuthProvider provider, const QString &plan) {
            return std::optional(Account{name, email, provider, plan});
        };
        QTest::newRow("full") << R"({"token":"t","user":{"name":"Ada","email":"a@x","provider":"github","plan":"Old"},
                                     "entitlements":{"name":"Team","id":"t"}})"_ba
                              << account(u"Ada"_s, u"a@x"_s, AuthProvider::github, u"Team"_s);
        QTest::newRow("bare") << R"({"user":{}})"_ba << account(u"You"_s, u""_s, AuthProvider::google, u"Cloud"_s);
        QTest::newRow("odd") << R"({"user":{"name":"","provider":"x","plan":"Solo"},"entitlements":{"name":1}})"_ba
                             << account(u"You"_s, u""_s, AuthProvider::google, u"Solo"_s);
        QTest::newRow("no user") << R"({"token":"t"})"_ba << std::optional<Account>();
        QTest::newRow("in an envelope") << R"({"data":{"user":{}}})"_ba << std::optional<Account>();
    }

    void mapsSessions()
    {
        QFETCH(QByteArray, body);
        QFETCH(std::optional<Account>, expected);
        const auto transport = std::make_shared<ScriptedTransport>();
        transport->planNext(ScriptedAnswer::raw(200, body));
        const auto client = std::make_shared<const APIClient>(QUrl(u"https://h.test"_s), std::nullopt, transport);
        const auto session = settle(endpoints::fetchUserData(client));
        QCOMPARE(session.value.has_value(), expected.has_value());
        if (expected) {
            QVERIFY(session.value->account == *expected);
            QCOMPARE(session.value->token.has_value(), body.contains("token"));
        }
    }

    void mapsTheRest()
    {
        const auto transport = std::make_shared<ScriptedTransport>();
        const auto client = std::make_shared<const APIClient>(QUrl(u"https://h.test"_s), std::nullopt, transport);
        transport->planNext(ScriptedAnswer::data(R"({"providers":["x","github","google","github"]})"));
        QCOMPARE(settle(endpoints::listProviders(client)).value,
                 QList<AuthProvider>({AuthProvider::google, AuthProvider::github}));

        transport->planNext(ScriptedAnswer::data(
            R"([{"token":"a","role":"boss"},{"token":"b","role":"admin","workspace":"W","invitedAt":1000}])"));
        const auto invitations = settle(endpoints::listInvitations(client));
        QVERIFY(*invitations.value == QList<Invitation>({{u"a"_s, {}, WorkspaceRole::member, std::nullopt},
                                                         {u"b"_s, u"W"_s, WorkspaceRole::admin, Instant(Seconds(1))}}));

        transport->planNext(ScriptedAnswer::data(R"({"workspace":)" + objectOf(barest["workspaces"]) +
                                                 R"(,"members":[)" + objectOf(barest["members"]) + "]}"));
        const auto created = settle(endpoints::createWorkspace(client, u"N"_s));
        QVERIFY(created.value->workspace == bareDashboard().workspaces.first());
        QVERIFY(created.value->members == bareDashboard().members[u"w1"_s]);
    }

    void survivesHostileBodies_data()
    {
        QTest::addColumn<QByteArray>("body");
        const QByteArray whole = dashboardWith("plan", "name", R"("Pro")");
        QTest::newRow("zeros") << QByteArray(1000, '\0');
        QTest::newRow("brackets") << QByteArray(1'000'000, '[');
        QTest::newRow("braces") << QByteArray(R"({"a":)").repeated(100'000);
        QTest::newRow("deep value") << R"({"data":)" + QByteArray(5000, '[') + QByteArray(5000, ']') + '}';
        QTest::newRow("no UTF-8") << dashboardWith("alerts", "title", "\"\xff\xfe\"");
        QTest::newRow("data null") << R"({"data":null})"_ba;
        QTest::newRow("data list") << R"({"data":[]})"_ba;
        QTest::newRow("bare minus") << dashboardWith("alerts", "at", "-");
        QTest::newRow("leading zeros") << dashboardWith("alerts", "at", "00000000000000000000000");
        QTest::newRow("half escape") << "{\"data\":\"\\ud83d\\u12"_ba;
        QTest::newRow("trailing garbage") << whole + "x";
        for (const int length : {1, 50, 200, 300})
            QTest::addRow("cut at %d", length) << whole.first(length);
    }

    void survivesHostileBodies()
    {
        QFETCH(QByteArray, body);
        QCOMPARE(fetched(body).error, APIError::badResponse());
    }

    void readsOddButValidTokens()
    {
        // An agent cut a text within an emoji; another wrote more digits than any number has.
        const auto title = [](const char *value) {
            return dashboardOf(dashboardWith("alerts", "title", value)).alerts.constFirst().title;
        };
        QCOMPARE(title(R"("a\ud83d")"), u"a\ufffd"_s);
        QCOMPARE(title(R"("\ude00\ud83d\ud83d\ude00")"), u"\ufffd\ufffd\U0001F600"_s);
        QCOMPARE(title("\"\\\\ud83d \\\" 123456789012345678901234567890 \\ud83d\""),
                 u"\\ud83d \" 123456789012345678901234567890 \ufffd"_s);
        QVERIFY(
            areEqual(dashboardOf(dashboardWith("alerts", "future", "[1e999,-99999999999999999999]")), bareDashboard()));
    }

    void sharesRepeatedTexts()
    {
        QByteArrayList alerts;
        for (int i = 0; i < 3; ++i)
            alerts.append(R"({"id":"a%","workspaceId":"w1","title":"T","at":1,"app":"CI","actions":["Yes"]})");
        const Dashboard dashboard =
            dashboardOf(R"({"data":{"workspaces":[],"members":[],"topics":[],"alerts":[)" + alerts.join(',') + "]}}");
        const Alert &first = dashboard.alerts.constFirst();
        const Alert &last = dashboard.alerts.constLast();
        QCOMPARE(first.workspaceId.constData(), last.workspaceId.constData());
        QCOMPARE(first.app.constData(), last.app.constData());
        QCOMPARE(first.topic.constData(), last.topic.constData());
        QCOMPARE(first.actions.constFirst().constData(), last.actions.constFirst().constData());
    }
};

QTEST_GUILESS_MAIN(TestWireMapping)
#include "test_wire_mapping.moc"
