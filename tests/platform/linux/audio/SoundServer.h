#pragma once

#include "ChildProcess.h"

#include <QTemporaryDir>

#include <functional>
#include <map>
#include <memory>
#include <string>
#include <vector>

namespace mireval::test {

/// A real sound server of the test's own, with one null sink called "null", in a private runtime folder.
class SoundServer {
 public:
  enum class Kind { pulseAudio, pipeWire };

  explicit SoundServer(Kind kind);

  /// Starts the server and waits until it answers. Throws when it does not.
  void start();
  /// Ends the server without a chance to say goodbye.
  void kill();
  /// Ends what clients connect to, and starts it again. Quicker than `kill` and `start` for PipeWire.
  void interrupt();
  void resume();
  /// Stops and continues every process of the server.
  void freeze();
  void thaw();

  /// Runs pactl and returns what it prints.
  std::string control(const std::vector<std::string>& arguments) const;

  /// What a client needs to find this server.
  std::map<std::string, std::string> environment() const;

  Kind kind() const { return m_kind; }

 private:
  void launch(const std::vector<std::string>& command);
  void startPipeWire();
  void startPipeWirePulse();
  bool isLinked() const;
  void waitForAnswer() const;
  static void waitFor(const std::function<bool()>& condition);

  Kind m_kind;
  QTemporaryDir m_folder;
  // Ended before the folder goes.
  std::vector<std::unique_ptr<ChildProcess>> m_processes;
};

}  // namespace mireval::test
