#include "platform/linux/UnusedMemory.h"

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
  // Pieces too small for maps of their own, with something behind them that keeps the heap from shrinking.
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

}  // namespace
}  // namespace mireval
