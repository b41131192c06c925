#pragma once

#include <QByteArray>

namespace pingwell {

/// A copy of `json` in which tokens that are good JSON, but more than the parser takes, stand in a form it takes: half
/// a surrogate pair, left where an agent cut a text in the middle of an emoji, becomes the replacement character; a
/// number beyond 64 bits becomes one that is out of every range as well. So one odd alert can't hide all the others.
/// What is no JSON stays none.
[[nodiscard]] QByteArray withReadableTokens(const QByteArray &json);

} // namespace pingwell
