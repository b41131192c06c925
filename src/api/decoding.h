#pragma once

#include "api/http_transport.h"
#include "api/outcome.h"
#include "api/wire_reader.h"

#include <optional>

namespace pingwell {

/// The fields that any response may have beside its data.
struct ErrorEnvelope
{
    std::optional<bool> success;
    std::optional<std::string_view> code;
    /// A sentence for the person. A sentence without a readable character counts as missing.
    std::optional<QString> message;

    static ErrorEnvelope read(WireObject object);
};

[[nodiscard]] bool isSuccess(int status);

/// The error in a response with this status and body; none when the response is a success.
[[nodiscard]] std::optional<APIError> failureOf(int status, const WireDocument &body);

/// The service's sentence in a successful response.
[[nodiscard]] Outcome<std::optional<QString>> messageOrFailureOf(const HTTPResponse &response);

/// Decodes a successful response's body as a record; throws `UndecodableRecord`.
template<typename Record>
using RecordReader = Record (*)(WireObject body, WireStrings &strings);

/// The record in a response. The body is parsed once, for the error and the record.
template<typename Record>
Outcome<Record> decoded(const HTTPResponse &response, RecordReader<Record> read)
{
    const WireDocument body(response.body);
    if (const std::optional<APIError> failure = failureOf(response.status, body))
        return *failure;
    if (!body.root())
        return APIError::badResponse();
    try {
        WireStrings strings;
        return read(*body.root(), strings);
    } catch (const UndecodableRecord &) {
        return APIError::badResponse();
    }
}

} // namespace pingwell
