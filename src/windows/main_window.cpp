#include "windows/main_window.h"

#include "windows/screen_source.h"
#include "windows/window_frame.h"

#include <QQuickItem>
#include <QScreen>

namespace pingwell {

namespace {

constexpr QSize defaultSize(1080, 680);
// The sidebar, the list and an alert beside each other, nothing squeezed.
constexpr QSize smallestSize(880, 560);
const QString frameKey = QStringLiteral("pingwell.window.frame");
const QString sidebarWidthKey = QStringLiteral("pingwell.window.sidebarWidth");
constexpr const char *sidebarWidthProperty = "sidebarWidth";

/// 0 when none is remembered; the screen keeps any other one within its limits.
int rememberedSidebarWidth(const Preferences *preferences)
{
    const double width = preferences ? preferences->number(sidebarWidthKey).value_or(0) : 0;
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
    const auto text = m_preferences ? m_preferences->string(frameKey) : std::nullopt;
    auto frame = text ? windowFrameFromText(*text) : std::nullopt;
    if (!frame)
        return;
    frame->setSize(frame->size().expandedTo(smallestSize));
    const QScreen *onScreen = screen()->virtualSiblingAt(frame->center());
    setGeometry(fittedWindowFrame(*frame, (onScreen ? onScreen : screen())->availableGeometry()));
}

void MainWindow::saveFrame()
{
    // A maximised or full-screen window's size is the desktop's, not the person's.
    if (m_preferences && windowStates() == Qt::WindowNoState)
        m_preferences->setString(frameKey, windowFrameText(geometry()));
}

void MainWindow::saveSidebarWidth()
{
    const int width = rootObject() ? rootObject()->property(sidebarWidthProperty).toInt() : 0;
    if (m_preferences && width != rememberedSidebarWidth(m_preferences.get()))
        m_preferences->setNumber(sidebarWidthKey, width);
}

} // namespace pingwell
