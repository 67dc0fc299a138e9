#include "playback/CoverImages.h"

#include "support/QtPrinters.h"

#include <gtest/gtest.h>

#include <malloc.h>

#include <algorithm>
#include <atomic>
#include <cstddef>
#include <span>
#include <thread>
#include <vector>

namespace mireval {
namespace {

using namespace Qt::StringLiterals;

using Cover = CoverImages::Cover;

Cover cover(const QString& name, QSize size = {2, 2}) {
  QImage image(size, QImage::Format_RGB32);
  image.fill(static_cast<uint>(qHash(name, 0)));
  return {image, "/covers/" + name.toStdString()};
}

QImage diagonals(QImage::Format format) {
  QImage image(250, 40, format);
  for (int y = 0; y < image.height(); ++y) {
    for (int x = 0; x < image.width(); ++x) {
      image.setPixelColor(x, y, QColor(x, 6 * y, (x + y) % 256, 255 - x));
    }
  }
  return image;
}

TEST(CoverTest, ReturnsThePictureThatItWasMadeFrom) {
  for (const auto format : {QImage::Format_RGB32, QImage::Format_ARGB32, QImage::Format_Grayscale8,
                            QImage::Format_RGB888, QImage::Format_RGBA64}) {
    const QImage image = diagonals(format);
    const QImage unpacked = Cover(image, "/a.png").image();
    EXPECT_EQ(unpacked, image) << format;
    EXPECT_EQ(unpacked.format(), format);
  }
}

TEST(CoverTest, KeepsColourMapAndColourSpace) {
  QImage image(37, 5, QImage::Format_Indexed8);
  image.setColorTable({qRgb(255, 0, 0), qRgba(0, 255, 0, 100), qRgb(0, 0, 255)});
  image.setColorSpace(QColorSpace(QColorSpace::AdobeRgb));
  for (int x = 0; x < image.width(); ++x) {
    for (int y = 0; y < image.height(); ++y) {
      image.setPixel(x, y, static_cast<uint>(x + y) % 3);
    }
  }
  const QImage unpacked = Cover(image, "/a.png").image();
  EXPECT_EQ(unpacked, image);
  EXPECT_EQ(unpacked.format(), QImage::Format_Indexed8);
  EXPECT_EQ(unpacked.colorTable(), image.colorTable());
  EXPECT_EQ(unpacked.colorSpace(), image.colorSpace());
}

TEST(CoverTest, KeepsAPictureWhoseLinesAreFurtherApart) {
  const QImage whole = diagonals(QImage::Format_RGB32);
  const QImage left(whole.constBits(), 10, whole.height(), whole.bytesPerLine(), whole.format());
  EXPECT_EQ(Cover(left, "/a.png").image(), left);
}

TEST(CoverTest, KnowsItsSizeAndFile) {
  const Cover wide(QImage(300, 20, QImage::Format_RGB32), "/covers/wide.png");
  EXPECT_EQ(wide.size(), QSize(300, 20));
  EXPECT_EQ(wide.image().size(), QSize(300, 20));
  EXPECT_EQ(wide.file(), "/covers/wide.png");
}

TEST(CoverTest, ItsImagesAreTheCallersOwn) {
  const Cover black = cover(u"black"_s);
  QImage first = black.image();
  const QImage before = first.copy();
  first.fill(Qt::red);
  EXPECT_EQ(black.image(), before);
}

std::size_t allocatedBytes() {
  const struct mallinfo2 info = mallinfo2();
  return info.uordblks + info.hblkhd;
}

// The sanitizers' allocators do not count.
TEST(CoverTest, HoldsAFractionOfItsPixels) {
  QImage image(1200, 1200, QImage::Format_Grayscale8);
  for (int y = 0; y < image.height(); ++y) {
    std::ranges::fill(std::span(image.scanLine(y), 1200), static_cast<uchar>(y / 5));
  }
  const std::size_t before = allocatedBytes();
  const Cover smooth(image, "/a.png");
  EXPECT_LT(allocatedBytes(), before + 1200 * 1200 / 10);
  EXPECT_EQ(smooth.image(), image);
}

class CoverCacheTest : public testing::Test {
 protected:
  bool holds(const QString& name) { return m_cache.cover(name).has_value(); }
  void give(const QString& name) { m_cache.setCover(name, cover(name)); }

