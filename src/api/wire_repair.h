#pragma once

#include <QByteArray>

namespace pingwell {

/// A copy of `json` in which what the parser refuses, but an agent may well send, stands in a form it takes. Half a
/// surrogate pair, left where an agent cut a text in the middle of an emoji, and bytes of a text that are no UTF-8
/// become the replacement character; so do raw control characters in a text, except line breaks and tabs, which are
/// escaped. A number beyond 64 bits becomes one that is out of every range as well. So one odd alert can't hide all the
/// others. What is no JSON otherwise stays none. Empty when the copy would be larger than `json` by more than a
/// megabyte: a body so broken is no text with an odd byte.
[[nodiscard]] QByteArray withReadableTokens(const QByteArray &json);

} // namespace pingwell
