#pragma once

#include "linux/preferences/preference_changes.h"
#include "linux/preferences/shared_preferences_file.h"

#include <chrono>
#include <condition_variable>
#include <functional>
#include <mutex>
#include <optional>

namespace pingwell {

/// Writes changes of preferences to their file behind the back of whoever makes them: one attempt after the other, each
/// with all that was changed before it began. What an attempt can't write goes along with the next one. It is shared
/// with the thread that runs it, so that a thread stuck on a dead disk can be left behind. Any thread.
class PreferencesWriter
{
public:
    enum class Haste {
        /// Within the delay, together with what is changed meanwhile.
        soon,
        /// As soon as the disk takes it.
        atOnce,
    };

    /// `content` is what `file` held when it was opened. `onAttempt` is called after each attempt, on the thread that
    /// runs this, until `finish`; it must not call back.
    PreferencesWriter(SharedPreferencesFile file, QJsonObject content, std::chrono::milliseconds delay,
                      std::function<void()> onAttempt);
    Q_DISABLE_COPY_MOVE(PreferencesWriter)

    void add(const PreferenceChanges &changes, Haste haste);
    /// Has all that was added written at once. The number of the attempt that does it; one that has ended where nothing
    /// is left to write.
    quint64 hurry();
    /// The same, and waits for that attempt, at most 2 s.
    void flush();

    [[nodiscard]] bool hasEnded(quint64 attempt) const;
    /// Whether the last attempt wrote all it was to write.
    [[nodiscard]] bool succeeds() const;
    /// What the file held at the last attempt, with what was added since laid over it.
    [[nodiscard]] QJsonObject content() const;

    /// The thread's whole life.
    void run();
    /// Ends `run` after one more attempt where something is left to write; false when that takes more than 2 s.
    [[nodiscard]] bool finish();

private:
    using Clock = std::chrono::steady_clock;

    void waitUntilDue(std::unique_lock<std::mutex> &lock);
    void attempt(std::unique_lock<std::mutex> &lock);
    quint64 hurryLocked();

    const std::chrono::milliseconds m_delay;
    // Of the running thread alone.
    SharedPreferencesFile m_file;

    mutable std::mutex m_mutex;
    std::condition_variable m_changed;
    // Guarded by the mutex.
    std::function<void()> m_onAttempt;
    QJsonObject m_content;
    PreferenceChanges m_writing;
    PreferenceChanges m_unwritten;
    std::optional<Clock::time_point> m_due;
    quint64 m_begun = 0;
    quint64 m_ended = 0;
    bool m_succeeds = true;
    bool m_isStopping = false;
    bool m_isFinished = false;
};

} // namespace pingwell
