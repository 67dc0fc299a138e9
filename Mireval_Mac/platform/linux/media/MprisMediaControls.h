#pragma once

#include "platform/NowPlayingInfoCenter.h"
#include "platform/RemoteCommandCenter.h"
#include "platform/linux/bus/MessageBus.h"
#include "platform/linux/media/MprisCommand.h"
#include "platform/linux/media/MprisMetadata.h"
#include "platform/linux/media/MprisPosition.h"

#include <QByteArray>
#include <QObject>

#include <cstdint>
#include <optional>
#include <vector>

namespace mireval {

/// The desktop's media controls by way of MPRIS 2.2: media keys and players' lists on the desktop find this
/// application on the session bus, show what plays, and send their commands.
///
/// It appears on the bus as soon as a command has a handler, and stays there until it is destroyed.
class MprisMediaControls final : public QObject, public RemoteCommandCenter, public NowPlayingInfoCenter {
  Q_OBJECT

 public:
  static constexpr const char* objectPath = "/org/mpris/MediaPlayer2";
  static constexpr const char* applicationInterface = "org.mpris.MediaPlayer2";
  static constexpr const char* playerInterface = "org.mpris.MediaPlayer2.Player";

  /// How the application presents itself.
  struct Application {
    /// For people.
    QByteArray identity;
    /// The last part of the name on the bus.
    QByteArray busName;
    /// Name of the desktop file, without its suffix.
    QByteArray desktopEntry;
  };

  /// The bus has to outlive it.
  MprisMediaControls(MessageBus& sessionBus, Application application);
  ~MprisMediaControls() override;

  RemoteCommand& playCommand() override { return m_play; }
  RemoteCommand& pauseCommand() override { return m_pause; }
  RemoteCommand& togglePlayPauseCommand() override { return m_playPause; }

  void setNowPlayingInfo(const std::optional<NowPlayingInfo>& info) override;

  /// The volume that clients can read, 0...1. They cannot change it.
  void setVolume(double volume);

 Q_SIGNALS:
  /// Somebody on the desktop wants to see the application.
  void raiseRequested();

  /// Somebody on the desktop wants the application to end. Emitted before the call is answered, so connect it
  /// queued.
  void quitRequested();

 private:
  using PropertyNames = std::vector<const char*>;

  // What the bus calls.
  static const sd_bus_vtable applicationTable[];
  static const sd_bus_vtable playerTable[];
  const char* identity() const { return m_application.identity.constData(); }
  const char* desktopEntry() const { return m_application.desktopEntry.constData(); }
  const char* playbackStatus() const;
  std::int64_t position() { return positionAt(MprisPosition::Clock::now()); }
  bool canPlay() const { return m_play.isEnabled(); }
  bool canPause() const { return m_pause.isEnabled(); }
  int appendMetadata(sd_bus_message* reply) const;
  int play(sd_bus_message* call) { return m_play.send(call); }
  int pause(sd_bus_message* call) { return m_pause.send(call); }
  int playPause(sd_bus_message* call) { return m_playPause.send(call); }
  static int receiveRate(sd_bus* bus, const char* path, const char* interface, const char* property,
                         sd_bus_message* value, void* controls, sd_bus_error* error);
  static int receiveVolume(sd_bus* bus, const char* path, const char* interface, const char* property,
                           sd_bus_message* value, void* controls, sd_bus_error* error);
  void handleNameReply(sd_bus_message* reply);

  void appear();
  void introduce();
  void requestName(const QByteArray& name);
  void announce(const PropertyNames& changed);
  std::int64_t positionAt(MprisPosition::Clock::time_point now) { return m_position.at(now).count(); }

  const Application m_application;
  MprisCommand m_play{[this] { announce({"CanPlay"}); }, [this] { appear(); }};
  MprisCommand m_pause{[this] { announce({"CanPause"}); }, [this] { appear(); }};
  MprisCommand m_playPause{[] {}, [this] { appear(); }};
  std::optional<MprisMetadata> m_metadata;
  bool m_playing = false;
  MprisPosition m_position;
  double m_volume = 1;

  MessageBus& m_bus;
  bool m_hasAppeared = false;
  MessageBus::Slots m_objects;
  QByteArray m_requestedName;
  MessageBus::Slot m_nameRequest;
  bool m_hasName = false;
};

}  // namespace mireval
