#pragma once

#include "desktop/notification_content.h"
#include "linux/notifications/notification_server.h"

#include <QDBusMessage>
#include <QString>

namespace pingwell {

/// The body of the banner: the subtitle's line, then what the alert says, clean, capped, and escaped where the server
/// reads markup.
[[nodiscard]] QString bannerBody(const NotificationContent &content, const NotificationServer &server);

/// All that the banner says, in which two banners may be the same.
[[nodiscard]] QString bannerWords(const NotificationContent &content, const NotificationServer &server);

/// The call that shows `content` with `actions` on `server`; `replaced` is the server's identifier of the banner to put
/// it in the place of, 0 for none. From the second `copy` in the same words on it says so: dunst makes one banner of
/// two that say the same, and Plasma refuses the second.
[[nodiscard]] QDBusMessage showBannerCall(const NotificationContent &content, const QList<NotificationAction> &actions,
                                          const NotificationServer &server, uint replaced, int copy = 1);

} // namespace pingwell
