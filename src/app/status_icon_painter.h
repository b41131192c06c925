#pragma once

#include <QIcon>
#include <QPixmap>

namespace pingwell {

/// The status area's icon for a number of waiting asks: a bell and, while something waits, the number on a filled
/// ground, up to 9 and then "9+". It is read on light and dark panels alike, since no desktop says which its panel is.
/// Holds pixmaps for the sizes panels ask for, 16 to 64 pixels.
[[nodiscard]] QIcon statusIcon(qsizetype count);

/// One of its pixmaps, `size` pixels wide and high.
[[nodiscard]] QPixmap statusPixmap(qsizetype count, int size);

} // namespace pingwell
