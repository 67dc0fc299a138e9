#pragma once

#include "Player.h"

#include "NoNowPlayingInfoCenter.h"
#include "NoRemoteCommandCenter.h"
#include "platform/linux/audio/PulseAudioPlayerFactory.h"
#include "platform/qt/FolderResourceBundle.h"
#include "platform/qt/QtImageDecoder.h"
#include "platform/qt/QtMainThread.h"
#include "platform/qt/QtRunLoop.h"
#include "platform/qt/StandardError.h"
#include "platform/qt/StandardOutput.h"
#include "playback/AudioPlayerController.h"

#include <filesystem>
#include <memory>

namespace mireval::bench {

/// The controller and everything below it, as the application wires them, without the panel.
class MirevalPlayer final : public Player {
 public:
  /// `folder` holds PreviewAudio/focus-1.m4a and focus-2.m4a.
  explicit MirevalPlayer(const std::filesystem::path& folder);

  std::string name() const override { return "mireval"; }
  void play() override;
  void stop() override;

 private:
  FolderResourceBundle m_bundle;
  StandardError m_notices;
  PulseAudioPlayerFactory m_factory{m_notices};
  QtRunLoop m_runLoop;
  QtMainThread m_mainThread;
  NoRemoteCommandCenter m_commands;
  NoNowPlayingInfoCenter m_nowPlaying;
  QtImageDecoder m_imageDecoder;
  StandardOutput m_output;
  std::shared_ptr<AudioPlayerController> m_controller;
};

}  // namespace mireval::bench
