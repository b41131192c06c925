#pragma once

#include "api/http_transport.h"

#include <coroutine>
#include <memory>
#include <optional>

namespace pingwell {

/// The future response to a request under way. The transport finishes it; the one coroutine that awaits it resumes from
/// the event loop, never from inside `finish`. Copies share one response. Main thread.
class PendingResponse
{
public:
    PendingResponse();

    /// Sets the response; none means that no response arrived. Only the first call counts.
    void finish(std::optional<HTTPResponse> response);
    /// Ends the wait with an error. Only the first call of `finish` or `fail` counts.
    void fail(const APIError &error);

    [[nodiscard]] bool await_ready() const { return false; }
    void await_suspend(std::coroutine_handle<> awaiting);
    /// The response, or the error in its place.
    [[nodiscard]] Outcome<HTTPResponse> await_resume();

private:
    struct State;
    void end(Outcome<HTTPResponse> result);
    static void resumeLater(const std::shared_ptr<State> &state);

    std::shared_ptr<State> m_state;
};

/// Waits for the response.
QCoro::Task<Outcome<HTTPResponse>> responseOf(PendingResponse pending);

} // namespace pingwell
