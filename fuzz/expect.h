#pragma once

#include <cstdlib>

namespace pingwell {

/// A broken promise: the fuzzer keeps the input that broke it.
inline void expect(bool holds)
{
    if (!holds)
        std::abort();
}

} // namespace pingwell
