#pragma once

namespace mireval {

/// Gives back to the system what the process holds and does not use at present: free heap, and the mapped
/// pages of program code. What is needed again is mapped again from the system's file cache, without reading
/// the disk as a rule. Takes about a millisecond; worth it when much has just been let go. Callable on any
/// thread.
void releaseUnusedMemory();

/// From now on every large block of memory, such as a decoded picture, goes back to the system as soon as it
/// is freed. To be called once, early.
void returnLargeBlocksAtOnce();

}  // namespace mireval
