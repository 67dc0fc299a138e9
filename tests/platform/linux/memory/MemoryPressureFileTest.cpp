#include "platform/linux/memory/MemoryPressureFile.h"

#include "support/TemporaryFolder.h"

#include <gtest/gtest.h>

#include <QByteArray>

#include <fcntl.h>
#include <poll.h>
#include <sys/socket.h>
#include <sys/stat.h>
#include <sys/un.h>
#include <unistd.h>

#include <array>
#include <cstring>
#include <fstream>
#include <optional>
#include <string>

namespace mireval {
namespace {

namespace fs = std::filesystem;
using Report = MemoryPressureFile::Report;
using Sign = MemoryPressureFile::Sign;

const std::string defaultRequest("some 200000 2000000", sizeof "some 200000 2000000");

class MemoryPressureFileTest : public testing::Test {
 protected:
  MemoryPressureFileTest() {
    qunsetenv("MEMORY_PRESSURE_WATCH");
    qunsetenv("MEMORY_PRESSURE_WRITE");
  }
  ~MemoryPressureFileTest() override {
    qunsetenv("MEMORY_PRESSURE_WATCH");
    qunsetenv("MEMORY_PRESSURE_WRITE");
  }

  fs::path path(const char* name) const { return m_folder.path() / name; }

  /// An empty file in the place of one of the kernel's.
  fs::path makeEmpty(const char* name) const {
    fs::path file = m_folder.makeFile(name);
    fs::resize_file(file, 0);
    return file;
  }

  void nameCgroup(const std::string& lines) const { std::ofstream(path("cgroup")) << lines; }

  std::optional<MemoryPressureFile> open() const {
    return MemoryPressureFile::open(
        {.cgroupOfProcess = path("cgroup"), .cgroups = path("cgroups"), .system = path("system")});
  }

  std::optional<MemoryPressureFile> openNamed(const fs::path& watched, const QByteArray& request = {}) const {
    qputenv("MEMORY_PRESSURE_WATCH", QByteArray::fromStdString(watched.string()));
    qputenv("MEMORY_PRESSURE_WRITE", request.toBase64());
    return open();
  }

  static std::string contentOf(const fs::path& file) {
    std::ifstream stream(file, std::ios::binary);
    return {std::istreambuf_iterator<char>(stream), {}};
  }

  static bool isReadable(const MemoryPressureFile& file) {
    pollfd state{.fd = file.descriptor(), .events = POLLIN, .revents = 0};
    return poll(&state, 1, 0) > 0;
  }

