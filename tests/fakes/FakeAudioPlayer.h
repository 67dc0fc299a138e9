#pragma once

#include "fakes/EventLog.h"
#include "platform/AudioPlayer.h"

#include <QString>

#include <atomic>
#include <memory>

namespace mireval {

/// A player without sound. What it is told and what it answers lives in its `State`, which outlives it.
class FakeAudioPlayer final : public AudioPlayer {
 public:
  struct State {
    /// Set by the test, answered by the player.
    double duration = 120;
    double currentTime = 0;
    /// The end of the track falls into the player's destruction.
    bool finishesWhileDestroyed = false;

    /// What the player was made for, read by the test.
    QString title;

    /// Set by the player, read by the test.
    AudioPlayerDelegate* delegate = nullptr;
    float volume = 1;
    std::atomic<bool> playing = false;
    int durationQueries = 0;
    int currentTimeQueries = 0;
    /// The player itself while it lives.
    std::atomic<AudioPlayer*> player = nullptr;

    bool isAlive() const { return player != nullptr; }

    /// Reaches the end of the file and tells the delegate, on the calling thread. As in a real player,
    /// nothing is told once the player is gone.
    void finishPlaying(bool successfully = true);
  };

  /// `name` begins every event, for example "player 1".
  FakeAudioPlayer(QString name, std::shared_ptr<State> state, std::shared_ptr<EventLog> log);
  ~FakeAudioPlayer() override;
  Q_DISABLE_COPY_MOVE(FakeAudioPlayer)

  void setDelegate(AudioPlayerDelegate* delegate) override;
  void setVolume(float volume) override;
  float volume() const override;
  void prepareToPlay() override;
  void play() override;
  void pause() override;
  bool isPlaying() const override;
  double duration() const override;
  double currentTime() const override;

 private:
  const QString m_name;
  const std::shared_ptr<State> m_state;
  const std::shared_ptr<EventLog> m_log;
};

}  // namespace mireval
