#include "ui/SettingsScene.h"

#include "fakes/EventLog.h"
#include "fakes/FakeColorScheme.h"
#include "fakes/FakeMenuBarExtra.h"
#include "ui/CorvaneAppearance.h"
#include "ui/MenuBarScene.h"
#include "ui/PanelFixture.h"

#include <QPointer>
#include <QQmlEngine>
#include <QSignalSpy>
#include <QtTest/QTest>

namespace mireval {
namespace {

using namespace Qt::StringLiterals;

class SettingsSceneTest : public PanelFixture {
 protected:
  SettingsWindow& open() {
    m_scene.show();
    EXPECT_TRUE(QTest::qWaitForWindowExposed(m_scene.window()));
    return *m_scene.window();
  }

  SettingsScene m_scene{{m_colorScheme, m_windowSystem, m_localization, m_notices}, ICON};
};

TEST_F(SettingsSceneTest, NothingAtFirst) {
  EXPECT_EQ(m_scene.window(), nullptr);
}

TEST_F(SettingsSceneTest, TheTitleTellsItFromThePanelInEachLanguage) {
  QGuiApplication::setApplicationDisplayName(u"Mireval"_s);
  const SettingsWindow& window = open();
  EXPECT_EQ(window.title(), u"Settings \u2013 Mireval"_s);
  speak("zh-Hans");
  EXPECT_EQ(window.title(), u"\u8bbe\u7f6e \u2013 Mireval"_s);
  speak("ja");
  EXPECT_EQ(window.title(), u"\u8a2d\u5b9a \u2013 Mireval"_s);
}

TEST_F(SettingsSceneTest, AFramedWindowOfTheViewsSizeForGood) {
  const SettingsWindow& window = open();
  EXPECT_TRUE(window.isVisible());
  EXPECT_FALSE(window.flags().testFlag(Qt::FramelessWindowHint));
  EXPECT_TRUE(window.flags().testFlag(Qt::WindowCloseButtonHint));
  EXPECT_FALSE(window.flags().testFlag(Qt::WindowMaximizeButtonHint));
  EXPECT_EQ(window.status(), QQuickView::Ready);
  EXPECT_EQ(window.width(), 340);
  EXPECT_GT(window.height(), 60);
  EXPECT_EQ(window.minimumSize(), window.size());
  EXPECT_EQ(window.maximumSize(), window.size());
}

TEST_F(SettingsSceneTest, TheWindowHasTheApplicationsIcon) {
  EXPECT_EQ(open().icon().availableSizes(), QList<QSize>{QSize(64, 64)});
}

TEST_F(SettingsSceneTest, ThereIsOneAtMost) {
  const QSignalSpy willShow(&m_scene, &SettingsScene::windowWillShow);
  const SettingsWindow* const window = &open();
  m_scene.show();
  EXPECT_EQ(willShow.size(), 2);
  EXPECT_EQ(m_scene.window(), window);
  EXPECT_TRUE(window->isVisible());
}

TEST_F(SettingsSceneTest, ShownAgainItComesBackFromBeingMinimised) {
  SettingsWindow& window = open();
  window.showMinimized();
  ASSERT_TRUE(window.windowStates().testFlag(Qt::WindowMinimized));
  m_scene.show();
  EXPECT_FALSE(window.windowStates().testFlag(Qt::WindowMinimized));
  EXPECT_TRUE(window.isVisible());
}

TEST_F(SettingsSceneTest, KeysThatCloseIt) {
  const auto closesIt = [this](Qt::Key key, Qt::KeyboardModifiers modifiers) {
    SettingsWindow& window = open();
    QTest::keyClick(&window, key, modifiers);
    const bool closed = m_scene.window() == nullptr;
    runEventLoopOnce();
    return closed;
  };
  EXPECT_TRUE(closesIt(Qt::Key_Escape, {}));
  EXPECT_TRUE(closesIt(Qt::Key_W, Qt::ControlModifier));
  EXPECT_FALSE(closesIt(Qt::Key_W, {}));
  EXPECT_FALSE(closesIt(Qt::Key_Return, {}));
}

TEST_F(SettingsSceneTest, ClosedByItsFrameItIsFreed) {
  const QSignalSpy didClose(&m_scene, &SettingsScene::windowDidClose);
  const QPointer<SettingsWindow> window = &open();
  const QPointer<QQmlEngine> engine = window->engine();
  QObject::connect(&m_scene, &SettingsScene::windowDidClose, &m_scene, [&] { EXPECT_TRUE(engine.isNull()); });
  window->close();
  EXPECT_EQ(m_scene.window(), nullptr);
  EXPECT_FALSE(window.isNull());
  EXPECT_EQ(didClose.size(), 0);
  runEventLoopOnce();
  EXPECT_TRUE(window.isNull());
  EXPECT_EQ(didClose.size(), 1);
}

TEST_F(SettingsSceneTest, ItOpensAgainAlsoBeforeTheOldOneIsFreed) {
  const QPointer<SettingsWindow> first = &open();
  first->close();
  SettingsWindow& second = open();
  runEventLoopOnce();
  EXPECT_TRUE(first.isNull());
  EXPECT_EQ(m_scene.window(), &second);
  EXPECT_TRUE(second.isVisible());
}

TEST_F(SettingsSceneTest, TheGroundIsThatOfTheCardInBothSchemes) {
  SettingsWindow& window = open();
  for (const bool dark : {false, true}) {
    m_colorScheme.setDark(dark);
    const QColor canvas = CorvaneAppearance(dark).canvas;
    EXPECT_EQ(window.color(), canvas);
    const QImage picture = window.grabWindow();
    EXPECT_EQ(picture.pixelColor(0, 0), canvas);
    EXPECT_EQ(picture.pixelColor(picture.width() / 2, 3), canvas);
  }
}

TEST_F(SettingsSceneTest, WithoutRoomForAWindowThereIsANotice) {
  const QSignalSpy willShow(&m_scene, &SettingsScene::windowWillShow);
  m_windowSystem.setHasRoomForWindow(false);
  m_scene.show();
  EXPECT_EQ(m_scene.window(), nullptr);
  EXPECT_EQ(willShow.size(), 0);
  EXPECT_EQ(m_notices.said().size(), 1U);
  m_windowSystem.setHasRoomForWindow(true);
  open();
  m_windowSystem.setHasRoomForWindow(false);
  m_scene.show();
  EXPECT_NE(m_scene.window(), nullptr);
  EXPECT_EQ(m_notices.said().size(), 1U);
}

TEST_F(SettingsSceneTest, PanelAndMusicAreLeftAlone) {
  FakeMenuBarExtra menuBarExtra;
  MenuBarScene menuBar(
      {menuBarExtra, m_colorScheme, m_windowSystem, *m_controller, m_localization, m_notices});
  const QSignalSpy quit(&menuBar, &MenuBarScene::quitRequested);
  menuBar.show("MenuBarIcon.png");
  open();
  menuBarExtra.findNoPlace();
  ASSERT_TRUE(QTest::qWaitForWindowExposed(menuBar.panel()));
  EXPECT_TRUE(m_scene.window()->isVisible());
  press(*menuBar.panel(), "mode-wind");
  QTest::keyClick(m_scene.window(), Qt::Key_Escape);
  runEventLoopOnce();
  EXPECT_EQ(m_scene.window(), nullptr);
  EXPECT_TRUE(menuBar.panel()->isVisible());
  EXPECT_TRUE(m_factory.newest().playing);
  EXPECT_EQ(quit.size(), 0);
}

}  // namespace
}  // namespace mireval
