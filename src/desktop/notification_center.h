#pragma once

#include "desktop/notification_content.h"

#include <QCoroTask>

#include <functional>

namespace pingwell {

/// What the desktop says about showing this program's notifications.
enum class AuthorizationStatus {
    notDetermined,
    denied,
    authorized,
    provisional,
    ephemeral,
    /// The desktop could not be asked.
    other
};

/// A desktop's notification service. Main thread; nothing but the tasks ever waits for the service, and a service that
/// is missing or slow costs only what it was asked to show meanwhile.
class NotificationCenter
{
public:
    using ResponseHandler = std::function<void(const NotificationResponse &)>;

    virtual ~NotificationCenter() = default;

    /// Asks the desktop, every time.
    virtual QCoro::Task<AuthorizationStatus> authorizationStatus() = 0;
    /// Asks the person to allow notifications, with sounds and badges, where the desktop has such a question. May
    /// throw.
    virtual QCoro::Task<> requestAuthorization() = 0;

    [[nodiscard]] virtual bool canOpenSettings() const = 0;
    /// Opens the desktop's notification settings; does nothing where there are none.
    virtual void openSettings() = 0;

    virtual void add(const NotificationRequest &request) = 0;
    /// Takes back notifications, shown or on their way.
    virtual void remove(const QStringList &identifiers) = 0;
    virtual void removeAll() = 0;
    /// The requests whose notifications an earlier run left behind, which are taken back unasked; until each is removed
    /// or added anew, over any number of runs.
    [[nodiscard]] virtual QStringList leftBehind() const = 0;

    /// Who hears of responses; empty for nobody.
    virtual void setResponseHandler(ResponseHandler handler) = 0;
};

} // namespace pingwell
