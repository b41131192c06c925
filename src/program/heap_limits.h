#pragma once

namespace pingwell {

/// Makes large blocks go back to the system as soon as they are freed, and keeps threads from each hoarding a heap of
/// their own: bodies of a megabyte come and go, and what they leave must not add up over a day. Before the first
/// thread starts. With glibc; elsewhere nothing happens.
void limitHeap();

} // namespace pingwell
