#pragma once

#include "model/instant.h"
#include "store/seed_data.h"

namespace pingwell {

/// A made-up working day that ends at `now`: every state an alert can be in, every role a person can have, and an ask
/// whose time runs out a minute later. The first workspace holds most of it.
[[nodiscard]] SeedData demoData(Instant now);

} // namespace pingwell
