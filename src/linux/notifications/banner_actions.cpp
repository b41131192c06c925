#include "linux/notifications/banner_actions.h"

#include "text/display_text.h"

#include <QHash>

#include <algorithm>
#include <limits>

namespace pingwell {

namespace {

/// The longest label that a button is expected to show completely.
constexpr qsizetype longestLabel = 40;

const QString openKey = QStringLiteral("default");
const QString moreKey = QStringLiteral("more");
const QString openLabel = QStringLiteral("Open");
const QString moreLabel = QStringLiteral("More…");

/// How many actions a server can show.
struct Room
{
    /// The number of buttons; the click on the banner is not counted.
    qsizetype buttons = 0;
    /// The characters of all labels, the click on the banner included; each label counts as much as the longest one.
    qsizetype characters = std::numeric_limits<qsizetype>::max();
};

Room roomOf(const NotificationServer &server)
{
    // GNOME drops the buttons after the third without notice.
    if (server.name == gnomeServerName)
        return {.buttons = 3};
    // From the fifth button on, Plasma puts the first ones below the others.
    if (server.name == plasmaServerName)
        return {.buttons = 4};
    // These servers open a list, dunst in an order of its own; thousands of entries would block them.
    if (server.name == u"dunst" || server.name == u"mako" || server.name == u"lxqt-notificationd")
        return {.buttons = 32};
    // One row of buttons that are all as wide as the widest. If the row is wider than the screen, the banner is not
    // visible.
    return {.buttons = 4, .characters = 120};
}

/// The width, in characters, of the first `shown` actions, the click on the banner, and the "More…" button if it is
/// needed.
qsizetype widthOf(const QList<NotificationAction> &actions, qsizetype shown)
{
    qsizetype widest = 0;
    for (const NotificationAction &action : actions.first(shown))
        widest = std::max(widest, displayLine(action.title).size());
    return widest * (1 + shown + (shown < actions.size() ? 1 : 0));
}

/// How many actions get a button of their own.
qsizetype fitCount(const QList<NotificationAction> &actions, const NotificationServer &server)
{
    const Room room = roomOf(server);
    qsizetype shown = actions.size() > room.buttons ? room.buttons - 1 : actions.size();
    while (widthOf(actions, shown) > room.characters)
        --shown;
    // A single choice on its own would look like the only choice.
    return shown == 1 && actions.size() > 1 ? 0 : shown;
}

QString looksOf(const QString &title)
{
    return seenOf(displayLine(title, longestLabel));
}

/// Whether each of the first `shown` labels fits its button and differs from every other label, including "Open" and
/// "More…".
bool areTellable(const QList<NotificationAction> &actions, qsizetype shown)
{
    QHash<QString, int> sameLooks{{looksOf(openLabel), 1}, {looksOf(moreLabel), 1}};
    for (const NotificationAction &action : actions)
        ++sameLooks[looksOf(action.title)];
    return std::all_of(actions.begin(), actions.begin() + shown, [&](const NotificationAction &action) {
        const QString label = displayLine(action.title);
        return !label.isEmpty() && label.size() <= longestLabel && sameLooks.value(looksOf(action.title)) == 1;
    });
}

QString keyOf(const NotificationAction &action, const NotificationServer &server)
{
    return action.textInput && server.takesReplies ? inlineReplyKey : action.identifier;
}

} // namespace

QList<BannerAction> fitActions(const QList<NotificationAction> &actions, const NotificationServer &server)
{
    if (!server.drawsActions)
        return {};
    QList<BannerAction> fitted{{openKey, openLabel}};
    qsizetype shown = fitCount(actions, server);
    if (!areTellable(actions, shown))
        shown = 0;
    for (const NotificationAction &action : actions.first(shown))
        fitted.append({keyOf(action, server), displayLine(action.title)});
    if (shown < actions.size())
        fitted.append({moreKey, moreLabel});
    return fitted;
}

std::optional<NotificationTextInput> replyFieldFor(const QList<NotificationAction> &actions,
                                                   const NotificationServer &server)
{
    for (const NotificationAction &action : actions) {
        if (action.textInput && server.takesReplies)
            return action.textInput;
    }
    return std::nullopt;
}

std::optional<QString> actionIdentifierOf(const QString &key, const QStringList &offeredKeys)
{
    if (!offeredKeys.contains(key) || key == inlineReplyKey)
        return std::nullopt;
    return key == moreKey ? defaultActionIdentifier : key;
}

} // namespace pingwell
