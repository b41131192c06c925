#pragma once

#include <QString>

namespace pingwell {

/// The first letters of the first and the last word, or of the only word; "?" where there is no word.
[[nodiscard]] QString initialsOf(const QString &name);

} // namespace pingwell
