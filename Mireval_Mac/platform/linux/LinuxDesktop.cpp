#include "platform/linux/LinuxDesktop.h"

#include "platform/ShowRequests.h"
#include "platform/linux/audio/LazyAudioPlayerFactory.h"
#include "platform/linux/bus/MessageBus.h"
#include "platform/linux/bus/SilentBusGuard.h"
#include "platform/linux/instance/BusActivation.h"
#include "platform/linux/instance/RequestNames.h"
#include "platform/linux/instance/SingleInstanceServer.h"
#include "platform/linux/media/MprisMediaControls.h"
#include "platform/linux/memory/KernelMemoryPressure.h"
#include "platform/linux/memory/UnusedMemory.h"
#include "platform/linux/settings/PortalColorScheme.h"
#include "platform/linux/settings/SystemLocale.h"
#include "platform/linux/tray/TrayMenuBarExtra.h"
#include "platform/linux/tray/XEmbedIcon.h"
#include "platform/linux/wayland/LayerShell.h"
#include "platform/linux/windows/DisplayServer.h"
#include "platform/linux/windows/LinuxWindowSystem.h"
#include "platform/qt/FolderResourceBundle.h"
#include "platform/qt/IniUserDefaults.h"
#include "platform/qt/QtImageDecoder.h"
#include "platform/qt/QtMainThread.h"
#include "platform/qt/QtRunLoop.h"
#include "platform/qt/StandardDescriptors.h"
#include "platform/qt/StandardOutput.h"

#include <QAccessible>
#include <QGuiApplication>
#include <QTimer>

#include <chrono>
#include <utility>

#include <unistd.h>

namespace mireval {

namespace {

SingleInstance::Request requestFor(const LinuxDesktop::Start& start) {
  using Request = SingleInstance::Request;
  using Purpose = LinuxDesktop::Start::Purpose;
  switch (start.purpose) {
    case Purpose::settings:
      return Request::showSettings;
    case Purpose::mode:
      return requestNamed(start.mode).value_or(Request::showPanel);
    case Purpose::panel:
      break;
  }
  return start.starter == LinuxDesktop::Start::Starter::session ? Request::nothing : Request::showPanel;
}

std::chrono::milliseconds patienceWithBar(const LinuxDesktop::Start& start) {
  // A slow login takes its time. Whoever starts the player by hand wants to see it.
  return std::chrono::seconds(start.starter == LinuxDesktop::Start::Starter::session ? 30 : 2);
}

// From the start of the event loop.
constexpr std::chrono::milliseconds timeForIcon(200);

}  // namespace

LinuxDesktop::LinuxDesktop() {
  openMissingStandardDescriptors();
  StandardError::takeQtMessages();
}

LinuxDesktop::~LinuxDesktop() = default;

/// Owns what the desktop supplies.
struct LinuxDesktop::Services {
  Services(const SingleInstance& instance, const Start& start, Notices& notices);
  void request(SingleInstance::Request request);

