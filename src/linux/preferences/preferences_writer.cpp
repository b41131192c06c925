#include "linux/preferences/preferences_writer.h"

#include <utility>

namespace pingwell {

using namespace std::chrono_literals;

namespace {

constexpr auto longestWait = 2s;

} // namespace

PreferencesWriter::PreferencesWriter(SharedPreferencesFile file, QJsonObject content, std::chrono::milliseconds delay,
                                     std::function<void()> onAttempt)
    : m_delay(delay)
    , m_file(std::move(file))
    , m_onAttempt(std::move(onAttempt))
    , m_content(std::move(content))
{
}

void PreferencesWriter::add(const PreferenceChanges &changes, Haste haste)
{
    const std::lock_guard lock(m_mutex);
    m_unwritten.add(changes);
    if (haste == Haste::atOnce) {
        hurryLocked();
    } else if (!m_due) {
        m_due = Clock::now() + m_delay;
        m_changed.notify_all();
    }
}

quint64 PreferencesWriter::hurry()
{
    const std::lock_guard lock(m_mutex);
    return hurryLocked();
}

/// Called with m_mutex locked.
quint64 PreferencesWriter::hurryLocked()
{
    if (m_unwritten.isEmpty())
        return m_begun;
    m_due = Clock::now();
    m_changed.notify_all();
    return m_begun + 1;
}

void PreferencesWriter::flush()
{
    std::unique_lock lock(m_mutex);
    const quint64 attempt = hurryLocked();
    m_changed.wait_for(lock, longestWait, [&] { return m_ended >= attempt; });
}

bool PreferencesWriter::hasEnded(quint64 attempt) const
{
    const std::lock_guard lock(m_mutex);
    return m_ended >= attempt;
}

bool PreferencesWriter::succeeds() const
{
    const std::lock_guard lock(m_mutex);
    return m_succeeds;
}

QJsonObject PreferencesWriter::content() const
{
    const std::lock_guard lock(m_mutex);
    return m_unwritten.over(m_writing.over(m_content));
}

void PreferencesWriter::run()
{
    std::unique_lock lock(m_mutex);
    for (bool isLast = false; !isLast;) {
        waitUntilDue(lock);
        isLast = m_isStopping;
        if (!m_unwritten.isEmpty())
            attempt(lock);
    }
    m_isFinished = true;
    m_changed.notify_all();
}

void PreferencesWriter::waitUntilDue(std::unique_lock<std::mutex> &lock)
{
    while (!m_isStopping && !(m_due && Clock::now() >= *m_due)) {
        const std::optional<Clock::time_point> due = m_due;
        if (due)
            m_changed.wait_until(lock, *due);
        else
            m_changed.wait(lock);
    }
    m_due.reset();
}

void PreferencesWriter::attempt(std::unique_lock<std::mutex> &lock)
{
    m_writing = std::exchange(m_unwritten, {});
    ++m_begun;
    const PreferenceChanges changes = m_writing;
    lock.unlock();
    const std::optional<QJsonObject> written = m_file.write(changes);
    lock.lock();
    m_succeeds = written.has_value();
    if (written) {
        m_content = *written;
    } else {
        // Changes made during the attempt are newer than the ones that failed.
        m_writing.add(m_unwritten);
        m_unwritten = m_writing;
    }
    m_writing = {};
    m_ended = m_begun;
    if (m_onAttempt)
        m_onAttempt();
    m_changed.notify_all();
}

bool PreferencesWriter::finish()
{
    std::unique_lock lock(m_mutex);
    m_onAttempt = nullptr;
    m_isStopping = true;
    m_changed.notify_all();
    return m_changed.wait_for(lock, longestWait, [this] { return m_isFinished; });
}

} // namespace pingwell
