#pragma once

#include "model/alert.h"
#include "notify/answer_refusal.h"

#include <optional>

namespace pingwell {

/// Why `answer` can't be given to `alert` at `now`; none where it can. Without an alert it is gone; `role` is the
/// person's in its workspace, without one they don't belong to it.
[[nodiscard]] std::optional<AnswerRefusal>
refusalOf(const std::optional<Alert> &alert, std::optional<WorkspaceRole> role, const QString &answer, Instant now);

} // namespace pingwell
