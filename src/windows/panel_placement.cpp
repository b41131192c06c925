#include "windows/panel_placement.h"

#include <algorithm>

namespace pingwell {

namespace {

/// The distance between the panel and the pointer, and between the panel and the screen's edges.
constexpr int gap = 8;

int within(int wanted, int low, int high)
{
    return std::max(low, std::min(wanted, high));
}

} // namespace

QPoint panelPosition(QPoint pointer, const QRect &available, QSize size)
{
    const QRect room = available.adjusted(gap, gap, -gap, -gap);
    const bool isBelow = pointer.y() < available.center().y();
    const int x = pointer.x() - size.width() / 2;
    const int y = isBelow ? pointer.y() + gap : pointer.y() - gap - size.height();
    return {within(x, room.left(), room.right() + 1 - size.width()),
            within(y, room.top(), room.bottom() + 1 - size.height())};
}

} // namespace pingwell
