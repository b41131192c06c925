#include "store/mutation_count.h"

#include "model/check.h"

#include <limits>

namespace pingwell {

void MutationCount::begin()
{
    check(m_inFlight < std::numeric_limits<int>::max(), "too many mutations in flight");
    ++m_inFlight;
    advanceEpoch();
}

void MutationCount::end()
{
    check(m_inFlight > 0, "a mutation ended that never began");
    --m_inFlight;
    advanceEpoch();
}

void MutationCount::advanceEpoch()
{
    check(m_epoch < std::numeric_limits<qint64>::max(), "the mutation epoch is used up");
    ++m_epoch;
}

} // namespace pingwell
