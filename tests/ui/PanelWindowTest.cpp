#include "ui/PanelFixture.h"

#include <QAccessible>
#include <QImage>
#include <QMouseEvent>
#include <QSignalSpy>
#include <QtTest/QTest>

#include <algorithm>
#include <array>

namespace mireval {
namespace {

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

using PanelWindowTest = PanelFixture;

TEST_F(PanelWindowTest, BeforeAnythingHasPlayed) {
  const auto panel = makePanel();
  EXPECT_EQ(text(*panel, "title"), QStringLiteral("Select a mode"));
  EXPECT_EQ(text(*panel, "position"), QStringLiteral("1 / 3"));
  EXPECT_EQ(symbol(*panel, "transport-PlayPause"), QStringLiteral("play.fill"));
  EXPECT_EQ(item(*panel, "fill")->width(), 0);
  for (const ModeButton& button : modeButtons) {
    EXPECT_EQ(symbol(*panel, button.name), QString::fromUtf8(button.symbol));
    EXPECT_FALSE(item(*panel, button.name)->property("selected").toBool());
    EXPECT_DOUBLE_EQ(item(*panel, button.name)->opacity(), 0.98);
  }
}

TEST_F(PanelWindowTest, Sizes) {
  const auto panel = makePanel();
  EXPECT_EQ(panel->width(), 338);
  EXPECT_EQ(item(*panel, "progress")->height(), 4);
  EXPECT_EQ(item(*panel, "progress")->width(), 338 - 2 * 16 - 2 * 14);
  EXPECT_EQ(item(*panel, "transport-PlayPause")->width(), 34);
  double x = 16;
  for (const ModeButton& button : modeButtons) {
    const QQuickItem* const cell = item(*panel, button.name);
    EXPECT_DOUBLE_EQ(cell->mapToScene(QPointF()).x(), x);
    EXPECT_EQ(cell->mapToScene(QPointF()).y(), 16);
    EXPECT_DOUBLE_EQ(cell->width(), 67.5);
    EXPECT_EQ(cell->height(), 84);
    EXPECT_DOUBLE_EQ(item(*panel, button.name, "circle")->width(), 67.5);
    x += 67.5 + 12;
  }
}

TEST_F(PanelWindowTest, EachModeButtonStartsItsMode) {
  const auto panel = makePanel();
  for (const ModeButton& button : modeButtons) {
    press(*panel, button.name);
    EXPECT_EQ(m_controller->currentMood(), button.mood);
    EXPECT_TRUE(m_controller->isPlaying());
    EXPECT_EQ(text(*panel, "position"), QStringLiteral("1 / 16"));
    EXPECT_EQ(text(*panel, "title"), m_controller->currentTrack()->title);
    EXPECT_EQ(symbol(*panel, button.name), QString::fromUtf8(button.symbol));
    EXPECT_DOUBLE_EQ(item(*panel, button.name)->opacity(), 1.0);
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
  press(*panel, "transport-Next");
  press(*panel, "mode-wind");
  EXPECT_FALSE(m_controller->isPlaying());
  EXPECT_EQ(symbol(*panel, "mode-wind"), QStringLiteral("play.fill"));
  EXPECT_TRUE(item(*panel, "mode-wind")->property("selected").toBool());
  EXPECT_DOUBLE_EQ(item(*panel, "mode-wind")->opacity(), 0.98);
  press(*panel, "mode-wind");
  EXPECT_TRUE(m_controller->isPlaying());
  EXPECT_EQ(text(*panel, "position"), QStringLiteral("2 / 16"));
  EXPECT_EQ(m_factory.players().size(), 2U);
}

TEST_F(PanelWindowTest, PlayWithoutModeStartsFocus) {
  const auto panel = makePanel();
  press(*panel, "transport-PlayPause");
  EXPECT_EQ(m_controller->currentMood(), Mood::focus);
  EXPECT_TRUE(m_controller->isPlaying());
  EXPECT_EQ(symbol(*panel, "transport-PlayPause"), QStringLiteral("pause.fill"));
}

TEST_F(PanelWindowTest, PlayOnPausedModeRestartsIt) {
  const auto panel = makePanel();
  press(*panel, "mode-sparkles");
  press(*panel, "transport-Next");
  press(*panel, "transport-PlayPause");
  EXPECT_FALSE(m_controller->isPlaying());
  EXPECT_EQ(m_factory.players().size(), 2U);
  press(*panel, "transport-PlayPause");
  EXPECT_TRUE(m_controller->isPlaying());
  EXPECT_EQ(m_controller->currentMood(), Mood::creative);
  EXPECT_EQ(text(*panel, "position"), QStringLiteral("1 / 16"));
  EXPECT_EQ(m_factory.players().size(), 3U);
}

TEST_F(PanelWindowTest, NextAndPreviousJoinTheEnds) {
  const auto panel = makePanel();
  press(*panel, "transport-Next");
  press(*panel, "transport-Previous");
  EXPECT_TRUE(m_factory.players().empty());
  press(*panel, "mode-scope");
  press(*panel, "transport-Previous");
  EXPECT_EQ(text(*panel, "position"), QStringLiteral("16 / 16"));
  press(*panel, "transport-Next");
  EXPECT_EQ(text(*panel, "position"), QStringLiteral("1 / 16"));
}

TEST_F(PanelWindowTest, FailedModeIsSelectedAgainByItsButton) {
  const auto panel = makePanel();
  m_factory.failWith(QStringLiteral("no sound"));
  press(*panel, "mode-scope");
  EXPECT_FALSE(m_controller->isPlaying());
  EXPECT_EQ(symbol(*panel, "mode-scope"), QStringLiteral("play.fill"));
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

TEST_F(PanelWindowTest, KeyboardReachesEveryButton) {
  const auto panel = makePanel();
  QStringList labels;
  for (int count = 0; count < 8; ++count) {
    QTest::keyClick(panel.get(), Qt::Key_Tab);
    labels << panel->activeFocusItem()->property("label").toString();
  }
  EXPECT_EQ(labels.join(QLatin1Char(' ')),
            QStringLiteral("Focus Tempo Create Relax Previous Play Next Quit"));
}

TEST_F(PanelWindowTest, SpaceAndReturnPress) {
  const auto panel = makePanel();
  QTest::keyClick(panel.get(), Qt::Key_Tab);
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
    EXPECT_EQ(accessible->role(), QAccessible::Button);
    EXPECT_EQ(accessible->text(QAccessible::Name), QString::fromUtf8(button.title));
    accessible->actionInterface()->doAction(QAccessibleActionInterface::pressAction());
    EXPECT_EQ(m_controller->currentMood(), button.mood);
  }
}

TEST_F(PanelWindowTest, EscapeDismissesADropDown) {
  const auto panel = makePanel();
  const QSignalSpy dismissed(panel.get(), &PanelWindow::dismissed);
  QTest::keyClick(panel.get(), Qt::Key_Escape);
  EXPECT_EQ(dismissed.size(), 1);
  EXPECT_FALSE(panel->isVisible());
}

TEST_F(PanelWindowTest, ClickOutsideDismissesADropDownOnRelease) {
  const auto panel = makePanel();
  const QSignalSpy dismissed(panel.get(), &PanelWindow::dismissed);
  const QPointF outside(-20, 50);
  QMouseEvent press(QEvent::MouseButtonPress, outside, outside, Qt::LeftButton, Qt::LeftButton, {});
  QCoreApplication::sendEvent(panel.get(), &press);
  EXPECT_TRUE(panel->isVisible());
  QMouseEvent release(QEvent::MouseButtonRelease, outside, outside, Qt::LeftButton, Qt::NoButton, {});
  QCoreApplication::sendEvent(panel.get(), &release);
  EXPECT_FALSE(panel->isVisible());
  EXPECT_EQ(dismissed.size(), 1);
}

TEST_F(PanelWindowTest, FramedWindowStaysUntilItIsClosed) {
  const auto panel = makePanel(PanelWindow::Style::framed);
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
