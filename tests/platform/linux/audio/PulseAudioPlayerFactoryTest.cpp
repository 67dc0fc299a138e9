#include "AudioFiles.h"

#include "fakes/FakeNotices.h"
#include "platform/linux/audio/PulseAudioPlayerFactory.h"
#include "platform/linux/posix/FileDescriptor.h"

#include <gtest/gtest.h>

#include <sys/resource.h>
#include <unistd.h>

#include <chrono>
#include <cstdlib>
#include <thread>
#include <vector>

namespace mireval::test {
namespace {

using namespace std::chrono_literals;

/// While it exists, this process can open no file.
class NoDescriptors {
 public:
  NoDescriptors() {
    getrlimit(RLIMIT_NOFILE, &m_before);
    const rlimit few{.rlim_cur = 64, .rlim_max = m_before.rlim_max};
    setrlimit(RLIMIT_NOFILE, &few);
    do {
      m_all.emplace_back(dup(STDERR_FILENO));
    } while (m_all.back().isOpen());
  }
  NoDescriptors(const NoDescriptors&) = delete;
  NoDescriptors& operator=(const NoDescriptors&) = delete;
  ~NoDescriptors() { setrlimit(RLIMIT_NOFILE, &m_before); }

 private:
  rlimit m_before{};
  std::vector<FileDescriptor> m_all;
};

/// No sound server answers, and none is started.
class PulseAudioPlayerFactoryTest : public testing::Test {
 protected:
  PulseAudioPlayerFactoryTest() { setenv("PULSE_SERVER", "unix:/nowhere/native", 1); }
  ~PulseAudioPlayerFactoryTest() override { unsetenv("PULSE_SERVER"); }

  AudioFiles m_files;
  FakeNotices m_notices;
};

TEST_F(PulseAudioPlayerFactoryTest, RunningOutOfDescriptorsIsAnError) {
  const auto file = m_files.tone(440, 1);
  PulseAudioPlayerFactory factory(m_notices);
  {
    const NoDescriptors none;
    factory.warmUp();
    factory.coolDown();
    EXPECT_FALSE(factory.create(file, {}));
  }
  EXPECT_TRUE(factory.create(file, {}));
}

TEST_F(PulseAudioPlayerFactoryTest, RunningOutOfDescriptorsWithoutAServerIsSurvived) {
  PulseAudioPlayerFactory factory(m_notices);
  const AudioPlayerResult player = factory.create(m_files.tone(440, 1), {});
  ASSERT_TRUE(player);
  const NoDescriptors none;
  (*player)->play();
  // The server is asked for on a thread of its own.
  std::this_thread::sleep_for(500ms);
  EXPECT_EQ(m_notices.said().size(), 1U);
  EXPECT_TRUE((*player)->isPlaying());
}

}  // namespace
}  // namespace mireval::test
