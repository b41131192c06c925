#include "desktop/preference_keys.h"
#include "screen_fixture.h"
#include "support/fake_login_item.h"
#include "support/fake_notification_center.h"
#include "ui/settings/login_item_access.h"
#include "ui/settings/notification_access.h"
#include "ui/settings/settings_facts.h"

#include <QAccessible>
#include <QTest>

using namespace pingwell;
using namespace Qt::StringLiterals;

namespace {

const QString timeout = u"settings.responseTimeout"_s;
const QString action = u"settings.timeoutAction"_s;
const QString quietFrom = u"settings.quietFrom"_s;
const QString quietTo = u"settings.quietTo"_s;
const QString permission = u"settings.notificationPermission"_s;
const QString openAtLogin = u"settings.openAtLogin"_s;

/// The settings in a window that is high enough for all of it.
struct SettingsScreen : Screen
{
    template<typename... Source>
    explicit SettingsScreen(Source &&...source)
        : Screen(u"SettingsView"_s, std::forward<Source>(source)...)
    {
        view().resize(640, 1800);
    }
};

/// One device of each platform, called like it.
SeedData withDevices()
{
    SeedData seed = makeSeed({});
    for (const auto &[platform, word] : rawValues<DevicePlatform>)
        seed.devices << Device{word, word, platform, u"1.2"_s, dayEnd - Seconds(7200)};
    return seed;
}

} // namespace

class SettingsTest : public QObject
{
    Q_OBJECT

private slots:
    void thePageFromTopToBottom()
    {
        StoreFixture live;
        live.preferences->setData(preference_keys::sessionAccount,
                                  R"({"name":"Ada","email":"ada@x.test","provider":"github","plan":"Solo"})");
        live.preferences->setBoolean(preference_keys::quietHoursEnabled, true);
        DashboardJSON dashboard;
        QJsonObject phone{
            {u"id"_s, u"d"_s}, {u"name"_s, u"Phone"_s}, {u"platform"_s, u"ios"_s}, {u"version"_s, u"1.2"_s}};
        phone[u"lastSeen"_s] = millisecondsFromInstant(testStart);
        dashboard.devices << phone;
        live.startWith(dashboard);
        SettingsScreen screen(*live.store);
        QCOMPARE(screen.drawn(u"settings.scroll"_s).join(u" | "),
                 u"*Settings"
                 " | *Account | Name | Ada | Email | ada@x.test | Signed in with | GitHub | Plan | Pro"
                 " | *Server | Connected to | Pingwell Cloud | Address | pingwell.test | Last updated | just now"
                 " | To switch servers, sign out and pick another one on the sign-in screen."
                 " | *Response time | Workspace | Workspace w1 | Max response time | 30 minutes"
                 " | When time runs out | Expire | The agent is told nobody answered and decides what to do."
                 " | How long an agent's ask waits for a reply in Workspace w1. New asks use the new limit."
                 " | *This Mac | Notifications | Allow notifications | Open Pingwell at login"
                 " | Alerts arrive as macOS notifications while Pingwell is running in the menu bar."
                 " | *Notifications | Quiet hours | From | 22:00 | To | 07:00 | Daily digest email | Play sound"
                 " | *Devices | Phone | v1.2 · just now"
                 " | Sign out | Delete account…"_s);
        live.store->startClock();
        live.clock->advance(std::chrono::minutes(3));
        QCOMPARE(screen.value(u"settings.server.updated"_s), u"3m ago"_s);
    }

    void responseTime()
    {
        using enum WorkspaceRole;
        using enum TimeoutAction;
        const auto team = WorkspaceKind::team;
        const QString told = u"The agent is told nobody answered and decides what to do."_s;
        const QString sent = u"Re-sent to every admin in the workspace with the same time limit."_s;
        const QString first = u"The agent gets the first (safest) button, e.g. “Deny”."_s;
        const std::tuple<WorkspaceRole, WorkspaceKind, TimeoutAction, QString, QString, int> rows[] = {
            {owner, team, expire, u"Expire"_s, told, 3},
            {admin, team, escalate, u"Escalate to team"_s, sent, 3},
            {member, team, escalate, u"Escalate to team"_s, sent, 0},
            {viewer, team, default_, u"Use first option"_s, first, 0},
            {owner, WorkspaceKind::personal, escalate, u"Expire"_s, told, 2}};
        for (const auto &[role, kind, stored, shown, detail, choices] : rows) {
            const InRow row(rawValue(role).data());
            SeedData seed = makeSeed({}, role);
            seed.workspaces[0].kind = kind;
            seed.workspaces[0].timeoutAction = stored;
            SettingsScreen screen(seed);
            QCOMPARE(screen.value(u"settings.workspace"_s), u"Platform"_s);
            QCOMPARE(screen.value(action), shown);
            QCOMPARE(screen.name(u"settings.timeoutAction.detail"_s), detail);
            QCOMPARE(screen.canUse(timeout), choices > 0);
            QCOMPARE(screen.name(u"settings.responseTime.locked"_s),
                     choices > 0 ? QString() : u"Only owners and admins can change this."_s);
            screen.click(action);
            QCOMPARE(screen.count(action + u"\\.(expire|default|escalate)"_s), choices);
        }
    }

