#pragma once

#include "api/http_transport.h"

#include <coroutine>
#include <memory>
#include <optional>

namespace pingwell {

/// The answer to a request that is under way. Whoever performs the request finishes it; the one coroutine that awaits
/// it resumes from the event loop, never from inside `finish`. Copies are the same answer. Main thread.
class PendingResponse
{
public:
    PendingResponse();

    /// Sets the answer, or with none that none arrived. Only the first call counts.
    void finish(std::optional<HTTPResponse> response);

    [[nodiscard]] bool await_ready() const { return false; }
    void await_suspend(std::coroutine_handle<> awaiting);
    [[nodiscard]] std::optional<HTTPResponse> await_resume();

private:
    struct State;
    static void resumeLater(const std::shared_ptr<State> &state);

    std::shared_ptr<State> m_state;
};

/// Waits for the answer. Throws `APIError::offline()` when none arrived.
QCoro::Task<HTTPResponse> responseOf(PendingResponse pending);

} // namespace pingwell
