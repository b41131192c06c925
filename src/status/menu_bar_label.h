#pragma once

#include <QString>

namespace pingwell {

/// What the status item shows for a number of waiting asks. Named after the menu bar, where other desktops show it.
struct MenuBarLabel
{
    /// The symbol's name: "bell", or "bell.badge" while asks wait.
    QString symbol;
    /// The number beside the symbol; empty when no ask waits.
    QString text;
    /// The text for screen readers, and the tooltip.
    QString accessibleLabel;

    friend bool operator==(const MenuBarLabel &, const MenuBarLabel &) = default;
};

[[nodiscard]] MenuBarLabel menuBarLabel(qsizetype count);

} // namespace pingwell
