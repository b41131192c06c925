#pragma once

#include "desktop/preferences.h"
#include "store/app_store.h"
#include "windows/desktop_access.h"

#include <QQuickView>

#include <memory>

namespace pingwell {

/// The main window: sign-in, loading or everything. Comes back where and as large as it was left, its sidebar as wide,
/// where the desktop lets a program choose and there are preferences to remember it in.
class MainWindow final : public QQuickView
{
    Q_OBJECT

public:
    /// `store` and what `desktop` holds outlive the window. With `popoverPreview` it shows the panel's content too, so
    /// that tests can reach that in an ordinary window.
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
