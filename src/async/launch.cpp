#include "async/launch.h"

#include <cstdio>
#include <exception>

namespace pingwell {

namespace {

QCoro::Task<> watch(const char *what, QCoro::Task<> task)
{
    try {
        co_await std::move(task);
    } catch (const std::exception &error) {
        std::fprintf(stderr, "[task] %s failed: %s\n", what, error.what());
    } catch (...) {
        std::fprintf(stderr, "[task] %s failed\n", what);
    }
}

} // namespace

void launch(const char *what, QCoro::Task<> task)
{
    watch(what, std::move(task));
}

} // namespace pingwell
