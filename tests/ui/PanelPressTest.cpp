#include "ui/PanelFixture.h"

#include <QGuiApplication>
#include <QImage>
#include <QPointingDevice>
#include <QSignalSpy>
#include <QStyleHints>
#include <QtTest/QTest>

#include <array>
#include <memory>

namespace mireval {
namespace {

using namespace Qt::StringLiterals;

constexpr std::array pressableButtons{
    "mode-scope",         "mode-metronome",      "mode-sparkles",  "mode-wind",
    "transport-previous", "transport-playPause", "transport-next", "quit"};
constexpr double dimmed = 0.5;

/// Presses, holds and releases buttons of a panel in which nothing plays.
class PanelPressTest : public PanelFixture {
 protected:
  QPoint centreOf(const char* button) const {
    const QQuickItem* const found = item(*m_panel, button);
    return found->mapToScene(found->boundingRect().center()).toPoint();
  }

  QRectF sceneRectangle(const char* name) const {
    const QQuickItem* const found = item(*m_panel, name);
    return found->mapRectToScene(found->boundingRect());
  }

  double opacityOf(const char* button) const { return item(*m_panel, button)->opacity(); }

  void hold(const char* button) { QTest::mousePress(m_panel.get(), Qt::LeftButton, {}, centreOf(button)); }
  void release(QPoint place) { QTest::mouseRelease(m_panel.get(), Qt::LeftButton, {}, place); }

