#include "store/answer_rules.h"

namespace pingwell {

namespace {

/// Why nothing at all can be answered, or an empty text.
QString obstacle(const std::optional<Alert> &alert, std::optional<WorkspaceRole> role, Instant now)
{
    if (!alert)
        return QStringLiteral("This question no longer exists.");
    if (alert->kind != AlertKind::ask)
        return QStringLiteral("This alert asks for no answer.");
    if (alert->answer)
        return QStringLiteral("This question has already been answered.");
    if (!alert->isWaiting(now))
        return QStringLiteral("The time to answer this question is over.");
    if (!role)
        return QStringLiteral("You no longer belong to this question's workspace.");
    if (role == WorkspaceRole::viewer)
        return QStringLiteral("Viewers can't reply to asks.");
    return {};
}

} // namespace

std::optional<AnswerRefusal> refusalOf(const std::optional<Alert> &alert, std::optional<WorkspaceRole> role,
                                       const QString &answer, Instant now)
{
    const QString closed = obstacle(alert, role, now);
    if (!closed.isEmpty())
        return AnswerRefusal{.reason = closed, .canAnswerAgain = false};
    if (alert->validatedAnswer(answer))
        return std::nullopt;
    return AnswerRefusal{.reason = alert->acceptsText() ? QStringLiteral("An answer has 1 to 1000 characters.")
                                                        : QStringLiteral("The agent no longer offers this choice."),
                         .canAnswerAgain = true};
}

} // namespace pingwell
