#pragma once

#include <QPoint>
#include <QRect>
#include <QSize>

namespace pingwell {

/// The top left corner of a panel of `size` that belongs to a click at `pointer`: centred over or under it, on the side
/// where there is room, and wholly within `available`, the part of the screen that no bar covers. A panel larger than
/// that shows its top left.
[[nodiscard]] QPoint panelPosition(QPoint pointer, const QRect &available, QSize size);

} // namespace pingwell
