#pragma once

#include <QString>

namespace pingwell {

/// An identifier for something the service has not named yet: `kind`, a hyphen, and 8 random hexadecimal digits.
[[nodiscard]] QString newLocalID(QChar kind);

} // namespace pingwell
