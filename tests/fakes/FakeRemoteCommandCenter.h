#pragma once

#include "fakes/EventLog.h"
#include "fakes/FakeRemoteCommand.h"
#include "platform/RemoteCommandCenter.h"

#include <memory>

namespace mireval {

/// The three commands, named "play", "pause" and "toggle" in the events.
class FakeRemoteCommandCenter final : public RemoteCommandCenter {
 public:
  explicit FakeRemoteCommandCenter(const std::shared_ptr<EventLog>& log = makeEventLog());

  FakeRemoteCommand& playCommand() override { return m_play; }
  FakeRemoteCommand& pauseCommand() override { return m_pause; }
  FakeRemoteCommand& togglePlayPauseCommand() override { return m_toggle; }

 private:
  FakeRemoteCommand m_play;
  FakeRemoteCommand m_pause;
  FakeRemoteCommand m_toggle;
};

}  // namespace mireval
