#include "windows/main_window.h"

#include "windows/screen_source.h"
#include "windows/window_frame.h"

#include <QQuickItem>
#include <QScreen>

namespace pingwell {

namespace {

constexpr QSize defaultSize(1080, 680);
// Wide enough for the sidebar, the list and an alert side by side.
constexpr QSize smallestSize(880, 560);
const QString frameKey = QStringLiteral("pingwell.window.frame");
const QString sidebarWidthKey = QStringLiteral("pingwell.window.sidebarWidth");
constexpr const char *sidebarWidthProperty = "sidebarWidth";

/// The remembered width; 0 when none is remembered. The screen limits any other value itself.
int rememberedSidebarWidth(const Preferences *preferences)
{
    const double width = preferences->number(sidebarWidthKey).value_or(0);
    return width > 0 && width < 10'000 ? int(width) : 0;
}

} // namespace

MainWindow::MainWindow(QQmlEngine *engine, AppStore *store, const DesktopAccess &desktop, bool popoverPreview,
                       std::shared_ptr<Preferences> preferences)
    : QQuickView(engine, nullptr)
    , m_preferences(std::move(preferences))
{
    setTitle(QStringLiteral("Pingwell"));
    setResizeMode(QQuickView::SizeRootObjectToView);
    setMinimumSize(smallestSize);
    resize(defaultSize);
    restoreFrame();
    setInitialProperties({{QStringLiteral("store"), QVariant::fromValue(store)},
                          {QStringLiteral("notifications"), QVariant::fromValue(desktop.notifications.get())},
                          {QStringLiteral("loginItem"), QVariant::fromValue(desktop.loginItem.get())},
                          {QString::fromLatin1(sidebarWidthProperty), rememberedSidebarWidth(m_preferences.get())},
                          {QStringLiteral("popoverPreview"), popoverPreview}});
    setSource(screenSource(QStringLiteral("RootView")));
    connect(rootObject(), SIGNAL(quitRequested()), this, SIGNAL(quitRequested()));
}

MainWindow::~MainWindow() = default;

void MainWindow::hideEvent(QHideEvent *event)
{
    saveFrame();
    saveSidebarWidth();
    QQuickView::hideEvent(event);
}

void MainWindow::restoreFrame()
{
    const auto text = m_preferences->string(frameKey);
    auto frame = text ? windowFrameFromText(*text) : std::nullopt;
    if (!frame)
        return;
    frame->setSize(frame->size().expandedTo(smallestSize));
    const QScreen *onScreen = screen()->virtualSiblingAt(frame->center());
    setGeometry(fittedWindowFrame(*frame, (onScreen ? onScreen : screen())->availableGeometry()));
}

void MainWindow::saveFrame()
{
    // The size of a maximised or full-screen window is chosen by the desktop, so it is not remembered.
    if (windowStates() == Qt::WindowNoState)
        m_preferences->setString(frameKey, windowFrameText(geometry()));
}

void MainWindow::saveSidebarWidth()
{
    const int width = rootObject() ? rootObject()->property(sidebarWidthProperty).toInt() : 0;
    if (width != rememberedSidebarWidth(m_preferences.get()))
        m_preferences->setNumber(sidebarWidthKey, width);
}

} // namespace pingwell
