#include "ui/MirevalMacApp.h"

#include "library/LocalLibraryProvider.h"
#include "localization/AppLocalization.h"
#include "platform/AudioPlayerFactory.h"
#include "platform/Desktop.h"
#include "platform/MemoryPressure.h"
#include "platform/Notices.h"
#include "platform/ResourceBundle.h"
#include "platform/ShowRequests.h"
#include "platform/linux/LinuxDesktop.h"
#include "playback/AudioPlayerController.h"
#include "playback/CoverImages.h"
#include "ui/CommandLine.h"
#include "ui/MenuBarScene.h"
#include "ui/SettingsScene.h"

#include <QApplication>
#include <QQuickWindow>
#include <QSGRendererInterface>
#include <QSessionManager>

#include <algorithm>
#include <csignal>
#include <memory>
#include <optional>
#include <string_view>
#include <vector>

namespace mireval {
namespace {

using namespace Qt::StringLiterals;

int print(std::string_view text, Notices& notices) {
  if (!LinuxDesktop::print(text)) {
    notices.say("standard output cannot be written");
    return 1;
  }
  return 0;
}

/// Says what there is to say about the command line; nothing when the application is to run.
std::optional<int> answer(const CommandLine& commandLine, Notices& notices) {
  switch (commandLine.action) {
    case CommandLine::Action::run:
    case CommandLine::Action::serve:
    case CommandLine::Action::showSettings:
    case CommandLine::Action::playMode:
      return std::nullopt;
    case CommandLine::Action::showHelp:
      return print(CommandLine::helpText(), notices);
    case CommandLine::Action::showVersion:
      return print(CommandLine::versionText(), notices);
    case CommandLine::Action::reject:
      break;
  }
  notices.say(commandLine.error +
              (commandLine.errorNamesTheChoices ? "" : "\nmireval --help lists the options"));
  return 2;
}

LinuxDesktop::Start startFor(const CommandLine& commandLine) {
  using Start = LinuxDesktop::Start;
  const auto starter = commandLine.startedBySession ? Start::Starter::session : Start::Starter::user;
  switch (commandLine.action) {
    case CommandLine::Action::serve:
      return {.starter = Start::Starter::bus};
    case CommandLine::Action::showSettings:
      return {.purpose = Start::Purpose::settings, .starter = starter};
    case CommandLine::Action::playMode:
      return {.purpose = Start::Purpose::mode,
              .mode = rawValue(*commandLine.mode).toStdString(),
              .starter = starter};
    default:
      return {.starter = starter};
  }
}

std::shared_ptr<AudioPlayerController> makeAudioPlayer(const Desktop& desktop) {
  auto audioPlayer = AudioPlayerController::create(std::make_unique<LocalLibraryProvider>(),
                                                   {.resourceBundle = desktop.resourceBundle,
                                                    .audioPlayerFactory = desktop.audioPlayerFactory,
                                                    .runLoop = desktop.runLoop,
                                                    .mainThread = desktop.mainThread,
                                                    .remoteCommandCenter = desktop.remoteCommandCenter,
                                                    .nowPlayingInfoCenter = desktop.nowPlayingInfoCenter,
                                                    .imageDecoder = desktop.imageDecoder,
                                                    .debugOutput = desktop.debugOutput});
  AudioPlayerController* const player = audioPlayer.get();
  desktop.publishVolume(player->volume());
  QObject::connect(player, &AudioPlayerController::volumeChanged, player,
                   [player, &desktop] { desktop.publishVolume(player->volume()); });
  return audioPlayer;
}

void connectScenes(MenuBarScene& scene, SettingsScene& settings, const Desktop& desktop) {
  QObject::connect(&scene, &MenuBarScene::panelWillOpen, &scene,
                   [&desktop] { desktop.audioPlayerFactory.warmUp(); });
  QObject::connect(&scene, &MenuBarScene::panelDidClose, &scene, [&scene, &desktop] {
    // It may have been opened again already.
    if (scene.panel() == nullptr) {
      desktop.audioPlayerFactory.coolDown();
    }
    desktop.releaseUnusedMemory();
  });
  QObject::connect(&scene, &MenuBarScene::settingsRequested, &settings, &SettingsScene::show);
  QObject::connect(&scene, &MenuBarScene::quitRequested, qApp, [] { QCoreApplication::exit(0); });
  QObject::connect(&settings, &SettingsScene::windowWillShow, &scene,
                   [&scene] { scene.setSettingsOpen(true); });
  QObject::connect(&settings, &SettingsScene::windowDidClose, &scene,
                   [&scene] { scene.setSettingsOpen(false); });
  QObject::connect(&settings, &SettingsScene::windowDidClose, &settings, desktop.releaseUnusedMemory);
  QObject::connect(&desktop.memoryPressure, &MemoryPressure::memoryIsShort, &scene, [&desktop] {
    CoverImages::coverImageCache().releaseUnused();
    desktop.releaseUnusedMemory();
  });
  QObject::connect(&desktop.showRequests, &ShowRequests::panelRequested, &scene, &MenuBarScene::showPanel);
  QObject::connect(&desktop.showRequests, &ShowRequests::quitRequested, &scene, &MenuBarScene::quitRequested);
  QObject::connect(&desktop.showRequests, &ShowRequests::settingsRequested, &settings, &SettingsScene::show);
}

/// A request for a mode is what a press of its button is while another mode is chosen.
void connectModes(AudioPlayerController& audioPlayer, const Desktop& desktop) {
  QObject::connect(&desktop.showRequests, &ShowRequests::modeRequested, &audioPlayer,
                   [&audioPlayer](const QString& mode) {
                     if (const auto mood = moodFromRawValue(mode)) {
                       audioPlayer.selectMood(*mood);
                     }
                   });
}

int runScenes(const Desktop& desktop, const CommandLine& commandLine) {
  const std::shared_ptr<AudioPlayerController> audioPlayer = makeAudioPlayer(desktop);
  AppLocalization localization({.userDefaults = desktop.userDefaults,
                                .systemLanguages = desktop.systemLanguages,
                                .localeChanges = desktop.localeChanges,
                                .mainThread = desktop.mainThread});
  MenuBarScene scene({.menuBarExtra = desktop.menuBarExtra,
                      .colorScheme = desktop.colorScheme,
                      .windowSystem = desktop.windowSystem,
                      .audioPlayer = *audioPlayer,
                      .localization = localization,
                      .notices = desktop.notices});
  const auto icon = desktop.resourceBundle.urlForResource(u"MenuBarIcon"_s, u"png"_s, {});
  SettingsScene settings({.colorScheme = desktop.colorScheme,
                          .windowSystem = desktop.windowSystem,
                          .localization = localization,
                          .notices = desktop.notices},
                         icon.value_or(""));
  connectScenes(scene, settings, desktop);
  connectModes(*audioPlayer, desktop);
  scene.show(icon.value_or(""));
  if (commandLine.action == CommandLine::Action::showSettings) {
    settings.show();
  }
  if (commandLine.mode) {
    audioPlayer->selectMood(*commandLine.mode);
  }
  return QCoreApplication::exec();
}

}  // namespace

int MirevalMacApp::main(int argc, char** argv) {
  // A reader of our output that goes away must not end the music.
  std::signal(SIGPIPE, SIG_IGN);
  LinuxDesktop desktop;
  const auto commandLine =
      CommandLine::parse(std::vector<std::string_view>(argv + std::min(argc, 1), argv + argc));
  if (const auto exitStatus = answer(commandLine, desktop.notices())) {
    return *exitStatus;
  }
  if (const auto exitStatus = desktop.prepare(startFor(commandLine))) {
    return *exitStatus;
  }
  QQuickWindow::setGraphicsApi(QSGRendererInterface::Software);
  QQuickWindow::setDefaultAlphaBuffer(true);
  QApplication application(argc, argv);
  QApplication::setApplicationName(u"Mireval"_s);
  QApplication::setDesktopFileName(u"org.mireval.Mireval"_s);
  QApplication::setQuitOnLastWindowClosed(false);
  // For a session that is restored, Qt proposes arguments of its own.
  QObject::connect(&application, &QApplication::saveStateRequest, &application, [](QSessionManager& session) {
    session.setRestartCommand({QCoreApplication::applicationFilePath(), u"--autostart"_s});
  });
  return runScenes(*desktop.connect(), commandLine);
}

}  // namespace mireval
