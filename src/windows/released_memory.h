#pragma once

namespace pingwell {

/// Hands back to the system what the program no longer needs after its windows are gone: free heap, and the pages of
/// program files that only showing windows touches. Those are as they are on disk, so the system brings back what is
/// used again. Linux with glibc; elsewhere nothing happens. Takes some milliseconds.
void releaseUnusedMemory();

} // namespace pingwell
