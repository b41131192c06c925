#pragma once

#include "api/http_transport.h"

namespace pingwell {

/// Every packed body may unpack to this many bytes...
inline constexpr qint64 freelyUnpackedBytes = qint64{4} * 1024 * 1024;
/// ...and to this many more for each of its own bytes. Alerts that are almost identical pack to a thirtieth; a body
/// that packs to less than a hundredth is made to exhaust the memory.
inline constexpr qint64 unpackedBytesPerByte = 100;

/// The response with its body unpacked (gzip, RFC 1952, or deflate, RFC 1950); a body in another encoding is returned
/// unchanged. `APIError::tooLarge()` when the unpacked body would exceed `limit` bytes or the ratio above, and
/// `APIError::badResponse()` when the body is damaged. Any thread.
[[nodiscard]] Outcome<HTTPResponse> unpacked(const HTTPResponse &response, qint64 limit);

} // namespace pingwell
