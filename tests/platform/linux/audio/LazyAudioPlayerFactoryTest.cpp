#include "AudioFiles.h"

#include "platform/linux/audio/LazyAudioPlayerFactory.h"

#include <gtest/gtest.h>

namespace mireval::test {
namespace {

TEST(LazyAudioPlayerFactoryTest, TellsWhyAFileIsRefusedOnceTheModuleIsLoaded) {
  const AudioFiles files;
  LazyAudioPlayerFactory factory(AUDIO_MODULE);
  EXPECT_EQ(factory.create(files.folder() / "none.m4a").error(), QStringLiteral("No such file or directory"));
}

TEST(LazyAudioPlayerFactoryTest, MayBeWarmedUpAnyNumberOfTimes) {
  LazyAudioPlayerFactory factory(AUDIO_MODULE);
  factory.warmUp();
  factory.warmUp();
  EXPECT_EQ(factory.create("/nowhere.m4a").error(), QStringLiteral("No such file or directory"));
  factory.warmUp();
}

TEST(LazyAudioPlayerFactoryTest, MayEndWhileTheModuleIsBeingLoaded) {
  LazyAudioPlayerFactory factory(AUDIO_MODULE);
  factory.warmUp();
}

TEST(LazyAudioPlayerFactoryTest, TreatsAMissingModuleAsAnOrdinaryError) {
  LazyAudioPlayerFactory factory("/nowhere/libmireval-audio.so");
  factory.warmUp();
  const AudioPlayerResult result = factory.create("/nowhere.m4a");
  ASSERT_FALSE(result);
  EXPECT_TRUE(result.error().contains(QStringLiteral("/nowhere/libmireval-audio.so")))
      << result.error().toStdString();
}

TEST(LazyAudioPlayerFactoryTest, TreatsALibraryThatIsNoModuleAsAnOrdinaryError) {
  LazyAudioPlayerFactory factory("libm.so.6");
  const AudioPlayerResult result = factory.create("/nowhere.m4a");
  ASSERT_FALSE(result);
  EXPECT_TRUE(result.error().contains(QStringLiteral("mirevalMakeAudioPlayerFactory")))
      << result.error().toStdString();
}

}  // namespace
}  // namespace mireval::test
