#pragma once

#include "api/http_transport.h"
#include "api/outcome.h"
#include "api/wire_reader.h"

#include <optional>

namespace pingwell {

/// What every response may say about itself.
struct ErrorEnvelope
{
    std::optional<bool> success;
    std::optional<std::string_view> code;
    /// A sentence for the person. One in which nothing can be read counts as missing.
    std::optional<QString> message;

    static ErrorEnvelope read(WireObject object);
};

[[nodiscard]] bool isSuccess(int status);

/// Why a response with this status and body is no success; none when it is one.
[[nodiscard]] std::optional<APIError> failureOf(int status, const WireDocument &body);

/// The service's sentence in a successful response.
[[nodiscard]] Outcome<std::optional<QString>> messageOrFailureOf(const HTTPResponse &response);

/// Makes a record of a successful response's body; throws `UndecodableRecord`.
template<typename Record>
using RecordReader = Record (*)(WireObject body, WireStrings &strings);

/// The record in a response; the body is parsed once.
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
