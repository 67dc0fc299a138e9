#include "fakes/FakeMemoryPressure.h"
#include "playback/ControllerFixture.h"
#include "playback/CoverImages.h"

#include <algorithm>
#include <set>
#include <thread>

namespace mireval {
namespace {

using namespace Qt::StringLiterals;

using Failure = FakeImageDecoder::Failure;

/// Sixteen tracks of `focus`; the covers are left to the test.
class ControllerCoverTest : public ControllerFixture {
 protected:
  ControllerCoverTest() { giveTracks(Mood::focus, 16); }

  void addCover(const QString& name) { m_bundle.add(u"CoverImages/%1.png"_s.arg(name)); }

  const std::optional<MediaItemArtwork>& artwork() const { return m_nowPlaying.nowPlayingInfo()->artwork; }

  /// The name of the cover that is published now, or nothing.
  std::string coverName() const { return artwork() ? artwork()->file.filename().string() : std::string(); }

  /// The look-ups of covers in the resources since the last question, and what was decoded.
  Events coverEvents() {
    Events events = m_log->take();
    std::erase_if(events, [](const std::string& event) {
      return !event.starts_with("bundle: CoverImages/") && !event.starts_with("decoder: ");
    });
    return events;
  }
};

TEST_F(ControllerCoverTest, TheFirstTrackHasTheFirstCover) {
  addCover(u"focus-01"_s);
  m_controller->selectMood(Mood::focus);
  ASSERT_TRUE(artwork());
  EXPECT_EQ(artwork()->file, "/bundle/CoverImages/focus-01.png");
  EXPECT_EQ(artwork()->boundsSize, QSize(640, 640));
  EXPECT_EQ(m_nowPlaying.nowPlayingInfo()->title, u"focus title 1"_s);
  EXPECT_EQ(m_nowPlaying.nowPlayingInfo()->playbackRate, 1);
  EXPECT_EQ(m_log->events().back(),
            "nowPlaying: focus title 1 | Mireval | Mireval \u2022 Focus | 120 | 0 | 1 | focus-01.png");
}

TEST_F(ControllerCoverTest, TheTracksFromTheTenthOnShareACover) {
  for (int number = 1; number <= 10; ++number) {
    addCover(u"focus-%1"_s.arg(number, 2, 10, QLatin1Char('0')));
  }
  m_controller->selectMood(Mood::focus);
  std::vector<std::string> names;
  for (int track = 1; track <= 16; ++track) {
    names.push_back(coverName());
    m_controller->playNextTrack();
  }
  EXPECT_EQ(names,
            (std::vector<std::string>{"focus-01.png", "focus-02.png", "focus-03.png", "focus-04.png",
                                      "focus-05.png", "focus-06.png", "focus-07.png", "focus-08.png",
                                      "focus-09.png", "focus-10.png", "focus-10.png", "focus-10.png",
                                      "focus-10.png", "focus-10.png", "focus-10.png", "focus-10.png"}));
  EXPECT_EQ(coverName(), "focus-01.png");
  for (int number = 1; number <= 10; ++number) {
    const std::string name = u"focus-%1.png"_s.arg(number, 2, 10, QLatin1Char('0')).toStdString();
    EXPECT_EQ(m_decoder.decodings(name), 1) << name;
  }
}

TEST_F(ControllerCoverTest, WithoutCoversThereIsNoArtwork) {
  m_controller->selectMood(Mood::focus);
  tick();
  const auto& info = m_nowPlaying.nowPlayingInfo();
  ASSERT_TRUE(info);
  EXPECT_FALSE(info->artwork);
  EXPECT_EQ(m_log->events().back(),
            "nowPlaying: focus title 1 | Mireval | Mireval \u2022 Focus | 120 | 0 | 1");
}

// Names are matched as they are.
TEST_F(ControllerCoverTest, OtherCoversAreNotTaken) {
  for (const auto& resource :
       {u"CoverImages/focus-1.png"_s, u"CoverImages/focus-02.png"_s, u"CoverImages/focus-01.jpg"_s,
        u"PreviewAudio/focus-01.png"_s, u"CoverImages/tempo-01.png"_s}) {
    m_bundle.add(resource);
  }
  m_controller->selectMood(Mood::focus);
  EXPECT_FALSE(artwork());
}

TEST_F(ControllerCoverTest, TheCoverIsOfTheTracksOwnMood) {
  for (const Mood mood : allMoods) {
    addCover(rawValue(mood) + u"-01"_s);
    Track stray = makeTrack(Mood::focus, 1);
    stray.mood = mood;
    giveList(Mood::focus, {stray});
    m_controller->selectMood(Mood::focus);
    EXPECT_EQ(coverName(), rawValue(mood).toStdString() + "-01.png");
  }
}

// Twice a second the same cover is published: it must not be looked for or decoded again.
TEST_F(ControllerCoverTest, ACoverIsDecodedOnce) {
  addCover(u"focus-01"_s);
  m_controller->selectMood(Mood::focus);
  EXPECT_EQ(coverEvents(),
            (Events{"bundle: CoverImages/focus-01.png", "decoder: thumbnail focus-01.png 1600"}));
  const QImage image = artwork()->requestHandler({});
  for (int i = 0; i < 20; ++i) {
    tick();
  }
  m_controller->togglePlayback();
  m_controller->togglePlayback();
  m_controller->selectMood(Mood::focus);
  EXPECT_EQ(coverEvents(), Events{});
  EXPECT_EQ(artwork()->requestHandler({}), image);
  EXPECT_EQ(m_decoder.decodings("focus-01.png"), 1);
}

TEST_F(ControllerCoverTest, AMissingCoverIsLookedUpAtEachPublication) {
  m_controller->selectMood(Mood::focus);
  coverEvents();
  tick();
  tick();
  EXPECT_EQ(coverEvents(), (Events{"bundle: CoverImages/focus-01.png", "bundle: CoverImages/focus-01.png"}));
  addCover(u"focus-01"_s);
  tick();
  EXPECT_EQ(coverName(), "focus-01.png");
  m_bundle.remove(u"CoverImages/focus-01.png"_s);
  tick();
  EXPECT_EQ(coverName(), "focus-01.png");
}

TEST_F(ControllerCoverTest, AnUndecodableCoverOnlyOmitsTheArtwork) {
  addCover(u"focus-01"_s);
  m_decoder.fail("focus-01.png", Failure::everything);
  m_controller->selectMood(Mood::focus);
  coverEvents();
  tick();
  EXPECT_EQ(coverEvents(), (Events{"bundle: CoverImages/focus-01.png", "decoder: thumbnail focus-01.png 1600",
                                   "decoder: image focus-01.png"}));
  const auto& info = m_nowPlaying.nowPlayingInfo();
  ASSERT_TRUE(info);
  EXPECT_FALSE(info->artwork);
  EXPECT_EQ(info->title, u"focus title 1"_s);
  EXPECT_EQ(info->albumTitle, u"Mireval"_s);
  EXPECT_EQ(info->artist, u"Mireval \u2022 Focus"_s);
  EXPECT_EQ(info->playbackDurationSeconds, 120);
  EXPECT_EQ(info->elapsedPlaybackSeconds, 0);
  EXPECT_EQ(info->playbackRate, 1);
  EXPECT_EQ(m_controller->statusDetail(), u"Playing"_s);

  // Nothing was kept of the failure.
  m_decoder.fail("focus-01.png", Failure::none);
  tick();
  EXPECT_EQ(coverName(), "focus-01.png");
}

TEST_F(ControllerCoverTest, TheWholeImageStandsInForAThumbnail) {
  addCover(u"focus-01"_s);
  m_decoder.setSize("focus-01.png", {2000, 1000});
  m_decoder.fail("focus-01.png", Failure::thumbnail);
  m_controller->selectMood(Mood::focus);
  ASSERT_TRUE(artwork());
  EXPECT_EQ(artwork()->boundsSize, QSize(2000, 1000));
  coverEvents();
  tick();
  EXPECT_EQ(coverEvents(), Events{});
}

TEST_F(ControllerCoverTest, TheBoundsAreTheThumbnails) {
  addCover(u"focus-01"_s);
  m_decoder.setSize("focus-01.png", {3200, 1600});
  m_controller->selectMood(Mood::focus);
  ASSERT_TRUE(artwork());
  EXPECT_EQ(artwork()->boundsSize, QSize(1600, 800));
}

TEST_F(ControllerCoverTest, TheSameImageComesForEverySize) {
  addCover(u"focus-01"_s);
  m_controller->selectMood(Mood::focus);
  ASSERT_TRUE(artwork());
  const QImage image = artwork()->requestHandler(artwork()->boundsSize);
  EXPECT_EQ(image.size(), artwork()->boundsSize);
  for (const QSize size :
       {QSize(), QSize(0, 0), QSize(1, 1), QSize(64, 32), QSize(5000, 5000), QSize(-1, -1)}) {
    EXPECT_EQ(artwork()->requestHandler(size), image);
  }
}

// What was handed over stays good, wherever the cover and the controller have gone.
TEST_F(ControllerCoverTest, AnArtworkOutlivesTheCacheAndTheController) {
  addCover(u"focus-01"_s);
  m_controller->selectMood(Mood::focus);
  ASSERT_TRUE(artwork());
  const MediaItemArtwork kept = *artwork();
  m_controller.reset();
  CoverImages::coverImageCache().removeAll();
  QImage image;
  std::thread([&] { image = kept.requestHandler({10, 10}); }).join();
  EXPECT_EQ(image.size(), QSize(640, 640));
}

TEST_F(ControllerCoverTest, AReleasedCoverIsDecodedAgain) {
  addCover(u"focus-01"_s);
  m_controller->selectMood(Mood::focus);
  coverEvents();
  CoverImages::coverImageCache().removeAll();
  tick();
  EXPECT_EQ(coverEvents(),
            (Events{"bundle: CoverImages/focus-01.png", "decoder: thumbnail focus-01.png 1600"}));
  EXPECT_EQ(coverName(), "focus-01.png");
}

TEST_F(ControllerCoverTest, AShortageOfMemoryLeavesTheCoverThatIsShown) {
  FakeMemoryPressure memoryPressure;
  QObject::connect(&memoryPressure, &MemoryPressure::memoryIsShort, &memoryPressure,
                   [] { CoverImages::coverImageCache().releaseUnused(); });
  addCover(u"focus-01"_s);
  addCover(u"focus-02"_s);
  m_controller->selectMood(Mood::focus);
  m_controller->playNextTrack();
  memoryPressure.runShort();
  coverEvents();
  tick();
  EXPECT_EQ(coverEvents(), Events{});
  EXPECT_EQ(coverName(), "focus-02.png");
  m_controller->playPreviousTrack();
  EXPECT_EQ(coverName(), "focus-01.png");
  EXPECT_EQ(m_decoder.decodings("focus-01.png"), 2);
  EXPECT_EQ(m_decoder.decodings("focus-02.png"), 1);
}

// The failed track's cover with the earlier player's times.
TEST_F(ControllerCoverTest, AfterAFailedLoadTheFailedTracksCoverIsPublished) {
  addCover(u"focus-01"_s);
  addCover(u"focus-02"_s);
  m_controller->selectMood(Mood::focus);
  m_bundle.remove(u"PreviewAudio/focus-2.m4a"_s);
  m_controller->playNextTrack();
  EXPECT_EQ(coverName(), "focus-01.png");
  m_factory.newest().currentTime = 60;
  tick();
  EXPECT_EQ(coverName(), "focus-02.png");
  EXPECT_EQ(m_nowPlaying.nowPlayingInfo()->elapsedPlaybackSeconds, 60);
  tick();
  EXPECT_EQ(m_decoder.decodings("focus-02.png"), 1);
}

// There is nothing to publish a cover with.
TEST_F(ControllerCoverTest, WithoutAPlayerNoCoverIsLookedUp) {
  addCover(u"focus-01"_s);
  m_factory.failWith(u"refused"_s);
  m_controller->selectMood(Mood::focus);
  m_controller->togglePlayback();
  EXPECT_EQ(coverEvents(), Events{});
}

TEST_F(ControllerCoverTest, ASecondControllerFindsTheCoversOfTheFirst) {
  addCover(u"focus-01"_s);
  m_controller->selectMood(Mood::focus);
  coverEvents();
  m_controller.reset();
  auto provider = std::make_unique<FakeLibraryProvider>();
  provider->setPlayableTracks(Mood::focus, {makeTrack(Mood::focus, 1)});
  const auto second = AudioPlayerController::create(std::move(provider), services());
  second->selectMood(Mood::focus);
  EXPECT_EQ(coverName(), "focus-01.png");
  EXPECT_EQ(coverEvents(), Events{});
}

// Without the fixture, so that it is the first use when CTest runs the test by itself.
TEST(ControllerCoverCacheTest, IsMadeOnceUnderConcurrentFirstUse) {
  constexpr int threadCount = 8;
  std::array<CoverImages::Cache*, threadCount> caches{};
  std::atomic<int> ready = 0;
  std::vector<std::thread> threads;
  for (CoverImages::Cache*& cache : caches) {
    threads.emplace_back([&cache, &ready] {
      ++ready;
      while (ready < threadCount) {
      }
      cache = &CoverImages::coverImageCache();
      cache->cover(u"none"_s);
    });
  }
  for (std::thread& thread : threads) {
    thread.join();
  }
  EXPECT_EQ(std::set<CoverImages::Cache*>(caches.begin(), caches.end()).size(), 1U);
  EXPECT_NE(caches.front(), nullptr);
}

}  // namespace
}  // namespace mireval
