#pragma once

#include "desktop/notification_content.h"
#include "linux/notifications/notification_server.h"

#include <QList>
#include <QString>
#include <QStringList>

#include <optional>

namespace pingwell {

/// The action behind which the server draws a field (KDE notifications, "inline-reply" capability; others took it
/// over).
inline const QString inlineReplyKey = QStringLiteral("inline-reply");

/// An action as a notification server gets it.
struct BannerAction
{
    QString key;
    QString label;

    friend bool operator==(const BannerAction &, const BannerAction &) = default;
};

/// `actions` as far as `server` can show them, after the one for a click on the banner itself. Where not all have room
/// the first ones stay, in their order, and the last place opens the alert, where all can be chosen from: no server
/// gets to drop them, or to draw them off the screen. That place is the only one where a label would be cut, show
/// nothing, or look like another choice's: nobody presses what can't be read whole.
[[nodiscard]] QList<BannerAction> fitActions(const QList<NotificationAction> &actions,
                                             const NotificationServer &server);

/// Whether an action of `actions` takes text and `server` draws a field for it.
[[nodiscard]] std::optional<NotificationTextInput> replyFieldFor(const QList<NotificationAction> &actions,
                                                                 const NotificationServer &server);

/// What the person meant by pressing the action with that key in a banner that offered `offeredKeys`; none for a key
/// that it never offered, and for the one that opens the server's own field: what is typed there comes as a reply.
[[nodiscard]] std::optional<QString> actionIdentifierOf(const QString &key, const QStringList &offeredKeys);

} // namespace pingwell
