#pragma once

#include <QChar>
#include <QPainterPath>

namespace pingwell {

/// The centre line of a digit 1 to 9 or of "+" in a box 6 wide and 10 high, to be drawn with a round pen. Drawn by
/// hand, so that the status item needs no font to be loaded. Empty for any other character.
[[nodiscard]] QPainterPath digitOutline(QChar character);

} // namespace pingwell
