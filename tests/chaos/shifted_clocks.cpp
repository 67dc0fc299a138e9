// Preloaded into a program, this library lets a test set the program's clocks. The file that MIREVAL_CLOCKS
// names holds two numbers of nanoseconds: what is added to the wall clock, and to the clock that goes on
// while the machine sleeps. Deadlines that a program hands to the kernel by the wall clock stay as they are.
#include <dlfcn.h>
#include <fcntl.h>
#include <sys/mman.h>
#include <sys/time.h>
#include <unistd.h>

#include <cerrno>
#include <cstdint>
#include <cstdlib>
#include <ctime>

namespace {

struct Offsets {
  std::int64_t wall;
  std::int64_t asleep;
};

const volatile Offsets* mapOffsets() {
  const char* const name = std::getenv("MIREVAL_CLOCKS");
  const int file = name != nullptr ? open(name, O_RDONLY | O_CLOEXEC) : -1;
  void* const memory = mmap(nullptr, sizeof(Offsets), PROT_READ, MAP_SHARED, file, 0);
  close(file);
  if (memory == MAP_FAILED) {
    // A test with clocks that nobody can set would prove nothing.
    std::abort();
  }
  return static_cast<const volatile Offsets*>(memory);
}

std::int64_t offsetOf(clockid_t clock) {
  static const volatile Offsets* const offsets = mapOffsets();
  switch (clock) {
    case CLOCK_REALTIME:
    case CLOCK_REALTIME_COARSE:
    case CLOCK_TAI:
      return offsets->wall;
    case CLOCK_BOOTTIME:
      return offsets->asleep;
    default:
      return 0;
  }
}

}  // namespace

extern "C" {

int clock_gettime(clockid_t clock, timespec* time) noexcept {
  using Function = int (*)(clockid_t, timespec*);
  static const auto next = reinterpret_cast<Function>(dlsym(RTLD_NEXT, "clock_gettime"));
  const int savedError = errno;
  const int result = next(clock, time);
  if (result == 0) {
    constexpr std::int64_t second = 1'000'000'000;
    const std::int64_t offset = offsetOf(clock);
    const std::int64_t nanoseconds = time->tv_nsec + offset % second + second;
    time->tv_sec += offset / second + nanoseconds / second - 1;
    time->tv_nsec = nanoseconds % second;
    errno = savedError;
  }
  return result;
}

int gettimeofday(timeval* time, void*) noexcept {
  timespec now{};
  clock_gettime(CLOCK_REALTIME, &now);
  time->tv_sec = now.tv_sec;
  time->tv_usec = now.tv_nsec / 1000;
  return 0;
}

time_t time(time_t* result) noexcept {
  timespec now{};
  clock_gettime(CLOCK_REALTIME, &now);
  if (result != nullptr) {
    *result = now.tv_sec;
  }
  return now.tv_sec;
}
}
