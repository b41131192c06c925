#pragma once

#include "model/alert.h"
#include "model/workspace.h"

#include <QString>

#include <optional>

namespace pingwell {

/// What became of an ask that nobody answered in time, in one sentence: what the service reported, else what the
/// alert's own workspace is set to do. Without a deadline of its own the ask is said to have waited as long as `active`
/// allows.
[[nodiscard]] QString outcomeText(const Alert &alert, const std::optional<Workspace> &own,
                                  const std::optional<Workspace> &active);

} // namespace pingwell