    void choosing()
    {
        SeedData seed = makeSeed({}, WorkspaceRole::owner);
        seed.settings.quietHoursEnabled = true;
        SettingsScreen screen(seed);
        const QStringList controls{timeout, action, quietFrom, quietTo, u"settings.digest"_s, u"settings.sound"_s};
        const QStringList choices{u"240"_s, u"default"_s, u"21:00"_s, u"08:00"_s, {}, {}};
        const QStringList shown{u"4 hours"_s, u"Use first option"_s, u"21:00"_s, u"08:00"_s, u"off"_s, u"off"_s};
        const auto values = [&] {
            QStringList all;
            for (const QString &each : controls)
                all << screen.value(each);
            return all;
        };
        QStringList expected = values();
        for (qsizetype index = 0; index < controls.size(); ++index) {
            screen.click(controls.at(index));
            if (!choices.at(index).isEmpty())
                screen.click(controls.at(index) + u'.' + choices.at(index));
            expected[index] = shown.at(index);
            QCOMPARE(values(), expected);
        }
        screen.click(u"settings.quietHours"_s);
        QVERIFY(!screen.shows(quietFrom) && !screen.shows(quietTo));
    }

    /// The minutes and the choices of minutes, the hour and its place among the hours, and the minutes in words.
    void unusualValueStandsInOrder()
    {
        const std::tuple<int, QString, QString, int, QString> rows[] = {
            {60, u"5 15 30 60 240 1440"_s, u"22:00"_s, 22, u"1 hour"_s},
            {90, u"5 15 30 60 90 240 1440"_s, u"22:30"_s, 23, u"1 hour 30 minutes"_s},
            {1, u"1 5 15 30 60 240 1440"_s, u"0:15"_s, 1, u"1 minute"_s},
            {1981, u"5 15 30 60 240 1440 1981"_s, u"23:59"_s, 24, u"33 hours 1 minute"_s},
            {120, u"5 15 30 60 120 240 1440"_s, u"late"_s, 24, u"2 hours"_s},
            {60, u"5 15 30 60 240 1440"_s, u""_s, -1, u"1 hour"_s}};
        for (const auto &[minutes, timeouts, from, place, words] : rows) {
            SeedData seed = makeSeed({}, WorkspaceRole::owner);
            seed.workspaces[0].responseTimeoutMinutes = minutes;
            seed.settings.quietHoursEnabled = true;
            seed.settings.quietFrom = from;
            SettingsScreen screen(seed);
            QCOMPARE(screen.value(timeout), words);
            QCOMPARE(responseTimeFacts(screen.store()).timeouts.values.join(u' '), timeouts);
            const Choices hours = notificationFacts(screen.store()).quietFromChoices;
            QCOMPARE(hours.values.indexOf(from), place);
            QCOMPARE(hours.labels, hours.values);
            // The menu opens at the value that holds; once another is chosen, the unusual one is a choice no more.
            const QString entry = timeout + u'.' + QString::number(minutes);
            screen.click(timeout);
            QCOMPARE(screen.focused(), entry);
            screen.click(timeout + u".30"_s);
            QCOMPARE(screen.value(timeout), u"30 minutes"_s);
            screen.click(timeout);
            QCOMPARE(screen.shows(entry), minutes == 60);
        }
    }

    void permissions()
    {
        using enum AuthorizationStatus;
        const std::tuple<AuthorizationStatus, bool, QString, int, int> rows[] = {
            {authorized, true, u"Allowed"_s, 0, 0},
            {notDetermined, true, u"Allow notifications"_s, 1, 0},
            {denied, true, u"Turn on in System Settings…"_s, 0, 1},
            {denied, false, u"Not allowed"_s, 0, 0}};
        for (const auto &[status, hasSettings, text, requests, opened] : rows) {
            const InRow row(text.toUtf8());
            const auto center = std::make_shared<FakeNotificationCenter>();
            center->status = status;
            center->hasSettings = hasSettings;
            NotificationAccess access(center);
            SettingsScreen screen(makeSeed({}), true, QVariantMap{{u"notifications"_s, QVariant::fromValue(&access)}});
            QCOMPARE(screen.name(permission), text);
            QCOMPARE(screen.name(u"settings.thisMac.footer"_s),
                     status == denied
                         ? u"macOS is blocking Pingwell's notifications, so agents can't reach you on this Mac."_s
                         : u"Alerts arrive as macOS notifications while Pingwell is running in the menu bar."_s);
            screen.click(permission);
            QCOMPARE(center->requests, requests);
            QCOMPARE(center->settingsOpened, opened);
            center->status = authorized;
            screen.view().rootObject()->setVisible(false);
            screen.view().rootObject()->setVisible(true);
            QCOMPARE(screen.name(permission), u"Allowed"_s);
        }
    }

