#include "store/app_store.h"

#include "api/endpoints.h"
#include "store/text_cut.h"

namespace pingwell {

namespace {

/// The answer call, for its success or failure alone: the next refresh brings the alert as the service holds it.
QCoro::Task<> sendAnswer(APIClientPtr client, QString workspaceID, QString alertID, QString answer)
{
    co_await endpoints::answerAlert(client, workspaceID, alertID, answer);
}

QString closedMessage()
{
    return QStringLiteral("This question can't be answered any more.");
}

} // namespace

/// What an answer does to the store.
struct AppStore::AnswerSteps
{
    /// False when the answer may not be given; nothing has happened then.
    static bool submit(AppStore &store, const QString &alertID, const QString &text, Refused refused);
    static void keepDraft(AppStore &store, const QString &alertID, const QString &text);
    static void tellRefusal(const AppStore &store, const QString &alertID, const QString &message);
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
    AnswerSteps::submit(*this, alertID, text, {});
}

void AppStore::answerFromNotification(const QString &alertID, const QString &text)
{
    const auto refused = [alertID](AppStore &store, const QString &message) {
        AnswerSteps::tellRefusal(store, alertID, message);
    };
    if (AnswerSteps::submit(*this, alertID, text, refused))
        return;
    const auto alert = alertWithID(alertID);
    if (!alert) {
        // Of an alert that is gone no banner can be shown.
        showToast(closedMessage(), true);
        return;
    }
    const bool isOpen = canAnswer(*alert);
    // The banner is gone with what was typed into it; a window keeps its field.
    if (isOpen && alert->acceptsText())
        setReplyDraft(text, alertID);
    AnswerSteps::tellRefusal(*this, alertID,
                             isOpen ? QStringLiteral("An answer has 1 to 1000 characters.") : closedMessage());
}

void AppStore::AnswerSteps::tellRefusal(const AppStore &store, const QString &alertID, const QString &message)
{
    const auto alert = store.alertWithID(alertID);
    if (alert && store.m_backend && store.m_backend->notifier)
        store.m_backend->notifier->deliverRefusal(*alert, store.workspaceName(alert->workspaceId), message);
}

bool AppStore::AnswerSteps::submit(AppStore &store, const QString &alertID, const QString &text, Refused refused)
{
    store.checkMainThread();
    const auto alert = store.alertWithID(alertID);
    if (!alert || !store.canAnswer(*alert))
        return false;
    const auto validated = alert->validatedAnswer(text);
    if (!validated)
        return false;
    Alert answered = *alert;
    answered.answer = validated;
    answered.read = true;
    store.replaceAlert(answered);
    store.removeReplyDraft(alertID);
    store.m_unreadOverrides.set(alertID, false);
    store.withdrawNotifications({alertID});
    store.mutate(
        [before = *alert, sent = *validated](AppStore &owner) {
            owner.replaceAlert(before);
            if (before.acceptsText())
                keepDraft(owner, before.id, sent);
        },
        [workspaceID = alert->workspaceId, alertID, sent = *validated](APIClientPtr client) {
            return sendAnswer(client, workspaceID, alertID, sent);
        },
        std::move(refused));
    return true;
}

} // namespace pingwell
