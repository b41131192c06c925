#pragma once

#include "model/instant.h"
#include "store/seed_data.h"

namespace pingwell {

/// A made-up working day that ends at `now`: alerts in every state, a workspace for every role, and an ask that times
/// out a minute later. Most alerts are in the first workspace.
[[nodiscard]] SeedData demoData(Instant now);

} // namespace pingwell
