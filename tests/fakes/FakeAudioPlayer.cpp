#include "fakes/FakeAudioPlayer.h"

#include <utility>

namespace mireval {

using namespace Qt::StringLiterals;

void FakeAudioPlayer::State::finishPlaying(bool successfully) {
  AudioPlayer* const finished = player;
  if (finished == nullptr) {
    return;
  }
  playing = false;
  if (delegate != nullptr) {
    delegate->audioPlayerDidFinishPlaying(*finished, successfully);
  }
}

FakeAudioPlayer::FakeAudioPlayer(QString name, std::shared_ptr<State> state, std::shared_ptr<EventLog> log)
    : m_name(std::move(name)), m_state(std::move(state)), m_log(std::move(log)) {
  m_state->player = this;
}

FakeAudioPlayer::~FakeAudioPlayer() {
  if (m_state->finishesWhileDestroyed) {
    m_state->finishPlaying();
  }
  m_state->player = nullptr;
  m_state->playing = false;
  m_log->add(m_name + ": destroyed"_L1);
}

void FakeAudioPlayer::setDelegate(AudioPlayerDelegate* delegate) {
  m_state->delegate = delegate;
  m_log->add(m_name + QLatin1String(delegate != nullptr ? ": setDelegate" : ": setDelegate none"));
}

void FakeAudioPlayer::setVolume(float volume) {
  m_state->volume = volume;
  m_log->add(m_name + ": setVolume "_L1 + QString::number(static_cast<double>(volume), 'g', 6));
}

float FakeAudioPlayer::volume() const {
  return m_state->volume;
}

void FakeAudioPlayer::prepareToPlay() {
  m_log->add(m_name + ": prepareToPlay"_L1);
}

void FakeAudioPlayer::play() {
  m_state->playing = true;
  m_log->add(m_name + ": play"_L1);
}

void FakeAudioPlayer::pause() {
  m_state->playing = false;
  m_log->add(m_name + ": pause"_L1);
}

bool FakeAudioPlayer::isPlaying() const {
  return m_state->playing;
}

double FakeAudioPlayer::duration() const {
  ++m_state->durationQueries;
  return m_state->duration;
}

double FakeAudioPlayer::currentTime() const {
  ++m_state->currentTimeQueries;
  return m_state->currentTime;
}

}  // namespace mireval
