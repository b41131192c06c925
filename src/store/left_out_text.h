#pragma once

#include "api/dashboard.h"

#include <QString>

namespace pingwell {

/// Which records of a dashboard the program left out and why, in sentences for the person; empty when it left out none.
[[nodiscard]] QString leftOutText(const DashboardCounts &counts);

} // namespace pingwell
