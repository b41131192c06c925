#pragma once

#include "desktop/notification_center.h"
#include "notify/alert_notifying.h"
#include "notify/alert_responses.h"

#include <QMap>

#include <memory>

namespace pingwell {

/// Shows alerts as notifications of the desktop, and passes the person's responses on as answers. One object exists for
/// the life of the program. Main thread.
class UserNotifier final : public AlertNotifying
{
public:
    explicit UserNotifier(std::shared_ptr<NotificationCenter> center);
    ~UserNotifier() override;
    Q_DISABLE_COPY_MOVE(UserNotifier)

    /// Sets the receiver of the responses; without one they are dropped.
    void setResponses(std::weak_ptr<AlertResponses> responses);

    void deliver(const Alert &alert, const std::optional<QString> &workspaceName, bool sound, bool canAnswer) override;
    void remove(const QStringList &identifiers) override;
    void removeAll() override;
    void deliverRefusal(const Alert &alert, const std::optional<QString> &workspaceName,
                        const AnswerRefusal &refusal) override;
    [[nodiscard]] QStringList leftBehind() const override { return m_center->leftBehind(); }
    void endAsks(const QStringList &alertIDs) override;
    void deliverMessage(const QString &identifier, const QString &title, const QString &message) override;

private:
    void handle(const NotificationResponse &response) const;

    std::shared_ptr<NotificationCenter> m_center;
    std::weak_ptr<AlertResponses> m_responses;
    /// The notifications that report a refusal, by the alert's id. The person may have dismissed them since.
    QMap<QString, NotificationContent> m_refusals;
};

} // namespace pingwell
