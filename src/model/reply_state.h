#pragma once

#include <QString>

#include <optional>
#include <variant>

namespace pingwell {

/// An ask that can still be answered.
struct Waiting
{
    /// Seconds until the deadline; positive infinity when the ask has no deadline.
    double remaining = 0;

    friend bool operator==(const Waiting &, const Waiting &) = default;
};

/// An ask that was answered.
struct Answered
{
    QString text;

    friend bool operator==(const Answered &, const Answered &) = default;
};

/// An ask whose deadline passed before an answer arrived.
struct TimedOut
{
    friend bool operator==(const TimedOut &, const TimedOut &) = default;
};

/// The state of an ask at one instant.
using ReplyState = std::variant<Waiting, Answered, TimedOut>;

inline bool isWaiting(const std::optional<ReplyState> &state)
{
    return state && std::holds_alternative<Waiting>(*state);
}
inline bool isTimedOut(const std::optional<ReplyState> &state)
{
    return state && std::holds_alternative<TimedOut>(*state);
}

} // namespace pingwell
