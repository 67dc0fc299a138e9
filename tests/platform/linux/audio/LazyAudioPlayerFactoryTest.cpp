#include "platform/linux/audio/LazyAudioPlayerFactory.h"

#include "fakes/FakeNotices.h"

#include <gtest/gtest.h>

#include <QTemporaryDir>

#include <filesystem>
#include <fstream>
#include <string>
#include <utility>

namespace mireval::test {
namespace {

using namespace Qt::StringLiterals;

TEST(LazyAudioPlayerFactoryTest, LoadsTheModuleOnceHoweverOftenItIsWarmedUp) {
  for (const int warmUps : {0, 1, 2}) {
    FakeNotices notices;
    LazyAudioPlayerFactory factory(AUDIO_MODULE, notices);
    for (int i = 0; i < warmUps; ++i) {
      factory.warmUp();
    }
    EXPECT_EQ(factory.create("/nowhere.m4a", {}).error(), u"No such file or directory"_s);
    factory.warmUp();
  }
}

TEST(LazyAudioPlayerFactoryTest, LoadsTheModuleThatWasThereAtTheStart) {
  const QTemporaryDir folder;
  const std::filesystem::path module = folder.path().toStdString() + "/module.so";
  std::filesystem::copy_file(AUDIO_MODULE, module);
  FakeNotices notices;
  LazyAudioPlayerFactory factory(module, notices);
  // As an upgrade does it: the file of the same name is another one afterwards.
  std::ofstream(module.string() + ".new") << "another build's module";
  std::filesystem::rename(module.string() + ".new", module);
  EXPECT_EQ(factory.create("/nowhere.m4a", {}).error(), u"No such file or directory"_s);
}

TEST(LazyAudioPlayerFactoryTest, MayEndWhileTheModuleIsBeingLoaded) {
  FakeNotices notices;
  LazyAudioPlayerFactory factory(AUDIO_MODULE, notices);
  factory.coolDown();
  factory.warmUp();
  factory.coolDown();
  factory.warmUp();
}

TEST(LazyAudioPlayerFactoryTest, SaysWhyThereIsNoModule) {
  FakeNotices notices;
  LazyAudioPlayerFactory missing("/nowhere/libmireval-audio.so", notices);
  missing.warmUp();
  LazyAudioPlayerFactory noModule("libm.so.6", notices);
  for (auto& [factory, reason] : {std::pair(&missing, u"/nowhere/libmireval-audio.so"_s),
                                  {&noModule, u"mirevalMakeAudioPlayerFactory"_s}}) {
    const AudioPlayerResult result = factory->create("/nowhere.m4a", {});
    ASSERT_FALSE(result);
    EXPECT_TRUE(result.error().contains(reason)) << result.error().toStdString();
  }
}

}  // namespace
}  // namespace mireval::test
