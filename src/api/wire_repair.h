#pragma once

#include <QByteArray>

namespace pingwell {

/// A copy of `json` that the parser accepts. It repairs faults that an agent's text can cause, so that one odd alert
/// can't hide all the others. The replacement character stands for half a surrogate pair (an agent cut a text inside an
/// emoji), for bytes that are not UTF-8, and for raw control characters; raw line breaks and tabs are escaped instead.
/// A number outside 64 bits becomes one that is outside every other range, too. Other syntax errors stay. Empty when
/// the copy would be more than a megabyte larger than `json`: a body that broken is not a text with an odd byte.
[[nodiscard]] QByteArray withReadableTokens(const QByteArray &json);

} // namespace pingwell
