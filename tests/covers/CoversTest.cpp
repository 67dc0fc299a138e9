#include "Cover.h"
#include "library/Mood.h"
#include "platform/qt/QtImageDecoder.h"

#include <gtest/gtest.h>

#include <QColor>
#include <QDir>
#include <QImage>
#include <QImageReader>
#include <QString>

#include <algorithm>
#include <array>
#include <cmath>
#include <cstddef>
#include <limits>
#include <map>
#include <string>
#include <vector>

namespace mireval {
namespace {

using namespace Qt::StringLiterals;

constexpr int widgetPixels = 48;
const QDir folder(QStringLiteral(COVERS));

/// A picture, and how a media widget shows it.
struct ShownCover {
  Mood mood;
  int number;
  std::string name;
  QString file;
  QImage thumbnail;
};

QImage thumbnailOf(const QImage& image) {
  return image.scaled(widgetPixels, widgetPixels, Qt::IgnoreAspectRatio, Qt::SmoothTransformation);
}

const std::vector<ShownCover>& covers() {
  static const std::vector<ShownCover> all = [] {
    std::vector<ShownCover> made;
    for (const Mood mood : allMoods) {
      for (int number = 1; number <= coversPerMood; ++number) {
        const QString name = coverImageName(mood, number);
        const QString file = folder.filePath(name + u".png"_s);
        made.push_back({mood, number, name.toStdString(), file,
                        thumbnailOf(QImage(file).convertToFormat(QImage::Format_RGB32))});
      }
    }
    return made;
  }();
  return all;
}

/// The mean difference of two thumbnails' pixels and channels, 0 to 255.
double pixelDistance(const QImage& one, const QImage& other) {
  double sum = 0;
  for (int y = 0; y < widgetPixels; ++y) {
    for (int x = 0; x < widgetPixels; ++x) {
      const QColor a = one.pixelColor(x, y);
      const QColor b = other.pixelColor(x, y);
      sum += std::abs(a.red() - b.red()) + std::abs(a.green() - b.green()) + std::abs(a.blue() - b.blue());
    }
  }
  return sum / (3.0 * widgetPixels * widgetPixels);
}

/// How often each kind of colour occurs: four steps for each channel, parts of the whole.
using Palette = std::array<double, 64>;

Palette paletteOf(const QImage& image) {
  Palette palette{};
  for (int y = 0; y < widgetPixels; ++y) {
    for (int x = 0; x < widgetPixels; ++x) {
      const QRgb colour = image.pixel(x, y);
      const auto step = [](int channel) { return static_cast<std::size_t>(channel) / 64; };
      palette.at((step(qRed(colour)) * 16) + (step(qGreen(colour)) * 4) + step(qBlue(colour))) +=
          1.0 / (widgetPixels * widgetPixels);
    }
  }
  return palette;
}

/// 0 for the same colours in the same parts, 1 for none in common.
double paletteDistance(const Palette& one, const Palette& other) {
  double common = 0;
  for (std::size_t i = 0; i < one.size(); ++i) {
    common += std::min(one.at(i), other.at(i));
  }
  return 1 - common;
}

/// The spread of the brightness of a thumbnail's pixels, 0 to 255.
double contrastOf(const QImage& image) {
  double sum = 0;
  double squares = 0;
  for (int y = 0; y < widgetPixels; ++y) {
    for (int x = 0; x < widgetPixels; ++x) {
      const double brightness = qGray(image.pixel(x, y));
      sum += brightness;
      squares += brightness * brightness;
    }
  }
  const double count = widgetPixels * widgetPixels;
  return std::sqrt(std::max(0.0, squares / count - (sum / count) * (sum / count)));
}

TEST(CoversTest, ThereAreExactlyFortyPictures) {
  QStringList expected;
  for (const ShownCover& cover : covers()) {
    expected.append(QFileInfo(cover.file).fileName());
  }
  expected.sort();
  EXPECT_EQ(expected.size(), 40);
  EXPECT_EQ(folder.entryList(QDir::Files | QDir::Hidden, QDir::Name), expected);
}

TEST(CoversTest, EachIsAPngOf1200PixelsWhichThePlayerKeepsInOneByteEach) {
  QtImageDecoder decoder;
  for (const ShownCover& cover : covers()) {
    SCOPED_TRACE(cover.name);
    EXPECT_EQ(QImageReader::imageFormat(cover.file), "png");
    const QImage image = decoder.thumbnail(cover.file.toStdString(), 1600);
    EXPECT_EQ(image.size(), QSize(1200, 1200));
    EXPECT_EQ(image.format(), QImage::Format_Indexed8);
    EXPECT_FALSE(image.hasAlphaChannel());
  }
}

TEST(CoversTest, DrawnAgainTheyAreTheSame) {
  for (const Mood mood : allMoods) {
    for (const int number : {1, coversPerMood}) {
      EXPECT_EQ(Cover::draw(mood, number), Cover::draw(mood, number))
          << coverImageName(mood, number).toStdString();
    }
  }
}

TEST(CoversTest, EachPaintsTheWholeSquareAndTheFewerColoursAreNotSeen) {
  for (const ShownCover& cover : covers()) {
    const QImage image = Cover::draw(cover.mood, cover.number);
    EXPECT_LT(pixelDistance(thumbnailOf(image), cover.thumbnail), 1) << cover.name;
    for (int i = 0; i < Cover::sidePixels; ++i) {
      const int last = Cover::sidePixels - 1;
      for (const QRgb edge :
           {image.pixel(i, 0), image.pixel(i, last), image.pixel(0, i), image.pixel(last, i)}) {
        // The empty picture is black.
        ASSERT_NE(edge, qRgb(0, 0, 0)) << cover.name << " at " << i;
      }
    }
  }
}

TEST(CoversTest, EachReadsInAWidget) {
  for (const ShownCover& cover : covers()) {
    EXPECT_GT(contrastOf(cover.thumbnail), 15) << cover.name;
  }
}

TEST(CoversTest, NoTwoLookAlikeInAWidget) {
  for (auto one = covers().begin(); one != covers().end(); ++one) {
    for (auto other = one + 1; other != covers().end(); ++other) {
      EXPECT_GT(pixelDistance(one->thumbnail, other->thumbnail), 12) << one->name << " and " << other->name;
    }
  }
}

TEST(CoversTest, TheModesAreFourFamilies) {
  std::vector<Palette> palettes;
  for (const ShownCover& cover : covers()) {
    palettes.push_back(paletteOf(cover.thumbnail));
  }
  for (std::size_t i = 0; i < palettes.size(); ++i) {
    // The mean distance of its colours to those of each family.
    std::map<Mood, double> distances;
    for (std::size_t j = 0; j < palettes.size(); ++j) {
      if (i != j) {
        const Mood mood = covers()[j].mood;
        const int others = coversPerMood - (mood == covers()[i].mood ? 1 : 0);
        distances[mood] += paletteDistance(palettes[i], palettes[j]) / others;
      }
    }
    const auto nearest = std::ranges::min_element(
        distances, [](const auto& one, const auto& other) { return one.second < other.second; });
    EXPECT_EQ(nearest->first, covers()[i].mood) << covers()[i].name;
  }
}

TEST(CoversTest, TogetherTheyAreSmall) {
  qint64 bytes = 0;
  for (const QFileInfo& file : folder.entryInfoList(QDir::Files)) {
    bytes += file.size();
  }
  EXPECT_LT(bytes, 12'000'000);
}

}  // namespace
}  // namespace mireval
