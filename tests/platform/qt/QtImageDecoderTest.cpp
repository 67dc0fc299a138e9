#include "platform/qt/QtImageDecoder.h"

#include "support/QtPrinters.h"
#include "support/TemporaryFolder.h"

#include <gtest/gtest.h>

#include <QByteArray>
#include <QImageReader>
#include <QImageWriter>
#include <QtEndian>

#include <sys/stat.h>

#include <cmath>
#include <limits>

void PrintTo(const QSize& size, std::ostream* stream) {
  *stream << size.width() << " x " << size.height();
}

namespace mireval {
namespace {

namespace fs = std::filesystem;
using namespace Qt::StringLiterals;

constexpr double maxPixelSize = 1600;

class QtImageDecoderTest : public testing::Test {
 protected:
  fs::path path(const char* name) const { return m_folder.path() / name; }

  fs::path write(const QImage& image, const char* format = "png") const {
    QImageWriter writer(QString::fromStdString(path("cover.png").string()), format);
    EXPECT_TRUE(writer.write(image)) << writer.errorString().toStdString();
    return path("cover.png");
  }

  fs::path write(const QByteArray& bytes) const {
    std::ofstream(path("cover.png"), std::ios::binary) << bytes.toStdString();
    return path("cover.png");
  }

  /// The left half is red, the right one blue.
  static QImage picture(int width, int height, QImage::Format format = QImage::Format_RGB32) {
    QImage image(width, height, QImage::Format_RGB32);
    for (int y = 0; y < height; ++y) {
      for (int x = 0; x < width; ++x) {
        image.setPixel(x, y, x < width / 2 ? qRgb(255, 0, 0) : qRgb(0, 0, 255));
      }
    }
    return image.convertToFormat(format, Qt::ThresholdDither);
  }

  QByteArray bytesOf(const fs::path& file) const {
    std::ifstream stream(file, std::ios::binary);
    return QByteArray::fromStdString({std::istreambuf_iterator<char>(stream), {}});
  }

  void expectNoPicture(const fs::path& file) {
    EXPECT_TRUE(m_decoder.thumbnail(file, maxPixelSize).isNull());
    EXPECT_TRUE(m_decoder.image(file).isNull());
  }

