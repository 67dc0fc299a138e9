#include "playback/ImageCache.h"

#include "support/QtPrinters.h"

#include <gtest/gtest.h>

#include <atomic>
#include <thread>
#include <vector>

namespace mireval {
namespace {

using namespace Qt::StringLiterals;
using namespace std::chrono_literals;

CoverImage cover(const std::string& name) {
  QImage image(2, 2, QImage::Format_RGB32);
  image.fill(Qt::black);
  return {.image = image, .file = "/covers/" + name};
}

class ImageCacheTest : public testing::Test {
 protected:
  /// Without asking for it.
  bool holds(const QString& name) {
    // The cache's own copy is the second owner of the pixels.
    const auto found = m_given.find(name);
    return found != m_given.end() && !found->isDetached();
  }

  void give(const QString& name) {
    const CoverImage given = cover(name.toStdString());
    m_given.insert(name, given.image);
    m_cache.setImage(name, given);
  }

  ImageCache::Clock::time_point m_now;
  QHash<QString, QImage> m_given;
  ImageCache m_cache{[this] { return m_now; }};
};

TEST_F(ImageCacheTest, AnswersWithWhatWasStored) {
  EXPECT_FALSE(m_cache.image(u"a"_s));
  give(u"a"_s);
  give(u"b"_s);
  const auto found = m_cache.image(u"a"_s);
  ASSERT_TRUE(found);
  EXPECT_EQ(found->image.cacheKey(), m_given[u"a"_s].cacheKey());
  EXPECT_EQ(found->file, "/covers/a");
  EXPECT_FALSE(m_cache.image(u"A"_s));
  EXPECT_FALSE(m_cache.image(u""_s));
}

TEST_F(ImageCacheTest, ALaterImageTakesTheEarlierOnesPlace) {
  give(u"a"_s);
  const QImage earlier = m_given[u"a"_s];
  give(u"a"_s);
  EXPECT_EQ(m_cache.image(u"a"_s)->image.cacheKey(), m_given[u"a"_s].cacheKey());
  EXPECT_TRUE(earlier.isDetached());
}

TEST_F(ImageCacheTest, HasNoLimit) {
  for (int i = 0; i < 1000; ++i) {
    give(QString::number(i));
  }
  for (int i = 0; i < 1000; ++i) {
    EXPECT_TRUE(m_cache.image(QString::number(i)));
  }
}

TEST_F(ImageCacheTest, ReleasesAllButTheOneLastAskedFor) {
  give(u"a"_s);
  give(u"b"_s);
  give(u"c"_s);
  EXPECT_TRUE(m_cache.image(u"b"_s));
  m_cache.releaseUnused();
  EXPECT_FALSE(holds(u"a"_s));
  EXPECT_TRUE(holds(u"b"_s));
  EXPECT_FALSE(holds(u"c"_s));
}

// As in use: asked for in vain, then stored.
TEST_F(ImageCacheTest, AnImageStoredAfterItsLookUpIsTheOneLastAskedFor) {
  give(u"a"_s);
  EXPECT_FALSE(m_cache.image(u"b"_s));
  give(u"b"_s);
  m_cache.releaseUnused();
  EXPECT_FALSE(holds(u"a"_s));
  EXPECT_TRUE(holds(u"b"_s));
}

// A track without a cover: none is in use.
TEST_F(ImageCacheTest, ReleasesEverythingAfterALookUpInVain) {
  give(u"a"_s);
  EXPECT_TRUE(m_cache.image(u"a"_s));
  EXPECT_FALSE(m_cache.image(u"b"_s));
  m_cache.releaseUnused();
  EXPECT_FALSE(holds(u"a"_s));
}

TEST_F(ImageCacheTest, ReleasingAnEmptyCacheDoesNothing) {
  m_cache.releaseUnused();
  m_cache.removeAll();
  EXPECT_FALSE(m_cache.image(u"a"_s));
}

TEST_F(ImageCacheTest, AnImageInUseElsewhereSurvivesItsRelease) {
  give(u"a"_s);
  const QImage shown = m_cache.image(u"a"_s)->image;
  m_cache.removeAll();
  EXPECT_EQ(shown.pixelColor(1, 1), QColor(Qt::black));
}

TEST_F(ImageCacheTest, LetsGoOfWhatWentUnused) {
  give(u"old"_s);
  m_now += 1min;
  give(u"young"_s);
  m_now += 4min;
  EXPECT_FALSE(m_cache.image(u"other"_s));
  EXPECT_TRUE(holds(u"old"_s));
  m_now += 1ns;
  EXPECT_FALSE(m_cache.image(u"other"_s));
  EXPECT_FALSE(holds(u"old"_s));
  EXPECT_TRUE(holds(u"young"_s));
}

TEST_F(ImageCacheTest, EachLookUpKeepsAnImageLonger) {
  give(u"a"_s);
  for (int i = 0; i < 10; ++i) {
    m_now += 4min;
    EXPECT_TRUE(m_cache.image(u"a"_s));
  }
}

TEST_F(ImageCacheTest, WhatIsAskedForIsStillInUse) {
  give(u"a"_s);
  m_now += 24h;
  EXPECT_TRUE(m_cache.image(u"a"_s));
}

TEST_F(ImageCacheTest, RemoveAllKeepsNothing) {
  give(u"a"_s);
  EXPECT_TRUE(m_cache.image(u"a"_s));
  m_cache.removeAll();
  EXPECT_FALSE(holds(u"a"_s));
  EXPECT_FALSE(m_cache.image(u"a"_s));
}

// For the thread sanitizer above all.
TEST(ImageCacheThreadTest, MayBeUsedOnSeveralThreads) {
  ImageCache cache;
  std::atomic<int> wrong = 0;
  std::vector<std::thread> threads;
  for (int worker = 0; worker < 4; ++worker) {
    threads.emplace_back([&, worker] {
      for (int i = 0; i < 2000; ++i) {
        const QString name = QString::number(i % 7);
        if (const auto found = cache.image(name)) {
          wrong += found->file == "/covers/" + name.toStdString() ? 0 : 1;
        } else {
          cache.setImage(name, cover(name.toStdString()));
        }
        if (i % 50 == worker) {
          cache.releaseUnused();
        }
        if (i % 500 == worker) {
          cache.removeAll();
        }
      }
    });
  }
  for (std::thread& thread : threads) {
    thread.join();
  }
  EXPECT_EQ(wrong, 0);
}

}  // namespace
}  // namespace mireval
