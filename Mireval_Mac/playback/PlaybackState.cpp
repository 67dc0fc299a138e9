#include "playback/PlaybackState.h"

namespace mireval {

QVariant PlaybackState::currentMoodVariant() const {
  return m_currentMood ? QVariant::fromValue(*m_currentMood) : QVariant();
}

QVariant PlaybackState::currentTrackVariant() const {
  return m_currentTrack ? QVariant::fromValue(*m_currentTrack) : QVariant();
}

}  // namespace mireval
