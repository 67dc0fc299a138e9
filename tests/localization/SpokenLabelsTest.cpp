#include "localization/SpokenLabels.h"
#include "support/QtPrinters.h"

#include <gtest/gtest.h>

namespace mireval {
namespace {

using namespace Qt::StringLiterals;

TEST(SpokenLabelsTest, LabelsOfEachSymbolAndState) {
  struct Row {
    QString name;
    QString english;
    QString chineseSimplified;
    QString chineseTraditional;
    QString japanese;
  };
  for (const auto& [name, english, chineseSimplified, chineseTraditional, japanese] : {
           Row{u"chevron.left"_s, u"Previous"_s, u"上一首"_s, u"上一首"_s, u"前の曲"_s},
           Row{u"play.fill"_s, u"Play"_s, u"播放"_s, u"播放"_s, u"再生"_s},
           Row{u"pause.fill"_s, u"Pause"_s, u"暂停"_s, u"暫停"_s, u"一時停止"_s},
           Row{u"chevron.right"_s, u"Next"_s, u"下一首"_s, u"下一首"_s, u"次の曲"_s},
           Row{u"modes"_s, u"Modes"_s, u"模式"_s, u"模式"_s, u"モード"_s},
           Row{u"playing"_s, u"Playing"_s, u"正在播放"_s, u"正在播放"_s, u"再生中"_s},
           Row{u"paused"_s, u"Paused"_s, u"已暂停"_s, u"已暫停"_s, u"一時停止中"_s},
       }) {
    EXPECT_EQ(spokenLabel(name, AppLanguage::english), english);
    EXPECT_EQ(spokenLabel(name, AppLanguage::chineseSimplified), chineseSimplified);
    EXPECT_EQ(spokenLabel(name, AppLanguage::chineseTraditional), chineseTraditional);
    EXPECT_EQ(spokenLabel(name, AppLanguage::japanese), japanese);
  }
}

TEST(SpokenLabelsTest, OtherNamesHaveNone) {
  for (const QString& name : {QString(), u""_s, u"play"_s, u"Play.fill"_s, u"wind"_s, u"play.fill "_s}) {
    for (const AppLanguage language : allAppLanguages) {
      EXPECT_TRUE(spokenLabel(name, language).isEmpty()) << name.toStdString();
    }
  }
}

}  // namespace
}  // namespace mireval
