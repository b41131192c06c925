#include "model/report.h"

#include <cstdio>

namespace pingwell {

void report(const char *topic, const QString &line)
{
    std::printf("[%s] %s\n", topic, qUtf8Printable(line));
    std::fflush(stdout);
}

} // namespace pingwell
