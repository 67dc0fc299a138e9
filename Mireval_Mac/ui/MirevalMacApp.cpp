#include "ui/MirevalMacApp.h"

#include "library/LocalLibraryProvider.h"
#include "localization/AppLocalization.h"
#include "platform/linux/DisplayServer.h"
#include "platform/linux/FolderResourceBundle.h"
#include "platform/linux/KernelMemoryPressure.h"
#include "platform/linux/LazyAudioPlayerFactory.h"
#include "platform/linux/MprisMediaControls.h"
#include "platform/linux/PaletteColorScheme.h"
#include "platform/linux/QtImageDecoder.h"
#include "platform/linux/QtMainThread.h"
#include "platform/linux/QtRunLoop.h"
#include "platform/linux/StandardOutput.h"
#include "platform/linux/SystemTrayMenuBarExtra.h"
#include "platform/linux/UnusedMemory.h"
#include "platform/linux/X11Compositor.h"
#include "playback/AudioPlayerController.h"
#include "ui/MenuBarScene.h"

#include <QApplication>
#include <QQuickWindow>
#include <QSGRendererInterface>

#include <csignal>
#include <cstdio>
#include <memory>

namespace mireval {
namespace {

int runScenes() {
  FolderResourceBundle resourceBundle = FolderResourceBundle::ofApplication();
  LazyAudioPlayerFactory audioPlayerFactory(LazyAudioPlayerFactory::moduleOfApplication());
  QtRunLoop runLoop;
  MprisMediaControls mediaControls({.identity = QGuiApplication::applicationDisplayName().toUtf8(),
                                    .desktopEntry = QGuiApplication::desktopFileName().toUtf8()});
  QtImageDecoder imageDecoder;
  StandardOutput debugOutput;
  QtMainThread mainThread;
  PaletteColorScheme colorScheme;
  X11Compositor compositor;
  SystemTrayMenuBarExtra menuBarExtra;
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
  AppLocalization localization;
  mediaControls.setVolume(audioPlayer->volume());
  QObject::connect(
      audioPlayer.get(), &AudioPlayerController::volumeChanged, &mediaControls,
      [&mediaControls, player = audioPlayer.get()] { mediaControls.setVolume(player->volume()); });

  MenuBarScene scene({menuBarExtra, colorScheme, compositor, *audioPlayer, localization});
  QObject::connect(&scene, &MenuBarScene::panelWillOpen, &scene,
                   [&audioPlayerFactory] { audioPlayerFactory.warmUp(); });
  QObject::connect(&scene, &MenuBarScene::panelDidClose, &scene, releaseUnusedMemory);
  QObject::connect(&memoryPressure, &MemoryPressure::memoryIsShort, &scene, [] {
    AudioPlayerController::coverImageCache().releaseUnused();
    releaseUnusedMemory();
  });
  QObject::connect(&mediaControls, &MprisMediaControls::raiseRequested, &scene, &MenuBarScene::showPanel,
                   Qt::QueuedConnection);
  QObject::connect(&scene, &MenuBarScene::quitRequested, qApp, [] { QCoreApplication::exit(0); });
  scene.show(resourceBundle.folder() / "MenuBarIcon.png");
  return QCoreApplication::exec();
}

}  // namespace

int MirevalMacApp::main(int argc, char** argv) {
  returnLargeBlocksAtOnce();
  // A reader of our output that goes away must not end the music.
  std::signal(SIGPIPE, SIG_IGN);
  if (!displayServerAnswers(argc, argv)) {
    std::fputs("mireval: no display answers; set DISPLAY or WAYLAND_DISPLAY\n", stderr);
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
  QApplication::setDesktopFileName(QStringLiteral("mireval"));
  QApplication::setQuitOnLastWindowClosed(false);
  return runScenes();
}

}  // namespace mireval
