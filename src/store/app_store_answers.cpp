#include "store/app_store.h"

#include "api/endpoints.h"
#include "store/answer_rules.h"
#include "text/text_cut.h"

namespace pingwell {

void AppStore::setReplyDraft(const QString &text, const QString &alertID)
{
    checkMainThread();
    keepDraft(alertID, withinUnits(text, maximumAnswerLength));
}

void AppStore::keepDraft(const QString &alertID, const QString &text)
{
    const auto draft = m_replyDrafts.constFind(alertID);
    if (draft != m_replyDrafts.constEnd() && *draft == text)
        return;
    m_replyDrafts.insert(alertID, text);
    emit replyDraftChanged(alertID);
}

void AppStore::removeReplyDraft(const QString &alertID)
{
    if (m_replyDrafts.remove(alertID))
        emit replyDraftChanged(alertID);
}

void AppStore::answer(const QString &alertID, const QString &text)
{
    static_cast<void>(submitAnswer(alertID, text));
}

void AppStore::answerFromNotification(const QString &alertID, const QString &text)
{
    const auto refusal = submitAnswer(alertID, text);
    if (!refusal)
        return;
    const auto alert = alertWithID(alertID);
    if (!alert) {
        m_notifications.tellRefusalOfGone(alertID,
                                          isSignedIn() ? refusal->reason : QStringLiteral("You are signed out."));
        return;
    }
    // The banner is gone with what was typed into it; a window keeps its field.
    if (alert->acceptsText() && !text.trimmed().isEmpty())
        setReplyDraft(text, alertID);
    tellRefusal(*alert, *refusal);
}

std::optional<AnswerRefusal> AppStore::submitAnswer(const QString &alertID, const QString &text)
{
    checkMainThread();
    const auto alert = alertWithID(alertID);
    const auto workspace = alert ? workspaceWithID(alert->workspaceId) : std::nullopt;
    const auto role = workspace ? std::optional(workspace->role) : std::nullopt;
    if (const auto refusal = refusalOf(alert, role, text, now()))
        return refusal;
    Alert answered = *alert;
    answered.answer = alert->validatedAnswer(text);
    answered.read = true;
    // Before the ask ends in the store: its banner, a refusal's too, goes away as a whole, not its buttons alone.
    m_notifications.withdraw({alertID});
    m_records.replace(answered);
    removeReplyDraft(alertID);
    m_unreadOverrides.set(alertID, false);
    sendAnswer(*alert, *answered.answer);
    return std::nullopt;
}

void AppStore::sendAnswer(const Alert &before, const QString &answer)
{
    m_mutations.start(
        {.operation =
             [before, answer](APIClientPtr client) {
                 return consentOf(endpoints::answerAlert(client, before.workspaceId, before.id, answer));
             },
         .rollback =
             [this, before, answer] {
                 m_records.replace(before);
                 if (before.acceptsText())
                     keepDraft(before.id, answer);
             },
         .failed = [this, before, answer](const APIClientPtr &client,
                                          const APIError &error) { noteUnsentAnswer(client, before, answer, error); },
         .refused = [this, before](const QString &message) { answerRefused(before, message); }});
}

void AppStore::answerRefused(const Alert &before, const QString &message)
{
    // Every refused change is told by a toast, which is enough where the person looks at the alert.
    if (m_notifications.attention().isOnAlert(before.id))
        return;
    const auto alert = alertWithID(before.id);
    tellRefusal(alert.value_or(before), {.reason = message, .canAnswerAgain = alert && canAnswer(*alert)});
}

/// A toast would not be seen by somebody who doesn't look at the alert, and a panel closes before a silent service is
/// given up.
void AppStore::tellRefusal(const Alert &alert, const AnswerRefusal &refusal)
{
    if (m_notifications.attention().isOnAlert(alert.id))
        showToast(refusal.reason, true);
    else
        m_notifications.tellRefusal(alert, workspaceName(alert.workspaceId), refusal);
}

} // namespace pingwell
