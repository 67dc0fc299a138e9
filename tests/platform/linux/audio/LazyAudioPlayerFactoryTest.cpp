#include "AudioFiles.h"

#include "platform/linux/audio/LazyAudioPlayerFactory.h"

#include <gtest/gtest.h>

namespace mireval::test {
namespace {

using namespace Qt::StringLiterals;

TEST(LazyAudioPlayerFactoryTest, TellsWhyAFileIsRefusedOnceTheModuleIsLoaded) {
  const AudioFiles files;
  LazyAudioPlayerFactory factory(AUDIO_MODULE);
  EXPECT_EQ(factory.create(files.folder() / "none.m4a").error(), u"No such file or directory"_s);
}

TEST(LazyAudioPlayerFactoryTest, MayBeWarmedUpAnyNumberOfTimes) {
  LazyAudioPlayerFactory factory(AUDIO_MODULE);
  factory.warmUp();
  factory.warmUp();
  EXPECT_EQ(factory.create("/nowhere.m4a").error(), u"No such file or directory"_s);
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
  EXPECT_TRUE(result.error().contains(u"/nowhere/libmireval-audio.so"_s)) << result.error().toStdString();
}

TEST(LazyAudioPlayerFactoryTest, TreatsALibraryThatIsNoModuleAsAnOrdinaryError) {
  LazyAudioPlayerFactory factory("libm.so.6");
  const AudioPlayerResult result = factory.create("/nowhere.m4a");
  ASSERT_FALSE(result);
  EXPECT_TRUE(result.error().contains(u"mirevalMakeAudioPlayerFactory"_s)) << result.error().toStdString();
}

}  // namespace
}  // namespace mireval::test
