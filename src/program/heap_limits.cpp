#include "program/heap_limits.h"

// Defined only once a header of the library was read.
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
    // Once set, it no longer grows with the largest block that was ever freed.
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
