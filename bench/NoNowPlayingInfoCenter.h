#pragma once

#include "platform/NowPlayingInfoCenter.h"

namespace mireval {

/// For a desktop without media controls: shows nothing.
class NoNowPlayingInfoCenter final : public NowPlayingInfoCenter {
 public:
  void setNowPlayingInfo(const std::optional<NowPlayingInfo>&) override {}
};

}  // namespace mireval
