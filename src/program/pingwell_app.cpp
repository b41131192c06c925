#include "program/pingwell_app.h"

#include "status/menu_bar_label.h"
#include "status/status_icon_painter.h"

#include <QEventLoop>

#include <algorithm>

namespace pingwell {

PingwellApp::PingwellApp(LaunchOptions options, AppParts parts)
    : m_options(std::move(options))
    , m_parts(std::move(parts))
    , m_exitGuard(*m_parts.store, m_parts.preferences.get())
{
    m_statusAreaWait.setSingleShot(true);
    m_statusAreaWait.setInterval(statusAreaPatience);
    connect(&m_statusAreaWait, &QTimer::timeout, this, &PingwellApp::openMainWithoutStatusArea);
    m_quitWait.setSingleShot(true);
    m_quitWait.setInterval(quitPatience);
    connect(&m_quitWait, &QTimer::timeout, this, &PingwellApp::end);
    connect(m_parts.windows.get(), &AppWindows::quitRequested, this, &PingwellApp::quit);
    followStore();
    followStatusItem();
    followSystem();
}

PingwellApp::~PingwellApp() = default;

void PingwellApp::start()
{
    showStatus();
    if (m_options.isAutomated())
        m_parts.windows->showMain({});
    else if (!m_parts.statusItem->isAvailable())
        m_statusAreaWait.start();
}

void PingwellApp::quit()
{
    const AppStore *store = m_parts.store.get();
    if (!store->hasUnfinishedWork() || m_quitWait.isActive()) {
        end();
        return;
    }
    connect(store, &AppStore::workEnded, this, &PingwellApp::end);
    m_quitWait.start();
}

void PingwellApp::end()
{
    m_mayEnd = true;
    emit quitRequested();
}

void PingwellApp::finishWork()
{
    const AppStore *store = m_parts.store.get();
    if (m_mayEnd || !store->hasUnfinishedWork())
        return;
    QEventLoop wait;
    connect(store, &AppStore::workEnded, &wait, &QEventLoop::quit);
    QTimer::singleShot(quitPatience, &wait, &QEventLoop::quit);
    wait.exec(QEventLoop::ExcludeUserInputEvents);
}

void PingwellApp::followStore()
{
    AppStore *store = m_parts.store.get();
    connect(store, &AppStore::alertsChanged, this, &PingwellApp::showStatus);
    connect(store, &AppStore::activeWorkspaceIDChanged, this, &PingwellApp::showStatus);
    connect(store, &AppStore::accountChanged, this, &PingwellApp::showStatus);
    connect(store, &AppStore::connectionProblemChanged, this, &PingwellApp::showStatus);
    // Deadlines and `toleratedSilence` pass without any other signal.
    connect(store, &AppStore::nowChanged, this, &PingwellApp::showStatus);
}

void PingwellApp::followStatusItem()
{
    StatusItem *item = m_parts.statusItem.get();
    AppWindows *windows = m_parts.windows.get();
    connect(item, &StatusItem::availabilityChanged, this, [this](bool available) {
        if (available)
            m_statusAreaWait.stop();
        else if (m_statusAreaWait.isActive())
            openMainWithoutStatusArea();
    });
    connect(item, &StatusItem::activated, windows, &AppWindows::togglePanel);
    connect(item, &StatusItem::panelRequested, windows, [windows] { windows->showPanel({}); });
    connect(item, &StatusItem::windowRequested, windows, [windows] { windows->showMain({}); });
    connect(item, &StatusItem::quitRequested, this, &PingwellApp::quit);
}

void PingwellApp::followSystem()
{
    AppStore *store = m_parts.store.get();
    AppWindows *windows = m_parts.windows.get();
    connect(m_parts.systemEvents.get(), &SystemEvents::wokeUp, store, &AppStore::reconnect);
    connect(m_parts.systemEvents.get(), &SystemEvents::networkReturned, store, &AppStore::reconnect);
    if (!m_parts.singleInstance)
        return;
    connect(m_parts.singleInstance, &SingleInstance::activated, windows, &AppWindows::showMain);
    connect(m_parts.singleInstance, &SingleInstance::opened, this,
            [this](const QList<QUrl> &urls, const QByteArray &token) {
                // Any page and any program can open such a URL; only one that a sign-in waits for shows the window.
                if (std::count_if(urls.begin(), urls.end(), m_parts.openURL) > 0)
                    m_parts.windows->showMain(token);
            });
    m_parts.singleInstance->serve();
}

void PingwellApp::showStatus()
{
    const qsizetype count = m_parts.store->needsReplyCount();
    const StatusCondition condition = m_conditionWatch.look(*m_parts.store);
    if (m_shownCount == count && m_shownCondition == condition)
        return;
    m_shownCondition = condition;
    m_parts.statusItem->setContent(statusIcon(count, condition), menuBarLabel(count).accessibleLabel,
                                   statusDescription(condition));
    if (m_shownCount == count)
        return;
    m_shownCount = count;
    m_parts.badge->setCount(count);
}

void PingwellApp::openMainWithoutStatusArea()
{
    m_statusAreaWait.stop();
    if (!m_parts.statusItem->isAvailable())
        m_parts.windows->showMain({});
}

} // namespace pingwell
