#pragma once

#include <QCoroTask>

namespace pingwell {

/// Lets `task` run on by itself. A dropped QCoro task would swallow an exception; this one writes it to standard error,
/// named by `what`, because an error that nobody awaits is a mistake of ours.
void launch(const char *what, QCoro::Task<> task);

} // namespace pingwell