  const std::unique_ptr<PanelWindow> m_panel = makePanel();
  const QSignalSpy m_quit{m_panel.get(), &PanelWindow::quitRequested};
  // Between the sections.
  static constexpr QPoint elsewhere{170, 110};
};

TEST_F(PanelPressTest, AButtonIsDimWhileItIsHeldAndActsWhenItIsReleased) {
  for (const char* const button : pressableButtons) {
    hold(button);
    for (const char* const other : pressableButtons) {
      EXPECT_DOUBLE_EQ(opacityOf(other), other == button ? dimmed : 1) << other;
    }
    EXPECT_TRUE(m_factory.players().empty());
    release(elsewhere);
    EXPECT_DOUBLE_EQ(opacityOf(button), 1) << button;
  }
  EXPECT_TRUE(m_factory.players().empty());
  EXPECT_EQ(m_quit.size(), 0);

  hold("mode-wind");
  release(centreOf("mode-wind"));
  EXPECT_EQ(m_controller->currentMood(), Mood::relaxation);
  EXPECT_DOUBLE_EQ(opacityOf("mode-wind"), 1);
}

TEST_F(PanelPressTest, DimmingIsSeen) {
  press(*m_panel, "mode-scope");
  // Ink of the circle, beside its symbol and its title.
  const QPoint ink = centreOf("mode-scope") + QPoint(0, -25);
  EXPECT_EQ(m_panel->grabWindow().pixelColor(ink).red(), 0);
  hold("mode-scope");
  EXPECT_NEAR(m_panel->grabWindow().pixelColor(ink).red(), 128, 2);
  release(centreOf("mode-scope"));
  EXPECT_NEAR(m_panel->grabWindow().pixelColor(ink).red(), 255 * (1 - 0.98), 2);
}

TEST_F(PanelPressTest, AButtonIsDimOnlyWhileTheHeldPointerIsOnIt) {
  hold("mode-scope");
  QTest::mouseMove(m_panel.get(), elsewhere);
  EXPECT_DOUBLE_EQ(opacityOf("mode-scope"), 1);
  QTest::mouseMove(m_panel.get(), centreOf("mode-metronome"));
  EXPECT_DOUBLE_EQ(opacityOf("mode-metronome"), 1);
  QTest::mouseMove(m_panel.get(), centreOf("mode-scope"));
  EXPECT_DOUBLE_EQ(opacityOf("mode-scope"), dimmed);
  QTest::mouseMove(m_panel.get(), centreOf("mode-metronome"));
  release(centreOf("mode-metronome"));
  EXPECT_TRUE(m_factory.players().empty());
}

TEST_F(PanelPressTest, HoveringAndOtherMouseButtonsChangeNothing) {
  const QImage before = m_panel->grabWindow();
  for (const char* const button : pressableButtons) {
    QTest::mouseMove(m_panel.get(), centreOf(button));
    EXPECT_EQ(m_panel->grabWindow(), before) << button;
    QTest::mousePress(m_panel.get(), Qt::RightButton, {}, centreOf(button));
    EXPECT_EQ(m_panel->grabWindow(), before) << button;
    QTest::mouseRelease(m_panel.get(), Qt::RightButton, {}, centreOf(button));
  }
  EXPECT_TRUE(m_factory.players().empty());
  EXPECT_EQ(m_quit.size(), 0);
}

TEST_F(PanelPressTest, AButtonIsDimUnderAFinger) {
  const std::unique_ptr<QPointingDevice> screen(QTest::createTouchDevice());
  const QPoint place = centreOf("transport-playPause");
  QTest::touchEvent(m_panel.get(), screen.get()).press(0, place, m_panel.get());
  EXPECT_DOUBLE_EQ(opacityOf("transport-playPause"), dimmed);
  QTest::touchEvent(m_panel.get(), screen.get()).release(0, place, m_panel.get());
  EXPECT_DOUBLE_EQ(opacityOf("transport-playPause"), 1);
  EXPECT_TRUE(m_controller->isPlaying());
}

TEST_F(PanelPressTest, AButtonIsDimWhileAKeyHoldsIt) {
  for (const Qt::Key key : {Qt::Key_Space, Qt::Key_Return, Qt::Key_Enter}) {
    item(*m_panel, "transport-next")->forceActiveFocus(Qt::TabFocusReason);
    QTest::keyPress(m_panel.get(), key);
    EXPECT_DOUBLE_EQ(opacityOf("transport-next"), dimmed);
    // A held key presses once.
    QKeyEvent repeated(QEvent::KeyPress, key, Qt::NoModifier, u" "_s, true);
    QCoreApplication::sendEvent(m_panel.get(), &repeated);
    QKeyEvent repeatedRelease(QEvent::KeyRelease, key, Qt::NoModifier, u" "_s, true);
    QCoreApplication::sendEvent(m_panel.get(), &repeatedRelease);
    EXPECT_DOUBLE_EQ(opacityOf("transport-next"), dimmed);
    QTest::keyRelease(m_panel.get(), key);
    EXPECT_DOUBLE_EQ(opacityOf("transport-next"), 1);
  }
}

TEST_F(PanelPressTest, AHeldKeyPressesOnce) {
  press(*m_panel, "mode-scope");
  item(*m_panel, "transport-next")->forceActiveFocus(Qt::TabFocusReason);
  QTest::keyPress(m_panel.get(), Qt::Key_Space);
  QKeyEvent repeated(QEvent::KeyPress, Qt::Key_Space, Qt::NoModifier, u" "_s, true);
  QCoreApplication::sendEvent(m_panel.get(), &repeated);
  QTest::keyRelease(m_panel.get(), Qt::Key_Space);
  EXPECT_EQ(text(*m_panel, "position"), u"2 / 16"_s);
}

TEST_F(PanelPressTest, AKeyThatIsReleasedElsewhereLeavesNoButtonDim) {
  item(*m_panel, "transport-next")->forceActiveFocus(Qt::TabFocusReason);
  QTest::keyPress(m_panel.get(), Qt::Key_Space);
  QTest::keyClick(m_panel.get(), Qt::Key_Tab);
  EXPECT_DOUBLE_EQ(opacityOf("transport-next"), 1);
  QTest::keyRelease(m_panel.get(), Qt::Key_Space);
  QTest::keyClick(m_panel.get(), Qt::Key_Backtab);
  EXPECT_DOUBLE_EQ(opacityOf("transport-next"), 1);
  EXPECT_DOUBLE_EQ(opacityOf("quit"), 1);
}

TEST_F(PanelPressTest, EachTargetIsLargeEnoughForAFinger) {
  constexpr double least = 24;
  for (const char* const language : {"en", "zh-Hans", "zh-Hant", "ja"}) {
    speak(language);
    for (const char* const button : pressableButtons) {
      for (const QPoint corner : {QPoint(-1, -1), QPoint(1, -1), QPoint(-1, 1), QPoint(1, 1)}) {
        const QPoint place = centreOf(button) + corner * (least / 2 - 1);
        QTest::mousePress(m_panel.get(), Qt::LeftButton, {}, place);
        EXPECT_DOUBLE_EQ(opacityOf(button), dimmed) << button << " " << language;
        release(elsewhere);
      }
    }
  }
}

TEST_F(PanelPressTest, QuitIsHitUpToTheEdgesOfItsCard) {
  const QRectF card = sceneRectangle("footer");
  const QRectF divider = sceneRectangle("divider");
  const QRectF words = sceneRectangle("quitText");
  const double left = words.left() - (card.right() - words.right());
  int hits = 0;
  for (const QPointF place :
       {QPointF(card.right() - 1, words.center().y()), QPointF(words.center().x(), card.bottom() - 1),
        QPointF(words.center().x(), divider.bottom() + 1), QPointF(left + 1, card.bottom() - 1)}) {
    QTest::mouseClick(m_panel.get(), Qt::LeftButton, {}, place.toPoint());
    EXPECT_EQ(m_quit.size(), ++hits) << place.x() << "," << place.y();
  }
  for (const QPointF place :
       {QPointF(card.right() + 2, words.center().y()), QPointF(words.center().x(), card.bottom() + 2),
        QPointF(words.center().x(), divider.top() - 1), QPointF(left - 2, words.center().y())}) {
    QTest::mouseClick(m_panel.get(), Qt::LeftButton, {}, place.toPoint());
    EXPECT_EQ(m_quit.size(), hits) << place.x() << "," << place.y();
  }
}

TEST_F(PanelPressTest, EachPressOfADoubleClickCounts) {
  QGuiApplication::styleHints()->setMouseDoubleClickInterval(60'000);
  press(*m_panel, "mode-scope");
  EXPECT_TRUE(m_controller->isPlaying());
  press(*m_panel, "mode-scope");
  EXPECT_FALSE(m_controller->isPlaying());
  press(*m_panel, "mode-scope");
  EXPECT_TRUE(m_controller->isPlaying());
  EXPECT_DOUBLE_EQ(opacityOf("mode-scope"), 1);
}

}  // namespace
}  // namespace mireval
