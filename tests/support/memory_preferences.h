#pragma once

#include "desktop/transient_preferences.h"

#include <atomic>
#include <functional>
#include <utility>

namespace pingwell {

/// Preferences that live as long as the object: hand the same one to a second store to play a restart.
class MemoryPreferences final : public TransientPreferences
{
public:
    [[nodiscard]] bool isWhole() const override { return isReadable; }
    [[nodiscard]] bool lasts() const override { return keepsThem; }

    void flush() override { ++flushes; }
    void whenWritten(std::function<void(bool lasts)> then) override
    {
        m_waiting.append(std::move(then));
        if (!isSlow)
            write();
    }
    /// A slow disk comes round to it.
    void write()
    {
        for (const auto &then : std::exchange(m_waiting, {}))
            then(keepsThem);
    }

    /// A disk that can't be written to, when false.
    bool keepsThem = true;
    bool isReadable = true;
    /// What is written waits for `write`.
    bool isSlow = false;
    std::atomic<int> flushes = 0;

private:
    QList<std::function<void(bool lasts)>> m_waiting;
};

} // namespace pingwell
