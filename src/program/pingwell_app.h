#pragma once

#include "desktop/launcher_badge.h"
#include "desktop/single_instance.h"
#include "desktop/status_item.h"
#include "desktop/system_events.h"
#include "notify/alert_responses.h"
#include "program/exit_guard.h"
#include "program/launch_options.h"
#include "status/status_condition.h"
#include "store/app_store.h"
#include "windows/app_windows.h"

#include <QObject>
#include <QTimer>

#include <functional>
#include <memory>
#include <optional>

namespace pingwell {

/// What the program is made of. `singleInstance` is null where several may run beside each other.
struct AppParts
{
    /// What the other parts remember in; null where nothing is remembered. It goes last.
    std::shared_ptr<Preferences> preferences = nullptr;
    std::unique_ptr<AppStore> store;
    std::unique_ptr<StatusItem> statusItem;
    std::unique_ptr<LauncherBadge> badge;
    std::unique_ptr<SystemEvents> systemEvents;
    std::unique_ptr<AppWindows> windows;
    /// Takes what the person does with notifications; null where nobody is notified.
    std::shared_ptr<AlertResponses> responses = nullptr;
    SingleInstance *singleInstance = nullptr;
    /// Takes a URL of the program's own scheme that the desktop was asked to open; says whether it was waited for.
    std::function<bool(const QUrl &)> openURL = [](const QUrl &) { return false; };
};

/// The program: the one store for the life of the process, the status item and the launcher badge that count its
/// waiting asks, and the windows that show it.
class PingwellApp : public QObject
{
    Q_OBJECT

public:
    PingwellApp(LaunchOptions options, AppParts parts);
    ~PingwellApp() override;

    /// How long the desktop's status area may take to be found before the main window opens instead.
    static constexpr std::chrono::milliseconds statusAreaPatience{1000};

    /// How long quitting may wait for the service to take what the person did last.
    static constexpr std::chrono::milliseconds quitPatience{3000};

    /// Puts the item into the status area. The main window opens in an automated test, and where there is no status
    /// area to open it from.
    void start();
    /// Asks for the end of the program: at once, or when what the person did last has arrived at the service. Asked
    /// again, it waits no longer.
    void quit();
    /// Waits for that as long as `quit` would have, unless it has; for an end that comes without it.
    void finishWork();

signals:
    void quitRequested();

private:
    void followStore();
    void followStatusItem();
    void followSystem();
    void showStatus();
    void end();
    void openMainWithoutStatusArea();

    LaunchOptions m_options;
    // The windows go before the store they show.
    AppParts m_parts;
    ExitGuard m_exitGuard;
    bool m_mayEnd = false;
    std::optional<qsizetype> m_shownCount;
    StatusConditionWatch m_conditionWatch;
    StatusCondition m_shownCondition = StatusCondition::following;
    QTimer m_statusAreaWait;
    QTimer m_quitWait;
};

} // namespace pingwell
