#pragma once

#include <functional>

namespace mireval {

class AudioPlayerFactory;
class ColorScheme;
class DebugOutput;
class ImageDecoder;
class LocaleChanges;
class MainThread;
class MemoryPressure;
class MenuBarExtra;
class Notices;
class NowPlayingInfoCenter;
class RemoteCommandCenter;
class ResourceBundle;
class RunLoop;
class ShowRequests;
class SystemLanguages;
class UserDefaults;
class WindowSystem;

/// Everything that a desktop supplies. Used on the UI thread.
struct Desktop {
  AudioPlayerFactory& audioPlayerFactory;
  ColorScheme& colorScheme;
  DebugOutput& debugOutput;
  ImageDecoder& imageDecoder;
  LocaleChanges& localeChanges;
  MainThread& mainThread;
  MemoryPressure& memoryPressure;
  MenuBarExtra& menuBarExtra;
  Notices& notices;
  NowPlayingInfoCenter& nowPlayingInfoCenter;
  RemoteCommandCenter& remoteCommandCenter;
  ResourceBundle& resourceBundle;
  RunLoop& runLoop;
  ShowRequests& showRequests;
  SystemLanguages& systemLanguages;
  UserDefaults& userDefaults;
  WindowSystem& windowSystem;

  /// Tells the desktop's media controls the volume, 0...1. They cannot change it.
  std::function<void(double volume)> publishVolume;

  /// Gives back to the system what the process holds and does not use at present.
  std::function<void()> releaseUnusedMemory;
};

}  // namespace mireval
