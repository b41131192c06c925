#include "notify/user_notifier.h"

#include "notify/alert_content.h"

#include <utility>

namespace pingwell {

namespace {

/// The choice that an "answer.<index>" action stands for; none when the index is invalid.
std::optional<QString> chosenAnswer(const NotificationResponse &response)
{
    if (!response.actionIdentifier.startsWith(answerActionPrefix))
        return std::nullopt;
    bool isNumber = false;
    const qlonglong index = response.actionIdentifier.mid(answerActionPrefix.size()).toLongLong(&isNumber);
    if (!isNumber || index < 0 || index >= response.payload.actions.size())
        return std::nullopt;
    return response.payload.actions.at(index);
}

} // namespace

UserNotifier::UserNotifier(std::shared_ptr<NotificationCenter> center)
    : m_center(std::move(center))
{
    m_center->setResponseHandler([this](const NotificationResponse &response) { handle(response); });
}

UserNotifier::~UserNotifier()
{
    m_center->setResponseHandler({});
}

void UserNotifier::setResponses(std::weak_ptr<AlertResponses> responses)
{
    m_responses = std::move(responses);
}

void UserNotifier::deliver(const Alert &alert, const std::optional<QString> &workspaceName, bool sound, bool canAnswer)
{
    m_refusals.remove(alert.id);
    NotificationContent content = contentOf(alert, workspaceName, sound);
    if (!canAnswer)
        content.category.reset();
    m_center->add({.identifier = alert.id, .content = content});
}

void UserNotifier::remove(const QStringList &identifiers)
{
    for (const QString &identifier : identifiers)
        m_refusals.remove(identifier);
    m_center->remove(identifiers);
}

void UserNotifier::removeAll()
{
    m_refusals.clear();
    m_center->removeAll();
}

void UserNotifier::deliverRefusal(const Alert &alert, const std::optional<QString> &workspaceName,
                                  const AnswerRefusal &refusal)
{
    const NotificationContent content = refusalContent(alert, workspaceName, refusal);
    m_refusals.insert(alert.id, content);
    m_center->add({.identifier = alert.id, .content = content});
}

void UserNotifier::endAsks(const QStringList &alertIDs)
{
    QStringList answerable;
    for (const QString &id : alertIDs) {
        const auto refusal = m_refusals.find(id);
        if (refusal == m_refusals.end()) {
            answerable.append(id);
        } else if (std::exchange(refusal->category, std::nullopt)) {
            refusal->sound = false;
            m_center->add({.identifier = id, .content = *refusal, .onlyReplaces = true});
        }
    }
    m_center->remove(answerable);
}

void UserNotifier::deliverMessage(const QString &identifier, const QString &title, const QString &message)
{
    NotificationContent content;
    content.title = title;
    content.body = message;
    m_center->add({.identifier = identifier, .content = std::move(content)});
}

void UserNotifier::handle(const NotificationResponse &response) const
{
    const std::shared_ptr<AlertResponses> responses = m_responses.lock();
    const NotificationPayload &payload = response.payload;
    if (!responses)
        return;
    const bool isMessage = payload == NotificationPayload{};
    if (payload.workspaceId.isEmpty() && !isMessage)
        return;
    if (response.actionIdentifier == defaultActionIdentifier) {
        responses->open(payload.alertId, false, response.activationToken);
    } else if (response.actionIdentifier == replyActionIdentifier) {
        if (response.text)
            responses->answer(payload.alertId, *response.text);
        else
            responses->open(payload.alertId, true, response.activationToken);
    } else if (const std::optional<QString> choice = chosenAnswer(response)) {
        responses->answer(payload.alertId, *choice);
    }
}

} // namespace pingwell
