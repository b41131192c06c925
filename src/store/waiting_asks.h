#pragma once

#include "model/alert.h"

#include <QSet>
#include <QStringList>

#include <optional>

namespace pingwell {

/// The asks that waited for an answer when it was last looked, so that those which wait no longer can be told.
class WaitingAsks
{
public:
    /// Looks at all of `alerts`; the ids of the asks that waited before and don't at `now`: answered, timed out or
    /// gone.
    [[nodiscard]] QStringList endedIn(const QList<Alert> &alerts, Instant now);
    /// Whether an ask may have timed out by `now`: between two changes of the alerts nothing else ends one.
    [[nodiscard]] bool mayEndBy(Instant now) const { return m_nextDeadline && *m_nextDeadline <= now; }

private:
    QSet<QString> m_ids;
    std::optional<Instant> m_nextDeadline;
};

/// When the time of the next ask that waits at `now` is up; none where none of them has a deadline.
[[nodiscard]] std::optional<Instant> nextDeadline(const QList<Alert> &alerts, Instant now);

} // namespace pingwell
