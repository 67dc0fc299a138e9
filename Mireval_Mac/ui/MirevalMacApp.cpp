#include "ui/MirevalMacApp.h"

#include "library/LocalLibraryProvider.h"
#include "localization/AppLocalization.h"
#include "platform/linux/audio/LazyAudioPlayerFactory.h"
#include "platform/linux/instance/BusActivation.h"
#include "platform/linux/instance/SingleInstance.h"
#include "platform/linux/instance/SingleInstanceServer.h"
#include "platform/linux/media/MprisMediaControls.h"
#include "platform/linux/memory/KernelMemoryPressure.h"
#include "platform/linux/memory/UnusedMemory.h"
#include "platform/linux/settings/PortalColorScheme.h"
#include "platform/linux/settings/SystemLocale.h"
#include "platform/linux/tray/TrayMenuBarExtra.h"
#include "platform/linux/tray/XEmbedIcon.h"
#include "platform/linux/windows/DisplayServer.h"
#include "platform/linux/windows/LinuxWindowSystem.h"
#include "platform/qt/FolderResourceBundle.h"
#include "platform/qt/IniUserDefaults.h"
#include "platform/qt/QtImageDecoder.h"
#include "platform/qt/QtMainThread.h"
#include "platform/qt/QtRunLoop.h"
#include "platform/qt/StandardError.h"
#include "platform/qt/StandardOutput.h"
#include "playback/AudioPlayerController.h"
#include "ui/CommandLine.h"
#include "ui/MenuBarScene.h"
#include "ui/SettingsScene.h"

#include <QApplication>
#include <QQuickWindow>
#include <QSGRendererInterface>
#include <QSessionManager>

#include <algorithm>
#include <csignal>
#include <cstdio>
#include <filesystem>
#include <memory>
#include <optional>
#include <string_view>
#include <vector>

