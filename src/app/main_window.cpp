#include "app/main_window.h"

#include "app/screen_source.h"
#include "app/window_frame.h"

#include <QQuickItem>
#include <QScreen>

namespace pingwell {

namespace {

constexpr QSize defaultSize(1080, 680);
constexpr QSize smallestSize(760, 480);
const QString frameKey = QStringLiteral("pingwell.window.frame");

} // namespace

MainWindow::MainWindow(QQmlEngine *engine, AppStore *store, const DesktopAccess &desktop, const LaunchOptions &options,
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
                          {QStringLiteral("popoverPreview"), options.popoverPreview}});
    setSource(screenSource(QStringLiteral("RootView")));
    connect(rootObject(), SIGNAL(quitRequested()), this, SIGNAL(quitRequested()));
}

MainWindow::~MainWindow() = default;

void MainWindow::hideEvent(QHideEvent *event)
{
    saveFrame();
    QQuickView::hideEvent(event);
}

void MainWindow::restoreFrame()
{
    const auto text = m_preferences ? m_preferences->string(frameKey) : std::nullopt;
    const auto frame = text ? windowFrameFromText(*text) : std::nullopt;
    if (!frame)
        return;
    const QScreen *onScreen = screen()->virtualSiblingAt(frame->center());
    setGeometry(fittedWindowFrame(*frame, (onScreen ? onScreen : screen())->availableGeometry()));
}

void MainWindow::saveFrame()
{
    // A maximised or full-screen window's size is the desktop's, not the person's.
    if (m_preferences && windowStates() == Qt::WindowNoState)
        m_preferences->setString(frameKey, windowFrameText(geometry()));
}

} // namespace pingwell
