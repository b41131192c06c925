#include "model/check.h"

#include <cstdio>
#include <cstdlib>

namespace pingwell {

void fatal(const char *message)
{
    std::fprintf(stderr, "[fatal] %s\n", message);
    std::fflush(stderr);
    std::abort();
}

} // namespace pingwell
