#pragma once

#include "platform/RemoteCommandCenter.h"

namespace mireval {

/// For a desktop without media controls: takes handlers and never calls them.
class NoRemoteCommandCenter final : public RemoteCommandCenter {
 public:
  RemoteCommand& playCommand() override { return m_command; }
  RemoteCommand& pauseCommand() override { return m_command; }
  RemoteCommand& togglePlayPauseCommand() override { return m_command; }

 private:
  class Command final : public RemoteCommand {
   public:
    void setEnabled(bool) override {}
    void addHandler(Handler) override {}
  };

  Command m_command;
};

}  // namespace mireval
