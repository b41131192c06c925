#pragma once

#include "store/app_store.h"

#include <QString>

namespace pingwell {

/// Whether the status item's number is up to date.
enum class StatusCondition {
    following,
    /// Nobody is signed in, so no alerts arrive.
    signedOut,
    /// The service has not answered correctly for longer than `toleratedSilence`.
    offline,
};

/// One sentence for the tooltip; empty while all is well.
[[nodiscard]] QString statusDescription(StatusCondition condition);

/// Watches the store for that condition. A short failure of the connection is not reported: it has to last for
/// `toleratedSilence`.
class StatusConditionWatch
{
public:
    static constexpr Seconds toleratedSilence{60};

    /// The condition now. The caller asks again whenever the account, the connection or the time changes.
    [[nodiscard]] StatusCondition look(const AppStore &store);

private:
    std::optional<Instant> m_problemSince;
};

} // namespace pingwell
