#include "platform/linux/media/MprisPosition.h"

#include <algorithm>

namespace mireval {
namespace {

using namespace std::chrono_literals;

// Larger than the jitter of publications and smaller than a jump that a user notices.
constexpr auto tolerance = 1s;
constexpr auto longestExtrapolation = 1s;

}  // namespace

bool MprisPosition::publish(const Publication& publication, Clock::time_point now) {
  const Microseconds expected = expectedByClients(now);
  const bool jumped = std::chrono::abs(publication.elapsed - expected) > tolerance;
  m_expected = jumped ? publication.elapsed : expected;
  m_expectedAt = now;
  if (jumped || publication.newTrack) {
    m_answered = 0us;
  }
  m_last = publication;
  m_publishedAt = now;
  return jumped;
}

MprisPosition::Microseconds MprisPosition::at(Clock::time_point now) {
  Microseconds position = m_last.elapsed;
  if (m_last.playing) {
    position += std::chrono::duration_cast<Microseconds>(
        std::min<Clock::duration>(now - m_publishedAt, longestExtrapolation));
  }
  position = std::max(position, m_answered);
  if (m_last.length) {
    position = std::min(position, *m_last.length);
  }
  m_answered = position;
  return position;
}

MprisPosition::Microseconds MprisPosition::expectedByClients(Clock::time_point now) const {
  return m_last.playing ? m_expected + std::chrono::duration_cast<Microseconds>(now - m_expectedAt)
                        : m_expected;
}

}  // namespace mireval