  CoverImages::Cache m_cache;
};

TEST_F(CoverCacheTest, AnswersWithWhatWasStored) {
  EXPECT_FALSE(holds(u"a"_s));
  give(u"a"_s);
  give(u"b"_s);
  const auto found = m_cache.cover(u"a"_s);
  ASSERT_TRUE(found);
  EXPECT_EQ(found->image(), cover(u"a"_s).image());
  EXPECT_EQ(found->file(), "/covers/a");
  EXPECT_FALSE(holds(u"A"_s));
  EXPECT_FALSE(holds(u""_s));
}

TEST_F(CoverCacheTest, ALaterCoverTakesTheEarlierOnesPlace) {
  give(u"a"_s);
  m_cache.setCover(u"a"_s, cover(u"other"_s));
  EXPECT_EQ(m_cache.cover(u"a"_s)->image(), cover(u"other"_s).image());
}

TEST_F(CoverCacheTest, HasNoLimit) {
  for (int i = 0; i < 1000; ++i) {
    give(QString::number(i));
  }
  for (int i = 0; i < 1000; ++i) {
    EXPECT_TRUE(holds(QString::number(i)));
  }
}

TEST_F(CoverCacheTest, ReleasesAllButTheOneLastAskedFor) {
  give(u"a"_s);
  give(u"b"_s);
  give(u"c"_s);
  EXPECT_TRUE(holds(u"b"_s));
  m_cache.releaseUnused();
  EXPECT_FALSE(holds(u"a"_s));
  EXPECT_TRUE(holds(u"b"_s));
  EXPECT_FALSE(holds(u"c"_s));
}

// As in use: asked for in vain, then stored.
TEST_F(CoverCacheTest, ACoverStoredAfterItsLookUpIsTheOneLastAskedFor) {
  give(u"a"_s);
  EXPECT_FALSE(holds(u"b"_s));
  give(u"b"_s);
  m_cache.releaseUnused();
  EXPECT_FALSE(holds(u"a"_s));
  EXPECT_TRUE(holds(u"b"_s));
}

// A track without a cover: none is in use.
TEST_F(CoverCacheTest, ReleasesEverythingAfterALookUpInVain) {
  give(u"a"_s);
  EXPECT_TRUE(holds(u"a"_s));
  EXPECT_FALSE(holds(u"b"_s));
  m_cache.releaseUnused();
  EXPECT_FALSE(holds(u"a"_s));
}

TEST_F(CoverCacheTest, ReleasingAnEmptyCacheDoesNothing) {
  m_cache.releaseUnused();
  m_cache.removeAll();
  EXPECT_FALSE(holds(u"a"_s));
}

TEST_F(CoverCacheTest, ACoverInUseElsewhereSurvivesItsRelease) {
  give(u"a"_s);
  const auto shown = m_cache.cover(u"a"_s);
  m_cache.removeAll();
  EXPECT_EQ(shown->image(), cover(u"a"_s).image());
}

TEST_F(CoverCacheTest, RemoveAllKeepsNothing) {
  give(u"a"_s);
  EXPECT_TRUE(holds(u"a"_s));
  m_cache.removeAll();
  EXPECT_FALSE(holds(u"a"_s));
}

// For the thread sanitizer above all.
TEST(CoverCacheThreadTest, MayBeUsedOnSeveralThreads) {
  CoverImages::Cache cache;
  std::atomic<int> wrong = 0;
  std::vector<std::thread> threads;
  for (int worker = 0; worker < 4; ++worker) {
    threads.emplace_back([&, worker] {
      for (int i = 0; i < 2000; ++i) {
        const QString name = QString::number(i % 7);
        if (const auto found = cache.cover(name)) {
          wrong += found->image() == cover(name).image() ? 0 : 1;
        } else {
          cache.setCover(name, cover(name));
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
