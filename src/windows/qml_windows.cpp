#include "windows/qml_windows.h"

#include "ui/engine/engine.h"
#include "windows/main_window.h"
#include "windows/panel_window.h"
#include "windows/raise_window.h"
#include "windows/released_memory.h"

#include <QPixmapCache>
#include <QQuickWindow>

#include <algorithm>

namespace pingwell {

namespace {

/// The software renderer can draw every screen, needs a fraction of the memory and start-up time of an OpenGL context,
/// and draws the same on every machine. A backend that the person chose in the environment is kept. Qt reads this
/// setting only once.
void chooseRenderer()
{
    if (qEnvironmentVariableIsEmpty("QT_QUICK_BACKEND"))
        QQuickWindow::setGraphicsApi(QSGRendererInterface::Software);
}

bool isShown(const QWindow *window)
{
    return window && window->isVisible();
}

bool hasFocus(const QWindow *window)
{
    return isShown(window) && window->isActive();
}

} // namespace

QmlWindows::QmlWindows(AppStore *store, bool popoverPreview, std::shared_ptr<Preferences> preferences,
                       std::unique_ptr<Appearance> appearance, DesktopAccess desktop)
    : m_store(store)
    , m_popoverPreview(popoverPreview)
    , m_preferences(std::move(preferences))
    , m_appearance(std::move(appearance))
    , m_desktop(std::move(desktop))
{
    chooseRenderer();
    m_letGo.setSingleShot(true);
    m_letGo.setInterval(keepClosed);
    m_store->setWatched(false);
    m_store->setAttention(
        {.isOnWindow = [this] { return hasFocus(m_mainWindow.get()) || hasFocus(m_panelWindow.get()); },
         .isOnAlert = [this](const QString &alertID) { return isAlertInFocus(alertID); }});
    connect(&m_letGo, &QTimer::timeout, this, &QmlWindows::letGo);
    // The start of the program also uses memory that is not needed again.
    m_letGo.start();
}

QmlWindows::~QmlWindows()
{
    m_store->setAttention({});
    destroyWindows();
}

void QmlWindows::showMain(const QByteArray &activationToken)
{
    m_store->setWatched(true);
    raiseWindow(*mainWindow(), activationToken);
}

void QmlWindows::showPanel(QPoint position)
{
    m_store->setWatched(true);
    panelWindow()->open(position);
}

void QmlWindows::togglePanel(QPoint position)
{
    // The panel's content sets its height before the panel is shown.
    m_store->setWatched(true);
    panelWindow()->toggle(position);
    noteVisibility();
}

UiEngine *QmlWindows::engine()
{
    if (!m_engine)
        m_engine = std::make_unique<UiEngine>(m_appearance.get());
    return m_engine.get();
}

MainWindow *QmlWindows::mainWindow()
{
    if (!m_mainWindow) {
        m_mainWindow = std::make_unique<MainWindow>(engine(), m_store, m_desktop, m_popoverPreview, m_preferences);
        connect(m_mainWindow.get(), &MainWindow::quitRequested, this, &AppWindows::quitRequested);
        connect(m_mainWindow.get(), &QWindow::visibleChanged, this, &QmlWindows::noteVisibility);
    }
    return m_mainWindow.get();
}

PanelWindow *QmlWindows::panelWindow()
{
    if (!m_panelWindow) {
        m_panelWindow = std::make_unique<PanelWindow>(engine(), m_store);
        connect(m_panelWindow.get(), &PanelWindow::openMainRequested, this, &QmlWindows::showMainFromPanel);
        connect(m_panelWindow.get(), &PanelWindow::quitRequested, this, &AppWindows::quitRequested);
        connect(m_panelWindow.get(), &QWindow::visibleChanged, this, &QmlWindows::noteVisibility);
    }
    return m_panelWindow.get();
}

void QmlWindows::showMainFromPanel()
{
    showMain({});
    m_panelWindow->hide();
}

void QmlWindows::noteVisibility()
{
    const bool isAnyShown = isShown(m_mainWindow.get()) || isShown(m_panelWindow.get());
    m_store->setWatched(isAnyShown);
    if (isAnyShown)
        m_letGo.stop();
    else
        m_letGo.start();
}

bool QmlWindows::isAlertInFocus(const QString &alertID) const
{
    if (hasFocus(m_mainWindow.get()))
        return m_store->section() == SidebarSection::inbox && m_store->selectedAlertID() == alertID;
    const QList<Alert> asks = m_store->needsReply();
    return hasFocus(m_panelWindow.get()) &&
           std::any_of(asks.begin(), asks.end(), [&](const Alert &ask) { return ask.id == alertID; });
}

void QmlWindows::destroyWindows()
{
    // The window is hidden first: one that is hidden by its own destruction can no longer save its position.
    if (m_mainWindow)
        m_mainWindow->hide();
    m_panelWindow.reset();
    m_mainWindow.reset();
    m_engine.reset();
}

void QmlWindows::letGo()
{
    destroyWindows();
    QPixmapCache::clear();
    releaseUnusedMemory();
}

} // namespace pingwell
