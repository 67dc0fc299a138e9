#pragma once

#include "fakes/EventLog.h"
#include "platform/NowPlayingInfoCenter.h"

#include <memory>
#include <optional>

namespace mireval {

/// Keeps the last information. Events: "nowPlaying: cleared", or
/// "nowPlaying: <title> | <album> | <artist> | <duration> | <position> | <rate>", and with artwork
/// " | <its file's name>".
class FakeNowPlayingInfoCenter final : public NowPlayingInfoCenter {
 public:
  explicit FakeNowPlayingInfoCenter(std::shared_ptr<EventLog> log = makeEventLog());

  void setNowPlayingInfo(const std::optional<NowPlayingInfo>& info) override;

  const std::optional<NowPlayingInfo>& nowPlayingInfo() const { return m_info; }
  int publications() const { return m_publications; }

 private:
  const std::shared_ptr<EventLog> m_log;
  std::optional<NowPlayingInfo> m_info;
  int m_publications = 0;
};

}  // namespace mireval
