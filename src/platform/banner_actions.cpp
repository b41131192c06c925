#include "platform/banner_actions.h"

#include "ui/display_text.h"

namespace pingwell {

namespace {

/// What a button can show of a choice.
constexpr qsizetype longestLabel = 40;
/// More than any server has room for; thousands would keep it busy.
constexpr qsizetype mostButtons = 32;

const QString openKey = QStringLiteral("default");
const QString moreKey = QStringLiteral("more");
/// Plasma's own, taken over by others (KDE notifications, "inline-reply" capability).
const QString inlineReplyKey = QStringLiteral("inline-reply");

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

QString labelOf(const NotificationAction &action, qsizetype position)
{
    const QString label = displayLine(action.title, longestLabel);
    return label.isEmpty() ? QString(QStringLiteral("Choice ") + QString::number(position)) : label;
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
    QList<BannerAction> fitted{{openKey, QStringLiteral("Open")}};
    const qsizetype room = buttonsOf(server);
    const qsizetype shown = actions.size() > room ? room - 1 : actions.size();
    for (const NotificationAction &action : actions.first(shown))
        fitted.append({keyOf(action, server), labelOf(action, fitted.size())});
    if (shown < actions.size())
        fitted.append({moreKey, QStringLiteral("More…")});
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

std::optional<QString> actionIdentifierOf(const QString &key)
{
    if (key == openKey || key == moreKey)
        return defaultActionIdentifier;
    if (key == inlineReplyKey || key == replyActionIdentifier)
        return replyActionIdentifier;
    if (key.startsWith(answerActionPrefix))
        return key;
    return std::nullopt;
}

} // namespace pingwell
