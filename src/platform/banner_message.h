#pragma once

#include "notify/notification_content.h"
#include "platform/notification_server.h"

#include <QDBusMessage>
#include <QString>

namespace pingwell {

/// The body of the banner: the subtitle's line, then what the alert says, clean, capped, and escaped where the server
/// reads markup.
[[nodiscard]] QString bannerBody(const NotificationContent &content, const NotificationServer &server);

/// The call that shows `content` with `actions` on `server`; `replaced` is the server's identifier of the banner to put
/// it in the place of, 0 for none.
[[nodiscard]] QDBusMessage showBannerCall(const NotificationContent &content, const QList<NotificationAction> &actions,
                                          const NotificationServer &server, uint replaced);

} // namespace pingwell
