#pragma once

#include <QString>

namespace pingwell {

// Texts cut to a length; what a person sees as one character is never split (Unicode UAX #29).

/// The first `count` of the text's characters, as a person counts them.
[[nodiscard]] QString firstCharacters(const QString &text, qsizetype count);

/// The text without the characters at its end that reach beyond `units` UTF-16 units.
[[nodiscard]] QString withinUnits(const QString &text, qsizetype units);

} // namespace pingwell