  const TemporaryFolder m_folder;
};

TEST_F(MemoryPressureFileTest, WithoutAnyFileThereIsNone) {
  EXPECT_FALSE(open());
  nameCgroup("0::/gone\n");
  EXPECT_FALSE(open());
}

TEST_F(MemoryPressureFileTest, TheProcessesOwnControlGroupIsAskedFirst) {
  const fs::path own = makeEmpty("cgroups/user.slice/app.scope/memory.pressure");
  const fs::path other = makeEmpty("cgroups/memory.pressure");
  const fs::path system = makeEmpty("system");
  nameCgroup("4:memory:/elsewhere\n0::/user.slice/app.scope\n");
  const auto file = open();
  ASSERT_TRUE(file);
  EXPECT_EQ(file->sign(), Sign::exceptional);
  EXPECT_EQ(contentOf(own), defaultRequest);
  EXPECT_EQ(contentOf(other), "");
  EXPECT_EQ(contentOf(system), "");
}

TEST_F(MemoryPressureFileTest, TheRootControlGroupIsTheFolderItself) {
  const fs::path root = makeEmpty("cgroups/memory.pressure");
  nameCgroup("0::/\n");
  EXPECT_TRUE(open());
  EXPECT_EQ(contentOf(root), defaultRequest);
}

TEST_F(MemoryPressureFileTest, TheSystemsFileStandsInForTheControlGroups) {
  const fs::path system = makeEmpty("system");
  for (const char* const lines : {"", "4:memory:/only/old/groups\n", "0::/gone\n"}) {
    nameCgroup(lines);
    fs::resize_file(system, 0);
    const auto file = open();
    ASSERT_TRUE(file) << lines;
    EXPECT_EQ(file->sign(), Sign::exceptional);
    EXPECT_EQ(contentOf(system), defaultRequest) << lines;
  }
}

// A file that refuses the request, as the kernel's do when they forbid it.
TEST_F(MemoryPressureFileTest, ARefusedRequestCountsAsNoFile) {
  fs::create_symlink("/dev/full", path("system"));
  EXPECT_FALSE(open());

  fs::create_directories(path("cgroups/app"));
  fs::create_symlink("/dev/full", path("cgroups/app/memory.pressure"));
  nameCgroup("0::/app\n");
  fs::remove(path("system"));
  const fs::path system = makeEmpty("system");
  EXPECT_TRUE(open());
  EXPECT_EQ(contentOf(system), defaultRequest);
}

TEST_F(MemoryPressureFileTest, TheManagersFileIsTakenWithItsRequest) {
  const fs::path system = makeEmpty("system");
  const fs::path named = makeEmpty("named");
  const QByteArray request("full 1 2\0", 9);
  const auto file = openNamed(named, request);
  ASSERT_TRUE(file);
  EXPECT_EQ(file->sign(), Sign::exceptional);
  EXPECT_EQ(contentOf(named), request.toStdString());
  EXPECT_EQ(contentOf(system), "");
}

TEST_F(MemoryPressureFileTest, NothingIsWrittenUnasked) {
  const fs::path named = makeEmpty("named");
  EXPECT_TRUE(openNamed(named));
  qunsetenv("MEMORY_PRESSURE_WRITE");
  EXPECT_TRUE(open());
  EXPECT_EQ(contentOf(named), "");
}

// The manager's word counts, also when it leads nowhere.
TEST_F(MemoryPressureFileTest, TheKernelsFilesAreLeftAloneWhenTheManagerNamesOne) {
  const fs::path system = makeEmpty("system");
  const fs::path named = makeEmpty("named");
  fs::create_directory(path("folder"));
  for (const fs::path& bad : {fs::path("/dev/null"), path("gone"), path("folder"), fs::path("/dev/zero"),
                              fs::relative(named, fs::current_path())}) {
    EXPECT_FALSE(openNamed(bad)) << bad;
  }
  qputenv("MEMORY_PRESSURE_WATCH", QByteArray::fromStdString(named.string()));
  qputenv("MEMORY_PRESSURE_WRITE", "not*base64");
  EXPECT_FALSE(open());
  EXPECT_EQ(contentOf(named), "");
  EXPECT_EQ(contentOf(system), "");

  qputenv("MEMORY_PRESSURE_WATCH", "");
  qunsetenv("MEMORY_PRESSURE_WRITE");
  EXPECT_TRUE(open());
}

TEST_F(MemoryPressureFileTest, APipeIsEmptiedAndDoesNotEndWithItsWriter) {
  ASSERT_EQ(mkfifo(path("pipe").c_str(), 0600), 0);
  const auto file = openNamed(path("pipe"), "request");
  ASSERT_TRUE(file);
  EXPECT_EQ(file->sign(), Sign::readable);
  EXPECT_FALSE(isReadable(*file));
  EXPECT_EQ(file->takeReport(), Report::nothing);

  const int writer = ::open(path("pipe").c_str(), O_WRONLY | O_NONBLOCK | O_CLOEXEC);
  ASSERT_GE(writer, 0);
  const std::string storm(40000, 'x');
  EXPECT_EQ(write(writer, storm.data(), storm.size()), static_cast<ssize_t>(storm.size()));
  EXPECT_TRUE(isReadable(*file));
  EXPECT_EQ(file->takeReport(), Report::memoryIsShort);
  EXPECT_FALSE(isReadable(*file));

  close(writer);
  EXPECT_FALSE(isReadable(*file));
  EXPECT_EQ(file->takeReport(), Report::nothing);
}

TEST_F(MemoryPressureFileTest, ASocketIsConnectedToAndAsked) {
  const fs::path name = path("socket");
  sockaddr_un address{};
  address.sun_family = AF_UNIX;
  ASSERT_LT(name.native().size(), sizeof address.sun_path);
  std::memcpy(address.sun_path, name.c_str(), name.native().size());
  const int listener = socket(AF_UNIX, SOCK_STREAM | SOCK_CLOEXEC, 0);
  ASSERT_EQ(bind(listener, reinterpret_cast<const sockaddr*>(&address), sizeof address), 0);
  // Nobody listens yet.
  EXPECT_FALSE(openNamed(name, "request"));
  ASSERT_EQ(listen(listener, 1), 0);

  const auto file = openNamed(name, "request");
  ASSERT_TRUE(file);
  EXPECT_EQ(file->sign(), Sign::readable);
  const int manager = accept(listener, nullptr, nullptr);
  ASSERT_GE(manager, 0);
  std::array<char, 16> received{};
  EXPECT_EQ(read(manager, received.data(), received.size()), 7);
  EXPECT_STREQ(received.data(), "request");

  EXPECT_EQ(file->takeReport(), Report::nothing);
  EXPECT_EQ(write(manager, "!!", 2), 2);
  EXPECT_EQ(file->takeReport(), Report::memoryIsShort);
  EXPECT_EQ(file->takeReport(), Report::nothing);
  close(manager);
  EXPECT_EQ(file->takeReport(), Report::gone);
  close(listener);
}

TEST_F(MemoryPressureFileTest, ASocketNameThatIsTooLongFails) {
  const fs::path folder = m_folder.path() / std::string(120, 'd');
  fs::create_directory(folder);
  const int listener = socket(AF_UNIX, SOCK_STREAM | SOCK_CLOEXEC, 0);
  sockaddr_un address{};
  address.sun_family = AF_UNIX;
  // Bound under a short name, then moved.
  std::strncpy(address.sun_path, path("s").c_str(), sizeof address.sun_path - 1);
  ASSERT_EQ(bind(listener, reinterpret_cast<const sockaddr*>(&address), sizeof address), 0);
  ASSERT_EQ(listen(listener, 1), 0);
  fs::rename(path("s"), folder / "s");
  EXPECT_FALSE(openNamed(folder / "s"));
  close(listener);
}

TEST_F(MemoryPressureFileTest, TheDescriptorIsNotLeaked) {
  makeEmpty("system");
  int descriptor = -1;
  {
    auto file = open();
    ASSERT_TRUE(file);
    const MemoryPressureFile moved(std::move(*file));
    descriptor = moved.descriptor();
    file.reset();
    EXPECT_NE(fcntl(descriptor, F_GETFD), -1);
    EXPECT_EQ(fcntl(descriptor, F_GETFD) & FD_CLOEXEC, FD_CLOEXEC);
  }
  EXPECT_EQ(fcntl(descriptor, F_GETFD), -1);
}

// Against this machine's kernel, where it has such files and lets us ask.
TEST_F(MemoryPressureFileTest, TheKernelAcceptsTheRequest) {
  const auto file = MemoryPressureFile::open();
  if (!file) {
    GTEST_SKIP() << "the kernel has no pressure files, or not for this user";
  }
  EXPECT_EQ(file->sign(), Sign::exceptional);
  pollfd state{.fd = file->descriptor(), .events = POLLPRI, .revents = 0};
  ASSERT_GE(poll(&state, 1, 0), 0);
  // Before a request was accepted the kernel answers with an error at once.
  EXPECT_EQ(state.revents & POLLERR, 0);
  EXPECT_EQ(file->takeReport(), Report::memoryIsShort);
}

}  // namespace
}  // namespace mireval
