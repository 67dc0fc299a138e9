#pragma once

#include <chrono>
#include <optional>

namespace mireval {

/// The position in a track between the moments at which it is published, and what a client believes that
/// extrapolates it by itself. Times are given by the caller.
class MprisPosition {
 public:
  using Clock = std::chrono::steady_clock;
  using Microseconds = std::chrono::microseconds;

  struct Publication {
    Microseconds elapsed{0};
    /// Nothing when the length is not known.
    std::optional<Microseconds> length;
    bool playing = false;
    /// The track is another than at the publication before.
    bool newTrack = false;
  };

  /// Takes over what is published at `now`. True when a client that extrapolates would now be wrong by more
  /// than a second, and so has to be told.
  bool publish(const Publication& publication, Clock::time_point now);

  /// The position at `now`: from 0 up to the length, never backwards within a track but for a jump, and
  /// standing still while paused. A second after the last publication it waits for the next.
  Microseconds at(Clock::time_point now);

 private:
  Microseconds expectedByClients(Clock::time_point now) const;

  Publication m_last;
  Clock::time_point m_publishedAt;
  Microseconds m_answered{0};
  Microseconds m_expected{0};
  Clock::time_point m_expectedAt;
};

}  // namespace mireval
