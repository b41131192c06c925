#include "model/alert.h"

#include "model/check.h"

#include <cmath>
#include <limits>

namespace pingwell {

std::optional<ReplyState> Alert::replyState(Instant now) const
{
    if (kind != AlertKind::ask)
        return std::nullopt;
    if (answer)
        return Answered{*answer};
    if (timedOutAt)
        return TimedOut{};
    if (!expiresAt)
        return Waiting{std::numeric_limits<double>::infinity()};
    const double remaining = (*expiresAt - now).count();
    if (remaining > 0)
        return Waiting{remaining};
    return TimedOut{};
}

bool Alert::isWaiting(Instant now) const
{
    return pingwell::isWaiting(replyState(now));
}

std::optional<QString> Alert::validatedAnswer(const QString &proposed) const
{
    if (acceptsText()) {
        const QString text = proposed.trimmed();
        if (text.isEmpty() || text.size() > maximumAnswerLength)
            return std::nullopt;
        return text;
    }
    if (!actions.contains(proposed))
        return std::nullopt;
    return proposed;
}

std::optional<std::int64_t> Alert::responseWindowMinutes() const
{
    if (!expiresAt)
        return std::nullopt;
    const double minutes = std::round((*expiresAt - at).count() / 60.0);
    // 2^63 is the first double outside the range; -2^63 itself is inside.
    constexpr double beyond = 9'223'372'036'854'775'808.0;
    check(std::isfinite(minutes) && minutes >= -beyond && minutes < beyond,
          "the response window is not a number of minutes");
    return static_cast<std::int64_t>(minutes);
}

} // namespace pingwell
