#include "localization/SymbolLabels.h"
#include "support/QtPrinters.h"

#include <gtest/gtest.h>

namespace mireval {
namespace {

using namespace Qt::StringLiterals;

TEST(SymbolLabelsTest, LabelsOfEachTransportSymbol) {
  struct Row {
    QString symbolName;
    QString english;
    QString chineseSimplified;
    QString chineseTraditional;
    QString japanese;
  };
  for (const auto& [symbolName, english, chineseSimplified, chineseTraditional, japanese] : {
           Row{u"chevron.left"_s, u"Previous"_s, u"上一首"_s, u"上一首"_s, u"前の曲"_s},
           Row{u"play.fill"_s, u"Play"_s, u"播放"_s, u"播放"_s, u"再生"_s},
           Row{u"pause.fill"_s, u"Pause"_s, u"暂停"_s, u"暫停"_s, u"一時停止"_s},
           Row{u"chevron.right"_s, u"Next"_s, u"下一首"_s, u"下一首"_s, u"次の曲"_s},
       }) {
    EXPECT_EQ(symbolLabel(symbolName, AppLanguage::english), english);
    EXPECT_EQ(symbolLabel(symbolName, AppLanguage::chineseSimplified), chineseSimplified);
    EXPECT_EQ(symbolLabel(symbolName, AppLanguage::chineseTraditional), chineseTraditional);
    EXPECT_EQ(symbolLabel(symbolName, AppLanguage::japanese), japanese);
  }
}

TEST(SymbolLabelsTest, OtherSymbolsHaveNone) {
  for (const QString& symbolName :
       {QString(), u""_s, u"play"_s, u"Play.fill"_s, u"wind"_s, u"play.fill "_s}) {
    for (const AppLanguage language : allAppLanguages) {
      EXPECT_TRUE(symbolLabel(symbolName, language).isEmpty()) << symbolName.toStdString();
    }
  }
}

}  // namespace
}  // namespace mireval
