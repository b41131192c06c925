#pragma once

#include <QtGlobal>

namespace pingwell {

/// How many changes of the person's are on their way to the service, and an epoch that moves whenever one begins or
/// ends: an answer asked for in an earlier epoch may not know of it. Counting wrongly stops the program.
class MutationCount
{
public:
    void begin();
    void end();
    /// One ended that had not held the merge back.
    void endBeside() { advanceEpoch(); }

    [[nodiscard]] bool isAny() const { return m_inFlight > 0; }
    [[nodiscard]] qint64 epoch() const { return m_epoch; }
    /// None is under way, and none began or ended since that epoch.
    [[nodiscard]] bool restsSince(qint64 epoch) const { return m_inFlight == 0 && m_epoch == epoch; }

private:
    void advanceEpoch();

    int m_inFlight = 0;
    qint64 m_epoch = 0;
};

} // namespace pingwell
