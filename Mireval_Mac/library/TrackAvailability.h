#pragma once

#include <cstddef>
#include <cstdint>
#include <functional>
#include <optional>

namespace mireval {

/// Where a track's audio comes from. Data for the catalogue only: whether a track can be played is decided
/// by its resource name, its extension and the file's existence, never by this value.
class TrackAvailability {
 public:
  /// The audio ships inside the application's resources.
  static constexpr TrackAvailability included() { return TrackAvailability(std::nullopt); }

  /// A placeholder for audio that will be delivered later; `slot` numbers the reserved place.
  static constexpr TrackAvailability upcomingCloud(std::int64_t slot) { return TrackAvailability(slot); }

  /// The reserved place of an `upcomingCloud` value; nothing for `included`.
  constexpr std::optional<std::int64_t> slot() const { return m_slot; }

  friend constexpr bool operator==(const TrackAvailability&, const TrackAvailability&) = default;

 private:
  constexpr explicit TrackAvailability(std::optional<std::int64_t> slot) : m_slot(slot) {}

  std::optional<std::int64_t> m_slot;
};

}  // namespace mireval

template <>
struct std::hash<mireval::TrackAvailability> {
  std::size_t operator()(const mireval::TrackAvailability& availability) const noexcept {
    return std::hash<std::optional<std::int64_t>>{}(availability.slot());
  }
};
