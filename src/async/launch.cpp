#include "async/launch.h"

#include "model/report.h"

#include <exception>

namespace pingwell {

namespace {

QCoro::Task<> watch(const char *what, QCoro::Task<> task)
{
    try {
        co_await std::move(task);
    } catch (const std::exception &error) {
        report("task", QStringLiteral("%1 failed: %2").arg(QLatin1StringView(what), QString::fromUtf8(error.what())));
    } catch (...) {
        report("task", QLatin1StringView(what) + QStringLiteral(" failed"));
    }
}

} // namespace

void launch(const char *what, QCoro::Task<> task)
{
    watch(what, std::move(task));
}

} // namespace pingwell
