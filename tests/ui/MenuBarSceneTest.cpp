#include "ui/MenuBarScene.h"

#include "fakes/FakeCompositor.h"
#include "fakes/FakeMenuBarExtra.h"
#include "ui/PanelFixture.h"

#include <QFocusEvent>
#include <QPointer>
#include <QSignalSpy>
#include <QtTest/QTest>

namespace mireval {
namespace {

class MenuBarSceneTest : public PanelFixture {
 protected:
  static constexpr QPoint iconPlace{500, 12};

  MenuBarSceneTest() { m_scene.show("MenuBarIcon.png"); }

  static void runEventLoopOnce() { QCoreApplication::processEvents(); }

  FakeMenuBarExtra m_menuBarExtra;
  FakeCompositor m_compositor;
  MenuBarScene m_scene{{m_menuBarExtra, m_colorScheme, m_compositor, *m_controller, m_localization}};
};

TEST_F(MenuBarSceneTest, NothingButTheIconAtFirst) {
  EXPECT_EQ(m_menuBarExtra.image(), "MenuBarIcon.png");
  EXPECT_EQ(m_scene.panel(), nullptr);
}

TEST_F(MenuBarSceneTest, ClicksOpenAndCloseThePanel) {
  const QSignalSpy willOpen(&m_scene, &MenuBarScene::panelWillOpen);
  m_menuBarExtra.click(iconPlace);
  ASSERT_NE(m_scene.panel(), nullptr);
  EXPECT_TRUE(m_scene.panel()->isVisible());
  EXPECT_EQ(m_scene.panel()->x() + m_scene.panel()->width() / 2, iconPlace.x());
  const QPointer<PanelWindow> first = m_scene.panel();
  m_menuBarExtra.click(iconPlace);
  EXPECT_EQ(m_scene.panel(), nullptr);
  runEventLoopOnce();
  EXPECT_TRUE(first.isNull());
  m_menuBarExtra.click(iconPlace);
  EXPECT_NE(m_scene.panel(), nullptr);
  EXPECT_EQ(willOpen.size(), 2);
}

TEST_F(MenuBarSceneTest, ClickAfterEscapeReopensThePanel) {
  m_menuBarExtra.click(iconPlace);
  ASSERT_TRUE(QTest::qWaitForWindowExposed(m_scene.panel()));
  QTest::keyClick(m_scene.panel(), Qt::Key_Escape);
  EXPECT_EQ(m_scene.panel(), nullptr);
  m_menuBarExtra.click(iconPlace);
  EXPECT_NE(m_scene.panel(), nullptr);
}

TEST_F(MenuBarSceneTest, ClickThatTookTheFocusAwayDoesNotReopenThePanel) {
  m_menuBarExtra.click(iconPlace);
  ASSERT_TRUE(QTest::qWaitForWindowExposed(m_scene.panel()));
  QFocusEvent focusOut(QEvent::FocusOut);
  QCoreApplication::sendEvent(m_scene.panel(), &focusOut);
  EXPECT_EQ(m_scene.panel(), nullptr);
  m_menuBarExtra.click(iconPlace);
  EXPECT_EQ(m_scene.panel(), nullptr);
  QTest::qWait(350);
  m_menuBarExtra.click(iconPlace);
  EXPECT_NE(m_scene.panel(), nullptr);
}

TEST_F(MenuBarSceneTest, PlaybackGoesOnWhileThePanelIsClosed) {
  m_menuBarExtra.click(iconPlace);
  ASSERT_TRUE(QTest::qWaitForWindowExposed(m_scene.panel()));
  press(*m_scene.panel(), "mode-wind");
  m_menuBarExtra.click(iconPlace);
  runEventLoopOnce();
  EXPECT_TRUE(m_factory.newest().playing);
  m_controller->playNextTrack();
  m_menuBarExtra.click(iconPlace);
  EXPECT_EQ(text(*m_scene.panel(), "position"), QStringLiteral("2 / 16"));
  EXPECT_EQ(text(*m_scene.panel(), "title"), m_controller->currentTrack()->title);
}

TEST_F(MenuBarSceneTest, ShownFromElsewhereThePanelOpensWhereItWasLast) {
  m_menuBarExtra.click(iconPlace);
  const QPoint place = m_scene.panel()->position();
  m_menuBarExtra.click(iconPlace);
  m_scene.showPanel();
  ASSERT_NE(m_scene.panel(), nullptr);
  EXPECT_TRUE(m_scene.panel()->isVisible());
  EXPECT_TRUE(m_scene.panel()->flags().testFlag(Qt::FramelessWindowHint));
  EXPECT_EQ(m_scene.panel()->position(), place);
}

TEST_F(MenuBarSceneTest, ShownTwiceThePanelStaysOpen) {
  m_menuBarExtra.click(iconPlace);
  const QSignalSpy willOpen(&m_scene, &MenuBarScene::panelWillOpen);
  const PanelWindow* const panel = m_scene.panel();
  m_scene.showPanel();
  m_scene.showPanel();
  EXPECT_EQ(m_scene.panel(), panel);
  EXPECT_TRUE(panel->isVisible());
  EXPECT_EQ(willOpen.size(), 0);
}

TEST_F(MenuBarSceneTest, ShownFromElsewhereTheWindowComesBackFromBeingMinimised) {
  m_menuBarExtra.findNoPlace();
  m_scene.panel()->showMinimized();
  ASSERT_TRUE(m_scene.panel()->windowStates().testFlag(Qt::WindowMinimized));
  m_scene.showPanel();
  EXPECT_FALSE(m_scene.panel()->windowStates().testFlag(Qt::WindowMinimized));
}

TEST_F(MenuBarSceneTest, WithoutAPlaceThePanelIsShownAsAWindow) {
  m_scene.showPanel();
  ASSERT_NE(m_scene.panel(), nullptr);
  EXPECT_FALSE(m_scene.panel()->flags().testFlag(Qt::FramelessWindowHint));
}

TEST_F(MenuBarSceneTest, TheKeyForSettingsIsPassedOn) {
  const QSignalSpy settings(&m_scene, &MenuBarScene::settingsRequested);
  m_menuBarExtra.click(iconPlace);
  ASSERT_TRUE(QTest::qWaitForWindowExposed(m_scene.panel()));
  QTest::keyClick(m_scene.panel(), Qt::Key_Comma);
  EXPECT_EQ(settings.size(), 0);
  QTest::keyClick(m_scene.panel(), Qt::Key_Comma, Qt::ControlModifier);
  EXPECT_EQ(settings.size(), 1);
  ASSERT_NE(m_scene.panel(), nullptr);
  EXPECT_TRUE(m_scene.panel()->isVisible());
}

TEST_F(MenuBarSceneTest, QuitIsPassedOn) {
  const QSignalSpy quit(&m_scene, &MenuBarScene::quitRequested);
  m_menuBarExtra.click(iconPlace);
  ASSERT_TRUE(QTest::qWaitForWindowExposed(m_scene.panel()));
  press(*m_scene.panel(), "quit");
  EXPECT_EQ(quit.size(), 1);
}

TEST_F(MenuBarSceneTest, WithoutTrayAWindowWhoseClosingQuits) {
  const QSignalSpy quit(&m_scene, &MenuBarScene::quitRequested);
  m_menuBarExtra.findNoPlace();
  ASSERT_NE(m_scene.panel(), nullptr);
  EXPECT_FALSE(m_scene.panel()->flags().testFlag(Qt::FramelessWindowHint));
  m_scene.panel()->close();
  EXPECT_EQ(quit.size(), 1);
}

TEST_F(MenuBarSceneTest, TrayThatAppearsLaterTakesOver) {
  const QSignalSpy quit(&m_scene, &MenuBarScene::quitRequested);
  m_menuBarExtra.findNoPlace();
  m_menuBarExtra.place();
  m_scene.panel()->close();
  EXPECT_EQ(quit.size(), 0);
  m_menuBarExtra.click(iconPlace);
  ASSERT_NE(m_scene.panel(), nullptr);
  EXPECT_TRUE(m_scene.panel()->flags().testFlag(Qt::FramelessWindowHint));
}

TEST_F(MenuBarSceneTest, CornersAreCutOffWithoutACompositor) {
  m_menuBarExtra.click(iconPlace);
  EXPECT_TRUE(m_scene.panel()->mask().isEmpty());
  m_menuBarExtra.click(iconPlace);
  m_compositor.setBlends(false);
  m_menuBarExtra.click(iconPlace);
  const QRegion mask = m_scene.panel()->mask();
  EXPECT_FALSE(mask.contains(QPoint(1, 1)));
  EXPECT_TRUE(mask.contains(QPoint(m_scene.panel()->width() / 2, 1)));
}

}  // namespace
}  // namespace mireval
