#pragma once

#include "fakes/EventLog.h"
#include "fakes/FakeAudioPlayerFactory.h"
#include "fakes/FakeColorScheme.h"
#include "fakes/FakeDebugOutput.h"
#include "fakes/FakeImageDecoder.h"
#include "fakes/FakeLocaleChanges.h"
#include "fakes/FakeMainThread.h"
#include "fakes/FakeNotices.h"
#include "fakes/FakeNowPlayingInfoCenter.h"
#include "fakes/FakeRemoteCommandCenter.h"
#include "fakes/FakeResourceBundle.h"
#include "fakes/FakeRunLoop.h"
#include "fakes/FakeSystemLanguages.h"
#include "fakes/FakeUserDefaults.h"
#include "fakes/FakeWindowSystem.h"
#include "library/AudioLibraryProviding.h"
#include "localization/AppLocalization.h"
#include "playback/AudioPlayerController.h"
#include "ui/PanelWindow.h"

#include <gtest/gtest.h>

#include <QQuickItem>
#include <QString>

#include <memory>

namespace mireval {

/// A controller with silent players and the shipped catalogue or another one, all of whose files exist, and
/// ways to look at and to press what a panel shows.
class PanelFixture : public testing::Test {
 protected:
  PanelFixture();
  ~PanelFixture() override { runEventLoopOnce(); }
  explicit PanelFixture(std::unique_ptr<AudioLibraryProviding> provider);

  enum class Shadow { without, with };

  /// Opens a drop-down beside an icon at the place, or a framed window. Without the shadow that it has where
  /// windows blend, the drop-down's window is as large as elsewhere.
  std::unique_ptr<PanelWindow> makePanel(const QRect& icon = {400, 10, 1, 1},
                                         Shadow shadow = Shadow::without);
  std::unique_ptr<PanelWindow> makeFramedPanel();

  /// The item of that object name, or one inside it; fails the test and returns an empty item when there is
  /// none.
  QQuickItem* item(const PanelWindow& panel, const char* name, const char* inside = nullptr) const;
  QString text(const PanelWindow& panel, const char* name) const;
  /// The symbol that the button of that object name shows.
  QString symbol(const PanelWindow& panel, const char* button) const;
  void press(PanelWindow& panel, const char* button) const;

  /// Also deletes what is to be deleted later.
  static void runEventLoopOnce();

  /// The system's language becomes that of the tag.
  void speak(const char* languageTag);

  std::shared_ptr<EventLog> m_log = makeEventLog();
  FakeResourceBundle m_bundle{m_log};
  FakeAudioPlayerFactory m_factory{m_log};
  FakeRunLoop m_runLoop{m_log};
  FakeMainThread m_mainThread{m_log};
  FakeRemoteCommandCenter m_remoteCommandCenter{m_log};
  FakeNowPlayingInfoCenter m_nowPlayingInfoCenter{m_log};
  FakeImageDecoder m_imageDecoder{m_log};
  FakeDebugOutput m_debugOutput{m_log};
  FakeUserDefaults m_userDefaults{m_log};
  FakeSystemLanguages m_systemLanguages{m_log};
  FakeLocaleChanges m_localeChanges;
  AppLocalization m_localization{{m_userDefaults, m_systemLanguages, m_localeChanges, m_mainThread}};
  FakeColorScheme m_colorScheme;
  FakeWindowSystem m_windowSystem;
  FakeNotices m_notices;
  std::shared_ptr<AudioPlayerController> m_controller;
  /// Keeps drop-downs open without the keyboard, as beside the settings.
  bool m_staysOpen = false;

 private:
  mutable QQuickItem m_noItem;
};

}  // namespace mireval