namespace mireval {
namespace {

int print(std::string_view text, Notices& notices) {
  if (std::fwrite(text.data(), 1, text.size(), stdout) != text.size() || std::fflush(stdout) != 0) {
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
      return std::nullopt;
    case CommandLine::Action::showHelp:
      return print(CommandLine::helpText(), notices);
    case CommandLine::Action::showVersion:
      return print(CommandLine::versionText(), notices);
    case CommandLine::Action::reject:
      break;
  }
  notices.say(commandLine.error + "\nmireval --help lists the options");
  return 2;
}

/// Lets a copy that runs already do the work; nothing when this one is to run.
std::optional<int> handOver(SingleInstance& instance, CommandLine::Action action, Notices& notices) {
  using Request = SingleInstance::Request;
  const bool wantsSettings = action == CommandLine::Action::showSettings;
  const auto outcome = instance.elect(wantsSettings ? Request::showSettings : Request::showPanel);
  if (!outcome) {
    notices.say("other copies cannot be found: " + outcome.error());
    return std::nullopt;
  }
  switch (*outcome) {
    case SingleInstance::Outcome::elected:
    case SingleInstance::Outcome::independent:
      break;
    case SingleInstance::Outcome::handedOver:
      if (action == CommandLine::Action::serve) {
        // The bus would go on waiting for its name, and ask nobody else meanwhile.
        notices.say("a copy runs already, which the bus does not know; its panel opens");
        return 1;
      }
      return 0;
    case SingleInstance::Outcome::unanswered:
      notices.say("a copy runs already, but does not answer");
      return 1;
  }
  return std::nullopt;
}

int runScenes(const SingleInstance& instance, CommandLine::Action action, Notices& notices) {
  FolderResourceBundle resourceBundle = FolderResourceBundle::forApplication();
  LazyAudioPlayerFactory audioPlayerFactory(LazyAudioPlayerFactory::moduleOfApplication());
  QtRunLoop runLoop;
  const QByteArray applicationId = QGuiApplication::desktopFileName().toUtf8();
  MprisMediaControls mediaControls({.identity = QGuiApplication::applicationDisplayName().toUtf8(),
                                    .busName = "mireval",
                                    .desktopEntry = applicationId});
  QtImageDecoder imageDecoder;
  StandardOutput debugOutput;
  QtMainThread mainThread;
  IniUserDefaults userDefaults = IniUserDefaults::forCurrentUser();
  SystemLocale systemLocale;
  PortalColorScheme colorScheme;
  const LinuxWindowSystem windowSystem;
  TrayMenuBarExtra menuBarExtra({.pointer = &LinuxWindowSystem::pointer, .embed = &XEmbedIcon::make});
  const KernelMemoryPressure memoryPressure;

  const std::shared_ptr<AudioPlayerController> audioPlayer = AudioPlayerController::create(
      std::make_unique<LocalLibraryProvider>(), {.resourceBundle = resourceBundle,
                                                 .audioPlayerFactory = audioPlayerFactory,
                                                 .runLoop = runLoop,
                                                 .mainThread = mainThread,
                                                 .remoteCommandCenter = mediaControls,
                                                 .nowPlayingInfoCenter = mediaControls,
                                                 .imageDecoder = imageDecoder,
                                                 .debugOutput = debugOutput});
  AppLocalization localization({.userDefaults = userDefaults,
                                .systemLanguages = systemLocale,
                                .localeChanges = systemLocale,
                                .mainThread = mainThread});
  mediaControls.setVolume(audioPlayer->volume());
  QObject::connect(
      audioPlayer.get(), &AudioPlayerController::volumeChanged, &mediaControls,
      [&mediaControls, player = audioPlayer.get()] { mediaControls.setVolume(player->volume()); });

  MenuBarScene scene({menuBarExtra, colorScheme, windowSystem, *audioPlayer, localization, notices});
  const std::filesystem::path icon = resourceBundle.folder() / "MenuBarIcon.png";
  SettingsScene settings(localization, colorScheme, icon);
  QObject::connect(&scene, &MenuBarScene::panelWillOpen, &scene,
                   [&audioPlayerFactory] { audioPlayerFactory.warmUp(); });
  QObject::connect(&scene, &MenuBarScene::panelDidClose, &scene, releaseUnusedMemory);
  QObject::connect(&scene, &MenuBarScene::settingsRequested, &settings, &SettingsScene::show);
  QObject::connect(&settings, &SettingsScene::windowDidClose, &settings, releaseUnusedMemory);
  QObject::connect(&memoryPressure, &MemoryPressure::memoryIsShort, &scene, [] {
    AudioPlayerController::coverImageCache().releaseUnused();
    releaseUnusedMemory();
  });
  QObject::connect(&mediaControls, &MprisMediaControls::raiseRequested, &scene, &MenuBarScene::showPanel,
                   Qt::QueuedConnection);
  QObject::connect(&scene, &MenuBarScene::quitRequested, qApp, [] { QCoreApplication::exit(0); });
  const auto serve = [&scene, &settings](SingleInstance::Request request) {
    switch (request) {
      case SingleInstance::Request::showPanel:
        scene.showPanel();
        break;
      case SingleInstance::Request::showSettings:
        settings.show();
        break;
    }
  };
  const SingleInstanceServer laterCopies(instance);
  QObject::connect(&laterCopies, &SingleInstanceServer::requested, &scene, serve);
  using StartedBy = BusActivation::StartedBy;
  BusActivation busActivation(applicationId,
                              action == CommandLine::Action::serve ? StartedBy::bus : StartedBy::user);
  QObject::connect(&busActivation, &BusActivation::requested, &scene, serve, Qt::QueuedConnection);
  // The bus that started a later copy may be one that came back, and does not know us yet.
  QObject::connect(&laterCopies, &SingleInstanceServer::requested, &busActivation, &BusActivation::appear);
  scene.show(icon);
  busActivation.appear();
  if (action == CommandLine::Action::showSettings) {
    settings.show();
  }
  return QCoreApplication::exec();
}

}  // namespace

int MirevalMacApp::main(int argc, char** argv) {
  // A reader of our output that goes away must not end the music.
  std::signal(SIGPIPE, SIG_IGN);
  StandardError notices;
  const auto commandLine =
      CommandLine::parse(std::vector<std::string_view>(argv + std::min(argc, 1), argv + argc));
  if (const auto exitStatus = answer(commandLine, notices)) {
    return *exitStatus;
  }
  SingleInstance instance = SingleInstance::forCurrentUser();
  if (const auto exitStatus = handOver(instance, commandLine.action, notices)) {
    return *exitStatus;
  }
  useMmapForLargeBlocks();
  if (!displayServerAnswers()) {
    notices.say("no display answers; set DISPLAY or WAYLAND_DISPLAY");
    return 1;
  }
  if (qEnvironmentVariableIsEmpty("QT_QPA_PLATFORM")) {
    // Only X11, also the one inside a Wayland session, lets a window choose its place.
    qputenv("QT_QPA_PLATFORM", "xcb;wayland");
  }
  QQuickWindow::setGraphicsApi(QSGRendererInterface::Software);
  QQuickWindow::setDefaultAlphaBuffer(true);
  QApplication application(argc, argv);
  QApplication::setApplicationName(QStringLiteral("Mireval"));
  QApplication::setDesktopFileName(QStringLiteral("org.mireval.Mireval"));
  QApplication::setQuitOnLastWindowClosed(false);
  // For a session that is restored, Qt proposes arguments of its own.
  QObject::connect(&application, &QApplication::saveStateRequest, &application, [](QSessionManager& session) {
    session.setRestartCommand({QCoreApplication::applicationFilePath()});
  });
  return runScenes(instance, commandLine.action, notices);
}

}  // namespace mireval
