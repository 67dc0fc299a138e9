#include "platform/linux/media/MprisMetadata.h"

#include "support/QtPrinters.h"

#include <gtest/gtest.h>

#include <QRegularExpression>

#include <cmath>
#include <limits>

namespace mireval {
namespace {

using namespace Qt::StringLiterals;

NowPlayingInfo infoOfTrack() {
  return {.title = u"Rain Veil"_s,
          .albumTitle = u"Mireval"_s,
          .artist = u"Mireval \u2022 Focus"_s,
          .playbackDurationSeconds = 181.5,
          .elapsedPlaybackSeconds = 3,
          .playbackRate = 1,
          .artwork = std::nullopt};
}

NowPlayingInfo withArtFile(const std::filesystem::path& file) {
  NowPlayingInfo info = infoOfTrack();
  info.artwork = MediaItemArtwork{.boundsSize = {1, 1}, .requestHandler = {}, .file = file};
  return info;
}

TEST(MprisMetadata, TakesTheTextsAndTheLength) {
  const MprisMetadata metadata(infoOfTrack());
  EXPECT_EQ(metadata.title, u"Rain Veil"_s);
  EXPECT_EQ(metadata.albumTitle, u"Mireval"_s);
  EXPECT_EQ(metadata.artist, u"Mireval \u2022 Focus"_s);
  EXPECT_EQ(metadata.length, 181500000);
  EXPECT_EQ(metadata.artUrl(), QByteArray());
}

TEST(MprisMetadata, LengthOnlyWhenKnown) {
  using Limits = std::numeric_limits<double>;
  for (const double duration :
       {0.0, -1.0, -0.0, 1e-9, Limits::quiet_NaN(), Limits::infinity(), -Limits::infinity(), Limits::max()}) {
    NowPlayingInfo info = infoOfTrack();
    info.playbackDurationSeconds = duration;
    EXPECT_EQ(MprisMetadata(info).length, std::nullopt) << duration;
    EXPECT_EQ(MprisMetadata(info), MprisMetadata(info)) << duration;
  }
}

TEST(MprisMetadata, MicrosecondsAreRoundedAndNeverNegative) {
  EXPECT_EQ(toMicroseconds(0), 0);
  EXPECT_EQ(toMicroseconds(-3), 0);
  EXPECT_EQ(toMicroseconds(0.0000014), 1);
  EXPECT_EQ(toMicroseconds(0.0000016), 2);
  EXPECT_EQ(toMicroseconds(9e12), 9'000'000'000'000'000'000);
  EXPECT_EQ(toMicroseconds(9.3e12), std::nullopt);
  EXPECT_EQ(toMicroseconds(std::nan("")), std::nullopt);
}

TEST(MprisMetadata, AnotherPictureIsAChangeAndPassingTimeIsNone) {
  NowPlayingInfo later = infoOfTrack();
  later.elapsedPlaybackSeconds = 4;
  later.playbackRate = 0;
  EXPECT_EQ(MprisMetadata(infoOfTrack()), MprisMetadata(later));
  EXPECT_NE(MprisMetadata(withArtFile("/a.png")), MprisMetadata(withArtFile("/b.png")));
  EXPECT_EQ(MprisMetadata(withArtFile("/a.png")), MprisMetadata(withArtFile("/a.png")));
}

TEST(MprisMetadata, TrackIdIsAnObjectPathOfTheTrackAlone) {
  const MprisMetadata metadata(infoOfTrack());
  const QRegularExpression objectPath(u"^(/[A-Za-z0-9_]+)+$"_s);
  EXPECT_TRUE(objectPath.match(QString::fromLatin1(metadata.trackId())).hasMatch())
      << metadata.trackId().data();
  EXPECT_FALSE(metadata.trackId().startsWith("/org/mpris"));

  NowPlayingInfo sameTrack = withArtFile("/cover.png");
  sameTrack.playbackDurationSeconds = 5;
  EXPECT_EQ(MprisMetadata(sameTrack).trackId(), metadata.trackId());
  EXPECT_TRUE(MprisMetadata(sameTrack).isSameTrack(metadata));
  EXPECT_NE(MprisMetadata(sameTrack), metadata);
}

TEST(MprisMetadata, OtherTextsAreAnotherTrack) {
  const MprisMetadata metadata(infoOfTrack());
  for (QString NowPlayingInfo::*const text :
       {&NowPlayingInfo::title, &NowPlayingInfo::albumTitle, &NowPlayingInfo::artist}) {
    NowPlayingInfo other = infoOfTrack();
    other.*text += u'!';
    EXPECT_NE(MprisMetadata(other).trackId(), metadata.trackId());
    EXPECT_FALSE(MprisMetadata(other).isSameTrack(metadata));
  }
  // The same letters in a row.
  NowPlayingInfo shifted = infoOfTrack();
  shifted.title = u"Veil"_s;
  shifted.albumTitle = u"Mireval Rain "_s;
  NowPlayingInfo unshifted = infoOfTrack();
  unshifted.albumTitle = u"Mireval "_s;
  EXPECT_NE(MprisMetadata(shifted).trackId(), MprisMetadata(unshifted).trackId());
}

TEST(MprisMetadata, ArtUrlIsAbsoluteAndEscaped) {
  EXPECT_EQ(MprisMetadata(withArtFile("covers/x.png")).artUrl(),
            "file://" + QByteArray::fromStdString(std::filesystem::current_path() / "covers/x.png"));
  EXPECT_EQ(MprisMetadata(withArtFile("/a b/c%d/\u00e9#?\"'.png")).artUrl(),
            "file:///a%20b/c%25d/%C3%A9%23%3F%22%27.png");
  EXPECT_EQ(MprisMetadata(withArtFile("")).artUrl(), QByteArray());
  // A name that is no UTF-8 at all.
  EXPECT_EQ(MprisMetadata(withArtFile("/\xff.png")).artUrl(), "file:///%FF.png");
}

}  // namespace
}  // namespace mireval
