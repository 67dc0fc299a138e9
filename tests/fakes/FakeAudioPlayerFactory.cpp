#include "fakes/FakeAudioPlayerFactory.h"

#include <utility>

namespace mireval {

using namespace Qt::StringLiterals;

FakeAudioPlayerFactory::FakeAudioPlayerFactory(std::shared_ptr<EventLog> log) : m_log(std::move(log)) {}

AudioPlayerResult FakeAudioPlayerFactory::create(const std::filesystem::path& file, const QString& title) {
  m_log->add("factory: create "_L1 + QString::fromStdString(file.string()));
  if (m_error) {
    return tl::make_unexpected(*m_error);
  }
  const auto& state = m_players.emplace_back(std::make_shared<FakeAudioPlayer::State>());
  state->duration = m_duration;
  state->title = title;
  return std::make_unique<FakeAudioPlayer>(u"player %1"_s.arg(m_players.size()), state, m_log);
}

}  // namespace mireval
