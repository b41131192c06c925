#include "linux/notifications/freedesktop_notification_center.h"

#include "async/launch.h"
#include "linux/notifications/banner_actions.h"
#include "linux/notifications/banner_message.h"
#include "linux/notifications/desktop_notification_settings.h"

#include <QDBusServiceWatcher>
#include <QProcess>
#include <QTimer>

#include <limits>
#include <utility>

namespace pingwell {

namespace {

/// The time to wait for the reply to Notify, which carries the banner's number. It is unlimited, because a slow server
/// may show the banner late, and a press in it must still find its ask. Only the banner waits for the reply.
constexpr std::chrono::milliseconds asLongAsItTakes{std::numeric_limits<int>::max()};

bool isFromNobody(const QDBusMessage &error)
{
    return error.errorName() == QStringLiteral("org.freedesktop.DBus.Error.ServiceUnknown") ||
           error.errorName() == QStringLiteral("org.freedesktop.DBus.Error.NameHasNoOwner");
}

} // namespace

FreedesktopNotificationCenter::FreedesktopNotificationCenter(QObject *parent)
    : QObject(parent)
    , m_bus(QDBusConnection::sessionBus())
{
}

FreedesktopNotificationCenter::~FreedesktopNotificationCenter()
{
    removeAll();
    record();
}

void FreedesktopNotificationCenter::rememberIn(std::shared_ptr<Preferences> preferences)
{
    m_record = BannerRecord(std::move(preferences));
    if (!m_record.mayBeShown())
        return;
    listen();
    sendWaiting();
}

QCoro::Task<AuthorizationStatus> FreedesktopNotificationCenter::authorizationStatus()
{
    return readAuthorizationStatus(m_bus);
}

QCoro::Task<> FreedesktopNotificationCenter::requestAuthorization()
{
    co_return;
}

bool FreedesktopNotificationCenter::canOpenSettings() const
{
    return !notificationSettingsCommand().isEmpty();
}

void FreedesktopNotificationCenter::openSettings()
{
    QStringList command = notificationSettingsCommand();
    if (command.isEmpty())
        return;
    const QString program = command.takeFirst();
    QProcess::startDetached(program, command);
}

void FreedesktopNotificationCenter::add(const NotificationRequest &request)
{
    const Banner *const known = m_banners.find(request.identifier);
    if (request.onlyReplaces && (!known || known->isWithdrawn || known->stage != Banner::Stage::shown))
        return;
    if (!known) {
        if (std::optional<Banner> givenUp = m_banners.makeRoom())
            close(*givenUp);
    }
    // What is still to be shown is shown changed: nobody can have dismissed it yet.
    const bool isStillToCome = known && known->next && !known->next->onlyReplaces;
    Banner &banner = m_banners.obtain(request.identifier);
    banner.isWithdrawn = false;
    banner.takesAnswers = request.content.category.has_value();
    banner.next = request;
    banner.next->onlyReplaces = request.onlyReplaces && !isStillToCome;
    listen();
    sendOnceNoted();
}

void FreedesktopNotificationCenter::remove(const QStringList &identifiers)
{
    for (const QString &identifier : identifiers)
        withdraw(identifier);
    m_record.forget(identifiers);
    recordSoon();
}

void FreedesktopNotificationCenter::removeAll()
{
    remove(m_banners.requestIdentifiers() + m_record.leftBehind());
}

void FreedesktopNotificationCenter::setResponseHandler(ResponseHandler handler)
{
    m_responseHandler = std::move(handler);
}

/// Called for the first banner: before it there are no events, and the start of the program saves the bus calls.
void FreedesktopNotificationCenter::listen()
{
    if (m_ownerWatch)
        return;
    m_ownerWatch =
        std::make_unique<QDBusServiceWatcher>(notificationService, m_bus, QDBusServiceWatcher::WatchForOwnerChange);
    connect(m_ownerWatch.get(), &QDBusServiceWatcher::serviceOwnerChanged, this,
            &FreedesktopNotificationCenter::noteOwner);
    m_events = std::make_unique<BannerEventSource>(m_bus);
    connect(m_events.get(), &BannerEventSource::told, this, &FreedesktopNotificationCenter::handle);
}

void FreedesktopNotificationCenter::noteOwner(const QString &, const QString &, const QString &newOwner)
{
    m_owner = newOwner;
    if (m_server && m_server->owner != newOwner)
        m_server.reset();
    m_banners.keepOnly(newOwner);
    recordSoon();
    if (!newOwner.isEmpty() && m_banners.nextToSend())
        sendWaiting();
}

/// Sends notifications only when the preferences' note of them is on the disk. Otherwise a start after a kill in
/// between would announce them again.
void FreedesktopNotificationCenter::sendOnceNoted()
{
    ++m_unnoted;
    m_record.whenWritten([center = QPointer(this)] {
        if (!center)
            return;
        --center->m_unnoted;
        center->sendWaiting();
    });
}

void FreedesktopNotificationCenter::sendWaiting()
{
    if (m_unnoted > 0)
        return;
    if (!m_server) {
        if (!std::exchange(m_isReadingServer, true))
            launch("reading the notification server", readServer(this));
        return;
    }
    while (Banner *const banner = m_banners.nextToSend())
        send(*banner);
}

QCoro::Task<> FreedesktopNotificationCenter::readServer(QPointer<FreedesktopNotificationCenter> center)
{
    const QDBusConnection bus = center->m_bus;
    std::optional<NotificationServer> server;
    bool isOutdated = true;
    while (isOutdated) {
        const std::optional<NotificationServer> answer = co_await readNotificationServer(bus);
        if (!center)
            co_return;
        server = answer;
        // A newer server was announced while this one was replying.
        isOutdated = server && center->m_owner && *center->m_owner != server->owner;
    }
    center->m_isReadingServer = false;
    center->m_server = server;
    if (!server) {
        center->m_banners.forgetUnsent();
        center->askSlowServerAgain();
        co_return;
    }
    center->m_busIdentifier = server->bus;
    center->closeLeftBehind();
    center->sendWaiting();
}

/// A server may have its name and be too slow to say who it is, as while its desktop starts anew. What is to be asked
/// again doesn't wait for the next alert.
void FreedesktopNotificationCenter::askSlowServerAgain()
{
    if (!m_owner.value_or(QString()).isEmpty() && m_banners.nextToSend())
        QTimer::singleShot(longestServerQuestion, this, &FreedesktopNotificationCenter::sendWaiting);
}

void FreedesktopNotificationCenter::closeLeftBehind()
{
    for (const uint number : m_record.takeNumbers(m_busIdentifier, m_server->owner)) {
        QDBusMessage call = notificationCall(QStringLiteral("CloseNotification"), m_server->owner);
        call << number;
        m_bus.send(call);
    }
    recordSoon();
}

/// Queued, so that all changes in one turn of the event loop are stored together.
void FreedesktopNotificationCenter::recordSoon()
{
    if (!std::exchange(m_recordsSoon, true))
        QMetaObject::invokeMethod(this, &FreedesktopNotificationCenter::record, Qt::QueuedConnection);
}

void FreedesktopNotificationCenter::record()
{
    m_recordsSoon = false;
    m_record.keep(m_banners.all(), m_busIdentifier);
}

void FreedesktopNotificationCenter::send(Banner &banner)
{
    const NotificationRequest request = *std::exchange(banner.next, std::nullopt);
    // An expired banner is closed first, because it would be replaced where nobody looks. A banner with another payload
    // is closed, too: a press in it that is still on its way must not count as a press in the new one.
    if (banner.stage == Banner::Stage::expired || banner.sent.content.payload != request.content.payload)
        close(banner);
    if (banner.stage != Banner::Stage::shown || banner.server != m_server->owner) {
        banner.number = 0;
        banner.offeredKeys.clear();
    }
    // What it was to change has left the screen while it waited.
    if (request.onlyReplaces && banner.number == 0) {
        m_banners.forgetNumber(banner.requestIdentifier);
        return;
    }
    banner.stage = Banner::Stage::shown;
    banner.server = m_server->owner;
    banner.sent = request;
    banner.isSending = true;
    const auto actions = request.content.category.value_or(NotificationCategory()).actions;
    for (const BannerAction &action : fitActions(actions, *m_server))
        banner.offeredKeys.append(action.key);
    m_banners.noteWords(banner, bannerWords(request.content, *m_server));
    launch("showing a notification",
           show(this, request, showBannerCall(request.content, actions, *m_server, banner.number, banner.copy)));
}

QCoro::Task<> FreedesktopNotificationCenter::show(QPointer<FreedesktopNotificationCenter> center,
                                                  NotificationRequest request, QDBusMessage call)
{
    BusCall notify(center->m_bus, call, asLongAsItTakes);
    const QDBusMessage reply = co_await notify;
    if (center)
        center->noteSent(request, reply);
}

void FreedesktopNotificationCenter::noteSent(const NotificationRequest &request, const QDBusMessage &reply)
{
    Banner *const banner = m_banners.find(request.identifier);
    if (!banner)
        return;
    banner->isSending = false;
    if (reply.type() == QDBusMessage::ReplyMessage) {
        m_banners.number(*banner, reply.service(), reply.arguments().value(0).toUInt());
        banner->stage = Banner::Stage::shown;
        m_record.forget({request.identifier});
    } else if (isFromNobody(reply) && !banner->isWithdrawn) {
        // The server was gone when the call arrived; the next server gets the notification.
        m_server.reset();
        if (!banner->next)
            banner->next = request;
    }
    if (banner->isWithdrawn)
        close(*banner);
    const QList<BannerEvent> early = m_early.take(banner->server, banner->number);
    if (banner->number == 0 && !banner->next)
        m_banners.forget(request.identifier);
    for (const BannerEvent &event : early)
        handle(event);
    if (!m_banners.isAnySending())
        m_early.clear();
    recordSoon();
    sendWaiting();
}

void FreedesktopNotificationCenter::withdraw(const QString &identifier)
{
    Banner *const banner = m_banners.find(identifier);
    if (!banner)
        return;
    banner->next.reset();
    banner->isWithdrawn = true;
    if (banner->isSending)
        return;
    // The banner is forgotten when the server confirms: until then an answer may be on its way.
    close(*banner);
    if (banner->number == 0)
        m_banners.forget(identifier);
}

void FreedesktopNotificationCenter::close(Banner &banner) const
{
    if (banner.number == 0 || std::exchange(banner.stage, Banner::Stage::closed) == Banner::Stage::closed)
        return;
    QDBusMessage call = notificationCall(QStringLiteral("CloseNotification"), banner.server);
    call << banner.number;
    m_bus.send(call);
}

} // namespace pingwell
