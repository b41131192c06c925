#pragma once

#include "api/api_error.h"

#include <optional>
#include <utility>

namespace pingwell {

/// Success that has nothing more to say. A type of its own: QCoro takes a monostate for no result at all.
struct Done
{
};

/// How something that was asked for has ended: with a value or, instead, with the error to tell the person. Failures
/// travel as such values from the transport to the store; none is thrown across a coroutine. Any thread.
template<typename Value>
class [[nodiscard]] Outcome
{
public:
    Outcome(Value value)
        : m_value(std::in_place, std::move(value))
    {
    }
    Outcome(APIError error)
        : m_error(std::move(error))
    {
    }

    /// None after a failure.
    [[nodiscard]] const std::optional<Value> &value() const & { return m_value; }
    [[nodiscard]] std::optional<Value> value() && { return std::move(m_value); }
    /// None after a success.
    [[nodiscard]] const std::optional<APIError> &error() const & { return m_error; }
    [[nodiscard]] std::optional<APIError> error() && { return std::move(m_error); }

private:
    std::optional<Value> m_value;
    std::optional<APIError> m_error;
};

} // namespace pingwell
