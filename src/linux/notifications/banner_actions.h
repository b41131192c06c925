#pragma once

#include "desktop/notification_content.h"
#include "linux/notifications/notification_server.h"

#include <QList>
#include <QString>
#include <QStringList>

#include <optional>

namespace pingwell {

/// The key of an action for which the server draws a text field (KDE's "inline-reply" capability, which other servers
/// support, too).
inline const QString inlineReplyKey = QStringLiteral("inline-reply");

/// An action in the form that a notification server receives.
struct BannerAction
{
    QString key;
    QString label;

    friend bool operator==(const BannerAction &, const BannerAction &) = default;
};

/// The actions for a banner on `server`. The first opens the alert on a click on the banner. If there is not enough
/// room for all of `actions`, the first ones are kept in their order, and a last one, "More…", opens the alert:
/// otherwise servers would drop buttons or draw them outside the screen. If a label would be cut, have no visible
/// character, or look like another one, only "More…" is offered, so that nobody presses a choice they could not read
/// completely.
[[nodiscard]] QList<BannerAction> fitActions(const QList<NotificationAction> &actions,
                                             const NotificationServer &server);

/// The text field of the first action that takes text, where `server` draws fields.
[[nodiscard]] std::optional<NotificationTextInput> replyFieldFor(const QList<NotificationAction> &actions,
                                                                 const NotificationServer &server);

/// The identifier of the action with this key, in a banner that offered `offeredKeys`. None for a key that was not
/// offered, and for the action that opens the server's text field, because its text arrives as a reply.
[[nodiscard]] std::optional<QString> actionIdentifierOf(const QString &key, const QStringList &offeredKeys);

} // namespace pingwell
