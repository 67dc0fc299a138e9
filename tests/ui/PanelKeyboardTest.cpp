#include "ui/PanelFixture.h"

#include <QCoreApplication>
#include <QKeyEvent>
#include <QtTest/QTest>

#include <array>
#include <memory>

namespace mireval {
namespace {

using namespace Qt::StringLiterals;

constexpr std::array buttons{"mode-scope",         "mode-metronome",      "mode-sparkles",  "mode-wind",
                             "transport-previous", "transport-playPause", "transport-next", "quit"};

class PanelKeyboardTest : public PanelFixture {
 protected:
  void type(Qt::Key key, Qt::KeyboardModifiers modifiers = Qt::NoModifier) {
    QTest::keyClick(m_panel.get(), key, modifiers);
  }

  /// The object name of the button that a key would press.
  QString focused() const {
    return m_panel->activeFocusItem() == nullptr ? QString() : m_panel->activeFocusItem()->objectName();
  }

  /// The object names of the buttons that show a ring.
  QString ringed() const {
    QStringList names;
    for (const char* const button : buttons) {
      if (item(*m_panel, button, "focusRing")->isVisible()) {
        names << QString::fromUtf8(button);
      }
    }
    return names.join(u' ');
  }

  void focus(const char* button) { item(*m_panel, button)->forceActiveFocus(Qt::TabFocusReason); }

  const std::unique_ptr<PanelWindow> m_panel = makePanel();
};

TEST_F(PanelKeyboardTest, SpaceWorksAtOnceOnTheFirstMode) {
  EXPECT_EQ(ringed(), QString());
  type(Qt::Key_Space);
  EXPECT_EQ(m_controller->currentMood(), Mood::focus);
  EXPECT_TRUE(m_controller->isPlaying());
  EXPECT_EQ(ringed(), u"mode-scope"_s);
}

TEST_F(PanelKeyboardTest, TabReachesEveryButton) {
  QStringList names;
  for (const char* const button : buttons) {
    names << QString::fromUtf8(button);
  }
  names.append(names.takeFirst());
  for (const QString& name : names) {
    type(Qt::Key_Tab);
    EXPECT_EQ(focused(), name);
  }
  type(Qt::Key_Backtab);
  EXPECT_EQ(focused(), u"quit"_s);
}

TEST_F(PanelKeyboardTest, ArrowsMoveWithinTheModesAndJoinTheEnds) {
  for (const char* const language : {"en", "zh-Hans", "zh-Hant", "ja"}) {
    speak(language);
    for (const Qt::Key next : {Qt::Key_Right, Qt::Key_Down}) {
      focus("mode-scope");
      for (const char* const mode : {"mode-metronome", "mode-sparkles", "mode-wind", "mode-scope"}) {
        type(next);
        EXPECT_EQ(focused(), QString::fromUtf8(mode)) << language;
      }
    }
    for (const Qt::Key previous : {Qt::Key_Left, Qt::Key_Up}) {
      focus("mode-scope");
      for (const char* const mode : {"mode-wind", "mode-sparkles", "mode-metronome", "mode-scope"}) {
        type(previous);
        EXPECT_EQ(focused(), QString::fromUtf8(mode)) << language;
      }
    }
  }
  EXPECT_TRUE(m_factory.players().empty());
}

TEST_F(PanelKeyboardTest, ArrowsMoveWithinTheTransportRowAndJoinTheEnds) {
  focus("transport-previous");
  for (const char* const button : {"transport-playPause", "transport-next", "transport-previous"}) {
    type(Qt::Key_Right);
    EXPECT_EQ(focused(), QString::fromUtf8(button));
  }
  type(Qt::Key_Left);
  EXPECT_EQ(focused(), u"transport-next"_s);
  focus("quit");
  type(Qt::Key_Right);
  EXPECT_EQ(focused(), u"quit"_s);
}

TEST_F(PanelKeyboardTest, HomeAndEndGoToTheEndsOfTheRow) {
  focus("mode-metronome");
  type(Qt::Key_End);
  EXPECT_EQ(focused(), u"mode-wind"_s);
  type(Qt::Key_Home);
  EXPECT_EQ(focused(), u"mode-scope"_s);
  focus("transport-playPause");
  type(Qt::Key_End);
  EXPECT_EQ(focused(), u"transport-next"_s);
  type(Qt::Key_Home);
  EXPECT_EQ(focused(), u"transport-previous"_s);
}

TEST_F(PanelKeyboardTest, ArrowsOfTheKeypadMoveAsWellAndShortcutsDoNot) {
  type(Qt::Key_Right, Qt::KeypadModifier);
  EXPECT_EQ(focused(), u"mode-metronome"_s);
  for (const auto modifier : {Qt::ControlModifier, Qt::AltModifier, Qt::ShiftModifier, Qt::MetaModifier}) {
    QKeyEvent shortcut(QEvent::KeyPress, Qt::Key_Right, modifier);
    QCoreApplication::sendEvent(m_panel.get(), &shortcut);
    EXPECT_EQ(focused(), u"mode-metronome"_s);
  }
}

TEST_F(PanelKeyboardTest, TheRingShowsWhereTheKeysAre) {
  for (const char* const button : {"mode-metronome", "mode-sparkles", "mode-wind", "transport-previous"}) {
    type(Qt::Key_Tab);
    EXPECT_EQ(ringed(), QString::fromUtf8(button));
  }
  type(Qt::Key_Right);
  EXPECT_EQ(ringed(), u"transport-playPause"_s);
  type(Qt::Key_End);
  EXPECT_EQ(ringed(), u"transport-next"_s);
  type(Qt::Key_Return);
  EXPECT_EQ(ringed(), u"transport-next"_s);
}

TEST_F(PanelKeyboardTest, TheRingGoesWhenTheMouseIsUsedAndComesBackWithTheKeys) {
  type(Qt::Key_Tab);
  // Also where there is nothing.
  QTest::mouseClick(m_panel.get(), Qt::LeftButton, {}, QPoint(170, 110));
  EXPECT_EQ(ringed(), QString());
  EXPECT_EQ(focused(), u"mode-metronome"_s);
  type(Qt::Key_Right);
  EXPECT_EQ(ringed(), u"mode-sparkles"_s);

  // The keys go on from where the mouse was.
  press(*m_panel, "mode-wind");
  EXPECT_EQ(ringed(), QString());
  EXPECT_EQ(focused(), u"mode-wind"_s);
  type(Qt::Key_Space);
  EXPECT_EQ(ringed(), u"mode-wind"_s);
  EXPECT_FALSE(m_controller->isPlaying());
  press(*m_panel, "mode-wind");
  EXPECT_EQ(ringed(), QString());
}

TEST_F(PanelKeyboardTest, TheRingGoesAndComesWithTheWindow) {
  type(Qt::Key_Tab);
  const std::unique_ptr<PanelWindow> framed = makeFramedPanel();
  const auto activate = [](PanelWindow& panel) {
    panel.requestActivate();
    return QTest::qWaitForWindowActive(&panel);
  };
  ASSERT_TRUE(activate(*framed));
  QTest::keyClick(framed.get(), Qt::Key_Tab);
  const QQuickItem* const ring = item(*framed, "mode-metronome", "focusRing");
  EXPECT_TRUE(ring->isVisible());
  ASSERT_TRUE(activate(*makeFramedPanel()));
  EXPECT_FALSE(ring->isVisible());
  ASSERT_TRUE(activate(*framed));
  EXPECT_TRUE(ring->isVisible());
}

}  // namespace
}  // namespace mireval
