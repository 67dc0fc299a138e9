#include "platform/linux/memory/UnusedMemory.h"

#include <gtest/gtest.h>

#include <fstream>
#include <memory>
#include <vector>

namespace mireval {
namespace {

long residentPages() {
  long size = 0;
  long resident = 0;
  std::ifstream("/proc/self/statm") >> size >> resident;
  return resident;
}

TEST(UnusedMemoryTest, GivesBackWhatIsNotUsedAndBreaksNothing) {
  // Blocks too small for a mapping of their own, and a last one that keeps the heap from shrinking.
  std::vector<std::unique_ptr<char[]>> pieces;
  for (int i = 0; i < 4000; ++i) {
    pieces.push_back(std::make_unique<char[]>(4096));
  }
  const auto behind = std::make_unique<char[]>(4096);
  pieces.clear();
  const long before = residentPages();
  releaseUnusedMemory();
  EXPECT_LT(residentPages(), before - 2000);
}

TEST(UnusedMemoryTest, LargeBlocksAreReturnedWhenFreed) {
  constexpr std::size_t large = 10 << 20;
  constexpr int count = 12;
  // By default, freeing such a block makes the allocator take later ones from the heap.
  std::make_unique<char[]>(2 * large).reset();
  useMmapForLargeBlocks();
  std::vector<std::unique_ptr<char[]>> blocks;
  std::vector<std::unique_ptr<char[]>> behind;
  for (int i = 0; i < count; ++i) {
    blocks.push_back(std::make_unique<char[]>(large));
    for (int piece = 0; piece < 200; ++piece) {
      behind.push_back(std::make_unique<char[]>(4096));
    }
  }
  const long before = residentPages();
  blocks.clear();
  // The heap left by earlier tests may have had room for the first blocks.
  constexpr long pages = count / 2 * (large / 4096);
  EXPECT_LT(residentPages(), before - pages);
}

}  // namespace
}  // namespace mireval
