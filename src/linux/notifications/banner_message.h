#pragma once

#include "desktop/notification_content.h"
#include "linux/notifications/notification_server.h"

#include <QDBusMessage>
#include <QString>

namespace pingwell {

/// The body of the banner: the subtitle on a line of its own, then the alert's text, cleaned and shortened, and escaped
/// where the server reads markup.
[[nodiscard]] QString bannerBody(const NotificationContent &content, const NotificationServer &server);

/// All text in the banner, to recognise banners with the same text.
[[nodiscard]] QString bannerWords(const NotificationContent &content, const NotificationServer &server);

/// The D-Bus call that shows `content` with `actions` on `server`. `replaced` is the number of the banner to replace, 0
/// for none. From `copy` 2 on the text says that it is another ask in the same words: dunst would merge the two
/// banners, and Plasma refuses the second.
[[nodiscard]] QDBusMessage showBannerCall(const NotificationContent &content, const QList<NotificationAction> &actions,
                                          const NotificationServer &server, uint replaced, int copy = 1);

} // namespace pingwell
