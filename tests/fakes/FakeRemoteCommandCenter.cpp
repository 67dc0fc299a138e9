#include "fakes/FakeRemoteCommandCenter.h"

namespace mireval {

FakeRemoteCommandCenter::FakeRemoteCommandCenter(const std::shared_ptr<EventLog>& log)
    : m_play(QStringLiteral("play"), log),
      m_pause(QStringLiteral("pause"), log),
      m_toggle(QStringLiteral("toggle"), log) {}

}  // namespace mireval
