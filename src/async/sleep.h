#pragma once

#include <chrono>
#include <coroutine>
#include <memory>
#include <stop_token>

namespace pingwell {

/// An awaitable pause on the event loop of the awaiting thread, which a stop request ends early. QCoro's own sleep
/// can't be cancelled. The stop must be requested on the awaiting thread; the coroutine then resumes from the event
/// loop, never from inside the request. Copies share one pause, because QCoro copies what it awaits.
class Sleep
{
public:
    Sleep(std::chrono::milliseconds duration, std::stop_token stop);

    [[nodiscard]] bool await_ready() const;
    void await_suspend(std::coroutine_handle<> awaiting);
    void await_resume() const {}

private:
    struct State;
    std::shared_ptr<State> m_state;
};

} // namespace pingwell
