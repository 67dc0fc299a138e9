#include "fakes/FakeRemoteCommandCenter.h"

namespace mireval {

using namespace Qt::StringLiterals;

FakeRemoteCommandCenter::FakeRemoteCommandCenter(const std::shared_ptr<EventLog>& log)
    : m_play(u"play"_s, log), m_pause(u"pause"_s, log), m_toggle(u"toggle"_s, log) {}

}  // namespace mireval
