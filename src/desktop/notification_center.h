#pragma once

#include "desktop/notification_content.h"

#include <QCoroTask>

#include <functional>

namespace pingwell {

/// Whether the desktop shows this program's notifications.
enum class AuthorizationStatus {
    notDetermined,
    denied,
    authorized,
    provisional,
    ephemeral,
    /// The desktop did not answer.
    other
};

/// A desktop's notification service. Main thread. Only the tasks wait for the service; when it is missing or slow,
/// nothing is lost except the notifications added meanwhile.
class NotificationCenter
{
public:
    using ResponseHandler = std::function<void(const NotificationResponse &)>;

    virtual ~NotificationCenter() = default;

    /// Reads the status from the desktop on each call.
    virtual QCoro::Task<AuthorizationStatus> authorizationStatus() = 0;
    /// Asks the person to allow notifications, sounds and badges, where the desktop has such a dialog. May throw.
    virtual QCoro::Task<> requestAuthorization() = 0;

    [[nodiscard]] virtual bool canOpenSettings() const = 0;
    /// Opens the desktop's notification settings; does nothing where there are none.
    virtual void openSettings() = 0;

    virtual void add(const NotificationRequest &request) = 0;
    /// Removes notifications, shown or still being sent.
    virtual void remove(const QStringList &identifiers) = 0;
    virtual void removeAll() = 0;
    /// The identifiers of the notifications that an earlier run left on the screen. The centre removes those
    /// notifications by itself; each identifier stays listed, also in later runs, until it is removed or added again.
    [[nodiscard]] virtual QStringList leftBehind() const = 0;

    /// The function that receives responses; an empty one drops them.
    virtual void setResponseHandler(ResponseHandler handler) = 0;
};

} // namespace pingwell
