#include "notify/alert_notifying.h"

namespace pingwell {

AlertNotifying::~AlertNotifying() = default;

} // namespace pingwell
