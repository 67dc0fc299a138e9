#pragma once

#include "platform/AudioPlayer.h"
#include "platform/linux/audio/FrameHistory.h"
#include "platform/linux/audio/PulseOutput.h"
#include "platform/linux/audio/PulseServer.h"
#include "platform/linux/audio/PulseSocketWatcher.h"
#include "platform/linux/audio/PulseStream.h"

#include <QByteArray>
#include <QString>

#include <cstdint>
#include <filesystem>
#include <memory>
#include <optional>

namespace mireval {

/// Plays one file through the sound server, on the one stream that all players share. A lost stream is
/// replaced, with growing pauses between the attempts or once a server or sink has come, and playback goes on
/// at the frame that was heard last, as it does when another player had the stream meanwhile. The volume
/// scales the samples, and the server's own volume is left to the user.
class PulseAudioPlayer final : public AudioPlayer,
                               private PulseServer::Client,
                               private PulseStream::Client,
                               private PulseOutput::Holder {
 public:
  /// `decoder` is at the start of `file`, which is opened again for a second play-through.
  PulseAudioPlayer(std::shared_ptr<PulseOutput> output, std::filesystem::path file, const QString& title,
                   std::unique_ptr<AudioDecoder> decoder);
  PulseAudioPlayer(const PulseAudioPlayer&) = delete;
  PulseAudioPlayer& operator=(const PulseAudioPlayer&) = delete;
  ~PulseAudioPlayer() override;

  void setDelegate(AudioPlayerDelegate* delegate) override;
  void setVolume(float volume) override;
  float volume() const override;
  void prepareToPlay() override;
  void play() override;
  void pause() override;
  bool isPlaying() const override;
  double duration() const override { return m_durationSeconds; }
  double currentTime() const override;

 private:
  /// What exists from `play` until `pause` or the end.
  struct Playing {
    explicit Playing(PulseAudioPlayer& player);
    Playing(const Playing&) = delete;
    Playing& operator=(const Playing&) = delete;
    ~Playing();
    std::chrono::microseconds stallPatience() const;
    void scheduleRetry();
    void retrySoon();
    void awaitNothing();

    PulseServer& server;
    PulseServer::Timer retryTimer;
    /// Started while there is no server.
    PulseSocketWatcher socketWatcher;
    /// While there is a server, but a stream was lost.
    bool awaitsSink = false;
    int failedAttempts = 0;
  };

  void serverReady() override;
  void serverLost() override;
  void streamLost() override;
  void streamStalled() override;
  void streamEnded() override;
  void giveUpSound() override;
  bool isSounding() const override { return m_playing.has_value(); }

  void openStream(std::uint64_t from);
  void giveStreamBack();
  void dropStream();
  void retry();
  bool reopenFile();
  void finish(bool successfully);

  const std::shared_ptr<PulseOutput> m_output;
  PulseServer& m_server;
  const std::filesystem::path m_file;
  const QByteArray m_title;
  const int m_sampleRate;
  const double m_durationSeconds;

  // Everything below is guarded by the server's lock.
  AudioPlayerDelegate* m_delegate = nullptr;
  float m_gain = 1;
  /// Empty once the track has ended.
  std::unique_ptr<FrameHistory> m_frames;
  /// Empty while paused and once the track has ended.
  std::optional<Playing> m_playing;
  std::unique_ptr<PulseStream> m_stream;
  /// The furthest frame that was heard of earlier streams.
  std::uint64_t m_heard = 0;
};

}  // namespace mireval
