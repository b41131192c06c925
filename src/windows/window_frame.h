#pragma once

#include <QRect>
#include <QString>

#include <optional>

namespace pingwell {

/// A window's position and size as the preferences store them: four whole numbers, "x y width height".
[[nodiscard]] QString windowFrameText(const QRect &frame);
/// None for any other text, or an empty size.
[[nodiscard]] std::optional<QRect> windowFrameFromText(const QString &text);

/// `frame`, moved and shrunk to lie within `available`: the screen it was on may be gone or smaller.
[[nodiscard]] QRect fittedWindowFrame(QRect frame, const QRect &available);

} // namespace pingwell
