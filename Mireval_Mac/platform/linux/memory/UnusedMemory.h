#pragma once

namespace mireval {

/// Returns to the system what the process holds but does not use at present: free heap, and the mapped pages
/// of program code. Code that is needed again is mapped again from the system's file cache. Takes about a
/// millisecond; call it when much has just been freed. Callable on any thread.
void releaseUnusedMemory();

/// From now on every large block of memory, such as a decoded picture, returns to the system as soon as it is
/// freed. Call it once, early.
void useMmapForLargeBlocks();

}  // namespace mireval
