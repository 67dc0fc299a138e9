#include "fakes/FakeLibraryProvider.h"

#include <utility>

namespace mireval {
namespace {

using namespace Qt::StringLiterals;

QList<Track> tracksIn(const std::map<Mood, QList<Track>>& lists, Mood mood) {
  const auto entry = lists.find(mood);
  return entry == lists.end() ? QList<Track>() : entry->second;
}

}  // namespace

FakeLibraryProvider::FakeLibraryProvider(std::shared_ptr<EventLog> log) : m_log(std::move(log)) {}

QList<Track> FakeLibraryProvider::playableTracks(Mood mood) const {
  m_log->add("provider: playableTracks "_L1 + rawValue(mood));
  return tracksIn(m_playable, mood);
}

QList<Track> FakeLibraryProvider::displayEntries(Mood mood) const {
  m_log->add("provider: displayEntries "_L1 + rawValue(mood));
  return tracksIn(m_displayed, mood);
}

}  // namespace mireval
