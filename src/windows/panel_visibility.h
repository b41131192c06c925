#pragma once

#include <chrono>
#include <optional>

namespace pingwell {

/// The rules for showing and hiding the panel; the window carries out what they return. It uses neither a window nor a
/// clock of its own, so that tests need neither.
class PanelVisibility
{
public:
    using TimePoint = std::chrono::steady_clock::time_point;

    /// A click on the status item takes the focus from the panel before the click itself arrives. Within this time
    /// after the panel was hidden, the click means "close", not "open again".
    static constexpr std::chrono::milliseconds reopenGuard{250};

    [[nodiscard]] bool isVisible() const { return m_visible; }

    /// Handles a click on the status item; returns whether the panel has to be visible from now on.
    [[nodiscard]] bool clicked(TimePoint now);

    void shown();
    void hidden();
    /// Notes that the panel has the focus.
    void activated();
    /// Notes that the panel lost the focus; returns whether it has to hide. A panel that never had the focus stays,
    /// because some desktops give it late. So does a panel with an unsent reply.
    [[nodiscard]] bool deactivated(TimePoint now, bool hasUnsentReply);

private:
    bool m_visible = false;
    bool m_wasActive = false;
    std::optional<TimePoint> m_hiddenByFocusLoss;
};

} // namespace pingwell
