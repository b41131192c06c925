#pragma once

#include <QString>

namespace pingwell {

// Functions that cut a text to a length. They never split what a person sees as one character (Unicode UAX #29).

/// The first `count` characters of the text, as a person counts them.
[[nodiscard]] QString firstCharacters(const QString &text, qsizetype count);

/// The text without the characters that extend beyond `units` UTF-16 units.
[[nodiscard]] QString withinUnits(const QString &text, qsizetype units);

} // namespace pingwell
