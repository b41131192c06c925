#include "platform/banner_actions.h"

#include "ui/display_text.h"

#include <QHash>

#include <algorithm>

namespace pingwell {

namespace {

/// How much of a choice a button is trusted to show.
constexpr qsizetype longestLabel = 40;
/// More than any server has room for; thousands would keep it busy.
constexpr qsizetype mostButtons = 32;

const QString openKey = QStringLiteral("default");
const QString moreKey = QStringLiteral("more");
const QString openLabel = QStringLiteral("Open");
const QString moreLabel = QStringLiteral("More…");

/// How many buttons beside the click on the banner the server draws in their order. GNOME Shell silently drops those
/// after the third; Plasma puts the first ones below the others from the fifth on.
qsizetype buttonsOf(const NotificationServer &server)
{
    if (server.name == gnomeServerName)
        return 3;
    if (server.name == plasmaServerName)
        return 4;
    return mostButtons;
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
    const qsizetype room = buttonsOf(server);
    qsizetype shown = actions.size() > room ? room - 1 : actions.size();
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
