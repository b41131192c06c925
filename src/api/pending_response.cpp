#include "api/pending_response.h"

#include "model/check.h"

#include <QCoreApplication>

#include <utility>

namespace pingwell {

struct PendingResponse::State
{
    bool finished = false;
    Outcome<HTTPResponse> result = APIError::offline();
    std::coroutine_handle<> awaiting;
};

PendingResponse::PendingResponse()
    : m_state(std::make_shared<State>())
{
}

void PendingResponse::finish(std::optional<HTTPResponse> response)
{
    if (response)
        end(*std::move(response));
    else
        end(APIError::offline());
}

void PendingResponse::fail(const APIError &error)
{
    end(error);
}

void PendingResponse::end(Outcome<HTTPResponse> result)
{
    if (m_state->finished)
        return;
    m_state->finished = true;
    m_state->result = std::move(result);
    if (m_state->awaiting)
        resumeLater(m_state);
}

void PendingResponse::await_suspend(std::coroutine_handle<> awaiting)
{
    check(!m_state->awaiting, "a response is awaited twice");
    m_state->awaiting = awaiting;
    if (m_state->finished)
        resumeLater(m_state);
}

Outcome<HTTPResponse> PendingResponse::await_resume()
{
    return std::move(m_state->result);
}

void PendingResponse::resumeLater(const std::shared_ptr<State> &state)
{
    // The application object receives the call, not the transport: the waiting coroutine outlives a destroyed
    // transport.
    QMetaObject::invokeMethod(
        QCoreApplication::instance(), [state] { state->awaiting.resume(); }, Qt::QueuedConnection);
}

QCoro::Task<Outcome<HTTPResponse>> responseOf(PendingResponse pending)
{
    Outcome<HTTPResponse> result = co_await pending;
    co_return result;
}

} // namespace pingwell
