#pragma once

#include "status/status_condition.h"

#include <QIcon>
#include <QPixmap>

namespace pingwell {

/// The status item's icon for a number of waiting asks: a bell, and while asks wait, their number on a filled shape, up
/// to 9 and then "9+". The bell is an outline while nobody is signed in, and has a line across it while the service
/// can't be reached. The colours are readable on light and dark status areas, because no desktop reports which one it
/// has. Holds pixmaps of 16 to 64 pixels, the sizes that status areas request.
[[nodiscard]] QIcon statusIcon(qsizetype count, StatusCondition condition);

/// The icon's pixmap that is `size` pixels wide and high.
[[nodiscard]] QPixmap statusPixmap(qsizetype count, StatusCondition condition, int size);

} // namespace pingwell
