#pragma once

#include <chrono>

namespace pingwell {

/// Decides when a press on one control counts. A person presses what they saw: what has just come under the resting
/// pointer they have not seen yet. Knows no window and no clock of its own, so that the rule can be tested without
/// either.
class PressRule
{
public:
    using TimePoint = std::chrono::steady_clock::time_point;

    /// How long a person needs to see that something else is there now.
    static constexpr std::chrono::milliseconds pause{500};

    /// The control appeared, moved, or does something else from now on.
    void changed(TimePoint now, bool isUnderPointer)
    {
        m_mayPressFrom = now + pause;
        m_cameUnderPointer = isUnderPointer;
    }
    /// The pointer is elsewhere, and comes back by the person's own movement.
    void pointerLeft() { m_cameUnderPointer = false; }

    [[nodiscard]] bool takesPointer(TimePoint now) const { return !m_cameUnderPointer || takesTouch(now); }
    /// A finger comes out of the air: where it aims is not known before it is down.
    [[nodiscard]] bool takesTouch(TimePoint now) const { return now >= m_mayPressFrom; }

private:
    TimePoint m_mayPressFrom = TimePoint::min();
    bool m_cameUnderPointer = false;
};

} // namespace pingwell
