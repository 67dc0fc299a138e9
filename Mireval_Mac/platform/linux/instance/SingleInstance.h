#pragma once

#include "platform/linux/posix/FileDescriptor.h"

#include <chrono>
#include <filesystem>
#include <string>

namespace mireval {

/// Keeps the user's session to one copy of the program: the first one holds a lock as long as it lives and
/// listens on a socket beside it; later ones hand over what they were asked to do. Needs no application
/// object.
class SingleInstance final {
 public:
  /// What a later copy asks of the first. The value is sent, and comes back as the answer.
  enum class Request : char { showPanel = 'p', showSettings = 's' };

  enum class Outcome {
    /// This copy is the first.
    elected,
    /// Copies cannot find each other here, so this one is on its own.
    independent,
    /// The first copy has done what was asked.
    handedOver,
    /// The first copy did not answer.
    unanswered,
  };

  /// The copies of one folder find each other. The folder is made if it is missing; it must be the user's,
  /// and nobody else may enter it. An empty path makes every copy independent.
  explicit SingleInstance(std::filesystem::path folder);

  /// With the folder below XDG_RUNTIME_DIR, or none if that is unset.
  static SingleInstance ofUser();

  /// Decides what this copy is. Immediate for the first copy; waits at most `patience` for its answer
  /// otherwise. Should the first copy end meanwhile, this one may become the first.
  Outcome elect(Request request, std::chrono::milliseconds patience = std::chrono::seconds(5));

  /// Why copies cannot find each other; empty if they can, and without a folder.
  const std::string& problem() const { return m_problem; }

  /// Where requests arrive, from the election of this copy on; -1 otherwise. For SingleInstanceServer.
  int listeningSocket() const { return m_socket.get(); }

 private:
  bool prepareFolder();
  bool openLock();
  bool listen();
  bool handOver(Request request, std::chrono::steady_clock::time_point deadline) const;
  bool fail(const std::string& reason);
  bool failWithErrno();

  std::filesystem::path m_folder;
  std::string m_problem;
  FileDescriptor m_lock;
  FileDescriptor m_socket;
};

}  // namespace mireval
