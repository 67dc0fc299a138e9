#pragma once

namespace mireval {

class AudioPlayerFactory;
class DebugOutput;
class ImageDecoder;
class MainThread;
class NowPlayingInfoCenter;
class RemoteCommandCenter;
class ResourceBundle;
class RunLoop;

/// What the controller needs of the desktop. Not owned; must outlive the controller and the tasks that it has
/// given to the main thread.
struct PlaybackServices {
  ResourceBundle& resourceBundle;
  AudioPlayerFactory& audioPlayerFactory;
  RunLoop& runLoop;
  MainThread& mainThread;
  RemoteCommandCenter& remoteCommandCenter;
  NowPlayingInfoCenter& nowPlayingInfoCenter;
  ImageDecoder& imageDecoder;
  DebugOutput& debugOutput;
};

}  // namespace mireval
