#include "localization/SymbolLabels.h"

#include <QLatin1StringView>

#include <algorithm>
#include <array>

namespace mireval {
namespace {

using namespace Qt::StringLiterals;

struct SymbolLabels {
  QLatin1StringView symbolName;
  /// In the order of `AppLanguage`.
  std::array<QStringView, allAppLanguages.size()> labels;
};

constexpr auto symbols = std::to_array<SymbolLabels>({
    {"chevron.left"_L1, {u"Previous", u"上一首", u"上一首", u"前の曲"}},
    {"play.fill"_L1, {u"Play", u"播放", u"播放", u"再生"}},
    {"pause.fill"_L1, {u"Pause", u"暂停", u"暫停", u"一時停止"}},
    {"chevron.right"_L1, {u"Next", u"下一首", u"下一首", u"次の曲"}},
});

static_assert(std::ranges::none_of(symbols,
                                   [](const SymbolLabels& symbol) {
                                     return std::ranges::any_of(symbol.labels, &QStringView::empty);
                                   }),
              "every symbol has a label in every language");

}  // namespace

QStringView symbolLabel(QStringView symbolName, AppLanguage language) {
  const auto* const match = std::ranges::find_if(
      symbols, [symbolName](const SymbolLabels& symbol) { return symbolName == symbol.symbolName; });
  return match == symbols.end() ? QStringView() : match->labels.at(static_cast<std::size_t>(language));
}

}  // namespace mireval
