#pragma once

#include <QPoint>
#include <QRect>
#include <QSize>

namespace pingwell {

/// The top left corner of a panel of `size` for a click at `pointer`: centred above or below the pointer, on the side
/// with more room, and inside `available`, the part of the screen that no bar covers. Of a panel larger than that the
/// top left is visible.
[[nodiscard]] QPoint panelPosition(QPoint pointer, const QRect &available, QSize size);

} // namespace pingwell
