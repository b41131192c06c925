#include "notify/alert_content.h"

namespace pingwell {

namespace {

NotificationCategory replyCategory(const Alert &alert)
{
    const QString placeholder = alert.placeholder.value_or(QStringLiteral("Type a reply…"));
    const NotificationTextInput input{.buttonTitle = QStringLiteral("Send"), .placeholder = placeholder};
    const NotificationAction reply{
        .identifier = replyActionIdentifier, .title = QStringLiteral("Reply"), .textInput = input};
    return {.identifier = QStringLiteral("reply.") + placeholder, .actions = {reply}};
}

NotificationCategory choiceCategory(const Alert &alert)
{
    NotificationCategory category{.identifier = QStringLiteral("ask.") + alert.actions.join(u'|'), .actions = {}};
    for (const QString &choice : alert.actions) {
        const QString identifier = answerActionPrefix + QString::number(category.actions.size());
        category.actions.append({.identifier = identifier, .title = choice, .textInput = std::nullopt});
    }
    return category;
}

QString subtitleOf(const Alert &alert, const std::optional<QString> &workspaceName)
{
    QStringList parts{alert.app, u'#' + alert.topic};
    if (workspaceName)
        parts.append(*workspaceName);
    return parts.join(QStringLiteral(" · "));
}

} // namespace

std::optional<NotificationCategory> categoryOf(const Alert &alert)
{
    if (alert.acceptsText())
        return replyCategory(alert);
    if (alert.kind == AlertKind::ask && !alert.actions.isEmpty())
        return choiceCategory(alert);
    return std::nullopt;
}

NotificationContent contentOf(const Alert &alert, const std::optional<QString> &workspaceName, bool sound)
{
    const bool isCritical = alert.priority == Priority::critical;
    return {
        .title = alert.title,
        .subtitle = subtitleOf(alert, workspaceName),
        .body = alert.body,
        .threadIdentifier = alert.workspaceId,
        .payload = {.alertId = alert.id, .workspaceId = alert.workspaceId, .actions = alert.actions},
        .sound = sound || isCritical,
        .timeSensitive = isCritical,
        .category = categoryOf(alert),
    };
}

NotificationContent refusalContent(const Alert &alert, const std::optional<QString> &workspaceName,
                                   const AnswerRefusal &refusal)
{
    NotificationContent content = contentOf(alert, workspaceName, false);
    // At the beginning, where a banner with little room does not cut it off.
    content.body = QStringLiteral("Your answer didn't go through. ") + refusal.reason + u'\n' + alert.body;
    if (!refusal.canAnswerAgain)
        content.category.reset();
    return content;
}

} // namespace pingwell
