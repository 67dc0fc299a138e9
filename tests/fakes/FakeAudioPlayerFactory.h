#pragma once

#include "fakes/EventLog.h"
#include "fakes/FakeAudioPlayer.h"
#include "platform/AudioPlayerFactory.h"

#include <QString>

#include <memory>
#include <optional>
#include <vector>

namespace mireval {

/// Makes silent players, named "player 1", "player 2" and so on, or refuses every file.
class FakeAudioPlayerFactory final : public AudioPlayerFactory {
 public:
  explicit FakeAudioPlayerFactory(std::shared_ptr<EventLog> log = makeEventLog());

  /// From now on every file is refused with this description.
  void failWith(const QString& error) { m_error = error; }
  /// From now on every file is accepted.
  void succeed() { m_error.reset(); }

  /// What the players made from now on answer as their duration.
  void setDuration(double seconds) { m_duration = seconds; }

  AudioPlayerResult create(const std::filesystem::path& file, const QString& title) override;

  /// The states of all players made so far, oldest first.
  const std::vector<std::shared_ptr<FakeAudioPlayer::State>>& players() const { return m_players; }

  /// The state of the newest player; there must be one.
  FakeAudioPlayer::State& newest() const { return *m_players.at(m_players.size() - 1); }

 private:
  const std::shared_ptr<EventLog> m_log;
  std::optional<QString> m_error;
  double m_duration = 120;
  std::vector<std::shared_ptr<FakeAudioPlayer::State>> m_players;
};

}  // namespace mireval
