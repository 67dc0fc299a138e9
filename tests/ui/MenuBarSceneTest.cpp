#include "ui/MenuBarScene.h"

#include "fakes/FakeMenuBarExtra.h"
#include "ui/PanelFixture.h"

#include <QAccessible>
#include <QFocusEvent>
#include <QGuiApplication>
#include <QPointer>
#include <QPointingDevice>
#include <QQmlEngine>
#include <QScreen>
#include <QSignalSpy>
#include <QStyleHints>
#include <QtTest/QTest>

#include <array>
#include <functional>
#include <memory>

namespace mireval {
namespace {

using namespace Qt::StringLiterals;

class MenuBarSceneTest : public PanelFixture {
 protected:
  static constexpr QRect iconPlace{500, 12, 1, 1};

  MenuBarSceneTest() { m_scene.show(ICON); }

  FakeMenuBarExtra m_menuBarExtra;
  MenuBarScene m_scene{
      {m_menuBarExtra, m_colorScheme, m_windowSystem, *m_controller, m_localization, m_notices}};
};

TEST_F(MenuBarSceneTest, NothingButTheIconAtFirst) {
  EXPECT_EQ(m_menuBarExtra.image(), ICON);
  EXPECT_EQ(m_scene.panel(), nullptr);
}

TEST_F(MenuBarSceneTest, ClicksOpenAndCloseThePanel) {
  const QSignalSpy willOpen(&m_scene, &MenuBarScene::panelWillOpen);
  m_menuBarExtra.click(iconPlace);
  ASSERT_NE(m_scene.panel(), nullptr);
  EXPECT_TRUE(m_scene.panel()->isVisible());
  EXPECT_EQ(m_scene.panel()->x() + m_scene.panel()->width() / 2, iconPlace.x());
  const QPointer<PanelWindow> first = m_scene.panel();
  const QPointer<QQmlEngine> engine = first->engine();
  const QSignalSpy didClose(&m_scene, &MenuBarScene::panelDidClose);
  QObject::connect(&m_scene, &MenuBarScene::panelDidClose, &m_scene, [&] { EXPECT_TRUE(engine.isNull()); });
  m_menuBarExtra.click(iconPlace);
  EXPECT_EQ(m_scene.panel(), nullptr);
  EXPECT_EQ(didClose.size(), 0);
  runEventLoopOnce();
  EXPECT_TRUE(first.isNull());
  EXPECT_EQ(didClose.size(), 1);
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
  EXPECT_EQ(text(*m_scene.panel(), "position"), u"2 / 16"_s);
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

TEST_F(MenuBarSceneTest, ShownBeforeAnyClickThePanelIsWhereIconsUsuallyAre) {
  m_scene.showPanel();
  ASSERT_NE(m_scene.panel(), nullptr);
  EXPECT_TRUE(m_scene.panel()->flags().testFlag(Qt::FramelessWindowHint));
  const QRect screen = m_scene.panel()->screen()->geometry();
  const QRect panel = m_windowSystem.dropDown()->shape().boundingRect();
  EXPECT_EQ(panel.translated(m_scene.panel()->position()).topRight(),
            QPoint(screen.right() - 4, screen.top() + FakeWindowSystem::barHeight + 4));
}

TEST_F(MenuBarSceneTest, WithoutAPlaceForTheIconThePanelIsShownAsAWindow) {
  m_menuBarExtra.removePlace();
  m_scene.showPanel();
  ASSERT_NE(m_scene.panel(), nullptr);
  EXPECT_FALSE(m_scene.panel()->flags().testFlag(Qt::FramelessWindowHint));
}

TEST_F(MenuBarSceneTest, ClickAtAnUnknownPlaceOpensThePanelWhereItWasLast) {
  m_menuBarExtra.click(iconPlace);
  const QPoint place = m_scene.panel()->position();
  m_menuBarExtra.click(iconPlace);
  m_menuBarExtra.click(std::nullopt);
  ASSERT_NE(m_scene.panel(), nullptr);
  EXPECT_EQ(m_scene.panel()->position(), place);
}

TEST_F(MenuBarSceneTest, ToolTipNamesWhatPlays) {
  EXPECT_EQ(m_menuBarExtra.toolTip(), QString());
  m_controller->selectMood(Mood::relaxation);
  EXPECT_EQ(m_menuBarExtra.toolTip(), m_controller->currentTrack()->title);
  m_controller->playNextTrack();
  EXPECT_EQ(m_menuBarExtra.toolTip(), m_controller->currentTrack()->title);
  m_controller->togglePlayback();
  EXPECT_EQ(m_menuBarExtra.toolTip(), QString());
  m_controller->togglePlayback();
  EXPECT_EQ(m_menuBarExtra.toolTip(), m_controller->currentTrack()->title);
}

TEST_F(MenuBarSceneTest, ClickBesideThePanelClosesItAndDoesNotReopenIt) {
  m_menuBarExtra.click(iconPlace);
  Q_EMIT m_windowSystem.dropDown()->clickedOutside();
  EXPECT_EQ(m_scene.panel(), nullptr);
  // Some hosts report the same click as well.
  m_menuBarExtra.click(iconPlace);
  EXPECT_EQ(m_scene.panel(), nullptr);
}

TEST_F(MenuBarSceneTest, SecondClickOfASlowDoubleClickDoesNotReopenThePanel) {
  m_menuBarExtra.click(iconPlace);
  Q_EMIT m_windowSystem.dropDown()->clickedOutside();
  QTest::qWait(350);
  QGuiApplication::styleHints()->setMouseDoubleClickInterval(60'000);
  m_menuBarExtra.click(iconPlace);
  EXPECT_EQ(m_scene.panel(), nullptr);
  QGuiApplication::styleHints()->setMouseDoubleClickInterval(0);
  m_menuBarExtra.click(iconPlace);
  EXPECT_NE(m_scene.panel(), nullptr);
}

TEST_F(MenuBarSceneTest, SettingsHaveRoomBesideThePanelThatIsOpenThen) {
  m_scene.setSettingsOpen(true);
  m_menuBarExtra.click(iconPlace);
  EXPECT_TRUE(m_windowSystem.dropDown()->isExclusive());
  m_scene.setSettingsOpen(true);
  EXPECT_FALSE(m_windowSystem.dropDown()->isExclusive());
  m_scene.setSettingsOpen(false);
  EXPECT_TRUE(m_windowSystem.dropDown()->isExclusive());
}

TEST_F(MenuBarSceneTest, KnownPlaceIsNotLookedFor) {
  m_windowSystem.setFindsPointer(true);
  m_menuBarExtra.click(iconPlace);
  EXPECT_EQ(m_windowSystem.finder(), nullptr);
  EXPECT_NE(m_scene.panel(), nullptr);
}

TEST_F(MenuBarSceneTest, UnknownPlaceIsThatOfThePointer) {
  m_windowSystem.setFindsPointer(true);
  m_menuBarExtra.click(std::nullopt);
  ASSERT_NE(m_windowSystem.finder(), nullptr);
  EXPECT_EQ(m_scene.panel(), nullptr);
  Q_EMIT m_windowSystem.finder()->found(iconPlace.center());
  ASSERT_NE(m_scene.panel(), nullptr);
  EXPECT_EQ(m_scene.panel()->x() + m_scene.panel()->width() / 2, iconPlace.x());
  runEventLoopOnce();
  EXPECT_EQ(m_windowSystem.finder(), nullptr);
}

TEST_F(MenuBarSceneTest, PointerThatIsNotFoundThisTimeMeansTheLastPlace) {
  m_windowSystem.setFindsPointer(true);
  m_menuBarExtra.click(iconPlace);
  const QPoint place = m_scene.panel()->position();
  m_menuBarExtra.click(std::nullopt);
  m_menuBarExtra.click(std::nullopt);
  EXPECT_EQ(m_scene.panel(), nullptr);
  ASSERT_TRUE(QTest::qWaitFor([this] { return m_scene.panel() != nullptr; }, 1500));
  EXPECT_EQ(m_scene.panel()->position(), place);
  EXPECT_TRUE(QTest::qWaitFor([this] { return m_windowSystem.finder() == nullptr; }, 1500));
}

TEST_F(MenuBarSceneTest, SecondClickWhileTheIconIsSearchedForEndsTheSearch) {
  m_windowSystem.setFindsPointer(true);
  m_menuBarExtra.click(std::nullopt);
  m_menuBarExtra.click(std::nullopt);
  runEventLoopOnce();
  EXPECT_EQ(m_windowSystem.finder(), nullptr);
  EXPECT_EQ(m_scene.panel(), nullptr);
}

TEST_F(MenuBarSceneTest, PointerThatIsNeverFoundDoesNotKeepThePanelAway) {
  m_windowSystem.setFindsPointer(true);
  m_menuBarExtra.click(std::nullopt);
  EXPECT_TRUE(QTest::qWaitFor([this] { return m_scene.panel() != nullptr; }, 5000));
  EXPECT_TRUE(m_scene.panel()->isVisible());
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
  EXPECT_TRUE(m_notices.said().empty());
  m_menuBarExtra.findNoPlace();
  EXPECT_EQ(m_notices.said(),
            std::vector<std::string>{"the desktop has no tray for the icon; the panel opens as a window"});
  ASSERT_NE(m_scene.panel(), nullptr);
  EXPECT_EQ(m_scene.panel()->icon().availableSizes(), QList<QSize>{QSize(64, 64)});
  EXPECT_FALSE(m_scene.panel()->flags().testFlag(Qt::FramelessWindowHint));
  m_scene.panel()->close();
  EXPECT_EQ(quit.size(), 1);
}

TEST_F(MenuBarSceneTest, DropDownClosesAtOnceWithItsIconAndNothingElseDoes) {
  const QSignalSpy quit(&m_scene, &MenuBarScene::quitRequested);
  m_controller->selectMood(Mood::focus);
  m_menuBarExtra.click(iconPlace);
  ASSERT_NE(m_scene.panel(), nullptr);
  m_menuBarExtra.losePlace();
  EXPECT_EQ(m_scene.panel(), nullptr);
  runEventLoopOnce();
  EXPECT_TRUE(m_factory.newest().playing);
  EXPECT_EQ(quit.size(), 0);
  EXPECT_TRUE(m_notices.said().empty());
  // A bar that comes back has the icon again.
  m_menuBarExtra.place();
  m_menuBarExtra.click(iconPlace);
  EXPECT_NE(m_scene.panel(), nullptr);
}

TEST_F(MenuBarSceneTest, LosingTheIconEndsTheSearchForIt) {
  m_windowSystem.setFindsPointer(true);
  m_menuBarExtra.click(std::nullopt);
  ASSERT_NE(m_windowSystem.finder(), nullptr);
  m_menuBarExtra.losePlace();
  runEventLoopOnce();
  EXPECT_EQ(m_windowSystem.finder(), nullptr);
  EXPECT_EQ(m_scene.panel(), nullptr);
}

TEST_F(MenuBarSceneTest, AnUntouchedWindowThatOpenedByItselfGivesWayToTheIcon) {
  const QSignalSpy quit(&m_scene, &MenuBarScene::quitRequested);
  m_menuBarExtra.findNoPlace();
  ASSERT_TRUE(QTest::qWaitForWindowExposed(m_scene.panel()));
  // Neither of these is a touch.
  QTest::mouseMove(m_scene.panel(), QPoint(50, 50));
  m_colorScheme.setDark(true);
  m_menuBarExtra.place();
  EXPECT_EQ(m_scene.panel(), nullptr);
  EXPECT_EQ(quit.size(), 0);
  m_menuBarExtra.click(iconPlace);
  ASSERT_NE(m_scene.panel(), nullptr);
  EXPECT_TRUE(m_scene.panel()->flags().testFlag(Qt::FramelessWindowHint));
}

TEST_F(MenuBarSceneTest, AWindowThatWasUsedStaysWhenTheIconComes) {
  const std::array<std::function<void(PanelWindow&)>, 5> uses{
      [](PanelWindow& panel) { QTest::mouseClick(&panel, Qt::LeftButton, {}, QPoint(170, 110)); },
      [](PanelWindow& panel) { QTest::keyClick(&panel, Qt::Key_Tab); },
      [](PanelWindow& panel) {
        const std::unique_ptr<QPointingDevice> screen(QTest::createTouchDevice());
        QTest::touchEvent(&panel, screen.get()).press(0, QPoint(170, 110), &panel);
        QTest::touchEvent(&panel, screen.get()).release(0, QPoint(170, 110), &panel);
      },
      // As screen readers do, without a pointer or a key.
      [this](PanelWindow& panel) {
        QAccessible::queryAccessibleInterface(item(panel, "mode-wind"))
            ->actionInterface()
            ->doAction(QAccessibleActionInterface::pressAction());
      },
      [this](PanelWindow&) { m_scene.showPanel(); },
  };
  for (const auto& use : uses) {
    m_menuBarExtra.findNoPlace();
    ASSERT_NE(m_scene.panel(), nullptr);
    ASSERT_TRUE(QTest::qWaitForWindowExposed(m_scene.panel()));
    use(*m_scene.panel());
    m_menuBarExtra.place();
    ASSERT_NE(m_scene.panel(), nullptr);
    m_scene.panel()->close();
    runEventLoopOnce();
  }
}

TEST_F(MenuBarSceneTest, AWindowThatWasAskedForStaysWhenTheIconComes) {
  m_menuBarExtra.removePlace();
  m_scene.showPanel();
  m_menuBarExtra.place();
  ASSERT_NE(m_scene.panel(), nullptr);
  EXPECT_TRUE(m_scene.panel()->isVisible());
}

TEST_F(MenuBarSceneTest, FramedPanelStaysWhenAnIconGoes) {
  m_menuBarExtra.findNoPlace();
  m_scene.showPanel();
  const PanelWindow* const panel = m_scene.panel();
  m_menuBarExtra.place();
  m_menuBarExtra.losePlace();
  EXPECT_EQ(m_scene.panel(), panel);
  EXPECT_TRUE(panel->isVisible());
}

TEST_F(MenuBarSceneTest, EachTimeNoIconComesBackThePanelOpensAsAWindow) {
  const QSignalSpy quit(&m_scene, &MenuBarScene::quitRequested);
  for (int time = 0; time < 2; ++time) {
    m_menuBarExtra.place();
    m_menuBarExtra.losePlace();
    EXPECT_EQ(m_scene.panel(), nullptr);
    m_menuBarExtra.findNoPlace();
    ASSERT_NE(m_scene.panel(), nullptr);
    EXPECT_FALSE(m_scene.panel()->flags().testFlag(Qt::FramelessWindowHint));
    m_scene.showPanel();
    m_menuBarExtra.place();
    m_scene.panel()->close();
    EXPECT_EQ(quit.size(), 0);
  }
}

TEST_F(MenuBarSceneTest, TrayThatAppearsLaterTakesOver) {
  const QSignalSpy quit(&m_scene, &MenuBarScene::quitRequested);
  m_menuBarExtra.findNoPlace();
  m_scene.showPanel();
  m_menuBarExtra.place();
  m_scene.panel()->close();
  EXPECT_EQ(quit.size(), 0);
  m_menuBarExtra.click(iconPlace);
  ASSERT_NE(m_scene.panel(), nullptr);
  EXPECT_TRUE(m_scene.panel()->flags().testFlag(Qt::FramelessWindowHint));
}

TEST_F(MenuBarSceneTest, WithoutRoomForAWindowThereAreNotices) {
  const QSignalSpy willOpen(&m_scene, &MenuBarScene::panelWillOpen);
  const QSignalSpy quit(&m_scene, &MenuBarScene::quitRequested);
  const std::string notice = "too many files are open; no window can be opened";
  m_windowSystem.setFindsPointer(true);
  m_windowSystem.setHasRoomForWindow(false);
  m_menuBarExtra.click(iconPlace);
  m_menuBarExtra.click(std::nullopt);
  EXPECT_EQ(m_windowSystem.finder(), nullptr);
  m_scene.showPanel();
  EXPECT_EQ(m_notices.said(), std::vector<std::string>(3, notice));
  m_menuBarExtra.findNoPlace();
  EXPECT_EQ(m_notices.said().back(), notice);
  m_scene.showPanel();
  EXPECT_EQ(m_notices.said().size(), 6U);
  EXPECT_EQ(m_scene.panel(), nullptr);
  EXPECT_EQ(willOpen.size(), 0);
  EXPECT_EQ(quit.size(), 0);

  m_windowSystem.setHasRoomForWindow(true);
  m_scene.showPanel();
  ASSERT_NE(m_scene.panel(), nullptr);
  // What is open stays.
  m_windowSystem.setHasRoomForWindow(false);
  m_scene.showPanel();
  EXPECT_NE(m_scene.panel(), nullptr);
  EXPECT_EQ(m_notices.said().size(), 6U);
}

TEST_F(MenuBarSceneTest, WhatIsAroundThePanelIsAShadowOrWithoutACompositorCutOff) {
  std::vector<QRect> places;
  for (const bool blends : {true, false}) {
    m_windowSystem.setBlends(blends);
    m_menuBarExtra.click(iconPlace);
    const FakeDropDown& dropDown = *m_windowSystem.dropDown();
    const QWindow& window = *m_scene.panel();
    const QRegion shape = dropDown.shape();
    const QRect panel = shape.boundingRect();
    EXPECT_EQ(dropDown.outside(), blends ? DropDown::Outside::shadow : DropDown::Outside::hidden);
    // The same all around, outside of the panel's outline.
    EXPECT_EQ(panel, QRect({}, window.size()).marginsRemoved(QMargins() + (blends ? 16 : 0)));
    EXPECT_FALSE(shape.contains(panel.topLeft() + QPoint(1, 1)));
    EXPECT_TRUE(shape.contains({panel.center().x(), panel.top() + 1}));
    places.push_back(panel.translated(window.position()));
    m_menuBarExtra.click(iconPlace);
  }
  EXPECT_EQ(places.front(), places.back());
}

}  // namespace
}  // namespace mireval
