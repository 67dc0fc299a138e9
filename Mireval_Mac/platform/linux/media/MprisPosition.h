#pragma once

#include <chrono>
#include <optional>

namespace mireval {

/// Extrapolates the position in a track between publications. It also keeps the position that clients show,
/// which extrapolate by themselves. The caller gives the times.
class MprisPosition {
 public:
  using Clock = std::chrono::steady_clock;
  using Microseconds = std::chrono::microseconds;

  struct Publication {
    Microseconds elapsed{0};
    /// Nothing when the length is not known.
    std::optional<Microseconds> length;
    bool playing = false;
    /// The track differs from the one of the last publication.
    bool newTrack = false;
  };

  /// Takes a publication. True if a client that extrapolates is wrong by more than a second now and has to be
  /// told.
  bool publish(const Publication& publication, Clock::time_point now);

  /// The position at `now`: at most the length; it stands still while paused and moves back only at a jump or
  /// a new track. A second after the last publication it waits for the next one.
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
