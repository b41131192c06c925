#include "../notify/fake_login_item.h"
#include "../notify/fake_notification_center.h"
#include "screen_fixture.h"
#include "store/preference_keys.h"
#include "store_fixture.h"
#include "ui/login_item_access.h"
#include "ui/notification_access.h"

#include <QAccessible>
#include <QTest>

using namespace pingwell;
using namespace Qt::StringLiterals;

namespace {

const QString view = u"SettingsView"_s;
const QString timeout = u"settings.responseTimeout"_s;
const QString action = u"settings.timeoutAction"_s;
const QString permission = u"settings.notificationPermission"_s;
const QString openAtLogin = u"settings.openAtLogin"_s;

/// With all of it in sight.
QVariantMap tall(QVariantMap properties = {})
{
    properties.insert(u"width"_s, 640);
    properties.insert(u"height"_s, 1800);
    return properties;
}

/// The accessibility value.
QString value(const Screen &screen, const QString &identifier)
{
    auto *const accessible = QAccessible::queryAccessibleInterface(screen.find(identifier));
    return accessible ? accessible->text(QAccessible::Description) : QString();
}

SeedData withDevices(const QList<DevicePlatform> &platforms)
{
    SeedData seed = makeSeed({});
    for (const DevicePlatform platform : platforms) {
        const QString word = rawValue(platform);
        seed.devices << Device{word, word, platform, u"1.2"_s, dayEnd - Seconds(7200)};
    }
    return seed;
}

} // namespace

class SettingsTest : public QObject
{
    Q_OBJECT

private slots:
    void accountAndServer()
    {
        StoreFixture live;
        live.startWith({});
        Screen screen(view, *live.store, tall());
        QCOMPARE(value(screen, u"settings.account.name"_s), live.store->account()->name);
        QCOMPARE(value(screen, u"settings.account.email"_s), live.store->account()->email);
        QVERIFY(!value(screen, u"settings.account.provider"_s).isEmpty());
        QCOMPARE(value(screen, u"settings.server.name"_s), u"Pingwell Cloud"_s);
        QCOMPARE(value(screen, u"settings.server.updated"_s), u"just now"_s);
        live.store->startClock();
        live.clock->advance(std::chrono::minutes(3));
        QCOMPARE(value(screen, u"settings.server.updated"_s), u"3m ago"_s);
    }

    void responseTime_data()
    {
        QTest::addColumn<WorkspaceRole>("role");
        QTest::addColumn<WorkspaceKind>("kind");
        QTest::addColumn<TimeoutAction>("stored");
        QTest::addColumn<bool>("changes");
        QTest::addColumn<QString>("shown");
        QTest::addColumn<int>("choices");
        using enum WorkspaceRole;
        const auto team = WorkspaceKind::team;
        const auto personal = WorkspaceKind::personal;
        const auto escalate = TimeoutAction::escalate;
        QTest::newRow("owner") << owner << team << TimeoutAction::expire << true << u"Expire"_s << 3;
        QTest::newRow("admin") << admin << team << escalate << true << u"Escalate to team"_s << 3;
        QTest::newRow("member") << member << team << escalate << false << u"Escalate to team"_s << 0;
        QTest::newRow("viewer") << viewer << team << TimeoutAction::default_ << false << u"Use first option"_s << 0;
        QTest::newRow("personal") << owner << personal << escalate << true << u"Expire"_s << 2;
    }

    void responseTime()
    {
        QFETCH(WorkspaceRole, role);
        QFETCH(WorkspaceKind, kind);
        QFETCH(TimeoutAction, stored);
        QFETCH(bool, changes);
        QFETCH(QString, shown);
        QFETCH(int, choices);
        SeedData seed = makeSeed({}, role);
        seed.workspaces[0].kind = kind;
        seed.workspaces[0].timeoutAction = stored;
        Screen screen(view, seed, true, tall());
        QCOMPARE(value(screen, u"settings.workspace"_s), u"Platform"_s);
        QCOMPARE(value(screen, timeout), u"30 minutes"_s);
        QCOMPARE(value(screen, action), shown);
        QCOMPARE(screen.find(timeout)->isEnabled(), changes);
        QCOMPARE(screen.shows(u"settings.responseTime.locked"_s), !changes);
        screen.click(action);
        QCOMPARE(screen.count(action + u"\\.(expire|default|escalate)"_s), choices);
        screen.press(Qt::Key_Escape);
        screen.click(timeout);
        QCOMPARE(screen.count(timeout + u"\\.\\d+"_s), changes ? 6 : 0);
    }

