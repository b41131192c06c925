#pragma once

#include <QCoroTask>

namespace pingwell {

/// Starts `task` without a caller that awaits it. QCoro would swallow an exception of such a task; this function writes
/// it to standard error with the name `what`, because an uncaught exception is a bug of ours.
void launch(const char *what, QCoro::Task<> task);

} // namespace pingwell
