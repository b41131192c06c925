#pragma once

namespace pingwell {

/// Returns memory to the system that the program does not need after its windows are destroyed: free heap, and pages of
/// program files that only the windows use. The kernel loads such a page from its file again when it is used. Linux
/// with glibc; elsewhere it does nothing. Takes some milliseconds.
void releaseUnusedMemory();

} // namespace pingwell
