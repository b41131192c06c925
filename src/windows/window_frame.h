#pragma once

#include <QRect>
#include <QString>

#include <optional>

namespace pingwell {

/// A window's place and size as they are remembered: four whole numbers, "x y width height".
[[nodiscard]] QString windowFrameText(const QRect &frame);
/// None for any other text, or an empty size.
[[nodiscard]] std::optional<QRect> windowFrameFromText(const QString &text);

/// `frame` moved and, if need be, shrunk to lie within `available`: the screen it was on may be gone or smaller.
[[nodiscard]] QRect fittedWindowFrame(QRect frame, const QRect &available);

} // namespace pingwell
