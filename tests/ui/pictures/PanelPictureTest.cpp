#include "ui/PanelShape.h"
#include "ui/pictures/PictureFixture.h"

#include <QtTest/QTest>

#include <algorithm>
#include <array>
#include <string>
#include <tuple>

namespace mireval {
namespace {

using namespace Qt::StringLiterals;

enum class State { nothing, playing, paused, failed };

const char* nameOf(State state) {
  static constexpr std::array names{"nothing", "playing", "paused", "failed"};
  return names.at(static_cast<std::size_t>(state));
}

using Parameters = std::tuple<const char*, bool, State>;

std::string testName(const testing::TestParamInfo<Parameters>& info) {
  const auto& [language, dark, state] = info.param;
  std::string name = std::string(language) + (dark ? "_dark_" : "_light_") + nameOf(state);
  std::ranges::replace(name, '-', '_');
  return name;
}

class PanelPictureTest : public PictureFixture, public testing::WithParamInterface<Parameters> {
 protected:
  void bringAbout(PanelWindow& panel, State state) {
    switch (state) {
      case State::nothing:
        break;
      case State::playing:
        press(panel, "mode-scope");
        playTo(30);
        break;
      case State::paused:
        press(panel, "mode-wind");
        playTo(90);
        press(panel, "mode-wind");
        break;
      case State::failed:
        m_factory.failWith(u"no sound"_s);
        press(panel, "mode-sparkles");
        break;
    }
  }
};

TEST_P(PanelPictureTest, LooksAsEver) {
  const auto& [language, dark, state] = GetParam();
  m_systemLanguages.setPreferredLanguages({QString::fromUtf8(language)});
  m_colorScheme.setDark(dark);
  const auto panel = makePanel();
  bringAbout(*panel, state);
  compareWithReference(*panel,
                       u"panel-%1-%2-%3"_s.arg(QString::fromUtf8(language), dark ? u"dark"_s : u"light"_s,
                                               QString::fromUtf8(nameOf(state))));
}

INSTANTIATE_TEST_SUITE_P(All, PanelPictureTest,
                         testing::Combine(testing::Values("en", "zh-Hans", "zh-Hant", "ja"), testing::Bool(),
                                          testing::Values(State::nothing, State::playing, State::paused,
                                                          State::failed)),
                         testName);

class FocusPictureTest : public PictureFixture, public testing::WithParamInterface<bool> {};

TEST_P(FocusPictureTest, RingIsSeen) {
  m_colorScheme.setDark(GetParam());
  const auto panel = makePanel();
  press(*panel, "mode-scope");
  const QString scheme = GetParam() ? u"dark"_s : u"light"_s;
  struct Stop {
    Qt::Key key;
    int times;
    const char* name;
  };
  for (const Stop& stop : {Stop{Qt::Key_Home, 1, "selected"}, Stop{Qt::Key_Tab, 1, "unselected"},
                           Stop{Qt::Key_Tab, 4, "transport"}, Stop{Qt::Key_Tab, 2, "quit"}}) {
    for (int time = 0; time < stop.times; ++time) {
      QTest::keyClick(panel.get(), stop.key);
    }
    compareWithReference(*panel, u"focus-%1-%2"_s.arg(scheme, QString::fromUtf8(stop.name)));
  }
}

INSTANTIATE_TEST_SUITE_P(Schemes, FocusPictureTest, testing::Bool(),
                         [](const testing::TestParamInfo<bool>& info) {
                           return info.param ? "Dark" : "Light";
                         });

class OpenPanelPictureTest : public PictureFixture {};

TEST_F(OpenPanelPictureTest, FollowsLanguageAndSchemeWhileOpen) {
  const auto panel = makePanel();
  speak("ja");
  compareWithReference(*panel, u"panel-ja-light-nothing"_s);
  m_colorScheme.setDark(true);
  compareWithReference(*panel, u"panel-ja-dark-nothing"_s);
  speak("zh_CN");
  compareWithReference(*panel, u"panel-zh-Hans-dark-nothing"_s);
  m_colorScheme.setDark(false);
  speak("en_GB");
  compareWithReference(*panel, u"panel-en-light-nothing"_s);
}

TEST_F(OpenPanelPictureTest, FramedWindowGrowsWithTheTexts) {
  const auto panel = makeFramedPanel();
  int before = picture(*panel).height();
  for (const char* const language : {"ja", "en", "ja"}) {
    speak(language);
    int height = before;
    const auto hasFollowed = [&] {
      height = picture(*panel).height();
      return height != before && height == qRound(panel->rootObject()->height() * panel->devicePixelRatio());
    };
    EXPECT_TRUE(QTest::qWaitFor(hasFollowed, 2000)) << language;
    before = height;
  }
}

TEST_F(OpenPanelPictureTest, WindowAndContentChangeTheirSizeInTheSameFrame) {
  m_windowSystem.setBlends(false);
  const auto panel = makePanel();
  picture(*panel);
  int frames = 0;
  const auto look = [&] {
    const double scale = panel->devicePixelRatio();
    const QSize view = panel->rootObject()->size().toSize();
    EXPECT_LE(view.height(), panel->height());
    const QRegion& shape = m_windowSystem.dropDown()->shape();
    EXPECT_TRUE(shape == panelShape(view * scale, scale, 1, 28))
        << "a view of " << view.height() << " points in " << shape.boundingRect().height() << " pixels";
    ++frames;
  };
  const QMetaObject::Connection connection =
      QObject::connect(panel.get(), &QQuickWindow::frameSwapped, panel.get(), look, Qt::DirectConnection);
  for (const char* const language : {"ja", "en", "ja"}) {
    const int before = panel->height();
    frames = 0;
    speak(language);
    const auto hasFollowed = [&] {
      return frames > 0 && panel->height() != before && panel->height() == panel->rootObject()->height();
    };
    EXPECT_TRUE(QTest::qWaitFor(hasFollowed, 2000)) << language;
    // Whatever comes later would be seen, too.
    QTest::qWait(100);
  }
  QObject::disconnect(connection);
}

TEST_F(OpenPanelPictureTest, KeepsItsHeightWhenAnEnglishTitleReplacesAnotherScript) {
  speak("ja");
  const auto panel = makePanel();
  const int height = picture(*panel).height();
  press(*panel, "mode-scope");
  EXPECT_EQ(picture(*panel).height(), height);
}

}  // namespace
}  // namespace mireval
