#include "fakes/FakeNowPlayingInfoCenter.h"

#include <QStringList>

#include <utility>

namespace mireval {

using namespace Qt::StringLiterals;

FakeNowPlayingInfoCenter::FakeNowPlayingInfoCenter(std::shared_ptr<EventLog> log) : m_log(std::move(log)) {}

void FakeNowPlayingInfoCenter::setNowPlayingInfo(const std::optional<NowPlayingInfo>& info) {
  m_info = info;
  ++m_publications;
  if (!info) {
    m_log->add(u"nowPlaying: cleared"_s);
    return;
  }
  QStringList entries{info->title,
                      info->albumTitle,
                      info->artist,
                      eventNumber(info->playbackDurationSeconds),
                      eventNumber(info->elapsedPlaybackSeconds),
                      eventNumber(info->playbackRate)};
  if (info->artwork) {
    entries.append(QString::fromStdString(info->artwork->file.filename().string()));
  }
  m_log->add("nowPlaying: "_L1 + entries.join(" | "_L1));
}

}  // namespace mireval
