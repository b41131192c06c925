#pragma once

#include "desktop/appearance.h"
#include "desktop/preferences.h"
#include "store/app_store.h"
#include "windows/app_windows.h"
#include "windows/desktop_access.h"

#include <QTimer>
#include <QWindow>

#include <chrono>
#include <memory>

namespace pingwell {

class MainWindow;
class PanelWindow;
class UiEngine;

/// The windows, drawn by Qt Quick. The engine and the windows are created when the first window is opened, and
/// destroyed some time after the last one was closed: most of the day the program is only a status item.
class QmlWindows final : public AppWindows
{
    Q_OBJECT

public:
    /// How long closed windows are kept, so that they open again at once.
    static constexpr std::chrono::milliseconds keepClosed{30'000};

    /// `store` outlives the windows.
    QmlWindows(AppStore *store, bool popoverPreview, std::shared_ptr<Preferences> preferences,
               std::unique_ptr<Appearance> appearance, DesktopAccess desktop = {});
    ~QmlWindows() override;

    void showMain(const QByteArray &activationToken) override;
    void showPanel(QPoint position) override;
    void togglePanel(QPoint position) override;

private:
    [[nodiscard]] UiEngine *engine();
    [[nodiscard]] MainWindow *mainWindow();
    [[nodiscard]] PanelWindow *panelWindow();
    void showMainFromPanel();
    void noteVisibility();
    [[nodiscard]] bool isAlertInFocus(const QString &alertID) const;
    void destroyWindows();
    void letGo();

    AppStore *m_store;
    bool m_popoverPreview;
    std::shared_ptr<Preferences> m_preferences;
    std::unique_ptr<Appearance> m_appearance;
    DesktopAccess m_desktop;
    std::unique_ptr<UiEngine> m_engine;
    std::unique_ptr<MainWindow> m_mainWindow;
    std::unique_ptr<PanelWindow> m_panelWindow;
    QTimer m_letGo;
};

} // namespace pingwell
