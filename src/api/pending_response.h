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
    /// Ends the wait with an error instead. Only the first call of either kind counts.
    void fail(const APIError &error);

    [[nodiscard]] bool await_ready() const { return false; }
    void await_suspend(std::coroutine_handle<> awaiting);
    /// The answer or why there is none.
    [[nodiscard]] Outcome<HTTPResponse> await_resume();

private:
    struct State;
    void end(Outcome<HTTPResponse> result);
    static void resumeLater(const std::shared_ptr<State> &state);

    std::shared_ptr<State> m_state;
};

/// Waits for the answer.
QCoro::Task<Outcome<HTTPResponse>> responseOf(PendingResponse pending);

} // namespace pingwell
