#pragma once

#include "api/json.h"
#include "model/alert.h"

namespace pingwell {

/// The test alert as the demo posts it to itself.
[[nodiscard]] Alert localTestAlert(const QString &workspaceID, Instant now);

/// The same, as the service is asked for it.
[[nodiscard]] JSONObject testAlertBody();

} // namespace pingwell
