#pragma once

#include "model/check.h"

#include <QCoroFuture>
#include <QCoroTask>
#include <QFuture>
#include <QThreadPool>
#include <QtConcurrentRun>

#include <atomic>
#include <memory>
#include <optional>
#include <utility>
#include <variant>

namespace pingwell {

/// A piece of work on its way to another thread, and its result on the way back. Neither is copied; each is touched by
/// one thread at a time, and what one wrote the other sees.
template<typename Work>
class HandOver
{
public:
    using Result = std::invoke_result_t<Work>;

    explicit HandOver(Work work)
        : m_work(std::move(work))
    {
        m_state.store(State::waiting, std::memory_order_release);
    }

    /// Once, on the thread that works.
    void run()
    {
        check(m_state.load(std::memory_order_acquire) == State::waiting, "a piece of work is done twice");
        m_result.emplace((*m_work)());
        m_work.reset();
        m_state.store(State::done, std::memory_order_release);
    }

    /// Once, on the thread that asked for it, when it is done.
    Result take()
    {
        check(m_state.load(std::memory_order_acquire) == State::done, "a result is taken before it is there");
        return *std::exchange(m_result, std::nullopt);
    }

private:
    enum class State { waiting, done };
    std::optional<Work> m_work;
    std::optional<Result> m_result;
    std::atomic<State> m_state;
};

/// Runs `work` in the thread pool and resumes the caller on its own thread with the result. `work` must not throw and
/// owns everything it touches.
template<typename Work>
QCoro::Task<std::invoke_result_t<Work>> inBackground(Work work)
{
    auto handOver = std::make_shared<HandOver<Work>>(std::move(work));
    QFuture<void> done = QtConcurrent::run([handOver] { handOver->run(); });
    co_await done;
    co_return handOver->take();
}

/// Lets `value` be destroyed in the thread pool: freeing ten thousand records takes longer than a frame may.
template<typename Value>
void destroyInBackground(Value value)
{
    auto doom = [doomed = std::move(value)] { return std::monostate(); };
    auto handOver = std::make_shared<HandOver<decltype(doom)>>(std::move(doom));
    QThreadPool::globalInstance()->start([handOver] { handOver->run(); });
}

} // namespace pingwell
