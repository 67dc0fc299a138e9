#include "platform/linux/audio/LazyAudioPlayerFactory.h"

#include <gtest/gtest.h>

#include <utility>

namespace mireval::test {
namespace {

using namespace Qt::StringLiterals;

TEST(LazyAudioPlayerFactoryTest, LoadsTheModuleOnceHoweverOftenItIsWarmedUp) {
  for (const int warmUps : {0, 1, 2}) {
    LazyAudioPlayerFactory factory(AUDIO_MODULE);
    for (int i = 0; i < warmUps; ++i) {
      factory.warmUp();
    }
    EXPECT_EQ(factory.create("/nowhere.m4a").error(), u"No such file or directory"_s);
    factory.warmUp();
  }
}

TEST(LazyAudioPlayerFactoryTest, MayEndWhileTheModuleIsBeingLoaded) {
  LazyAudioPlayerFactory factory(AUDIO_MODULE);
  factory.warmUp();
}

TEST(LazyAudioPlayerFactoryTest, SaysWhyThereIsNoModule) {
  LazyAudioPlayerFactory missing("/nowhere/libmireval-audio.so");
  missing.warmUp();
  LazyAudioPlayerFactory noModule("libm.so.6");
  for (auto& [factory, reason] : {std::pair(&missing, u"/nowhere/libmireval-audio.so"_s),
                                  {&noModule, u"mirevalMakeAudioPlayerFactory"_s}}) {
    const AudioPlayerResult result = factory->create("/nowhere.m4a");
    ASSERT_FALSE(result);
    EXPECT_TRUE(result.error().contains(reason)) << result.error().toStdString();
  }
}

}  // namespace
}  // namespace mireval::test
