#pragma once

#include "platform/linux/posix/FileDescriptor.h"

#include <tl/expected.hpp>

#include <array>
#include <chrono>
#include <filesystem>
#include <string>

namespace mireval {

/// Keeps the user's session to one copy of the program: the first one holds a lock as long as it lives and
/// listens on a socket beside it; later ones send it what they were asked to do. Needs no application object.
class SingleInstance final {
 public:
  /// What a later copy asks of the first. The value is sent, and comes back as the answer.
  enum class Request : char {
    /// That there is a copy is enough.
    nothing = 'n',
    showPanel = 'p',
    showSettings = 's',
    playFocus = 'f',
    playTempo = 't',
    playCreative = 'c',
    playRelaxation = 'r',
  };
  static constexpr std::array allRequests{Request::nothing,       Request::showPanel, Request::showSettings,
                                          Request::playFocus,     Request::playTempo, Request::playCreative,
                                          Request::playRelaxation};

  enum class Outcome {
    /// This copy is the first.
    elected,
    /// The first copy has done what was asked.
    handedOver,
    /// The first copy did not answer.
    unanswered,
  };

  /// The copies of one folder find each other. The folder is created if it is missing; it must belong to the
  /// user, and nobody else may enter it.
  explicit SingleInstance(std::filesystem::path folder);

  /// With the folder below XDG_RUNTIME_DIR. If that is not set, with one for temporary files that has the
  /// user's number in its name, below TMPDIR or /tmp.
  static SingleInstance forCurrentUser();

  /// True if the folder stands in for XDG_RUNTIME_DIR.
  bool usesTemporaryFolder() const { return m_usesTemporaryFolder; }
  const std::filesystem::path& folder() const { return m_folder; }

  /// Decides what this copy is. Immediate for the first copy; a later one waits at most `patience` for the
  /// answer of the first, and may become the first if that one ends meanwhile. The error says why copies
  /// cannot find each other; this copy is then on its own.
  tl::expected<Outcome, std::string> elect(Request request,
                                           std::chrono::milliseconds patience = std::chrono::seconds(5));

  /// Where requests arrive once this copy is elected; -1 otherwise. For SingleInstanceServer.
  int listeningSocket() const { return m_socket.get(); }

 private:
  using Status = tl::expected<void, std::string>;

  Status prepareFolder() const;
  Status openLock();
  tl::expected<Outcome, std::string> contend(Request request, std::chrono::milliseconds patience);
  Status listen();
  bool handOver(Request request, std::chrono::steady_clock::time_point deadline) const;

  std::filesystem::path m_folder;
  bool m_usesTemporaryFolder = false;
  FileDescriptor m_lock;
  FileDescriptor m_socket;
};

}  // namespace mireval
