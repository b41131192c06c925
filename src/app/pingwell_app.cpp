#include "app/pingwell_app.h"

#include "app/menu_bar_label.h"
#include "app/status_icon_painter.h"

#include <algorithm>

namespace pingwell {

PingwellApp::PingwellApp(LaunchOptions options, AppParts parts)
    : m_options(std::move(options))
    , m_parts(std::move(parts))
{
    m_statusAreaWait.setSingleShot(true);
    m_statusAreaWait.setInterval(statusAreaPatience);
    connect(&m_statusAreaWait, &QTimer::timeout, this, &PingwellApp::openMainWithoutStatusArea);
    m_quitWait.setSingleShot(true);
    m_quitWait.setInterval(quitPatience);
    connect(&m_quitWait, &QTimer::timeout, this, &PingwellApp::quitRequested);
    connect(m_parts.windows.get(), &AppWindows::quitRequested, this, &PingwellApp::quit);
    followCount();
    followStatusItem();
    followSystem();
}

PingwellApp::~PingwellApp() = default;

void PingwellApp::start()
{
    showCount();
    if (m_options.isAutomated())
        m_parts.windows->showMain({});
    else if (!m_parts.statusItem->isAvailable())
        m_statusAreaWait.start();
}

void PingwellApp::quit()
{
    const AppStore *store = m_parts.store.get();
    if (!store->hasUnfinishedWork() || m_quitWait.isActive()) {
        emit quitRequested();
        return;
    }
    connect(store, &AppStore::workEnded, this, &PingwellApp::quitRequested);
    m_quitWait.start();
}

void PingwellApp::followCount()
{
    AppStore *store = m_parts.store.get();
    connect(store, &AppStore::alertsChanged, this, &PingwellApp::showCount);
    connect(store, &AppStore::activeWorkspaceIDChanged, this, &PingwellApp::showCount);
    // A deadline passes without anything else changing.
    connect(store, &AppStore::nowChanged, this, &PingwellApp::showCount);
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
    connect(m_parts.systemEvents.get(), &SystemEvents::wokeUp, store, &AppStore::refresh);
    connect(m_parts.systemEvents.get(), &SystemEvents::networkReturned, store, &AppStore::refresh);
    if (!m_parts.singleInstance)
        return;
    connect(m_parts.singleInstance, &SingleInstance::activated, windows, &AppWindows::showMain);
    connect(m_parts.singleInstance, &SingleInstance::opened, this,
            [this](const QList<QUrl> &urls, const QByteArray &token) {
                std::for_each(urls.begin(), urls.end(), m_parts.openURL);
                m_parts.windows->showMain(token);
            });
}

void PingwellApp::showCount()
{
    const qsizetype count = m_parts.store->needsReplyCount();
    if (m_shownCount == count)
        return;
    m_shownCount = count;
    m_parts.statusItem->setContent(statusIcon(count), menuBarLabel(count).accessibleLabel);
    m_parts.badge->setCount(count);
}

void PingwellApp::openMainWithoutStatusArea()
{
    m_statusAreaWait.stop();
    if (!m_parts.statusItem->isAvailable())
        m_parts.windows->showMain({});
}

} // namespace pingwell
