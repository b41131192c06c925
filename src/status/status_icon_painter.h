#pragma once

#include "status/status_condition.h"

#include <QIcon>
#include <QPixmap>

namespace pingwell {

/// The status area's icon for a number of waiting asks: a bell and, while something waits, the number on a filled
/// ground, up to 9 and then "9+". While nobody is signed in the bell is an outline, and while the service is out of
/// reach a line crosses it. It is read on light and dark panels alike, since no desktop says which its panel is. Holds
/// pixmaps for the sizes panels ask for, 16 to 64 pixels.
[[nodiscard]] QIcon statusIcon(qsizetype count, StatusCondition condition);

/// One of its pixmaps, `size` pixels wide and high.
[[nodiscard]] QPixmap statusPixmap(qsizetype count, StatusCondition condition, int size);

} // namespace pingwell
