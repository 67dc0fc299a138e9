#include "localization/SymbolLabels.h"

#include <QLatin1String>

#include <algorithm>
#include <array>

namespace mireval {
namespace {

struct SymbolLabels {
  QLatin1String symbolName;
  /// In the order of `AppLanguage`.
  std::array<QStringView, allAppLanguages.size()> labels;
};

constexpr auto symbols = std::to_array<SymbolLabels>({
    {QLatin1String("chevron.left"), {u"Previous", u"上一首", u"上一首", u"前の曲"}},
    {QLatin1String("play.fill"), {u"Play", u"播放", u"播放", u"再生"}},
    {QLatin1String("pause.fill"), {u"Pause", u"暂停", u"暫停", u"一時停止"}},
    {QLatin1String("chevron.right"), {u"Next", u"下一首", u"下一首", u"次の曲"}},
});

}  // namespace

QStringView symbolLabel(QStringView symbolName, AppLanguage language) {
  const auto* const match = std::ranges::find_if(
      symbols, [symbolName](const SymbolLabels& symbol) { return symbolName == symbol.symbolName; });
  return match == symbols.end() ? QStringView() : match->labels.at(static_cast<std::size_t>(language));
}

}  // namespace mireval
