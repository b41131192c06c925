#pragma once

namespace pingwell {

/// Makes glibc return large blocks to the system as soon as they are freed, and limits the number of per-thread heaps.
/// Bodies of a megabyte are allocated and freed all day, and without the limits the process would grow. Call it before
/// the first thread starts. Without glibc it does nothing.
void limitHeap();

} // namespace pingwell