  const QByteArray applicationId = QGuiApplication::desktopFileName().toUtf8();
  FolderResourceBundle resourceBundle = FolderResourceBundle::forApplication();
  LazyAudioPlayerFactory audioPlayerFactory;
  QtRunLoop runLoop;
  MessageBus sessionBus{MessageBus::Kind::session};
  MprisMediaControls mediaControls{sessionBus,
                                   {.identity = QGuiApplication::applicationDisplayName().toUtf8(),
                                    .busName = "mireval",
                                    .desktopEntry = applicationId}};
  QtImageDecoder imageDecoder;
  StandardOutput debugOutput;
  QtMainThread mainThread;
  IniUserDefaults userDefaults = IniUserDefaults::forCurrentUser();
  SystemLocale systemLocale;
  PortalColorScheme colorScheme{sessionBus};
  LinuxWindowSystem windowSystem;
  TrayMenuBarExtra menuBarExtra;
  KernelMemoryPressure memoryPressure;
  ShowRequests showRequests;
  SingleInstanceServer laterCopies;
  BusActivation busActivation;
  const Desktop desktop;
};

LinuxDesktop::Services::Services(const SingleInstance& instance, const Start& start, Notices& notices)
    : audioPlayerFactory(LazyAudioPlayerFactory::moduleOfApplication(), notices),
      menuBarExtra(sessionBus, {.pointer = &LinuxWindowSystem::pointer,
                                .embed = &XEmbedIcon::make,
                                .hostsTellPlaces = !windowSystem.usesLayers(),
                                .patienceAtStart = patienceWithBar(start)}),
      laterCopies(instance),
      busActivation(sessionBus, applicationId,
                    start.starter == Start::Starter::bus ? BusActivation::StartedBy::bus
                                                         : BusActivation::StartedBy::user),
      desktop{.audioPlayerFactory = audioPlayerFactory,
              .colorScheme = colorScheme,
              .debugOutput = debugOutput,
              .imageDecoder = imageDecoder,
              .localeChanges = systemLocale,
              .mainThread = mainThread,
              .memoryPressure = memoryPressure,
              .menuBarExtra = menuBarExtra,
              .notices = notices,
              .nowPlayingInfoCenter = mediaControls,
              .remoteCommandCenter = mediaControls,
              .resourceBundle = resourceBundle,
              .runLoop = runLoop,
              .showRequests = showRequests,
              .systemLanguages = systemLocale,
              .userDefaults = userDefaults,
              .windowSystem = windowSystem,
              .publishVolume = [this](double volume) { mediaControls.setVolume(volume); },
              .releaseUnusedMemory = &mireval::releaseUnusedMemory} {
  const auto pass = [this](SingleInstance::Request wanted) { request(wanted); };
  // A later copy is answered when the slots that are called directly have returned.
  QObject::connect(&laterCopies, &SingleInstanceServer::requested, &showRequests, pass);
  QObject::connect(&busActivation, &BusActivation::requested, &showRequests, pass, Qt::QueuedConnection);
  QObject::connect(&mediaControls, &MprisMediaControls::raiseRequested, &showRequests,
                   &ShowRequests::panelRequested, Qt::QueuedConnection);
  QObject::connect(&mediaControls, &MprisMediaControls::quitRequested, &showRequests,
                   &ShowRequests::quitRequested, Qt::QueuedConnection);
  // The bus that started a later copy may have come back unnoticed.
  QObject::connect(&laterCopies, &SingleInstanceServer::requested, &sessionBus, &MessageBus::tryAgain);
  // Not before the event loop runs, when the application is ready for requests.
  QMetaObject::invokeMethod(&busActivation, &BusActivation::appear, Qt::QueuedConnection);
}

void LinuxDesktop::Services::request(SingleInstance::Request request) {
  switch (request) {
    case SingleInstance::Request::nothing:
      break;
    case SingleInstance::Request::showPanel:
      Q_EMIT showRequests.panelRequested();
      break;
    case SingleInstance::Request::showSettings:
      Q_EMIT showRequests.settingsRequested();
      break;
    case SingleInstance::Request::playFocus:
    case SingleInstance::Request::playTempo:
    case SingleInstance::Request::playCreative:
    case SingleInstance::Request::playRelaxation:
      Q_EMIT showRequests.modeRequested(QString::fromLatin1(nameOf(request)));
      break;
  }
}

bool LinuxDesktop::print(std::string_view text) {
  return writeWithoutBlocking(STDOUT_FILENO, text, std::chrono::seconds(3));
}

std::optional<int> LinuxDesktop::prepare(Start start) {
  m_start = std::move(start);
  if (const auto exitStatus = handOver()) {
    return exitStatus;
  }
  useMmapForLargeBlocks();
  if (!chooseDisplay()) {
    return 1;
  }
  m_silentBusGuard = std::make_unique<SilentBusGuard>();
  return std::nullopt;
}

bool LinuxDesktop::chooseDisplay() {
  const UsableDisplays displays = findUsableDisplays(qgetenv("QT_QPA_PLATFORM"));
  if (displays.platforms.isEmpty()) {
    m_notices.say("no display answers; set DISPLAY or WAYLAND_DISPLAY");
    return false;
  }
  if (displays.x11IsSilent) {
    m_notices.say("the X server does not answer; the windows are shown without it");
  }
  if (displays.waylandIsSilent) {
    m_notices.say("the Wayland compositor does not answer; the windows are shown without it");
  }
  if (displays.hasLayers) {
    LayerShell::prepareWindows();
  }
  qputenv("QT_QPA_PLATFORM", displays.platforms);
  return true;
}

std::optional<int> LinuxDesktop::handOver() {
  if (m_instance.usesTemporaryFolder()) {
    m_notices.say("XDG_RUNTIME_DIR is not set; copies find each other in " + m_instance.folder().native());
  }
  const auto outcome = m_instance.elect(requestFor(m_start));
  if (!outcome) {
    m_notices.say("other copies cannot be found: " + outcome.error());
    return std::nullopt;
  }
  switch (*outcome) {
    case SingleInstance::Outcome::elected:
      break;
    case SingleInstance::Outcome::handedOver:
      if (m_start.starter == Start::Starter::bus) {
        // The bus would go on waiting for its name, and ask nobody else meanwhile.
        m_notices.say("a copy runs already, which the bus does not know; its panel opens");
        return 1;
      }
      return 0;
    case SingleInstance::Outcome::unanswered:
      m_notices.say("a copy runs already, but does not answer");
      return 1;
  }
  return std::nullopt;
}

std::shared_ptr<const Desktop> LinuxDesktop::connect() {
  if (m_silentBusGuard->busIsSilent()) {
    m_notices.say(
        "the session bus does not answer; screen readers cannot see the windows until the next start");
  }
  m_silentBusGuard.reset();
  // Makes Qt ask the bus about screen readers soon, and not with the first window, when the bus may be
  // silent. Qt waits for the answer, so the icon comes before.
  QTimer::singleShot(timeForIcon, qGuiApp, [] { QAccessible::isActive(); });
  const auto services = std::make_shared<Services>(m_instance, m_start, m_notices);
  return {services, &services->desktop};
}

}  // namespace mireval
