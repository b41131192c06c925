#pragma once

#include <QElapsedTimer>

#include <algorithm>
#include <vector>

namespace pingwell {

[[nodiscard]] inline double milliseconds(const QElapsedTimer &timer)
{
    return static_cast<double>(timer.nsecsElapsed()) / 1e6;
}

[[nodiscard]] inline double median(std::vector<double> values)
{
    std::sort(values.begin(), values.end());
    return values[values.size() / 2];
}

} // namespace pingwell
