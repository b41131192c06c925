#include "program/composition.h"

#include "api/url_session_transport.h"
#include "async/system_clock.h"
#include "auth/web_authenticator.h"
#include "desktop/login_item.h"
#include "desktop/preference_keys.h"
#include "linux/desktop_entries/autostart_login_item.h"
#include "linux/desktop_entries/scheme_registration.h"
#include "linux/keyring/secret_service_keychain.h"
#include "linux/notifications/freedesktop_notification_center.h"
#include "linux/preferences/json_preferences.h"
#include "linux/session/bus_single_instance.h"
#include "linux/session/desktop_appearance.h"
#include "linux/session/logind_system_events.h"
#include "linux/session/socket_single_instance.h"
#include "linux/status_area/launcher_entry_badge.h"
#include "linux/status_area/status_notifier_item.h"
#include "model/identity.h"
#include "notify/user_notifier.h"
#include "program/make_store.h"
#include "program/notification_responses.h"
#include "status/menu_bar_label.h"
#include "status/status_icon_painter.h"
#include "windows/qml_windows.h"

#include <QDesktopServices>
#include <QStandardPaths>
#include <QSysInfo>
#include <QTimer>

namespace pingwell {

namespace {

StoreParts makeStoreParts(const std::shared_ptr<Clock> &clock, const std::shared_ptr<WebAuthenticator> &browser,
                          const std::shared_ptr<UserNotifier> &notifier)
{
    const WritePolicy policy{.isUrgent = &preference_keys::mustOutlastAKill};
    return {
        .openStandardPreferences =
            [policy] { return std::make_shared<JsonPreferences>(JsonPreferences::pathOf(programID), policy); },
        .openSuite = [policy](const QString &name) -> std::shared_ptr<Preferences> {
            return JsonPreferences::openSuite(name, policy);
        },
        .openKeychain = [] { return std::make_shared<SecretServiceKeychain>(); },
        .openTransport = [] { return URLSessionTransport::shared(); },
        .openNotifier = [notifier] { return notifier; },
        .authenticate = [browser](const QUrl &url,
                                  const QString &callbackScheme) { return browser->authenticate(url, callbackScheme); },
        .nextCallback = [browser] { return browser->nextCallback(); },
        .cancelAuthentication = [browser] { browser->cancel(); },
        .clock = clock,
        .hostName = QSysInfo::machineHostName(),
        .version = QStringLiteral(PINGWELL_VERSION),
    };
}

/// Whether this is the person's own program, which shows notifications and may start at log-in. A test or a demo does
/// neither.
bool isOwnProgram(const LaunchOptions &options)
{
    return options.isLive() && !options.isLiveUITest;
}

/// Performed at each start of the person's own program: switches start at log-in on if it was never offered, and
/// registers the program for its URL scheme, so that the browser can return to it.
void settleIn(Preferences &preferences, const std::shared_ptr<LoginItem> &loginItem)
{
    offerLaunchAtLoginOnce(loginItem, preferences);
    const SchemeRegistration scheme(QCoreApplication::applicationFilePath());
    if (scheme.update())
        scheme.announce();
}

} // namespace

std::unique_ptr<SingleInstance> makeSingleInstance(const LaunchOptions &options)
{
    if (!options.isLive())
        return nullptr;
    using Kind = BusSingleInstance::Kind;
    if (BusSingleInstance::isPossible())
        return std::make_unique<BusSingleInstance>(isOwnProgram(options) ? Kind::own : Kind::liveTest);
    // A live test does not exclude other starts where there is no session bus.
    if (!isOwnProgram(options))
        return nullptr;
    return std::make_unique<SocketSingleInstance>(QStandardPaths::writableLocation(QStandardPaths::RuntimeLocation));
}

QList<QUrl> ownURLs(const QStringList &arguments)
{
    QList<QUrl> urls;
    for (const QString &argument : arguments) {
        if (argument.startsWith(QStringLiteral("pingwell:")))
            urls.append(QUrl(argument));
    }
    return urls;
}

std::unique_ptr<PingwellApp> makeApp(const LaunchOptions &options, SingleInstance *singleInstance)
{
    // Made first: the status item registers with the desktop while the other parts are made.
    AppParts parts;
    constexpr qsizetype nothingWaits = 0;
    parts.statusItem = std::make_unique<StatusNotifierItem>(statusIcon(nothingWaits, StatusCondition::following),
                                                            menuBarLabel(nothingWaits).accessibleLabel);
    parts.singleInstance = singleInstance;
    const auto clock = std::make_shared<SystemClock>();
    const auto browser = std::make_shared<WebAuthenticator>(&QDesktopServices::openUrl, clock);
    parts.openURL = [browser](const QUrl &url) { return browser->handleCallback(url); };
    std::shared_ptr<FreedesktopNotificationCenter> center;
    std::shared_ptr<UserNotifier> notifier;
    if (isOwnProgram(options)) {
        center = std::make_shared<FreedesktopNotificationCenter>();
        notifier = std::make_shared<UserNotifier>(center);
    }
    const StoreParts storeParts = makeStoreParts(clock, browser, notifier);
    const std::shared_ptr<Preferences> preferences = openPreferences(options, storeParts);
    parts.preferences = preferences;
    if (center)
        center->rememberIn(preferences);
    parts.store = makeStore(options, preferences, storeParts);
    parts.badge = std::make_unique<LauncherEntryBadge>();
    parts.systemEvents = std::make_unique<LogindSystemEvents>();
    std::shared_ptr<LoginItem> loginItem;
    DesktopAccess desktop;
    if (isOwnProgram(options)) {
        loginItem = std::make_shared<AutostartLoginItem>(QCoreApplication::applicationFilePath());
        desktop.notifications = std::make_unique<NotificationAccess>(center);
        desktop.loginItem = std::make_unique<LoginItemAccess>(loginItem);
    }
    parts.windows = std::make_unique<QmlWindows>(parts.store.get(), options.popoverPreview, preferences,
                                                 std::make_unique<DesktopAppearance>(), std::move(desktop));
    if (notifier) {
        parts.responses = std::make_shared<NotificationResponses>(parts.store.get(), parts.windows.get());
        notifier->setResponses(parts.responses);
        // Postponed, because it reads files and runs tools; the status item has to appear first.
        QTimer::singleShot(0, QCoreApplication::instance(),
                           [preferences, loginItem] { settleIn(*preferences, loginItem); });
    }
    return std::make_unique<PingwellApp>(options, std::move(parts));
}

} // namespace pingwell
