#pragma once

#include "api/http_transport.h"

namespace pingwell {

/// Of a packed body, this much may be unpacked whatever its own size...
inline constexpr qint64 freelyUnpackedBytes = qint64{4} * 1024 * 1024;
/// ...and this much more for each of its bytes. Alerts that repeat one another almost word for word pack to a
/// thirtieth; what packs to less than a hundredth is made to fill the memory.
inline constexpr qint64 unpackedBytesPerByte = 100;

/// The response with its body unpacked (gzip, RFC 1952, or deflate, RFC 1950); of another encoding as it stands.
/// `APIError::tooLarge()` when that would be more than `limit` bytes or more than the body's own size allows, and
/// `APIError::badResponse()` when the body is damaged. Any thread.
[[nodiscard]] Outcome<HTTPResponse> unpacked(const HTTPResponse &response, qint64 limit);

} // namespace pingwell
