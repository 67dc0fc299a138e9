#include "MirevalPlayer.h"

#include "library/Catalogue.h"
#include "library/LocalLibraryProvider.h"

#include <QLatin1String>

#include <array>
#include <cstdint>

namespace mireval::bench {
namespace {

using namespace Qt::StringLiterals;

Catalogue twoTracks() {
  constexpr std::array titles{"First"_L1, "Second"_L1};
  return {{Mood::focus, makeTracks(titles, titles, Mood::focus)}};
}

}  // namespace

MirevalPlayer::MirevalPlayer(const std::filesystem::path& folder) : m_bundle(folder) {
  m_factory.warmUp();
  // With zeros as random words the shuffle changes nothing.
  m_controller = AudioPlayerController::create(
      std::make_unique<LocalLibraryProvider>(twoTracks(), [] { return std::uint64_t{0}; }),
      {m_bundle, m_factory, m_runLoop, m_mainThread, m_commands, m_nowPlaying, m_imageDecoder, m_output});
}

void MirevalPlayer::play() {
  m_controller->selectMood(Mood::focus);
}

void MirevalPlayer::stop() {
  if (m_controller->isPlaying()) {
    m_controller->togglePlayback();
  }
}

}  // namespace mireval::bench
