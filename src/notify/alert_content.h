#pragma once

#include "desktop/notification_content.h"
#include "model/alert.h"
#include "notify/answer_refusal.h"

#include <optional>

namespace pingwell {

/// The actions that the alert's notification offers; none for a notice and for an ask without choices. Alerts with the
/// same choices, or the same placeholder, share a category.
[[nodiscard]] std::optional<NotificationCategory> categoryOf(const Alert &alert);

/// The alert as a notification. A critical alert always makes a sound.
[[nodiscard]] NotificationContent contentOf(const Alert &alert, const std::optional<QString> &workspaceName,
                                            bool sound);

/// A notification that says why the alert's answer was not accepted, with the alert's actions where it can be answered
/// again.
[[nodiscard]] NotificationContent refusalContent(const Alert &alert, const std::optional<QString> &workspaceName,
                                                 const AnswerRefusal &refusal);

} // namespace pingwell
