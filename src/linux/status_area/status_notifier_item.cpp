#include "linux/status_area/status_notifier_item.h"

#include <QAction>
#include <QCursor>
#include <QDBusConnection>
#include <QDBusPendingCallWatcher>
#include <QDBusPendingReply>
#include <QDBusReply>
#include <QDBusServiceWatcher>
#include <QGuiApplication>

namespace pingwell {

using namespace Qt::StringLiterals;

namespace {

const QString watcherService = u"org.kde.StatusNotifierWatcher"_s;
const QString watcherPath = u"/StatusNotifierWatcher"_s;

/// The bus, or the watcher on it, normally replies within a millisecond. One that hangs must not delay the program's
/// start.
constexpr int longestFirstAnswer = 50;

QDBusMessage hostQuestion()
{
    QDBusMessage question =
        QDBusMessage::createMethodCall(watcherService, watcherPath, u"org.freedesktop.DBus.Properties"_s, u"Get"_s);
    question << watcherService << u"IsStatusNotifierHostRegistered"_s;
    question.setAutoStartService(false);
    return question;
}

} // namespace

StatusNotifierItem::StatusNotifierItem(QIcon icon, QString label, QObject *parent)
    : StatusItem(parent)
    , m_icon(std::move(icon))
    , m_toolTip(std::move(label))
{
    QDBusConnection bus = QDBusConnection::sessionBus();
    auto *const owner = new QDBusServiceWatcher(watcherService, bus, QDBusServiceWatcher::WatchForOwnerChange, this);
    connect(owner, &QDBusServiceWatcher::serviceOwnerChanged, this, &StatusNotifierItem::askForHost);
    // From any sender: to name one, Qt would make a blocking call to the bus, and the state is read anyway.
    for (const QString &signal : {u"StatusNotifierHostRegistered"_s, u"StatusNotifierHostUnregistered"_s})
        bus.connect({}, watcherPath, watcherService, signal, this, SLOT(askForHost()));
    takeFirstAnswer();
}

StatusNotifierItem::~StatusNotifierItem() = default;

void StatusNotifierItem::setContent(const QIcon &icon, const QString &label, const QString &description)
{
    m_icon = icon;
    m_toolTip = description.isEmpty() ? label : QString(label + u'\n' + description);
    if (!m_trayIcon)
        return;
    m_trayIcon->setIcon(icon);
    m_trayIcon->setToolTip(m_toolTip);
}

/// Blocks, so that the item is registered while the rest of the program is made.
void StatusNotifierItem::takeFirstAnswer()
{
    const QDBusReply<QDBusVariant> reply =
        QDBusConnection::sessionBus().call(hostQuestion(), QDBus::Block, longestFirstAnswer);
    if (reply.isValid())
        setAvailable(reply.value().variant().toBool());
    else if (reply.error().type() == QDBusError::NoReply)
        askForHost();
}

void StatusNotifierItem::askForHost()
{
    auto *const call = new QDBusPendingCallWatcher(QDBusConnection::sessionBus().asyncCall(hostQuestion()), this);
    connect(call, &QDBusPendingCallWatcher::finished, this, [this, call, number = ++m_question] {
        call->deleteLater();
        const QDBusPendingReply<QDBusVariant> reply = *call;
        if (number == m_question)
            setAvailable(reply.isValid() && reply.value().variant().toBool());
    });
}

void StatusNotifierItem::setAvailable(bool available)
{
    if (available == m_available)
        return;
    m_available = available;
    // QSystemTrayIcon, once created, returns by itself to a status area that was restarted.
    if (available && !m_trayIcon)
        show();
    emit availabilityChanged(available);
}

void StatusNotifierItem::show()
{
    m_menu = std::make_unique<QMenu>();
    m_menu->setObjectName(u"statusItem.menu"_s);
    fillMenu();
    m_trayIcon = std::make_unique<QSystemTrayIcon>(m_icon);
    m_trayIcon->setToolTip(m_toolTip);
    m_trayIcon->setContextMenu(m_menu.get());
    connect(m_trayIcon.get(), &QSystemTrayIcon::activated, this, &StatusNotifierItem::reportClick);
    m_trayIcon->show();
}

void StatusNotifierItem::fillMenu()
{
    const auto add = [this](const QString &name, const QString &text, void (StatusItem::*request)()) {
        QAction *const action = m_menu->addAction(text, this, request);
        action->setObjectName(name);
    };
    add(u"statusItem.openPanel"_s, tr("Open panel"), &StatusItem::panelRequested);
    add(u"statusItem.openPingwell"_s, tr("Open Pingwell"), &StatusItem::windowRequested);
    m_menu->addSeparator();
    add(u"statusItem.quit"_s, tr("Quit Pingwell"), &StatusItem::quitRequested);
}

void StatusNotifierItem::reportClick(QSystemTrayIcon::ActivationReason reason)
{
    if (reason == QSystemTrayIcon::Context)
        return;
    // A Wayland compositor does not tell programs where the pointer is.
    const bool knowsPointer = QGuiApplication::platformName() == u"xcb"_s;
    emit activated(knowsPointer ? QCursor::pos() : QPoint());
}

} // namespace pingwell
