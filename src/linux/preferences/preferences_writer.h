#pragma once

#include "linux/preferences/preference_changes.h"
#include "linux/preferences/shared_preferences_file.h"

#include <chrono>
#include <condition_variable>
#include <functional>
#include <mutex>
#include <optional>

namespace pingwell {

/// Writes changes of preferences to their file on a thread of its own, one attempt after the other. An attempt writes
/// every change that was added before it began, and those that the previous attempt could not write. The thread and the
/// preferences share the ownership of this object, so that a thread stuck on a dead disk can be detached. Any thread.
class PreferencesWriter
{
public:
    enum class Haste {
        /// Within the delay, together with changes that follow.
        soon,
        /// As soon as the disk accepts it.
        atOnce,
    };

    /// `content` is what `file` held when it was opened. `onAttempt` is called on the writing thread after each
    /// attempt, until `finish`, with the mutex locked: it must not call this object.
    PreferencesWriter(SharedPreferencesFile file, QJsonObject content, std::chrono::milliseconds delay,
                      std::function<void()> onAttempt);
    Q_DISABLE_COPY_MOVE(PreferencesWriter)

    void add(const PreferenceChanges &changes, Haste haste);
    /// Writes every added change at once. Returns the number of the attempt that does so; the number of an attempt that
    /// has already ended if nothing is left to write.
    quint64 hurry();
    /// The same, and waits for that attempt, at most 2 s.
    void flush();

    [[nodiscard]] bool hasEnded(quint64 attempt) const;
    /// Whether the last attempt wrote every change it had to write.
    [[nodiscard]] bool succeeds() const;
    /// What the file held after the last attempt, with every later change applied.
    [[nodiscard]] QJsonObject content() const;

    /// Runs on the writing thread until `finish`.
    void run();
    /// Ends `run`, after one more attempt if a change is left to write; false when that takes more than 2 s.
    [[nodiscard]] bool finish();

private:
    using Clock = std::chrono::steady_clock;

    void waitUntilDue(std::unique_lock<std::mutex> &lock);
    void attempt(std::unique_lock<std::mutex> &lock);
    quint64 hurryLocked();

    const std::chrono::milliseconds m_delay;
    // Used by the writing thread only.
    SharedPreferencesFile m_file;

    mutable std::mutex m_mutex;
    std::condition_variable m_changed;
    // Guarded by m_mutex.
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
