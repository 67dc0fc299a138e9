#include "localization/SpokenLabels.h"

#include <QLatin1StringView>

#include <algorithm>
#include <array>

namespace mireval {
namespace {

using namespace Qt::StringLiterals;

struct SpokenLabels {
  QLatin1StringView name;
  /// In the order of `AppLanguage`.
  std::array<QStringView, allAppLanguages.size()> labels;
};

constexpr auto spokenLabels = std::to_array<SpokenLabels>({
    {"chevron.left"_L1, {u"Previous", u"上一首", u"上一首", u"前の曲"}},
    {"play.fill"_L1, {u"Play", u"播放", u"播放", u"再生"}},
    {"pause.fill"_L1, {u"Pause", u"暂停", u"暫停", u"一時停止"}},
    {"chevron.right"_L1, {u"Next", u"下一首", u"下一首", u"次の曲"}},
    {"modes"_L1, {u"Modes", u"模式", u"模式", u"モード"}},
    {"playing"_L1, {u"Playing", u"正在播放", u"正在播放", u"再生中"}},
    {"paused"_L1, {u"Paused", u"已暂停", u"已暫停", u"一時停止中"}},
});

static_assert(std::ranges::none_of(spokenLabels,
                                   [](const SpokenLabels& spoken) {
                                     return std::ranges::any_of(spoken.labels, &QStringView::empty);
                                   }),
              "every name has a label in every language");

}  // namespace

QStringView spokenLabel(QStringView name, AppLanguage language) {
  const auto* const match =
      std::ranges::find_if(spokenLabels, [name](const SpokenLabels& spoken) { return name == spoken.name; });
  return match == spokenLabels.end() ? QStringView() : match->labels.at(static_cast<std::size_t>(language));
}

}  // namespace mireval