  const TemporaryFolder m_folder;
  QtImageDecoder m_decoder;
};

TEST_F(QtImageDecoderTest, ThumbnailsAreNeverLargerAndNeverEnlarged) {
  struct Case {
    QSize size;
    QSize thumbnail;
  };
  for (const auto& [size, thumbnail] : {Case{{1, 1}, {1, 1}},
                                        {{640, 480}, {640, 480}},
                                        {{1600, 1600}, {1600, 1600}},
                                        {{1601, 1601}, {1600, 1600}},
                                        {{1601, 1}, {1600, 1}},
                                        {{3200, 1600}, {1600, 800}},
                                        {{1200, 2400}, {800, 1600}},
                                        {{4000, 10}, {1600, 4}},
                                        {{10, 4000}, {4, 1600}},
                                        {{4000, 1}, {1600, 1}},
                                        {{1, 4000}, {1, 1600}}}) {
    const fs::path file = write(picture(size.width(), size.height()));
    EXPECT_EQ(m_decoder.thumbnail(file, maxPixelSize).size(), thumbnail);
    EXPECT_EQ(m_decoder.image(file).size(), size);
  }
}

TEST_F(QtImageDecoderTest, EveryKindOfPngIsDecoded) {
  for (const QImage::Format format :
       {QImage::Format_RGB32, QImage::Format_ARGB32, QImage::Format_Indexed8, QImage::Format_Mono,
        QImage::Format_RGBA64, QImage::Format_Grayscale8, QImage::Format_Grayscale16}) {
    // Small, because Qt converts large pictures on several threads, which the thread sanitizer cannot follow.
    for (const int width : {60, 120}) {
      const fs::path file = write(picture(width, width / 2, format));
      const QImage thumbnail = m_decoder.thumbnail(file, 80);
      EXPECT_EQ(thumbnail.width(), std::min(width, 80)) << format;
      const QColor left = m_decoder.image(file).pixelColor(width / 4, width / 8);
      const QColor same = thumbnail.pixelColor(thumbnail.width() / 4, thumbnail.height() / 4);
      EXPECT_NEAR(same.red(), left.red(), 2) << format;
      EXPECT_NEAR(same.green(), left.green(), 2) << format;
      EXPECT_NEAR(same.blue(), left.blue(), 2) << format;
    }
  }
}

TEST_F(QtImageDecoderTest, ColoursAndTransparencyAreKept) {
  QImage half = picture(3200, 3200, QImage::Format_ARGB32);
  half.fill(qRgba(0, 200, 0, 128));
  const QImage thumbnail = m_decoder.thumbnail(write(half), maxPixelSize);
  ASSERT_EQ(thumbnail.size(), QSize(1600, 1600));
  EXPECT_EQ(thumbnail.pixelColor(800, 800).alpha(), 128);
  EXPECT_NEAR(thumbnail.pixelColor(800, 800).green(), 200, 1);

  const QImage opaque = m_decoder.thumbnail(write(picture(3200, 3200)), maxPixelSize);
  EXPECT_EQ(opaque.pixelColor(790, 10), QColor(255, 0, 0));
  EXPECT_EQ(opaque.pixelColor(810, 1590), QColor(0, 0, 255));
}

// The picture is decoded at once.
TEST_F(QtImageDecoderTest, APictureSurvivesItsFile) {
  const fs::path file = write(picture(1700, 100));
  const QImage thumbnail = m_decoder.thumbnail(file, maxPixelSize);
  fs::resize_file(file, 0);
  EXPECT_EQ(thumbnail.pixelColor(100, 50), QColor(255, 0, 0));
}

TEST_F(QtImageDecoderTest, ThePixelSizeIsTheTests) {
  const fs::path file = write(picture(64, 32));
  EXPECT_EQ(m_decoder.thumbnail(file, 1).size(), QSize(1, 1));
  EXPECT_EQ(m_decoder.thumbnail(file, 10.9).size(), QSize(10, 5));
  EXPECT_EQ(m_decoder.thumbnail(file, 63.5).size(), QSize(63, 32));
  EXPECT_EQ(m_decoder.thumbnail(file, 64).size(), QSize(64, 32));
  EXPECT_EQ(m_decoder.thumbnail(file, 1e300).size(), QSize(64, 32));
  EXPECT_EQ(m_decoder.thumbnail(file, std::numeric_limits<double>::infinity()).size(), QSize(64, 32));
  for (const double none :
       {0.0, 0.99, -1.0, -1600.0, std::nan(""), -std::numeric_limits<double>::infinity()}) {
    EXPECT_TRUE(m_decoder.thumbnail(file, none).isNull()) << none;
  }
}

/// The JPEG with an EXIF entry that says to rotate it by 90 degrees clockwise.
QByteArray lyingOnItsSide(const QByteArray& jpeg) {
  static constexpr char exif[] =
      "\xff\xe1\0\x22"
      "Exif\0\0"
      "MM\0\x2a\0\0\0\x08"
      "\0\x01\x01\x12\0\x03\0\0\0\x01\0\x06\0\0\0\0\0\0";
  return jpeg.first(2) + QByteArray(exif, sizeof exif - 1) + jpeg.sliced(2);
}

TEST_F(QtImageDecoderTest, PicturesAreTurnedUpright) {
  const fs::path file = write(lyingOnItsSide(bytesOf(write(picture(3200, 40), "jpeg"))));
  const QImage thumbnail = m_decoder.thumbnail(file, maxPixelSize);
  ASSERT_EQ(thumbnail.size(), QSize(20, 1600));
  EXPECT_GT(thumbnail.pixelColor(10, 400).red(), 200);
  EXPECT_GT(thumbnail.pixelColor(10, 1200).blue(), 200);
  EXPECT_EQ(m_decoder.image(file).size(), QSize(40, 3200));
}

TEST_F(QtImageDecoderTest, TheContentDecidesWhateverTheName) {
  const fs::path file = write(picture(100, 50), "jpeg");
  EXPECT_EQ(m_decoder.thumbnail(file, 80).size(), QSize(80, 40));
  EXPECT_EQ(m_decoder.image(file).size(), QSize(100, 50));
  const fs::path odd = m_folder.path() / fs::path(u8"\u96e8 \u00e9 %20#?.txt");
  fs::rename(write(picture(20, 10)), odd);
  EXPECT_EQ(m_decoder.thumbnail(odd, maxPixelSize).size(), QSize(20, 10));
}

// Qt takes the size of a GIF from its first frame, which covers only a part of this picture.
TEST_F(QtImageDecoderTest, AThumbnailOfAPictureThatIsLargerThanItsFirstFrameFits) {
  const fs::path file =
      write(QByteArray::fromHex("47494638396109000020a100000000ffff0000ffffff00000021f90400000000"
                                "002c0000000009000700000208848fa9cbed0f632b003b"));
  EXPECT_EQ(m_decoder.thumbnail(file, 64).size(), QSize(1, 64));
  EXPECT_EQ(m_decoder.image(file).size(), QSize(9, 8192));
}

TEST_F(QtImageDecoderTest, WhatIsNoPictureFails) {
  expectNoPicture(path("missing.png"));
  expectNoPicture({});
  expectNoPicture(m_folder.path());
  expectNoPicture(write(QByteArray()));
  expectNoPicture(write("not a picture\n"_ba));
  expectNoPicture(write(QByteArray(1 << 20, '\0')));
  fs::create_directory(path("folder.png"));
  expectNoPicture(path("folder.png"));
  // A pipe without a writer.
  ASSERT_EQ(mkfifo(path("pipe.png").c_str(), 0600), 0);
  expectNoPicture(path("pipe.png"));
}

TEST_F(QtImageDecoderTest, TruncatedAndDamagedFilesFail) {
  const QByteArray whole = bytesOf(write(picture(2000, 100)));
  for (const qsizetype length : {4LL, 8LL, 20LL, 33LL, 60LL, whole.size() / 2}) {
    ASSERT_LT(length, whole.size());
    expectNoPicture(write(whole.first(length)));
  }
  QByteArray damaged = whole;
  damaged.replace(whole.indexOf("IDAT") + 4, 20, QByteArray(20, '\xff'));
  expectNoPicture(write(damaged));
}

// The same picture is asked for twice a second, and libpng prints a line or two at each attempt.
TEST_F(QtImageDecoderTest, AFileThatFailedIsTriedAgainOnlyWhenItHasChanged) {
  const QByteArray whole = bytesOf(write(picture(200, 100)));
  const QByteArray truncated = whole.first(whole.size() / 2);
  const fs::path file = write(truncated);
  testing::internal::CaptureStderr();
  expectNoPicture(file);
  EXPECT_NE(testing::internal::GetCapturedStderr(), "");
  testing::internal::CaptureStderr();
  for (int i = 0; i < 20; ++i) {
    expectNoPicture(file);
  }
  EXPECT_EQ(testing::internal::GetCapturedStderr(), "");

  // As long as the file that failed, at a later time.
  const auto time = fs::last_write_time(file);
  const QByteArray small = bytesOf(write(picture(20, 10)));
  ASSERT_LT(small.size(), truncated.size());
  write(small + QByteArray(truncated.size() - small.size(), '\0'));
  fs::last_write_time(file, time + std::chrono::seconds(1));
  EXPECT_EQ(m_decoder.image(file).size(), QSize(20, 10));
  // Another file in its place, of the same time.
  fs::rename(write(truncated), path("failed.png"));
  fs::last_write_time(path("failed.png"), time);
  expectNoPicture(path("failed.png"));
  write(small + QByteArray(truncated.size() - small.size(), '\0'));
  fs::last_write_time(file, time);
  fs::rename(file, path("failed.png"));
  EXPECT_EQ(m_decoder.image(path("failed.png")).size(), QSize(20, 10));
}

TEST_F(QtImageDecoderTest, ManyFilesMayFail) {
  for (int i = 0; i < 200; ++i) {
    const fs::path file = path(("cover-" + std::to_string(i)).c_str());
    std::ofstream(file) << "not a picture " << i;
    expectNoPicture(file);
  }
  EXPECT_EQ(m_decoder.image(write(picture(20, 10))).size(), QSize(20, 10));
}

/// The start of a PNG, without its pixels.
QByteArray pngHeader(quint32 width, quint32 height, char colourType) {
  const auto bytes = [](quint32 number) {
    number = qToBigEndian(number);
    return QByteArray(reinterpret_cast<const char*>(&number), sizeof number);
  };
  const QByteArray header = "IHDR" + bytes(width) + bytes(height) + '\x08' + colourType + QByteArray(3, '\0');
  quint32 crc = ~0U;
  for (const char byte : header) {
    crc ^= static_cast<unsigned char>(byte);
    for (int bit = 0; bit < 8; ++bit) {
      crc = (crc >> 1) ^ ((crc & 1) != 0 ? 0xedb88320U : 0U);
    }
  }
  return QByteArray("\x89PNG\r\n\x1a\n\0\0\0\x0d", 12) + header + bytes(~crc) +
         QByteArray("\0\0\x10\0IDAT", 8);
}

TEST_F(QtImageDecoderTest, PicturesBeyondTheAllocationLimitAreRefusedQuietlyAndImpossibleOnesToo) {
  constexpr char grey = 0;
  constexpr char colour = 2;
  testing::internal::CaptureStderr();
  for (const char type : {grey, colour}) {
    expectNoPicture(write(pngHeader(60000, 60000, type)));
    expectNoPicture(write(pngHeader(1000000, 1000000, type)));
  }
  // A warning twice a second would fill the log.
  EXPECT_EQ(testing::internal::GetCapturedStderr(), "");
  expectNoPicture(write(pngHeader(0x7fffffff, 0x7fffffff, colour)));
  expectNoPicture(write(pngHeader(0xffffffff, 1, colour)));
  expectNoPicture(write(pngHeader(0, 10, colour)));
}

// A picture at the limit is decoded, one with another line is not. One megabyte is 512 by 512 pixels.
TEST_F(QtImageDecoderTest, TheAllocationLimitIsThatOfTheReader) {
  const int before = QImageReader::allocationLimit();
  QImageReader::setAllocationLimit(1);
  const QImage allowed = m_decoder.image(write(picture(512, 512)));
  const fs::path larger = write(picture(512, 513));
  const bool refused = m_decoder.image(larger).isNull() && m_decoder.thumbnail(larger, 16).isNull();
  QImageReader::setAllocationLimit(0);
  const QImage unlimited = m_decoder.image(larger);
  QImageReader::setAllocationLimit(before);
  EXPECT_EQ(allowed.size(), QSize(512, 512));
  EXPECT_TRUE(refused);
  EXPECT_EQ(unlimited.size(), QSize(512, 513));
}

}  // namespace
}  // namespace mireval
