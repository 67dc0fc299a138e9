#pragma once

#include "fakes/EventLog.h"
#include "fakes/FakeAudioPlayerFactory.h"
#include "fakes/FakeDebugOutput.h"
#include "fakes/FakeImageDecoder.h"
#include "fakes/FakeLibraryProvider.h"
#include "fakes/FakeMainThread.h"
#include "fakes/FakeNowPlayingInfoCenter.h"
#include "fakes/FakeRemoteCommandCenter.h"
#include "fakes/FakeResourceBundle.h"
#include "fakes/FakeRunLoop.h"
#include "playback/AudioPlayerController.h"
#include "support/QtPrinters.h"

#include <gtest/gtest.h>

#include <memory>
#include <string>
#include <vector>

namespace mireval {

using Events = std::vector<std::string>;

/// A controller among fakes that write to one log.
class ControllerFixture : public testing::Test {
 protected:
  ControllerFixture();

  /// The fakes, for another controller beside `m_controller`.
  PlaybackServices services();

  /// The `number`-th track of a mood: title "<mood> title <number>", file "<mood>-<number>.m4a".
  static Track makeTrack(Mood mood, int number);

  /// Gives the mood that many tracks, to play and to list, each with its file.
  QList<Track> giveTracks(Mood mood, int count);

  /// Gives the mood this list to play and to list; files are left to the test.
  void giveList(Mood mood, const QList<Track>& tracks);

  /// Adds every signal of the controller to the log from now on, with the property's value.
  void recordSignals();

  /// A clock tick, up to the end of what it causes on the UI thread.
  void tick();

  /// The end of the newest player's track, up to the end of what it causes on the UI thread.
  void finishTrack();

  const std::shared_ptr<EventLog> m_log = makeEventLog();
  FakeResourceBundle m_bundle{m_log};
  FakeAudioPlayerFactory m_factory{m_log};
  FakeRunLoop m_runLoop{m_log};
  FakeMainThread m_mainThread{m_log};
  FakeRemoteCommandCenter m_remote{m_log};
  FakeNowPlayingInfoCenter m_nowPlaying{m_log};
  FakeImageDecoder m_decoder{m_log};
  FakeDebugOutput m_debug{m_log};
  /// Owned by the controller.
  FakeLibraryProvider* m_provider = nullptr;
  std::shared_ptr<AudioPlayerController> m_controller;
};

}  // namespace mireval
