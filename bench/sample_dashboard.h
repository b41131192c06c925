#pragma once

#include <QByteArray>

namespace pingwell {

/// A dashboard of `alertCount` alerts as the service sends it. `round` changes every alert's text, so that no two
/// rounds are alike.
[[nodiscard]] QByteArray sampleDashboard(int alertCount, int round);

/// One with a large team and many topics instead.
[[nodiscard]] QByteArray largeTeamDashboard(int memberCount, int topicCount);

} // namespace pingwell
