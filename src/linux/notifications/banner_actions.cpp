#include "linux/notifications/banner_actions.h"

#include "text/display_text.h"

#include <QHash>

#include <algorithm>
#include <limits>

namespace pingwell {

namespace {

/// How much of a choice a button is trusted to show.
constexpr qsizetype longestLabel = 40;

const QString openKey = QStringLiteral("default");
const QString moreKey = QStringLiteral("more");
const QString openLabel = QStringLiteral("Open");
const QString moreLabel = QStringLiteral("More…");

/// What a server has room for.
struct Room
{
    /// Buttons, beside the click on the banner.
    qsizetype buttons = 0;
    /// Characters of all labels, each counted as long as the longest one, and the click on the banner with them.
    qsizetype characters = std::numeric_limits<qsizetype>::max();
};

Room roomOf(const NotificationServer &server)
{
    // It silently drops those after the third.
    if (server.name == gnomeServerName)
        return {.buttons = 3};
    // It puts the first ones below the others from the fifth on.
    if (server.name == plasmaServerName)
        return {.buttons = 4};
    // They open a list, dunst in an order of its own; thousands would keep them busy.
    if (server.name == u"dunst" || server.name == u"mako" || server.name == u"lxqt-notificationd")
        return {.buttons = 32};
    // One row, all buttons as wide as the widest: where it is wider than the screen, the question is off the screen.
    return {.buttons = 4, .characters = 120};
}

/// How many characters wide the first `shown` actions are, with the click on the banner and what leads to the others.
qsizetype widthOf(const QList<NotificationAction> &actions, qsizetype shown)
{
    qsizetype widest = 0;
    for (const NotificationAction &action : actions.first(shown))
        widest = std::max(widest, displayLine(action.title).size());
    return widest * (1 + shown + (shown < actions.size() ? 1 : 0));
}

/// How many of the actions get a button of their own.
qsizetype fitCount(const QList<NotificationAction> &actions, const NotificationServer &server)
{
    const Room room = roomOf(server);
    qsizetype shown = actions.size() > room.buttons ? room.buttons - 1 : actions.size();
    while (widthOf(actions, shown) > room.characters)
        --shown;
    // One choice alone would look like the only one.
    return shown == 1 && actions.size() > 1 ? 0 : shown;
}

QString looksOf(const QString &title)
{
    return seenOf(displayLine(title, longestLabel));
}

/// Whether each of the first `shown` actions can be read whole on its button, and taken for no other one, nor for one
/// of the program's own.
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
