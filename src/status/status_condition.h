#pragma once

#include "store/app_store.h"

#include <QString>

namespace pingwell {

/// Whether what the status area counts can be relied on.
enum class StatusCondition {
    following,
    /// Nobody is signed in: nothing arrives.
    signedOut,
    /// The service has not been heard properly for more than `toleratedSilence`.
    offline,
};

/// One sentence for the tooltip; empty while there is nothing to say.
[[nodiscard]] QString statusDescription(StatusCondition condition);

/// Follows a store's condition. A connection that fails now and then is none of the person's worries, so that it has to
/// fail for a while first.
class StatusConditionWatch
{
public:
    static constexpr Seconds toleratedSilence{60};

    /// The condition now. To be asked at every change of the account, of the connection and of the time.
    [[nodiscard]] StatusCondition look(const AppStore &store);

private:
    std::optional<Instant> m_problemSince;
};

} // namespace pingwell
