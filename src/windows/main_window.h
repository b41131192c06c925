#pragma once

#include "desktop/preferences.h"
#include "store/app_store.h"
#include "windows/desktop_access.h"

#include <QQuickView>

#include <memory>

namespace pingwell {

/// The main window: the sign-in screen, the loading screen or the whole program. Where the desktop lets programs place
/// windows, it opens with the position, size and sidebar width it had last.
class MainWindow final : public QQuickView
{
    Q_OBJECT

public:
    /// `store` and the objects in `desktop` outlive the window. With `popoverPreview` the window also shows the panel's
    /// content, so that tests can reach it in an ordinary window.
    MainWindow(QQmlEngine *engine, AppStore *store, const DesktopAccess &desktop, bool popoverPreview,
               std::shared_ptr<Preferences> preferences);
    ~MainWindow() override;

signals:
    void quitRequested();

protected:
    void hideEvent(QHideEvent *event) override;

private:
    void restoreFrame();
    void saveFrame();
    void saveSidebarWidth();

    std::shared_ptr<Preferences> m_preferences;
};

} // namespace pingwell
