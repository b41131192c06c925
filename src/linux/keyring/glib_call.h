#pragma once

#include <QtGlobal>

#include <gio/gio.h>

#include <chrono>
#include <condition_variable>
#include <memory>
#include <mutex>
#include <thread>

// What a call of GLib needs around it. GLib names things "signals" and "slots": what includes this is compiled with
// QT_NO_KEYWORDS.

namespace pingwell {

struct Unref
{
    void operator()(GMainContext *context) const { g_main_context_unref(context); }
    void operator()(void *object) const { g_object_unref(object); }
    void operator()(GHashTable *table) const { g_hash_table_unref(table); }
    void operator()(GVariant *value) const { g_variant_unref(value); }
};

/// A reference that is given back at the end of its scope.
template<typename Type>
using Ref = std::unique_ptr<Type, Unref>;

/// Receives the error of one GLib call.
class GLibError
{
public:
    GLibError() = default;
    ~GLibError() { g_clear_error(&m_error); }
    Q_DISABLE_COPY_MOVE(GLibError)

    /// Where the call puts it.
    [[nodiscard]] GError **place() { return &m_error; }
    [[nodiscard]] bool isSet() const { return m_error != nullptr; }
    [[nodiscard]] bool is(GQuark domain, int code) const { return g_error_matches(m_error, domain, code); }

private:
    GError *m_error = nullptr;
};

/// Cancels the calls it is handed to ten seconds after it was made: a service that hangs must not hang the caller.
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
    // Last: it uses the others until it ends.
    std::thread m_watch;
};

/// Keeps what GLib delivers during a call on the calling thread: its default context may be the one the main thread
/// runs.
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
