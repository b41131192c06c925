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

/// The parts of the program. `singleInstance` is null in the modes that run beside others.
struct AppParts
{
    /// The preferences of the other parts; null where nothing is remembered. Destroyed last.
    std::shared_ptr<Preferences> preferences = nullptr;
    std::unique_ptr<AppStore> store;
    std::unique_ptr<StatusItem> statusItem;
    std::unique_ptr<LauncherBadge> badge;
    std::unique_ptr<SystemEvents> systemEvents;
    std::unique_ptr<AppWindows> windows;
    /// Receives the person's responses to notifications; null where there are none.
    std::shared_ptr<AlertResponses> responses = nullptr;
    SingleInstance *singleInstance = nullptr;
    /// Handles a URL of the program's own scheme that the desktop opened; returns whether a sign-in waits for it.
    std::function<bool(const QUrl &)> openURL = [](const QUrl &) { return false; };
};

/// The program: the one store of the process, the status item and the launcher badge that show the number of waiting
/// asks, and the windows.
class PingwellApp : public QObject
{
    Q_OBJECT

public:
    PingwellApp(LaunchOptions options, AppParts parts);
    ~PingwellApp() override;

    /// How long to look for the desktop's status area before opening the main window instead.
    static constexpr std::chrono::milliseconds statusAreaPatience{1000};

    /// How long quitting may wait for the person's last changes to reach the service.
    static constexpr std::chrono::milliseconds quitPatience{3000};

    /// Adds the status item to the status area. Opens the main window in an automated test, and where there is no
    /// status area to open it from.
    void start();
    /// Ends the program: at once, or when the person's last changes have reached the service. A second call does not
    /// wait.
    void quit();
    /// Waits as `quit` does, unless it has already; for an end of the program that does not come from `quit`.
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
    // The windows are destroyed before the store they show.
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
