#pragma once

namespace mireval {

/// Gives free heap and the pages of program code back to the system, which maps code again when it runs.
/// Takes about a millisecond. Call it when much has just been freed. Callable on any thread.
void releaseUnusedMemory();

/// From now on, freeing a large block of memory, such as a decoded picture, gives it back to the system at
/// once. Call it once, early.
void useMmapForLargeBlocks();

}  // namespace mireval
