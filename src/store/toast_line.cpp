#include "store/toast_line.h"

#include "async/launch.h"

namespace pingwell {

using namespace std::chrono_literals;

ToastLine::ToastLine(std::shared_ptr<Clock> clock)
    : m_clock(std::move(clock))
{
}

ToastLine::~ToastLine()
{
    m_hiding.request_stop();
}

void ToastLine::show(const QString &message, bool isError)
{
    if (message.isEmpty())
        return;
    m_toast = Toast{.message = message, .isError = isError};
    emit toastChanged();
    m_hiding.request_stop();
    m_hiding = std::stop_source();
    const auto shown = isError ? 6000ms : 3500ms;
    launch("toast", hideLater(this, m_clock, shown, m_hiding.get_token()));
}

QCoro::Task<> ToastLine::hideLater(QPointer<ToastLine> self, std::shared_ptr<Clock> clock,
                                   std::chrono::milliseconds after, std::stop_token stop)
{
    co_await clock->sleep(after, stop);
    if (stop.stop_requested() || !self)
        co_return;
    self->m_toast.reset();
    emit self->toastChanged();
}

} // namespace pingwell
