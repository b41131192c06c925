#pragma once

#include <QString>

namespace pingwell {

/// What the status area shows for a number of waiting asks.
struct MenuBarLabel
{
    /// The symbol's name: "bell", or "bell.badge" while something waits.
    QString symbol;
    /// The number beside the symbol; empty when nothing waits.
    QString text;
    /// What a screen reader says, and the tooltip.
    QString accessibleLabel;

    friend bool operator==(const MenuBarLabel &, const MenuBarLabel &) = default;
};

[[nodiscard]] MenuBarLabel menuBarLabel(qsizetype count);

} // namespace pingwell
