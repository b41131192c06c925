#include "store/app_store.h"

#include "api/endpoints.h"
#include "store/answer_rules.h"
#include "store/mutation_steps.h"
#include "text/text_cut.h"

namespace pingwell {

/// What an answer does to the store.
struct AppStore::AnswerSteps
{
    /// Gives the answer. Where that may not be done nothing has happened, and the reason is returned.
    static std::optional<AnswerRefusal> submit(AppStore &store, const QString &alertID, const QString &text);
    static void keepDraft(AppStore &store, const QString &alertID, const QString &text);
    /// The service refused, or can't be reached; the answer given to `before` has been undone.
    static void refused(AppStore &store, const Alert &before, const QString &message);
    static void tellRefusal(AppStore &store, const Alert &alert, const AnswerRefusal &refusal);
};

void AppStore::setReplyDraft(const QString &text, const QString &alertID)
{
    checkMainThread();
    AnswerSteps::keepDraft(*this, alertID, withinUnits(text, maximumAnswerLength));
}

void AppStore::AnswerSteps::keepDraft(AppStore &store, const QString &alertID, const QString &text)
{
    const auto draft = store.m_replyDrafts.constFind(alertID);
    if (draft != store.m_replyDrafts.constEnd() && *draft == text)
        return;
    store.m_replyDrafts.insert(alertID, text);
    emit store.replyDraftChanged(alertID);
}

void AppStore::removeReplyDraft(const QString &alertID)
{
    if (m_replyDrafts.remove(alertID))
        emit replyDraftChanged(alertID);
}

void AppStore::answer(const QString &alertID, const QString &text)
{
    static_cast<void>(AnswerSteps::submit(*this, alertID, text));
}

void AppStore::answerFromNotification(const QString &alertID, const QString &text)
{
    const auto refusal = AnswerSteps::submit(*this, alertID, text);
    if (!refusal)
        return;
    const auto alert = alertWithID(alertID);
    if (!alert) {
        tellRefusalOfGone(alertID, isSignedIn() ? refusal->reason : QStringLiteral("You are signed out."));
        return;
    }
    // The banner is gone with what was typed into it; a window keeps its field.
    if (alert->acceptsText() && !text.trimmed().isEmpty())
        setReplyDraft(text, alertID);
    AnswerSteps::tellRefusal(*this, *alert, *refusal);
}

std::optional<AnswerRefusal> AppStore::AnswerSteps::submit(AppStore &store, const QString &alertID, const QString &text)
{
    store.checkMainThread();
    const auto alert = store.alertWithID(alertID);
    const auto workspace = alert ? store.workspaceWithID(alert->workspaceId) : std::nullopt;
    const auto role = workspace ? std::optional(workspace->role) : std::nullopt;
    if (const auto refusal = refusalOf(alert, role, text, store.m_now))
        return refusal;
    Alert answered = *alert;
    answered.answer = alert->validatedAnswer(text);
    answered.read = true;
    // Before the ask ends in the store: its banner, a refusal's too, goes away as a whole, not its buttons alone.
    store.withdrawNotifications({alertID});
    store.replaceAlert(answered);
    store.removeReplyDraft(alertID);
    store.m_unreadOverrides.set(alertID, false);
    store.mutate(
        {.operation =
             [before = *alert, sent = *answered.answer](APIClientPtr client) {
                 return consentOf(endpoints::answerAlert(client, before.workspaceId, before.id, sent));
             },
         .rollback =
             [before = *alert, sent = *answered.answer](AppStore &owner) {
                 owner.replaceAlert(before);
                 if (before.acceptsText())
                     keepDraft(owner, before.id, sent);
             },
         .failed = [before = *alert, sent = *answered.answer](
                       AppStore &owner, const APIClientPtr &client,
                       const APIError &error) { owner.noteUnsentAnswer(client, before, sent, error); },
         .refused = [before = *alert](AppStore &owner, const QString &message) { refused(owner, before, message); }});
    return std::nullopt;
}

void AppStore::AnswerSteps::refused(AppStore &store, const Alert &before, const QString &message)
{
    // Every refused change is told by a toast, which is enough where the person looks at the alert.
    if (store.m_attention.isOnAlert(before.id))
        return;
    const auto alert = store.alertWithID(before.id);
    tellRefusal(store, alert.value_or(before), {.reason = message, .canAnswerAgain = alert && store.canAnswer(*alert)});
}

/// A toast would not be seen by somebody who doesn't look at the alert, and a panel closes before a silent service is
/// given up.
void AppStore::AnswerSteps::tellRefusal(AppStore &store, const Alert &alert, const AnswerRefusal &refusal)
{
    if (store.m_attention.isOnAlert(alert.id))
        store.showToast(refusal.reason, true);
    else if (store.m_backend && store.m_backend->notifier)
        store.m_backend->notifier->deliverRefusal(alert, store.workspaceName(alert.workspaceId), refusal);
}

void AppStore::tellRefusalOfGone(const QString &alertID, const QString &reason) const
{
    if (m_backend && m_backend->notifier)
        m_backend->notifier->deliverMessage(alertID, QStringLiteral("Your answer didn't go through"), reason);
}

} // namespace pingwell
