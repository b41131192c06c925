#pragma once

#include "notify/notification_content.h"
#include "platform/notification_server.h"

#include <QList>
#include <QString>

#include <optional>

namespace pingwell {

/// An action as a notification server gets it.
struct BannerAction
{
    QString key;
    QString label;

    friend bool operator==(const BannerAction &, const BannerAction &) = default;
};

/// `actions` as far as `server` can show them, after the one for a click on the banner itself. Where not all have room
/// the first ones stay, in their order, and the last place opens the alert, where all can be chosen from: no server
/// gets to drop or reorder them.
[[nodiscard]] QList<BannerAction> fitActions(const QList<NotificationAction> &actions,
                                             const NotificationServer &server);

/// Whether an action of `actions` takes text and `server` draws a field for it.
[[nodiscard]] std::optional<NotificationTextInput> replyFieldFor(const QList<NotificationAction> &actions,
                                                                 const NotificationServer &server);

/// What the person meant by the action with that key; none for a key that is not ours.
[[nodiscard]] std::optional<QString> actionIdentifierOf(const QString &key);

} // namespace pingwell
