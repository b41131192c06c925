#include "api/pending_response.h"

#include "api/api_error.h"
#include "model/check.h"

#include <QCoreApplication>

#include <utility>

namespace pingwell {

struct PendingResponse::State
{
    bool finished = false;
    std::optional<HTTPResponse> response;
    std::coroutine_handle<> awaiting;
};

PendingResponse::PendingResponse()
    : m_state(std::make_shared<State>())
{
}

void PendingResponse::finish(std::optional<HTTPResponse> response)
{
    if (m_state->finished)
        return;
    m_state->finished = true;
    m_state->response = std::move(response);
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

std::optional<HTTPResponse> PendingResponse::await_resume()
{
    return std::exchange(m_state->response, std::nullopt);
}

void PendingResponse::resumeLater(const std::shared_ptr<State> &state)
{
    // The application is the receiver, not the transport: a coroutine that waits outlives the transport that dies.
    QMetaObject::invokeMethod(
        QCoreApplication::instance(), [state] { state->awaiting.resume(); }, Qt::QueuedConnection);
}

QCoro::Task<HTTPResponse> responseOf(PendingResponse pending)
{
    std::optional<HTTPResponse> response = co_await pending;
    if (!response)
        throw APIError::offline();
    co_return std::move(*response);
}

} // namespace pingwell
