// Takes the place of libFuzzer where there is none: feeds a fuzzer with each file of the folders that are
// named.
#include <cstddef>
#include <cstdint>
#include <cstdio>
#include <filesystem>
#include <fstream>
#include <iterator>
#include <vector>

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size);

int main(int argumentCount, char** arguments) {
  int count = 0;
  for (int i = 1; i < argumentCount; ++i) {
    for (const auto& entry : std::filesystem::directory_iterator(arguments[i])) {
      std::ifstream file(entry.path(), std::ios::binary);
      const std::vector<char> bytes{std::istreambuf_iterator<char>(file), {}};
      // Without a line of the last input, a crash would not tell which it was.
      std::printf("%s\n", entry.path().c_str());
      std::fflush(stdout);
      LLVMFuzzerTestOneInput(reinterpret_cast<const std::uint8_t*>(bytes.data()), bytes.size());
      ++count;
    }
  }
  return count > 0 ? 0 : 1;
}
