#pragma once

#include <functional>

namespace mireval {

/// What a handler answers to a command of the desktop's media controls.
enum class RemoteCommandHandlerStatus { success, commandFailed };

/// One command of the desktop's media controls, for example play.
class RemoteCommand {
 public:
  using Handler = std::function<RemoteCommandHandlerStatus()>;

  virtual ~RemoteCommand() = default;

  virtual void setEnabled(bool enabled) = 0;

  /// Adds a handler that is called, on any thread, for each command; it cannot be removed.
  virtual void addHandler(Handler handler) = 0;
};

/// The commands that media keys and the desktop's media controls send. The desktop is offered them as soon as
/// one has a handler. Used on the UI thread.
class RemoteCommandCenter {
 public:
  virtual ~RemoteCommandCenter() = default;

  virtual RemoteCommand& playCommand() = 0;
  virtual RemoteCommand& pauseCommand() = 0;
  virtual RemoteCommand& togglePlayPauseCommand() = 0;
};

}  // namespace mireval