    void choosing_data()
    {
        QTest::addColumn<QString>("control");
        QTest::addColumn<QString>("choice");
        QTest::addColumn<QString>("shown");
        QTest::newRow("timeout") << timeout << u"240"_s << u"4 hours"_s;
        QTest::newRow("action") << action << u"default"_s << u"Use first option"_s;
        QTest::newRow("from") << u"settings.quietFrom"_s << u"21:00"_s << u"21:00"_s;
        QTest::newRow("to") << u"settings.quietTo"_s << u"08:00"_s << u"08:00"_s;
        QTest::newRow("quiet hours") << u"settings.quietHours"_s << u""_s << u"off"_s;
        QTest::newRow("digest") << u"settings.digest"_s << u""_s << u"off"_s;
        QTest::newRow("sound") << u"settings.sound"_s << u""_s << u"off"_s;
    }

    void choosing()
    {
        QFETCH(QString, control);
        QFETCH(QString, choice);
        QFETCH(QString, shown);
        SeedData seed = makeSeed({}, WorkspaceRole::owner);
        seed.settings.quietHoursEnabled = true;
        Screen screen(view, seed, true, tall());
        screen.click(control);
        if (!choice.isEmpty())
            screen.click(control + u'.' + choice);
        QCOMPARE(value(screen, control), shown);

        const Workspace workspace = *screen.store().activeWorkspace();
        const NotificationSettings settings = screen.store().settings();
        const QStringList differences{QString::number(workspace.responseTimeoutMinutes),
                                      rawValue(workspace.timeoutAction), settings.quietFrom, settings.quietTo};
        const QStringList before{u"30"_s, u"expire"_s, u"22:00"_s, u"07:00"_s};
        QCOMPARE(differences == before, choice.isEmpty());
        QVERIFY(choice.isEmpty() || differences.contains(choice));
        const int switchedOff = !settings.quietHoursEnabled + !settings.digest + !settings.sound;
        QCOMPARE(switchedOff, choice.isEmpty() ? 1 : 0);
        QCOMPARE(screen.shows(u"settings.quietFrom"_s), settings.quietHoursEnabled);
    }

    void unusualValueIsOneMoreChoice()
    {
        SeedData seed = makeSeed({}, WorkspaceRole::owner);
        seed.workspaces[0].responseTimeoutMinutes = 45;
        seed.settings.quietHoursEnabled = true;
        seed.settings.quietFrom = u"22:30"_s;
        Screen screen(view, seed, true, tall());
        QCOMPARE(value(screen, timeout), u"45 minutes"_s);
        QCOMPARE(value(screen, u"settings.quietFrom"_s), u"22:30"_s);
        screen.click(timeout);
        QCOMPARE(screen.name(timeout + u".45"_s), u"45 minutes"_s);
        screen.press(Qt::Key_Return);
        QCOMPARE(screen.store().activeWorkspace()->responseTimeoutMinutes, 45);
        screen.press(Qt::Key_Up);
        screen.press(Qt::Key_Up);
        screen.press(Qt::Key_Return);
        QCOMPARE(screen.store().activeWorkspace()->responseTimeoutMinutes, 1440);
        QCOMPARE(screen.focused(), timeout);
        screen.press(Qt::Key_Space);
        QVERIFY(screen.shows(timeout + u".1440"_s) && !screen.shows(timeout + u".45"_s));
        screen.press(Qt::Key_Up);
        screen.press(Qt::Key_Escape);
        QVERIFY(!screen.shows(timeout + u".1440"_s));
        QCOMPARE(screen.store().activeWorkspace()->responseTimeoutMinutes, 1440);
    }

    void permission_data()
    {
        QTest::addColumn<AuthorizationStatus>("status");
        QTest::addColumn<bool>("hasSettings");
        QTest::addColumn<QString>("text");
        QTest::addColumn<int>("requests");
        QTest::addColumn<int>("opened");
        QTest::newRow("allowed") << AuthorizationStatus::authorized << true << u"Allowed"_s << 0 << 0;
        QTest::newRow("not asked") << AuthorizationStatus::notDetermined << true << u"Allow notifications"_s << 1 << 0;
        QTest::newRow("denied") << AuthorizationStatus::denied << true << u"Turn on in System Settings…"_s << 0 << 1;
        QTest::newRow("denied for good") << AuthorizationStatus::denied << false << u"Not allowed"_s << 0 << 0;
    }

