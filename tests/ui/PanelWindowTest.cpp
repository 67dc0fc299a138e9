#include "ui/PanelFixture.h"

#include <QAccessible>
#include <QGuiApplication>
#include <QImage>
#include <QScreen>
#include <QSignalSpy>
#include <QStyleHints>
#include <QtTest/QTest>

#include <algorithm>
#include <array>
#include <cmath>

namespace mireval {
namespace {

using namespace Qt::StringLiterals;

struct ModeButton {
  const char* name;
  const char* symbol;
  const char* title;
  Mood mood;
};

constexpr std::array modeButtons{ModeButton{"mode-scope", "scope", "Focus", Mood::focus},
                                 ModeButton{"mode-metronome", "metronome", "Tempo", Mood::tempo},
                                 ModeButton{"mode-sparkles", "sparkles", "Create", Mood::creative},
                                 ModeButton{"mode-wind", "wind", "Relax", Mood::relaxation}};

class PanelWindowTest : public PanelFixture {
 protected:
  /// Of the button as a whole.
  double opacity(const PanelWindow& panel, const char* button) const {
    const QQuickItem* const veil = item(panel, button, "veil");
    return veil->isVisible() ? 1 - veil->opacity() : 1;
  }
};

TEST_F(PanelWindowTest, BeforeAnythingHasPlayed) {
  const auto panel = makePanel();
  EXPECT_EQ(text(*panel, "title"), u"Select a mode"_s);
  EXPECT_EQ(text(*panel, "position"), u"1 / 3"_s);
  EXPECT_EQ(symbol(*panel, "transport-playPause"), u"play.fill"_s);
  EXPECT_EQ(item(*panel, "fill")->width(), 0);
  for (const ModeButton& button : modeButtons) {
    EXPECT_EQ(symbol(*panel, button.name), QString::fromUtf8(button.symbol));
    EXPECT_FALSE(item(*panel, button.name)->property("selected").toBool());
    EXPECT_DOUBLE_EQ(opacity(*panel, button.name), 0.98);
  }
}

TEST_F(PanelWindowTest, Sizes) {
  const auto panel = makePanel();
  EXPECT_EQ(item(*panel, "panel")->width(), 338);
  // Around it is room for the outer half of its outline.
  EXPECT_EQ(item(*panel, "panel")->mapToScene(QPointF()), QPointF(1, 1));
  EXPECT_EQ(panel->width(), 1 + 338 + 1);
  EXPECT_EQ(panel->height(), 1 + item(*panel, "panel")->height() + 1);
  EXPECT_EQ(panel->minimumSize(), panel->size());
  EXPECT_EQ(panel->maximumSize(), panel->size());
  EXPECT_EQ(item(*panel, "progress")->height(), 4);
  EXPECT_EQ(item(*panel, "progress")->width(), 338 - 2 * 16 - 2 * 14);
  EXPECT_EQ(item(*panel, "transport-playPause")->width(), 34);
  double x = 1 + 16;
  for (const ModeButton& button : modeButtons) {
    const QQuickItem* const cell = item(*panel, button.name);
    EXPECT_DOUBLE_EQ(cell->mapToScene(QPointF()).x(), x);
    EXPECT_EQ(cell->mapToScene(QPointF()).y(), 1 + 16);
    EXPECT_DOUBLE_EQ(cell->width(), 67.5);
    EXPECT_EQ(cell->height(), 84);
    EXPECT_DOUBLE_EQ(item(*panel, button.name, "circle")->width(), 67.5);
    x += 67.5 + 12;
  }
}

TEST_F(PanelWindowTest, SymbolsAndTitlesShareTheCentreOfTheirButton) {
  const auto panel = makePanel();
  const auto centre = [&](const char* name, const char* inside = nullptr) {
    const QQuickItem* const found = item(*panel, name, inside);
    return found->mapToScene(QRectF({}, found->size()).center());
  };
  for (const char* const language : {"en", "ja"}) {
    speak(language);
    for (const char* const mode : {"mode-scope", "mode-metronome", "mode-sparkles", "mode-wind"}) {
      // On whole pixels, because a point is a pixel here.
      EXPECT_EQ(centre(mode, "symbol"), centre(mode, "symbol").toPoint()) << language << " " << mode;
      EXPECT_LE(std::abs(centre(mode, "symbol").x() - centre(mode).x()), 0.25) << language << " " << mode;
      // A title's ink need not be in the middle of its item.
      EXPECT_NEAR(centre(mode, "modeTitle").x(), centre(mode).x(), 1.5) << language << " " << mode;
    }
  }
  for (const char* const button : {"transport-previous", "transport-playPause", "transport-next"}) {
    EXPECT_EQ(centre(button, "symbol"), centre(button)) << button;
  }
}

TEST_F(PanelWindowTest, EachModeButtonStartsItsMode) {
  const auto panel = makePanel();
  for (const ModeButton& button : modeButtons) {
    press(*panel, button.name);
    EXPECT_EQ(m_controller->currentMood(), button.mood);
    EXPECT_TRUE(m_controller->isPlaying());
    EXPECT_EQ(text(*panel, "position"), u"1 / 16"_s);
    EXPECT_EQ(text(*panel, "title"), m_controller->currentTrack()->title);
    EXPECT_EQ(symbol(*panel, button.name), QString::fromUtf8(button.symbol));
    EXPECT_DOUBLE_EQ(opacity(*panel, button.name), 1.0);
    for (const ModeButton& other : modeButtons) {
      EXPECT_EQ(item(*panel, other.name)->property("selected").toBool(), &other == &button);
    }
  }
  EXPECT_EQ(m_factory.players().size(), modeButtons.size());
}

TEST_F(PanelWindowTest, CornerOfModeCellIsPartOfTheButton) {
  const auto panel = makePanel();
  const QQuickItem* const cell = item(*panel, "mode-metronome");
  QTest::mouseClick(panel.get(), Qt::LeftButton, {}, cell->mapToScene(QPointF(2, 2)).toPoint());
  EXPECT_EQ(m_controller->currentMood(), Mood::tempo);
}

TEST_F(PanelWindowTest, SelectedModePausesAndResumesItsTrack) {
  const auto panel = makePanel();
  press(*panel, "mode-wind");
  press(*panel, "transport-next");
  press(*panel, "mode-wind");
  EXPECT_FALSE(m_controller->isPlaying());
  EXPECT_EQ(symbol(*panel, "mode-wind"), u"play.fill"_s);
  EXPECT_TRUE(item(*panel, "mode-wind")->property("selected").toBool());
  EXPECT_DOUBLE_EQ(opacity(*panel, "mode-wind"), 0.98);
  press(*panel, "mode-wind");
  EXPECT_TRUE(m_controller->isPlaying());
  EXPECT_EQ(text(*panel, "position"), u"2 / 16"_s);
  EXPECT_EQ(m_factory.players().size(), 2U);
}

TEST_F(PanelWindowTest, PlayWithoutModeStartsFocus) {
  const auto panel = makePanel();
  press(*panel, "transport-playPause");
  EXPECT_EQ(m_controller->currentMood(), Mood::focus);
  EXPECT_TRUE(m_controller->isPlaying());
  EXPECT_EQ(symbol(*panel, "transport-playPause"), u"pause.fill"_s);
}

TEST_F(PanelWindowTest, PlayOnPausedModeRestartsIt) {
  const auto panel = makePanel();
  press(*panel, "mode-sparkles");
  press(*panel, "transport-next");
  press(*panel, "transport-playPause");
  EXPECT_FALSE(m_controller->isPlaying());
  EXPECT_EQ(m_factory.players().size(), 2U);
  press(*panel, "transport-playPause");
  EXPECT_TRUE(m_controller->isPlaying());
  EXPECT_EQ(m_controller->currentMood(), Mood::creative);
  EXPECT_EQ(text(*panel, "position"), u"1 / 16"_s);
  EXPECT_EQ(m_factory.players().size(), 3U);
}

TEST_F(PanelWindowTest, NextAndPreviousJoinTheEnds) {
  const auto panel = makePanel();
  press(*panel, "transport-next");
  press(*panel, "transport-previous");
  EXPECT_TRUE(m_factory.players().empty());
  press(*panel, "mode-scope");
  press(*panel, "transport-previous");
  EXPECT_EQ(text(*panel, "position"), u"16 / 16"_s);
  press(*panel, "transport-next");
  EXPECT_EQ(text(*panel, "position"), u"1 / 16"_s);
}

TEST_F(PanelWindowTest, FailedModeIsSelectedAgainByItsButton) {
  const auto panel = makePanel();
  m_factory.failWith(u"no sound"_s);
  press(*panel, "mode-scope");
  EXPECT_FALSE(m_controller->isPlaying());
  EXPECT_EQ(symbol(*panel, "mode-scope"), u"play.fill"_s);
  EXPECT_EQ(text(*panel, "title"), m_controller->currentTrack()->title);
}

TEST_F(PanelWindowTest, BarFollowsTheProgress) {
  const auto panel = makePanel();
  press(*panel, "mode-scope");
  m_factory.newest().currentTime = 30;
  m_runLoop.tick();
  m_mainThread.runAll();
  EXPECT_DOUBLE_EQ(item(*panel, "fill")->width(), 278 * 30.0 / 120);
}

TEST_F(PanelWindowTest, ColourSchemeSwapsInkAndPaper) {
  const auto panel = makePanel();
  const int height = panel->height();
  press(*panel, "mode-scope");
  const QPoint paper(169, 8);
  const QPoint circle = item(*panel, "mode-scope")->mapToScene(QPointF(33, 14)).toPoint();
  const QImage light = panel->grabWindow();
  EXPECT_EQ(light.pixelColor(paper), QColor(Qt::white));
  EXPECT_EQ(light.pixelColor(circle), QColor(Qt::black));
  EXPECT_EQ(panel->color().alpha(), 0);
  m_colorScheme.setDark(true);
  const QImage dark = panel->grabWindow();
  EXPECT_EQ(dark.pixelColor(paper), QColor(Qt::black));
  EXPECT_EQ(dark.pixelColor(circle), QColor(Qt::white));
  EXPECT_EQ(panel->height(), height);
}

TEST_F(PanelWindowTest, EveryPixelIsGrey) {
  const auto panel = makePanel();
  press(*panel, "mode-wind");
  const QImage image = panel->grabWindow();
  for (int y = 0; y < image.height(); ++y) {
    for (int x = 0; x < image.width(); ++x) {
      const QColor color = image.pixelColor(x, y);
      const auto [low, high] = std::minmax({color.red(), color.green(), color.blue()});
      ASSERT_LE(high - low, 1) << x << "," << y;
    }
  }
}

TEST_F(PanelWindowTest, QuitAsksForTheEnd) {
  const auto panel = makePanel();
  const QSignalSpy quit(panel.get(), &PanelWindow::quitRequested);
  press(*panel, "quit");
  EXPECT_EQ(quit.size(), 1);
}

TEST_F(PanelWindowTest, SpaceAndReturnPress) {
  const auto panel = makePanel();
  QTest::keyClick(panel.get(), Qt::Key_Space);
  EXPECT_EQ(m_controller->currentMood(), Mood::focus);
  QTest::keyClick(panel.get(), Qt::Key_Tab);
  QTest::keyClick(panel.get(), Qt::Key_Return);
  EXPECT_EQ(m_controller->currentMood(), Mood::tempo);
}

TEST_F(PanelWindowTest, ButtonsTellTheirNames) {
  const auto panel = makePanel();
  for (const ModeButton& button : modeButtons) {
    QAccessibleInterface* const accessible = QAccessible::queryAccessibleInterface(item(*panel, button.name));
    ASSERT_NE(accessible, nullptr);
    EXPECT_EQ(accessible->role(), QAccessible::RadioButton);
    EXPECT_EQ(accessible->text(QAccessible::Name), QString::fromUtf8(button.title));
    accessible->actionInterface()->doAction(QAccessibleActionInterface::pressAction());
    EXPECT_EQ(m_controller->currentMood(), button.mood);
  }
}

TEST_F(PanelWindowTest, ButtonsTellTheirNamesInEveryLanguage) {
  m_systemLanguages.setPreferredLanguages({u"ja"_s});
  const auto panel = makePanel();
  const auto name = [&](const char* button) {
    QAccessibleInterface* const accessible = QAccessible::queryAccessibleInterface(item(*panel, button));
    return accessible == nullptr ? QString() : accessible->text(QAccessible::Name);
  };
  EXPECT_EQ(name("mode-wind"), u"リラックス"_s);
  EXPECT_EQ(name("transport-previous"), u"前の曲"_s);
  EXPECT_EQ(name("transport-playPause"), u"再生"_s);
  EXPECT_EQ(name("transport-next"), u"次の曲"_s);
  EXPECT_EQ(name("quit"), u"終了"_s);
  EXPECT_EQ(name("position"), u"1 / 3"_s);
  press(*panel, "mode-wind");
  EXPECT_EQ(name("transport-playPause"), u"一時停止"_s);
  speak("zh_TW");
  EXPECT_EQ(name("mode-wind"), u"放鬆"_s);
  EXPECT_EQ(name("transport-playPause"), u"暫停"_s);
}

TEST_F(PanelWindowTest, LanguageChangesInTheOpenPanel) {
  const auto panel = makePanel();
  const auto modeTitle = [&](const char* button) {
    return item(*panel, button, "modeTitle")->property("text").toString();
  };
  struct Language {
    const char* tag;
    QString caption;
    QString placeholder;
    QString focus;
    QString tempo;
    QString creative;
    QString relaxation;
    QString quit;
  };
  const std::array languages{Language{"zh-Hans", u"正在播放"_s, u"选择一个分类"_s, u"聚焦"_s, u"节奏"_s,
                                      u"创意"_s, u"放松"_s, u"退出"_s},
                             Language{"zh-Hant", u"正在播放"_s, u"選擇一個分類"_s, u"聚焦"_s, u"節奏"_s,
                                      u"創意"_s, u"放鬆"_s, u"退出"_s},
                             Language{"ja", u"再生中"_s, u"カテゴリを選択"_s, u"集中"_s, u"テンポ"_s,
                                      u"創造"_s, u"リラックス"_s, u"終了"_s},
                             Language{"en", u"Now Playing"_s, u"Select a mode"_s, u"Focus"_s, u"Tempo"_s,
                                      u"Create"_s, u"Relax"_s, u"Quit"_s}};
  for (const Language& language : languages) {
    speak(language.tag);
    EXPECT_EQ(text(*panel, "caption"), language.caption);
    EXPECT_EQ(text(*panel, "title"), language.placeholder);
    EXPECT_EQ(modeTitle("mode-scope"), language.focus);
    EXPECT_EQ(modeTitle("mode-metronome"), language.tempo);
    EXPECT_EQ(modeTitle("mode-sparkles"), language.creative);
    EXPECT_EQ(modeTitle("mode-wind"), language.relaxation);
    EXPECT_EQ(item(*panel, "quit")->property("label").toString(), language.quit);
  }
  m_localization.setLanguageOption(AppLanguageOption::japanese);
  EXPECT_EQ(text(*panel, "caption"), u"再生中"_s);
}

TEST_F(PanelWindowTest, WindowFollowsTheHeightOfTheTexts) {
  const auto panel = makePanel();
  for (const char* const language : {"ja", "en", "zh-Hans"}) {
    speak(language);
    EXPECT_EQ(panel->height(), item(*panel, "panel")->height() + 2) << language;
    EXPECT_EQ(panel->minimumSize(), panel->size()) << language;
    const QQuickItem* const quit = item(*panel, "quitText");
    EXPECT_LT(quit->mapToScene(QPointF(0, quit->height())).y(), panel->height() - 16) << language;
  }
}

TEST_F(PanelWindowTest, DropDownAboveTheIconStaysAboveItWhenItGrows) {
  const QRect screen = QGuiApplication::primaryScreen()->geometry();
  const auto panel = makePanel({screen.bottomLeft() + QPoint(400, -10), QSize(1, 1)});
  const int bottom = panel->geometry().bottom();
  QQuickItem* const surface = panel->rootObject();
  surface->setHeight(surface->height() + 12);
  EXPECT_TRUE(QTest::qWaitFor(
      [&] { return panel->height() == surface->height() && panel->geometry().bottom() == bottom; }, 2000));
}

TEST_F(PanelWindowTest, LongTitleIsCutToOneLine) {
  const auto panel = makePanel();
  press(*panel, "mode-scope");
  QQuickItem* const title = item(*panel, "title");
  const qreal height = title->height();
  title->setProperty("text", u"wide "_s.repeated(100));
  EXPECT_TRUE(title->property("truncated").toBool());
  EXPECT_EQ(title->width(), 278);
  EXPECT_EQ(title->height(), height);
}

TEST_F(PanelWindowTest, SettingsCommandIsPassedOn) {
  const auto panel = makePanel();
  const QSignalSpy settings(panel.get(), &PanelWindow::settingsRequested);
  QTest::keyClick(panel.get(), Qt::Key_Comma);
  EXPECT_EQ(settings.size(), 0);
  QTest::keyClick(panel.get(), Qt::Key_Comma, Qt::ControlModifier);
  EXPECT_EQ(settings.size(), 1);
}

TEST_F(PanelWindowTest, MediaKeysAreLeftToTheDesktop) {
  const auto panel = makePanel();
  QTest::keyClick(panel.get(), Qt::Key_Tab);
  for (const Qt::Key key : {Qt::Key_MediaPlay, Qt::Key_MediaTogglePlayPause, Qt::Key_MediaNext}) {
    QKeyEvent press(QEvent::KeyPress, key, Qt::NoModifier);
    press.ignore();
    QCoreApplication::sendEvent(panel.get(), &press);
    EXPECT_FALSE(press.isAccepted());
  }
  EXPECT_FALSE(m_controller->isPlaying());
}

TEST_F(PanelWindowTest, EscapeDismissesADropDown) {
  const auto panel = makePanel();
  const QSignalSpy dismissed(panel.get(), &PanelWindow::dismissed);
  QTest::keyClick(panel.get(), Qt::Key_Escape);
  EXPECT_EQ(dismissed.size(), 1);
  EXPECT_FALSE(panel->isVisible());
}

TEST_F(PanelWindowTest, ClickOutsideDismissesADropDown) {
  const auto panel = makePanel();
  const QSignalSpy dismissed(panel.get(), &PanelWindow::dismissed);
  Q_EMIT m_windowSystem.dropDown()->clickedOutside();
  EXPECT_FALSE(panel->isVisible());
  EXPECT_EQ(dismissed.size(), 1);
}

TEST_F(PanelWindowTest, SecondClickOfADoubleClickOnTheIconDoesNotDismissADropDown) {
  const auto panel = makePanel();
  QGuiApplication::styleHints()->setMouseDoubleClickInterval(60'000);
  Q_EMIT m_windowSystem.dropDown()->clickedOutside();
  EXPECT_TRUE(panel->isVisible());
  QGuiApplication::styleHints()->setMouseDoubleClickInterval(0);
  Q_EMIT m_windowSystem.dropDown()->clickedOutside();
  EXPECT_FALSE(panel->isVisible());
}

TEST_F(PanelWindowTest, QuickClickElsewhereDismissesADropDown) {
  const auto panel = makePanel();
  QGuiApplication::styleHints()->setMouseDoubleClickInterval(60'000);
  QCursor::setPos(QCursor::pos() + QPoint(0, 50));
  Q_EMIT m_windowSystem.dropDown()->clickedOutside();
  EXPECT_FALSE(panel->isVisible());
}

TEST_F(PanelWindowTest, DropDownStaysOpenBesideTheSettings) {
  const auto panel = makePanel();
  panel->setSettingsOpen(true);
  EXPECT_FALSE(m_windowSystem.dropDown()->isExclusive());
  QFocusEvent loss(QEvent::FocusOut);
  QCoreApplication::sendEvent(panel.get(), &loss);
  EXPECT_TRUE(panel->isVisible());
  panel->setSettingsOpen(false);
  EXPECT_TRUE(m_windowSystem.dropDown()->isExclusive());
  const int activations = m_windowSystem.dropDown()->activations();
  // The window manager looks for the next window.
  QCoreApplication::sendEvent(panel.get(), &loss);
  EXPECT_TRUE(panel->isVisible());
  EXPECT_EQ(m_windowSystem.dropDown()->activations(), activations + 1);
  QTest::qWait(400);
  QCoreApplication::sendEvent(panel.get(), &loss);
  EXPECT_FALSE(panel->isVisible());
}

TEST_F(PanelWindowTest, FramedWindowStaysUntilItIsClosed) {
  const auto panel = makeFramedPanel();
  const QSignalSpy dismissed(panel.get(), &PanelWindow::dismissed);
  QTest::keyClick(panel.get(), Qt::Key_Escape);
  EXPECT_TRUE(panel->isVisible());
  EXPECT_EQ(panel->grabWindow().pixelColor(0, 0), QColor(Qt::white));
  panel->close();
  EXPECT_FALSE(panel->isVisible());
  EXPECT_EQ(dismissed.size(), 1);
}

}  // namespace
}  // namespace mireval
