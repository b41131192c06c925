#pragma once

#include "model/check.h"

#include <QCoroFuture>
#include <QCoroTask>
#include <QPromise>
#include <QRunnable>
#include <QThreadPool>

#include <atomic>
#include <memory>
#include <optional>
#include <utility>

namespace pingwell {

/// One call of `work` in the thread pool, and its result. Work and result are moved, never copied; a `QFuture<Result>`
/// would copy the result. `m_turn` says which thread may touch them: the pool until the work is done, then the caller.
/// The last shared pointer, on whichever thread, destroys the object.
template<typename Work>
class BackgroundWork final : public QRunnable
{
public:
    using Result = std::invoke_result_t<Work>;

    explicit BackgroundWork(Work work)
        : m_work(std::move(work))
    {
        setAutoDelete(false);
    }

    /// Starts the work. Called once, on the thread that wants the result. `take` may be called when the future has
    /// finished.
    static QFuture<void> start(const std::shared_ptr<BackgroundWork> &self)
    {
        QFuture<void> done = self->m_done.future();
        self->m_done.start();
        self->m_self = self;
        self->m_turn.store(Turn::pool, std::memory_order_release);
        QThreadPool::globalInstance()->start(self.get());
        return done;
    }

    /// Moves the result out. Called once, on the thread that called `start`, after the future has finished.
    Result take()
    {
        check(m_turn.load(std::memory_order_acquire) == Turn::owner, "a result is taken before it is there");
        return *std::exchange(m_result, std::nullopt);
    }

    void run() override
    {
        check(m_turn.load(std::memory_order_acquire) == Turn::pool, "a piece of work is done twice");
        const std::shared_ptr<BackgroundWork> self = std::move(m_self);
        m_result.emplace((*m_work)());
        m_work.reset();
        m_turn.store(Turn::owner, std::memory_order_release);
        m_done.finish();
    }

private:
    enum class Turn { owner, pool };
    std::atomic<Turn> m_turn = Turn::owner;
    std::optional<Work> m_work;
    std::optional<Result> m_result;
    QPromise<void> m_done;
    std::shared_ptr<BackgroundWork> m_self;
};

/// Runs `work` in the thread pool and resumes the caller on its own thread with the result. `work` must not throw and
/// must own everything it uses.
template<typename Work>
QCoro::Task<std::invoke_result_t<Work>> inBackground(Work work)
{
    auto background = std::make_shared<BackgroundWork<Work>>(std::move(work));
    QFuture<void> done = BackgroundWork<Work>::start(background);
    co_await done;
    co_return background->take();
}

/// Destroys `value` in the thread pool: freeing ten thousand records takes longer than one frame.
template<typename Value>
void destroyInBackground(Value value)
{
    auto doom = [doomed = std::move(value)] { return true; };
    BackgroundWork<decltype(doom)>::start(std::make_shared<BackgroundWork<decltype(doom)>>(std::move(doom)));
}

} // namespace pingwell
