#pragma once

#include "api/api_error.h"

#include <optional>
#include <utility>

namespace pingwell {

/// The value of a success without data. It is a type of its own because QCoro treats `std::monostate` as "no result".
struct Done
{
};

/// The end of an operation: a value, or the error to show to the person. Failures are returned as such values from the
/// transport up to the store; no coroutine throws one. Any thread.
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
