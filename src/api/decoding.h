#pragma once

#include "api/api_error.h"
#include "api/http_transport.h"
#include "api/wire_reader.h"

#include <optional>
#include <utility>
#include <variant>

namespace pingwell {

/// What a response comes to: a value, or the error that the caller is to see. Made in a worker thread.
template<typename Value>
using Outcome = std::variant<Value, APIError>;

/// The value. Throws the error.
template<typename Value>
Value valueOf(Outcome<Value> outcome)
{
    if (const APIError *error = std::get_if<APIError>(&outcome))
        throw *error;
    return std::get<Value>(std::move(outcome));
}

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
