#include "program/heap_limits.h"

// __GLIBC__ is defined only after a header of the library was included.
#include <cstdlib>

#ifdef __GLIBC__

#include <malloc.h>

namespace pingwell {

namespace {

constexpr int largeBlock = 1024 * 1024;
constexpr int mostHeaps = 2;

} // namespace

void limitHeap()
{
    // A fixed threshold: by default it grows to the size of the largest block that was ever freed.
    mallopt(M_MMAP_THRESHOLD, largeBlock);
    mallopt(M_TRIM_THRESHOLD, largeBlock);
    mallopt(M_ARENA_MAX, mostHeaps);
}

} // namespace pingwell

#else

namespace pingwell {

void limitHeap() {}

} // namespace pingwell

#endif
