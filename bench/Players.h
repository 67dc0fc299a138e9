#pragma once

#include "ChildProcess.h"
#include "SoundServer.h"

#include "NoNowPlayingInfoCenter.h"
#include "NoRemoteCommandCenter.h"
#include "library/Catalogue.h"
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
#include <string>
#include <vector>

namespace mireval::bench {

/// A player under measurement: it runs, is connected to the sound server and holds two files.
class Player {
 public:
  virtual ~Player() = default;

  virtual const char* name() const = 0;
  /// Plays the first file from its start, and then the second.
  virtual void play() = 0;
  virtual void stop() = 0;
};

/// The controller and everything below it, as the application wires them, without the panel.
class MirevalPlayer final : public Player {
 public:
  /// `folder` holds PreviewAudio/focus-1.m4a and focus-2.m4a.
  explicit MirevalPlayer(const std::filesystem::path& folder);

  const char* name() const override { return "mireval"; }
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

/// A player in a process of its own that takes commands, a line each, through a socket.
class RemotePlayer : public Player {
 public:
  ~RemotePlayer() override;

 protected:
  RemotePlayer() = default;

  void launch(const std::vector<std::string>& command, const test::SoundServer& server);
  void connectTo(const std::filesystem::path& socket);
  void send(const std::string& line) const;

 private:
  std::unique_ptr<test::ChildProcess> m_process;
  int m_socket = -1;
};

class MpvPlayer final : public RemotePlayer {
 public:
  MpvPlayer(const std::filesystem::path& folder, const test::SoundServer& server);

  const char* name() const override { return "mpv"; }
  void play() override;
  void stop() override;

 private:
  std::filesystem::path m_folder;
};

class MpdPlayer final : public RemotePlayer {
 public:
  MpdPlayer(const std::filesystem::path& folder, const test::SoundServer& server);

  const char* name() const override { return "mpd"; }
  void play() override;
  void stop() override;
};

}  // namespace mireval::bench
