#include "ui/pictures/PictureFixture.h"

#include "fakes/FakeLibraryProvider.h"

#include <QDir>
#include <QFile>
#include <QGuiApplication>
#include <QScreen>
#include <QSignalSpy>
#include <QtTest/QTest>

#include <algorithm>
#include <cstdlib>

namespace mireval {
namespace {

using namespace Qt::StringLiterals;

constexpr int tracksPerMood = 16;

QString titleOf(Mood mood, int number) {
  switch (mood) {
    case Mood::relaxation:
      return u"A Very Long Walk Along the River Before the Rain, No. %1"_s.arg(number);
    case Mood::creative:
      return u"Paper Lanterns %1"_s.arg(number);
    case Mood::focus:
      return u"Quiet Desk %1"_s.arg(number);
    case Mood::tempo:
      return u"Even Steps %1"_s.arg(number);
  }
  return {};
}

std::unique_ptr<AudioLibraryProviding> fixedLibrary() {
  auto library = std::make_unique<FakeLibraryProvider>();
  for (const Mood mood : allMoods) {
    QList<Track> tracks;
    for (int number = 1; number <= tracksPerMood; ++number) {
      Track track;
      track.mood = mood;
      track.title = titleOf(mood, number);
      track.resourceName = u"%1-%2"_s.arg(rawValue(mood)).arg(number);
      track.fileExtension = u"m4a"_s;
      tracks.append(track);
    }
    library->setPlayableTracks(mood, tracks);
    library->setDisplayEntries(mood, tracks);
  }
  return library;
}

/// The largest difference of a channel.
int difference(QRgb one, QRgb other) {
  return std::max({std::abs(qRed(one) - qRed(other)), std::abs(qGreen(one) - qGreen(other)),
                   std::abs(qBlue(one) - qBlue(other)), std::abs(qAlpha(one) - qAlpha(other))});
}

// A new release of a font library may round an edge differently here and there.
constexpr int visibleDifference = 12;
constexpr int allowedPixels = 20;

int differingPixels(const QImage& one, const QImage& other) {
  int differing = 0;
  for (int y = 0; y < one.height(); ++y) {
    for (int x = 0; x < one.width(); ++x) {
      differing += difference(one.pixel(x, y), other.pixel(x, y)) > visibleDifference ? 1 : 0;
    }
  }
  return differing;
}

}  // namespace

PictureFixture::PictureFixture() : PanelFixture(fixedLibrary()) {
  // A window manager that is still busy with the last test's window may take the keyboard away.
  m_staysOpen = true;
}

void PictureFixture::playTo(double seconds) {
  m_factory.newest().currentTime = seconds;
  m_runLoop.tick();
  m_mainThread.runAll();
}

QImage PictureFixture::picture(QQuickWindow& window) {
  QSignalSpy frames(&window, &QQuickWindow::frameSwapped);
  window.update();
  EXPECT_TRUE(frames.wait());
  // The server has the frame when it answers.
  return window.screen()->grabWindow(window.winId()).toImage().convertToFormat(QImage::Format_ARGB32);
}

void PictureFixture::compareWithReference(QQuickWindow& window, const QString& name) {
  const QString fileName = name + u".png"_s;
  const QDir references(qEnvironmentVariable("MIREVAL_PICTURES"));
  const QDir taken(qEnvironmentVariable("MIREVAL_SCREENSHOTS"));
  if (qEnvironmentVariableIsSet("MIREVAL_RECORD_PICTURES")) {
    ASSERT_TRUE(QDir().mkpath(references.path()));
    ASSERT_TRUE(picture(window).save(references.filePath(fileName)));
    return;
  }
  const QImage reference = QImage(references.filePath(fileName)).convertToFormat(QImage::Format_ARGB32);
  ASSERT_FALSE(reference.isNull()) << "no reference " << fileName.toStdString();
  // A window grows only when the window manager has agreed.
  QImage seen;
  const auto looksTheSame = [&] {
    seen = picture(window);
    return seen.size() == reference.size() && differingPixels(seen, reference) <= allowedPixels;
  };
  EXPECT_TRUE(QTest::qWaitFor(looksTheSame, 2000))
      << "the window differs from the reference " << fileName.toStdString() << "; what was seen is in "
      << taken.path().toStdString();
  ASSERT_TRUE(seen.save(taken.filePath(fileName)));
}

}  // namespace mireval
