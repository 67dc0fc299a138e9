#pragma once

#include "fakes/EventLog.h"
#include "library/AudioLibraryProviding.h"

#include <map>
#include <memory>

namespace mireval {

/// Answers with the lists that the test gives it, none at first.
class FakeLibraryProvider final : public AudioLibraryProviding {
 public:
  explicit FakeLibraryProvider(std::shared_ptr<EventLog> log = makeEventLog());

  void setPlayableTracks(Mood mood, const QList<Track>& tracks) { m_playable[mood] = tracks; }
  void setDisplayEntries(Mood mood, const QList<Track>& tracks) { m_displayed[mood] = tracks; }

  QList<Track> playableTracks(Mood mood) const override;
  QList<Track> displayEntries(Mood mood) const override;

 private:
  const std::shared_ptr<EventLog> m_log;
  std::map<Mood, QList<Track>> m_playable;
  std::map<Mood, QList<Track>> m_displayed;
};

}  // namespace mireval
