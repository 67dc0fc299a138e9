#include "ui/PanelFixture.h"

#include <QAccessible>
#include <QSignalSpy>

#include <algorithm>
#include <array>
#include <memory>

namespace mireval {
namespace {

using namespace Qt::StringLiterals;

constexpr std::array modes{"mode-scope", "mode-metronome", "mode-sparkles", "mode-wind"};
constexpr std::array otherButtons{"transport-previous", "transport-playPause", "transport-next", "quit"};

/// The panel as a screen reader sees it.
class PanelAccessibilityTest : public PanelFixture {
 protected:
  QAccessibleInterface& element(const char* name) const {
    QAccessibleInterface* const found = QAccessible::queryAccessibleInterface(item(*m_panel, name));
    EXPECT_NE(found, nullptr) << name;
    return found == nullptr ? *QAccessible::queryAccessibleInterface(m_panel.get()) : *found;
  }

  QString nameOf(const char* name) const { return element(name).text(QAccessible::Name); }
  QString descriptionOf(const char* name) const { return element(name).text(QAccessible::Description); }
  void act(const char* name, const QString& action) const {
    element(name).actionInterface()->doAction(action);
  }

  /// The names of the modes that are checked.
  QStringList checkedModes() const {
    QStringList checked;
    for (const char* const mode : modes) {
      EXPECT_TRUE(element(mode).state().checkable);
      if (element(mode).state().checked) {
        checked << nameOf(mode);
      }
    }
    return checked;
  }

  const std::unique_ptr<PanelWindow> m_panel = makePanel();
};

QStringList namesBelow(QAccessibleInterface* element) {
  QStringList names;
  for (int number = 0; number < element->childCount(); ++number) {
    QAccessibleInterface* const child = element->child(number);
    EXPECT_EQ(child->parent(), element);
    EXPECT_EQ(element->indexOfChild(child), number);
    names << child->text(QAccessible::Name) << namesBelow(child);
  }
  return names;
}

TEST_F(PanelAccessibilityTest, IsReadFromTopToBottom) {
  EXPECT_EQ(namesBelow(QAccessible::queryAccessibleInterface(m_panel.get())).join(u", "_s),
            u"Modes, Focus, Tempo, Create, Relax, Now Playing, Now Playing, Select a mode, "
            "Previous, Play, Next, 1 / 3, Quit"_s);
}

TEST_F(PanelAccessibilityTest, TheProgressIsABarWithAValue) {
  QAccessibleInterface& bar = element("progress");
  EXPECT_EQ(bar.role(), QAccessible::ProgressBar);
  EXPECT_EQ(nameOf("progress"), u"Now Playing"_s);
  EXPECT_FALSE(bar.state().invisible);
  EXPECT_FALSE(bar.state().focusable);
  QAccessibleValueInterface* const value = bar.valueInterface();
  ASSERT_NE(value, nullptr);
  EXPECT_EQ(value->minimumValue(), 0.0);
  EXPECT_EQ(value->maximumValue(), 1.0);
  EXPECT_EQ(value->currentValue(), 0.0);
  const QQuickItem* const shown = item(*m_panel, "progress");
  EXPECT_EQ(bar.rect(),
            QRect(m_panel->mapToGlobal(shown->mapToScene(QPointF()).toPoint()), shown->size().toSize()));

  press(*m_panel, "mode-scope");
  m_factory.newest().currentTime = 30;
  m_runLoop.tick();
  m_mainThread.runAll();
  EXPECT_EQ(value->currentValue(), 0.25);
  // It only tells.
  value->setCurrentValue(0.75);
  EXPECT_EQ(value->currentValue(), 0.25);
  speak("ja");
  EXPECT_EQ(nameOf("progress"), u"再生中"_s);
}

TEST_F(PanelAccessibilityTest, TheModesAreAGroupInWhichOneIsChecked) {
  QAccessibleInterface* const group = element("mode-scope").parent();
  ASSERT_NE(group, nullptr);
  EXPECT_EQ(group->role(), QAccessible::Grouping);
  EXPECT_EQ(group->text(QAccessible::Name), u"Modes"_s);
  EXPECT_EQ(group->childCount(), 4);
  for (const char* const mode : modes) {
    EXPECT_EQ(element(mode).role(), QAccessible::RadioButton);
  }
  EXPECT_EQ(checkedModes(), QStringList());

  press(*m_panel, "mode-wind");
  EXPECT_EQ(checkedModes(), QStringList{u"Relax"_s});
  press(*m_panel, "mode-scope");
  EXPECT_EQ(checkedModes(), QStringList{u"Focus"_s});
}

TEST_F(PanelAccessibilityTest, TheChosenModeTellsWhetherItPlays) {
  EXPECT_EQ(descriptionOf("mode-wind"), QString());
  press(*m_panel, "mode-wind");
  EXPECT_EQ(descriptionOf("mode-wind"), u"Playing"_s);
  press(*m_panel, "mode-wind");
  EXPECT_EQ(descriptionOf("mode-wind"), u"Paused"_s);
  EXPECT_EQ(nameOf("mode-wind"), u"Relax"_s);
  EXPECT_EQ(checkedModes(), QStringList{u"Relax"_s});
  EXPECT_EQ(descriptionOf("mode-scope"), QString());
  speak("zh_TW");
  EXPECT_EQ(descriptionOf("mode-wind"), u"已暫停"_s);
  EXPECT_EQ(nameOf("mode-wind"), u"放鬆"_s);
}

TEST_F(PanelAccessibilityTest, ButtonsHaveOnePressActionAndNothingInside) {
  const auto look = [this](const char* name) {
    EXPECT_EQ(element(name).actionInterface()->actionNames().count(QAccessibleActionInterface::pressAction()),
              1)
        << name;
    EXPECT_EQ(element(name).childCount(), 0) << name;
    EXPECT_TRUE(element(name).state().focusable) << name;
  };
  std::ranges::for_each(modes, look);
  std::ranges::for_each(otherButtons, look);
  EXPECT_EQ(element("quit").role(), QAccessible::Button);
}

TEST_F(PanelAccessibilityTest, PressActionsPressOnce) {
  act("mode-wind", QAccessibleActionInterface::pressAction());
  EXPECT_EQ(m_controller->currentMood(), Mood::relaxation);
  EXPECT_TRUE(m_controller->isPlaying());
  act("mode-wind", QAccessibleActionInterface::pressAction());
  EXPECT_FALSE(m_controller->isPlaying());
  // What a radio button offers besides.
  act("mode-wind", QAccessibleActionInterface::toggleAction());
  EXPECT_TRUE(m_controller->isPlaying());
  EXPECT_EQ(m_factory.players().size(), 1U);
  act("transport-next", QAccessibleActionInterface::pressAction());
  EXPECT_EQ(text(*m_panel, "position"), u"2 / 16"_s);
  const QSignalSpy quit(m_panel.get(), &PanelWindow::quitRequested);
  act("quit", QAccessibleActionInterface::pressAction());
  EXPECT_EQ(quit.size(), 1);
}

}  // namespace
}  // namespace mireval
