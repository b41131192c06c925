#pragma once

#include <QString>

namespace pingwell {

/// The name under which the service knows a topic that a person named: at most 40 of its characters, lower-cased, with
/// only a to z, 0 to 9 and single hyphens between them. Empty when nothing of the name is left.
[[nodiscard]] QString slug(const QString &name);

} // namespace pingwell
