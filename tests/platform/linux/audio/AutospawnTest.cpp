#include "AudioFiles.h"

#include "fakes/FakeNotices.h"
#include "platform/linux/audio/PulseAudioPlayerFactory.h"

#include <gtest/gtest.h>

#include <unistd.h>

#include <algorithm>
#include <chrono>
#include <cstdlib>
#include <string>
#include <thread>

namespace mireval::test {
namespace {

using namespace std::chrono_literals;

constexpr auto withoutWaiting = 400ms;

/// Makes this process one of a user whose libpulse runs a script when it finds no server. The script notes
/// each time that it was run.
void configureAutospawn(const AudioFiles& files, const std::string& script) {
  const std::string folder = files.folder();
  const auto server = files.bytes("server", "#!/bin/sh\necho >> " + folder + "/starts\n" + script + '\n');
  std::filesystem::permissions(server, std::filesystem::perms::all);
  const auto configuration =
      files.bytes("client.conf", "autospawn = yes\ndaemon-binary = " + server.string() + '\n');
  setenv("PULSE_CLIENTCONFIG", configuration.c_str(), 1);
  for (const char* const variable : {"HOME", "XDG_RUNTIME_DIR", "XDG_CONFIG_HOME", "PULSE_RUNTIME_PATH"}) {
    setenv(variable, folder.c_str(), 1);
  }
  unsetenv("PULSE_SERVER");
  // libpulse starts nothing for the superuser.
  constexpr uid_t nobody = 65534;
  if (geteuid() == 0 && (chown(folder.c_str(), nobody, nobody) != 0 ||
                         setresgid(nobody, nobody, nobody) != 0 || setresuid(nobody, nobody, nobody) != 0)) {
    std::abort();
  }
}

std::size_t starts(const AudioFiles& files) {
  return AudioFiles::contentOf(files.folder() / "starts").size();
}

/// Plays for a while; returns the position then. Exits with 1 when a call waits.
double play(const AudioFiles& files, const std::filesystem::path& file,
            std::chrono::steady_clock::duration time) {
  FakeNotices notices;
  PulseAudioPlayerFactory factory(notices);
  double position = 0;
  for (int press = 0; press < 3; ++press) {
    const auto begin = std::chrono::steady_clock::now();
    const auto player = factory.create(file, {}).value();
    player->play();
    if (std::chrono::steady_clock::now() - begin > withoutWaiting) {
      std::_Exit(1);
    }
    const auto limit = std::chrono::steady_clock::now() + time / 3;
    while (std::chrono::steady_clock::now() < limit && position < 0.3) {
      std::this_thread::sleep_for(10ms);
      position = player->currentTime();
    }
  }
  return starts(files) == 1 && notices.said().size() == 1 ? position : -1;
}

// Each in a process of its own, which becomes another user's.
TEST(AutospawnTest, StartsTheServerWithoutWaitingForIt) {
  const AudioFiles files;
  const auto file = files.tone(440, 20);
  const auto run = [&] {
    configureAutospawn(files,
                       "sleep 1; exec pulseaudio -n --daemonize=yes --exit-idle-time=2 "
                       "--use-pid-file=no -L module-null-sink -L module-native-protocol-unix");
    std::_Exit(play(files, file, 15s) >= 0.3 ? 0 : 2);
  };
  EXPECT_EXIT(run(), testing::ExitedWithCode(0), "");
}

TEST(AutospawnTest, DoesNotTryAgainAndAgainToStartOneThatCannotStart) {
  const AudioFiles files;
  const auto file = files.tone(440, 20);
  const auto run = [&] {
    configureAutospawn(files, "exit 1");
    std::_Exit(play(files, file, 4s) == 0 ? 0 : 2);
  };
  EXPECT_EXIT(run(), testing::ExitedWithCode(0), "");
}

}  // namespace
}  // namespace mireval::test
