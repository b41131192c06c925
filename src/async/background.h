#pragma once

#include <QCoroFuture>
#include <QCoroTask>
#include <QFuture>
#include <QtConcurrentRun>

#include <utility>

namespace pingwell {

/// Runs `work` in the thread pool and resumes the caller on its own thread with the result. `work` must not throw and
/// owns everything it touches.
template<typename Work>
QCoro::Task<std::invoke_result_t<Work>> inBackground(Work work)
{
    QFuture<std::invoke_result_t<Work>> future = QtConcurrent::run(std::move(work));
    co_return co_await future;
}

/// Lets `value` be destroyed in the thread pool: freeing ten thousand records takes longer than a frame may.
template<typename Value>
void destroyInBackground(Value value)
{
    QThreadPool::globalInstance()->start([doomed = std::move(value)] {});
}

} // namespace pingwell
