#include "api/dashboard_bounds.h"

#include <algorithm>
#include <numeric>
#include <tuple>

namespace pingwell {

std::vector<qsizetype> alertsToTake(const std::vector<AlertRank> &ranks, qsizetype limit)
{
    std::vector<qsizetype> places(ranks.size());
    std::iota(places.begin(), places.end(), 0);
    if (qsizetype(places.size()) <= limit)
        return places;
    const auto goesFirst = [&ranks](qsizetype left, qsizetype right) {
        const AlertRank &first = ranks[size_t(left)];
        const AlertRank &second = ranks[size_t(right)];
        return std::tuple(!first.isOpen, second.at, left) < std::tuple(!second.isOpen, first.at, right);
    };
    std::nth_element(places.begin(), places.begin() + limit, places.end(), goesFirst);
    places.resize(size_t(limit));
    std::sort(places.begin(), places.end());
    return places;
}

} // namespace pingwell
