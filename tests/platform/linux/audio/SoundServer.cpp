#include "SoundServer.h"

#include <signal.h>

#include <chrono>
#include <filesystem>
#include <stdexcept>
#include <thread>

namespace mireval::test {
namespace {

using namespace Qt::StringLiterals;

using namespace std::chrono_literals;

constexpr const char* nullSink = "module-null-sink sink_name=null format=float32le rate=44100";

}  // namespace

SoundServer::SoundServer(Kind kind) : m_kind(kind) {
  std::filesystem::create_directories(m_folder.filePath(u"pulse"_s).toStdString());
}

std::map<std::string, std::string> SoundServer::environment() const {
  const std::string folder = m_folder.path().toStdString();
  return {{"HOME", folder},
          {"XDG_RUNTIME_DIR", folder},
          {"XDG_CONFIG_HOME", folder + "/config"},
          {"XDG_STATE_HOME", folder + "/state"},
          {"PULSE_SERVER", "unix:" + folder + "/pulse/native"},
          {"DBUS_SESSION_BUS_ADDRESS", "unix:path=" + folder + "/bus"},
          {"DISPLAY", ""}};
}

void SoundServer::launch(const std::vector<std::string>& command) {
  m_processes.push_back(
      std::make_unique<ChildProcess>(command, environment(), environment().at("HOME") + "/errors.log"));
}

void SoundServer::start() {
  if (m_kind == Kind::pulseAudio) {
    // Without rewinding, as the null sink would otherwise render seconds ahead while it is idle.
    launch({"pulseaudio", "-n", "--daemonize=no", "--exit-idle-time=-1", "--use-pid-file=no",
            "--disallow-exit=no", "-L", std::string(nullSink) + " norewinds=1", "-L",
            "module-native-protocol-unix auth-anonymous=1 socket=" + environment().at("HOME") +
                "/pulse/native"});
    waitForAnswer();
    return;
  }
  // WirePlumber 0.4.13 now and then comes up without linking anything; then all is started anew.
  constexpr int attempts = 5;
  for (int i = 0; i < attempts; ++i) {
    startPipeWire();
    if (isLinked()) {
      return;
    }
    kill();
  }
  throw std::runtime_error("PipeWire does not play");
}

void SoundServer::startPipeWire() {
  // WirePlumber does not run without a bus.
  launch(
      {"dbus-daemon", "--session", "--nofork", "--address=" + environment().at("DBUS_SESSION_BUS_ADDRESS")});
  launch({"pipewire"});
  launch({"wireplumber"});
  startPipeWirePulse();
}

void SoundServer::startPipeWirePulse() {
  launch({"pipewire-pulse"});
  waitForAnswer();
  control({"load-module", "module-null-sink", "sink_name=null", "format=float32le", "rate=44100"});
  control({"set-default-sink", "null"});
  waitFor([this] { return control({"list", "short", "sources"}).find("null.monitor") != std::string::npos; });
}

bool SoundServer::isLinked() const {
  return !runCommand({"sh", "-c", "timeout 2 parec --raw --latency-msec=40 -d null.monitor | head -c 64"},
                     environment())
              .output.empty();
}

void SoundServer::waitForAnswer() const {
  waitFor([this] { return runCommand({"timeout", "2", "pactl", "info"}, environment()).status == 0; });
}

void SoundServer::waitFor(const std::function<bool()>& condition) {
  const auto giveUp = std::chrono::steady_clock::now() + 10s;
  while (!condition()) {
    if (std::chrono::steady_clock::now() > giveUp) {
      throw std::runtime_error("the sound server does not answer");
    }
    std::this_thread::sleep_for(20ms);
  }
}

void SoundServer::kill() {
  m_processes.clear();
}

void SoundServer::interrupt() {
  m_processes.pop_back();
}

void SoundServer::resume() {
  if (m_kind == Kind::pulseAudio) {
    start();
  } else {
    startPipeWirePulse();
  }
}

void SoundServer::freeze() {
  for (const auto& process : m_processes) {
    process->signal(SIGSTOP);
  }
}

void SoundServer::thaw() {
  for (const auto& process : m_processes) {
    process->signal(SIGCONT);
  }
}

std::string SoundServer::control(const std::vector<std::string>& arguments) const {
  std::vector<std::string> command{"timeout", "10", "pactl"};
  command.insert(command.end(), arguments.begin(), arguments.end());
  return runCommand(command, environment()).output;
}

}  // namespace mireval::test
