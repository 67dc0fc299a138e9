#include "ui/SettingsWindow.h"

#include "ui/pictures/PictureFixture.h"

#include <QtTest/QTest>

#include <algorithm>
#include <string>
#include <tuple>

namespace mireval {
namespace {

using namespace Qt::StringLiterals;

using SettingsParameters = std::tuple<const char*, bool>;

std::string nameOfSettingsTest(const testing::TestParamInfo<SettingsParameters>& info) {
  const auto& [language, dark] = info.param;
  std::string name = std::string(language) + (dark ? "_dark" : "_light");
  std::ranges::replace(name, '-', '_');
  return name;
}

class SettingsPictureTest : public PictureFixture, public testing::WithParamInterface<SettingsParameters> {};

TEST_P(SettingsPictureTest, LooksAsEver) {
  const auto& [language, dark] = GetParam();
  m_systemLanguages.setPreferredLanguages({QString::fromUtf8(language)});
  m_colorScheme.setDark(dark);
  SettingsWindow window("", m_localization, m_colorScheme);
  window.open();
  ASSERT_TRUE(QTest::qWaitForWindowExposed(&window));
  const QImage seen = picture(window);
  EXPECT_EQ(seen.width(), 340 * window.devicePixelRatio());
  // The card's fill between the texts and its right edge, and the same beyond its corner.
  const QColor canvas = dark ? QColor(13, 16, 21) : QColor(246, 243, 237);
  EXPECT_EQ(seen.pixelColor(seen.width() * 9 / 10, seen.height() * 8 / 10), canvas);
  EXPECT_EQ(seen.pixelColor(0, 0), canvas);
  compareWithReference(window,
                       u"settings-%1-%2"_s.arg(QString::fromUtf8(language), dark ? u"dark"_s : u"light"_s));
}

INSTANTIATE_TEST_SUITE_P(All, SettingsPictureTest,
                         testing::Combine(testing::Values("en", "zh-Hans", "zh-Hant", "ja"), testing::Bool()),
                         nameOfSettingsTest);

class OpenSettingsPictureTest : public PictureFixture {};

TEST_F(OpenSettingsPictureTest, FollowsLanguageAndSchemeWhileOpen) {
  speak("zh-Hant-TW");
  SettingsWindow window("", m_localization, m_colorScheme);
  window.open();
  ASSERT_TRUE(QTest::qWaitForWindowExposed(&window));
  compareWithReference(window, u"settings-zh-Hant-light"_s);
  m_colorScheme.setDark(true);
  compareWithReference(window, u"settings-zh-Hant-dark"_s);
  speak("ja");
  compareWithReference(window, u"settings-ja-dark"_s);
  speak("fr");
  compareWithReference(window, u"settings-en-dark"_s);
}

}  // namespace
}  // namespace mireval
