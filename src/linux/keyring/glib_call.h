#pragma once

#include <QtGlobal>

#include <gio/gio.h>

#include <chrono>
#include <condition_variable>
#include <memory>
#include <mutex>
#include <thread>

// What every call of GLib needs. GLib uses "signals" and "slots" as names, so files that include this header are
// compiled with QT_NO_KEYWORDS.

namespace pingwell {

struct Unref
{
    void operator()(GMainContext *context) const { g_main_context_unref(context); }
    void operator()(void *object) const { g_object_unref(object); }
    void operator()(GHashTable *table) const { g_hash_table_unref(table); }
    void operator()(GVariant *value) const { g_variant_unref(value); }
};

/// Owns a reference and releases it.
template<typename Type>
using Ref = std::unique_ptr<Type, Unref>;

/// Receives the error of one GLib call.
class GLibError
{
public:
    GLibError() = default;
    ~GLibError() { g_clear_error(&m_error); }
    Q_DISABLE_COPY_MOVE(GLibError)

    /// The address to pass to the call.
    [[nodiscard]] GError **place() { return &m_error; }
    [[nodiscard]] bool isSet() const { return m_error != nullptr; }
    [[nodiscard]] bool is(GQuark domain, int code) const { return g_error_matches(m_error, domain, code); }

private:
    GError *m_error = nullptr;
};

/// Cancels the calls it is passed to ten seconds after its construction: a service that hangs must not hang the caller.
class Deadline
{
public:
    Deadline()
        : m_watch([this] { watch(); })
    {
    }
    ~Deadline()
    {
        {
            const std::lock_guard lock(m_mutex);
            m_isDone = true;
        }
        m_changed.notify_one();
        m_watch.join();
    }
    Q_DISABLE_COPY_MOVE(Deadline)

    operator GCancellable *() const { return m_cancellable.get(); }

private:
    void watch()
    {
        std::unique_lock lock(m_mutex);
        if (!m_changed.wait_for(lock, std::chrono::seconds(10), [this] { return m_isDone; }))
            g_cancellable_cancel(m_cancellable.get());
    }

    Ref<GCancellable> m_cancellable{g_cancellable_new()};
    std::mutex m_mutex;
    std::condition_variable m_changed;
    bool m_isDone = false;
    // Declared last: the thread uses the members above until it ends.
    std::thread m_watch;
};

/// Makes the calling thread receive what GLib delivers during a call. Without it GLib would use the default context,
/// which the main thread may run.
class Delivery
{
public:
    explicit Delivery(GMainContext *context)
        : m_context(context)
    {
        g_main_context_push_thread_default(m_context);
        while (g_main_context_iteration(m_context, FALSE)) {
        }
    }
    ~Delivery() { g_main_context_pop_thread_default(m_context); }
    Q_DISABLE_COPY_MOVE(Delivery)

private:
    GMainContext *m_context;
};

} // namespace pingwell
