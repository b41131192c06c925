#pragma once

#include "desktop/notification_content.h"
#include "model/alert.h"
#include "notify/answer_refusal.h"

#include <optional>

namespace pingwell {

/// What can be done with the alert from its notification; none for a notice and for an ask that offers nothing. Alerts
/// with the same choices, or the same placeholder, share a category.
[[nodiscard]] std::optional<NotificationCategory> categoryOf(const Alert &alert);

/// The alert as a notification. A critical one always sounds.
[[nodiscard]] NotificationContent contentOf(const Alert &alert, const std::optional<QString> &workspaceName,
                                            bool sound);

/// The alert as a notification that says its answer was not accepted, with its actions where it can be answered again.
[[nodiscard]] NotificationContent refusalContent(const Alert &alert, const std::optional<QString> &workspaceName,
                                                 const AnswerRefusal &refusal);

} // namespace pingwell
