#pragma once

#include <chrono>
#include <optional>

namespace pingwell {

/// Decides when the panel shows and hides; a window does what it says. Knows no window and no clock of its own, so that
/// the rules can be tested without either.
class PanelVisibility
{
public:
    using TimePoint = std::chrono::steady_clock::time_point;

    /// The click that takes the focus from the panel arrives after the focus is gone; within this time it means
    /// "close", not "open again".
    static constexpr std::chrono::milliseconds reopenGuard{250};

    [[nodiscard]] bool isVisible() const { return m_visible; }

    /// A click on the status item: whether the panel is to be visible from now on.
    [[nodiscard]] bool clicked(TimePoint now);

    void shown();
    void hidden();
    /// The panel has the focus.
    void activated();
    /// The panel lost the focus: whether it is to hide. A panel that never had the focus stays (some desktops give it
    /// late), and so does one in which an unsent reply is being written.
    [[nodiscard]] bool deactivated(TimePoint now, bool hasUnsentReply);

private:
    bool m_visible = false;
    bool m_wasActive = false;
    std::optional<TimePoint> m_hiddenByFocusLoss;
};

} // namespace pingwell