    void permission()
    {
        QFETCH(AuthorizationStatus, status);
        QFETCH(bool, hasSettings);
        QFETCH(QString, text);
        QFETCH(int, requests);
        QFETCH(int, opened);
        const auto center = std::make_shared<FakeNotificationCenter>();
        center->status = status;
        center->hasSettings = hasSettings;
        NotificationAccess access(center);
        Screen screen(view, makeSeed({}), true, tall({{u"notifications"_s, QVariant::fromValue(&access)}}));
        QCOMPARE(screen.name(::permission), text);
        QCOMPARE(screen.name(u"settings.thisMac.footer"_s).startsWith(u"macOS is blocking"_s),
                 status == AuthorizationStatus::denied);
        screen.click(::permission);
        QCOMPARE(center->requests, requests);
        QCOMPARE(center->settingsOpened, opened);
        center->status = AuthorizationStatus::authorized;
        screen.view().rootObject()->setVisible(false);
        screen.view().rootObject()->setVisible(true);
        screen.settle();
        QCOMPARE(screen.name(::permission), u"Allowed"_s);
    }

    void openingAtLogin()
    {
        const auto item = std::make_shared<FakeLoginItem>();
        LoginItemAccess access(item);
        Screen screen(view, makeSeed({}), true, tall({{u"loginItem"_s, QVariant::fromValue(&access)}}));
        screen.click(openAtLogin);
        QCOMPARE(item->current, LoginItemStatus::enabled);
        QCOMPARE(value(screen, openAtLogin), u"on"_s);
        item->problem = u"read-only"_s;
        screen.click(openAtLogin);
        QCOMPARE(value(screen, openAtLogin), u"on"_s);
        QVERIFY(QAccessible::queryAccessibleInterface(screen.find(openAtLogin))->state().checked);

        QVERIFY(!screen.shows(u"settings.loginItem.allow"_s));
        item->current = LoginItemStatus::requiresApproval;
        access.refresh();
        screen.settle();
        QCOMPARE(value(screen, openAtLogin), u"off"_s);
        screen.click(u"settings.loginItem.allow"_s);
        QCOMPARE(item->settingsOpened, 1);
    }

    void withoutADesktop()
    {
        Screen screen(view, makeSeed({}), true, tall());
        QCOMPARE(screen.name(::permission), u"Allow notifications"_s);
        QVERIFY(!screen.find(::permission)->isEnabled() && !screen.find(openAtLogin)->isEnabled());
        QCOMPARE(value(screen, openAtLogin), u"off"_s);
    }

    void devices_data()
    {
        QTest::addColumn<DevicePlatform>("platform");
        QTest::addColumn<QString>("symbol");
        QTest::newRow("android") << DevicePlatform::android << u"iphone"_s;
        QTest::newRow("macos") << DevicePlatform::macos << u"laptopcomputer"_s;
        QTest::newRow("windows") << DevicePlatform::windows << u"desktopcomputer"_s;
        QTest::newRow("ios") << DevicePlatform::ios << u"iphone"_s;
        QTest::newRow("linux") << DevicePlatform::linux_ << u"desktopcomputer"_s;
        QTest::newRow("web") << DevicePlatform::web << u"globe"_s;
    }

    void devices()
    {
        QFETCH(DevicePlatform, platform);
        QFETCH(QString, symbol);
        Screen screen(view, withDevices({platform}), true, tall());
        const QString row = u"settings.device."_s + rawValue(platform);
        QCOMPARE(screen.name(row), rawValue(platform) + u", v1.2 · 2h ago"_s);
        QStringList symbols;
        for (const QQuickItem *item : screen.find(row)->childItems()) {
            if (item->property("size") == 20)
                symbols << item->property("name").toString();
        }
        QCOMPARE(symbols, QStringList{symbol});
    }

    void deviceIsRemovedOnceConfirmed()
    {
        Screen screen(view, withDevices({DevicePlatform::web, DevicePlatform::ios}), true, tall());
        for (const QString &answer : {u"cancel"_s, u"confirm"_s}) {
            QTest::mouseClick(&screen.view(), Qt::RightButton, {},
                              screen.find(u"settings.device.web"_s)->mapToScene({120, 20}).toPoint());
            screen.settle();
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
        Screen screen(view, *live.store, tall());
        QVERIFY(screen.shows(u"settings.device.own"_s));
        QCOMPARE(screen.count(u"settings\\.device\\.[^.]+\\.menu"_s), 1);
        QVERIFY(screen.shows(u"settings.device.other.menu"_s));
    }

    void leaving()
    {
        Screen screen(view, makeSeed({}), true, tall());
        screen.click(u"settings.deleteAccount"_s);
        QCOMPARE(screen.focused(), u"settings.deleteAccount.cancel"_s);
        screen.press(Qt::Key_Escape);
        QVERIFY(!screen.shows(u"settings.deleteAccount.confirm"_s));
        screen.click(u"settings.deleteAccount"_s);
        screen.click(u"settings.deleteAccount.confirm"_s);
        QVERIFY(screen.store().isSignedIn());
        screen.click(u"settings.signOut"_s);
        QVERIFY(!screen.store().isSignedIn());
    }
};

QTEST_MAIN(SettingsTest)
#include "settings_test.moc"