    void openingAtLogin()
    {
        const auto item = std::make_shared<FakeLoginItem>();
        LoginItemAccess access(item);
        SettingsScreen screen(makeSeed({}), true, QVariantMap{{u"loginItem"_s, QVariant::fromValue(&access)}});
        screen.click(openAtLogin);
        QCOMPARE(item->current, LoginItemStatus::enabled);
        QCOMPARE(screen.value(openAtLogin), u"on"_s);
        item->problem = u"read-only"_s;
        screen.click(openAtLogin);
        QCOMPARE(screen.value(openAtLogin), u"on"_s);
        QVERIFY(QAccessible::queryAccessibleInterface(screen.find(openAtLogin))->state().checked);
        item->problem.reset();
        screen.click(openAtLogin);
        QCOMPARE(item->current, LoginItemStatus::notRegistered);

        QVERIFY(!screen.shows(u"settings.loginItem.allow"_s));
        item->current = LoginItemStatus::requiresApproval;
        access.refresh();
        QCOMPARE(screen.value(openAtLogin), u"off"_s);
        screen.click(u"settings.loginItem.allow"_s);
        QCOMPARE(item->settingsOpened, 1);
    }

    void withoutADesktop()
    {
        const SettingsScreen screen(makeSeed({}));
        QVERIFY(screen.shows(permission) && !screen.canUse(permission));
        QVERIFY(screen.shows(openAtLogin) && !screen.canUse(openAtLogin));
    }

    void devices()
    {
        const SettingsScreen screen(withDevices());
        QCOMPARE(screen.name(u"settings.device.web"_s), u"web, v1.2 · 2h ago"_s);
        QStringList symbols;
        for (const auto &platform : rawValues<DevicePlatform>) {
            for (const QQuickItem *item : screen.find(u"settings.device."_s + platform.word)->childItems()) {
                if (item->property("size") == 20)
                    symbols << platform.word + u' ' + item->property("name").toString();
            }
        }
        symbols.sort();
        QCOMPARE(symbols, (QStringList{u"android iphone"_s, u"ios iphone"_s, u"linux desktopcomputer"_s,
                                       u"macos laptopcomputer"_s, u"web globe"_s, u"windows desktopcomputer"_s}));
    }

    void deviceIsRemovedOnceConfirmed()
    {
        SettingsScreen screen(withDevices());
        for (const QString &answer : {u"cancel"_s, u"confirm"_s}) {
            screen.click(u"settings.device.web.menu"_s);
            screen.click(u"settings.device.web.remove"_s);
            QCOMPARE(screen.focused(), u"settings.removeDevice.cancel"_s);
            screen.click(u"settings.removeDevice."_s + answer);
            QVERIFY(!screen.shows(u"settings.removeDevice.cancel"_s));
            QCOMPARE(screen.shows(u"settings.device.web"_s), answer == u"cancel"_s);
        }
        QVERIFY(screen.shows(u"settings.device.ios"_s));
    }

    void thisComputerStays()
    {
        StoreFixture live;
        DashboardJSON dashboard;
        for (const QString &id : {u"own"_s, u"other"_s})
            dashboard.devices.append(QJsonObject{{u"id"_s, id}, {u"name"_s, id}, {u"platform"_s, u"linux"_s}});
        live.start();
        live.preferences->setString(preference_keys::device(live.store->client()->baseURL()), u"own"_s);
        live.refreshWith(dashboard);
        SettingsScreen screen(*live.store);
        QVERIFY(screen.shows(u"settings.device.own"_s) && !screen.shows(u"settings.device.own.menu"_s));
        QVERIFY(screen.shows(u"settings.device.other.menu"_s));
        screen.rightClick(u"settings.device.own"_s, {120, 20});
        QVERIFY(!screen.shows(u"settings.device.own.remove"_s));
    }

    void leaving()
    {
        StoreFixture live;
        live.startWith({});
        SettingsScreen screen(*live.store);
        screen.click(u"settings.deleteAccount"_s);
        QCOMPARE(screen.focused(), u"settings.deleteAccount.cancel"_s);
        QCOMPARE(
            screen.drawnOver().join(u" | "),
            u"*Delete your Pingwell account? | This deletes your account, your personal workspace and team workspaces "
            "you own, with all their alerts and API keys. It can't be undone. | Cancel | Delete account"_s);
        screen.press(Qt::Key_Escape);
        QVERIFY(!screen.shows(u"settings.deleteAccount.confirm"_s));
        screen.click(u"settings.deleteAccount"_s);
        live.transport->plan("DELETE", "/auth/account", ScriptedAnswer::failure(409));
        screen.click(u"settings.deleteAccount.confirm"_s);
        live.settle();
        QCOMPARE(live.transport->plannedCount(), 0);
        screen.click(u"settings.signOut"_s);
        QVERIFY(!screen.store().isSignedIn());
    }
};

QTEST_MAIN(SettingsTest)
#include "settings_test.moc"
