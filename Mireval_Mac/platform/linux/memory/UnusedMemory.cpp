#include "platform/linux/memory/UnusedMemory.h"

#include <link.h>
#include <malloc.h>
#include <sys/mman.h>
#include <unistd.h>

#include <cstdint>
#include <span>

namespace mireval {
namespace {

/// The loader reads most pages of the libraries, but the program needs few of them again. Only segments that
/// were never writable are released, because the system can read them again from the file.
int releaseCode(dl_phdr_info* object, std::size_t, void*) {
  const auto pageSize = static_cast<std::uintptr_t>(sysconf(_SC_PAGESIZE));
  for (const ElfW(Phdr) & segment : std::span(object->dlpi_phdr, object->dlpi_phnum)) {
    if (segment.p_type != PT_LOAD || (segment.p_flags & PF_W) != 0) {
      continue;
    }
    const std::uintptr_t begin = (object->dlpi_addr + segment.p_vaddr) / pageSize * pageSize;
    const std::uintptr_t end = object->dlpi_addr + segment.p_vaddr + segment.p_memsz;
    // If the call fails, the pages just stay. The loader gives addresses as numbers.
    // NOLINTNEXTLINE(performance-no-int-to-ptr)
    madvise(reinterpret_cast<void*>(begin), end - begin, MADV_DONTNEED);
  }
  return 0;
}

}  // namespace

void releaseUnusedMemory() {
  malloc_trim(0);
  dl_iterate_phdr(releaseCode, nullptr);
}

void useMmapForLargeBlocks() {
  // Blocks of this size and more get a mapping of their own. This is glibc's default, but setting it keeps it
  // there. Otherwise glibc raises it when a large block is freed, takes later blocks from the heap, and
  // cannot give them back while a block behind them is in use.
  constexpr int bytes = 128 * 1024;
  mallopt(M_MMAP_THRESHOLD, bytes);
}

}  // namespace mireval
