#pragma once

#include <QChar>
#include <QPainterPath>

namespace pingwell {

/// The middle line of a digit 1 to 9 or of "+", to be drawn with a round pen, in a box 6 wide and 10 high. Our own, so
/// that the program needn't load a font to sit in the status area. Empty for any other character.
[[nodiscard]] QPainterPath digitOutline(QChar character);

} // namespace pingwell
