#include "platform/linux/media/MprisMediaControls.h"

#include <systemd/sd-bus.h>

#include <algorithm>
#include <chrono>
#include <cstdint>
#include <string_view>
#include <utility>

namespace mireval {
namespace {

using namespace std::chrono_literals;
using Clock = MprisPosition::Clock;

constexpr const char* objectPath = "/org/mpris/MediaPlayer2";
constexpr const char* playerInterface = "org.mpris.MediaPlayer2.Player";
constexpr const char* applicationInterface = "org.mpris.MediaPlayer2";
constexpr auto shortestRetryDelay = 1s;
constexpr auto longestRetryDelay = 30s;

QByteArray busNameOf(const MprisMediaControls::Application& application) {
  return "org.mpris.MediaPlayer2." + application.busName;
}

}  // namespace

struct MprisMediaControls::Bus {
  using Self = MprisMediaControls;

  template <int (*append)(sd_bus_message* reply, Self& self)>
  static int get(sd_bus*, const char*, const char*, const char*, sd_bus_message* reply, void* userdata,
                 sd_bus_error*) {
    return append(reply, *static_cast<Self*>(userdata));
  }

  static int yes(sd_bus_message* reply, Self&) { return sd_bus_message_append(reply, "b", 1); }
  static int no(sd_bus_message* reply, Self&) { return sd_bus_message_append(reply, "b", 0); }
  static int normalRate(sd_bus_message* reply, Self&) { return sd_bus_message_append(reply, "d", 1.0); }
  static int noTexts(sd_bus_message* reply, Self&) { return sd_bus_message_append(reply, "as", 0U); }

  static int identity(sd_bus_message* reply, Self& self) {
    return sd_bus_message_append(reply, "s", self.m_application.identity.constData());
  }

  static int desktopEntry(sd_bus_message* reply, Self& self) {
    return sd_bus_message_append(reply, "s", self.m_application.desktopEntry.constData());
  }

  static int playbackStatus(sd_bus_message* reply, Self& self) {
    return sd_bus_message_append(reply, "s", self.playbackStatus());
  }

  static int volume(sd_bus_message* reply, Self& self) {
    return sd_bus_message_append(reply, "d", self.m_volume);
  }

  static int position(sd_bus_message* reply, Self& self) {
    return sd_bus_message_append(reply, "x", std::int64_t{self.m_position.at(Clock::now()).count()});
  }

  static int canPlay(sd_bus_message* reply, Self& self) {
    return sd_bus_message_append(reply, "b", static_cast<int>(self.m_play.isEnabled()));
  }

  static int canPause(sd_bus_message* reply, Self& self) {
    return sd_bus_message_append(reply, "b", static_cast<int>(self.m_pause.isEnabled()));
  }

  static int metadata(sd_bus_message* reply, Self& self) {
    int result = sd_bus_message_open_container(reply, 'a', "{sv}");
    const auto append = [&result, reply](const char* key, const char* type, auto... value) {
      if (result >= 0) {
        result = sd_bus_message_append(reply, "{sv}", key, type, value...);
      }
    };
    if (const std::optional<MprisMetadata>& metadata = self.m_metadata; !metadata) {
      append("mpris:trackid", "o", "/org/mpris/MediaPlayer2/TrackList/NoTrack");
    } else {
      append("mpris:trackid", "o", metadata->trackId().constData());
      if (metadata->length) {
        append("mpris:length", "x", *metadata->length);
      }
      append("xesam:title", "s", metadata->title.toUtf8().constData());
      append("xesam:album", "s", metadata->albumTitle.toUtf8().constData());
      append("xesam:artist", "as", 1U, metadata->artist.toUtf8().constData());
      if (!metadata->artFile.empty()) {
        append("mpris:artUrl", "s", metadata->artUrl().constData());
      }
    }
    return result < 0 ? result : sd_bus_message_close_container(reply);
  }

  static int ignore(sd_bus*, const char*, const char*, const char*, sd_bus_message* value, void*,
                    sd_bus_error*) {
    // What is left unread would count as our failure, and end the connection.
    return sd_bus_message_skip(value, nullptr);
  }

  static int doNothing(sd_bus_message* call, void*, sd_bus_error*) {
    return sd_bus_reply_method_return(call, nullptr);
  }

  static int raise(sd_bus_message* call, void* userdata, sd_bus_error*) {
    Q_EMIT static_cast<Self*>(userdata)->raiseRequested();
    return sd_bus_reply_method_return(call, nullptr);
  }

  template <Command Self::*command>
  static int send(sd_bus_message* call, void* userdata, sd_bus_error*) {
    const Self& self = *static_cast<const Self*>(userdata);
    if ((self.*command).send() != RemoteCommandHandlerStatus::success) {
      return sd_bus_reply_method_errorf(call, SD_BUS_ERROR_FAILED, "The command could not be obeyed");
    }
    return sd_bus_reply_method_return(call, nullptr);
  }

  static int handleNameReply(sd_bus_message* reply, void* userdata, sd_bus_error*) {
    Self& self = *static_cast<Self*>(userdata);
    std::uint32_t answer = 0;
    if (sd_bus_message_is_method_error(reply, nullptr) != 0 || sd_bus_message_read(reply, "u", &answer) < 0) {
      return 0;
    }
    self.handleNameReply(static_cast<NameReply>(answer));
    return 0;
  }

  static const sd_bus_vtable application[];
  static const sd_bus_vtable player[];
};

const sd_bus_vtable MprisMediaControls::Bus::application[] = {
    SD_BUS_VTABLE_START(0),
    SD_BUS_METHOD("Raise", "", "", raise, 0),
    SD_BUS_METHOD("Quit", "", "", doNothing, 0),
    SD_BUS_PROPERTY("CanQuit", "b", get<no>, 0, SD_BUS_VTABLE_PROPERTY_EMITS_CHANGE),
    SD_BUS_PROPERTY("CanRaise", "b", get<yes>, 0, SD_BUS_VTABLE_PROPERTY_EMITS_CHANGE),
    SD_BUS_PROPERTY("HasTrackList", "b", get<no>, 0, SD_BUS_VTABLE_PROPERTY_EMITS_CHANGE),
    SD_BUS_PROPERTY("Identity", "s", get<identity>, 0, SD_BUS_VTABLE_PROPERTY_EMITS_CHANGE),
    SD_BUS_PROPERTY("DesktopEntry", "s", get<desktopEntry>, 0, SD_BUS_VTABLE_PROPERTY_EMITS_CHANGE),
    SD_BUS_PROPERTY("SupportedUriSchemes", "as", get<noTexts>, 0, SD_BUS_VTABLE_PROPERTY_EMITS_CHANGE),
    SD_BUS_PROPERTY("SupportedMimeTypes", "as", get<noTexts>, 0, SD_BUS_VTABLE_PROPERTY_EMITS_CHANGE),
    SD_BUS_VTABLE_END,
};

const sd_bus_vtable MprisMediaControls::Bus::player[] = {
    SD_BUS_VTABLE_START(0),
    SD_BUS_METHOD("Next", "", "", doNothing, 0),
    SD_BUS_METHOD("Previous", "", "", doNothing, 0),
    SD_BUS_METHOD("Pause", "", "", send<&MprisMediaControls::m_pause>, 0),
    SD_BUS_METHOD("PlayPause", "", "", send<&MprisMediaControls::m_playPause>, 0),
    SD_BUS_METHOD("Stop", "", "", doNothing, 0),
    SD_BUS_METHOD("Play", "", "", send<&MprisMediaControls::m_play>, 0),
    SD_BUS_METHOD("Seek", "x", "", doNothing, 0),
    SD_BUS_METHOD("SetPosition", "ox", "", doNothing, 0),
    SD_BUS_METHOD("OpenUri", "s", "", doNothing, 0),
    SD_BUS_SIGNAL("Seeked", "x", 0),
    SD_BUS_PROPERTY("PlaybackStatus", "s", get<playbackStatus>, 0, SD_BUS_VTABLE_PROPERTY_EMITS_CHANGE),
    SD_BUS_WRITABLE_PROPERTY("Rate", "d", get<normalRate>, ignore, 0, SD_BUS_VTABLE_PROPERTY_EMITS_CHANGE),
    SD_BUS_PROPERTY("Metadata", "a{sv}", get<metadata>, 0, SD_BUS_VTABLE_PROPERTY_EMITS_CHANGE),
    SD_BUS_WRITABLE_PROPERTY("Volume", "d", get<volume>, ignore, 0, SD_BUS_VTABLE_PROPERTY_EMITS_CHANGE),
    SD_BUS_PROPERTY("Position", "x", get<position>, 0, 0),
    SD_BUS_PROPERTY("MinimumRate", "d", get<normalRate>, 0, SD_BUS_VTABLE_PROPERTY_EMITS_CHANGE),
    SD_BUS_PROPERTY("MaximumRate", "d", get<normalRate>, 0, SD_BUS_VTABLE_PROPERTY_EMITS_CHANGE),
    SD_BUS_PROPERTY("CanGoNext", "b", get<no>, 0, SD_BUS_VTABLE_PROPERTY_EMITS_CHANGE),
    SD_BUS_PROPERTY("CanGoPrevious", "b", get<no>, 0, SD_BUS_VTABLE_PROPERTY_EMITS_CHANGE),
    SD_BUS_PROPERTY("CanPlay", "b", get<canPlay>, 0, SD_BUS_VTABLE_PROPERTY_EMITS_CHANGE),
    SD_BUS_PROPERTY("CanPause", "b", get<canPause>, 0, SD_BUS_VTABLE_PROPERTY_EMITS_CHANGE),
    SD_BUS_PROPERTY("CanSeek", "b", get<no>, 0, SD_BUS_VTABLE_PROPERTY_EMITS_CHANGE),
    SD_BUS_PROPERTY("CanControl", "b", get<yes>, 0, 0),
    SD_BUS_VTABLE_END,
};

MprisMediaControls::MprisMediaControls(Application application) : m_application(std::move(application)) {
  connect(&m_bus, &MessageBus::lost, this, [this] { m_hasName = false; });
}

MprisMediaControls::~MprisMediaControls() = default;

void MprisMediaControls::Command::setEnabled(bool enabled) {
  if (std::exchange(m_enabled, enabled) == enabled) {
    return;
  }
  if (this == &m_controls.m_play) {
    m_controls.announce({"CanPlay"});
  } else if (this == &m_controls.m_pause) {
    m_controls.announce({"CanPause"});
  }
}

void MprisMediaControls::Command::addHandler(Handler handler) {
  m_handlers.push_back(std::move(handler));
  if (!std::exchange(m_controls.m_wanted, true)) {
    m_controls.appear();
  }
}

RemoteCommandHandlerStatus MprisMediaControls::Command::send() const {
  auto status = RemoteCommandHandlerStatus::success;
  if (m_enabled) {
    for (const Handler& handler : m_handlers) {
      if (handler() != RemoteCommandHandlerStatus::success) {
        status = RemoteCommandHandlerStatus::commandFailed;
      }
    }
  }
  return status;
}

void MprisMediaControls::setNowPlayingInfo(const std::optional<NowPlayingInfo>& info) {
  const Clock::time_point now = Clock::now();
  if (m_wanted && !m_bus.isOpen() && now >= m_nextTry) {
    appear();
  }

  std::optional<MprisMetadata> metadata;
  MprisPosition::Publication publication;
  if (info) {
    metadata.emplace(*info);
    publication.elapsed = MprisPosition::Microseconds(microseconds(info->elapsedPlaybackSeconds).value_or(0));
    if (metadata->length) {
      publication.length = MprisPosition::Microseconds(*metadata->length);
    }
    publication.playing = info->playbackRate > 0;
    publication.newTrack = !m_metadata || !m_metadata->isSameTrack(*metadata);
  }
  const bool jumped = m_position.publish(publication, now);

  PropertyNames changed;
  if (metadata != m_metadata) {
    changed.push_back("Metadata");
  }
  const std::string_view statusBefore = playbackStatus();
  m_metadata = std::move(metadata);
  m_playing = publication.playing;
  if (playbackStatus() != statusBefore) {
    changed.push_back("PlaybackStatus");
  }
  announce(std::move(changed));
  if (jumped && m_metadata && m_hasName) {
    sd_bus_emit_signal(m_bus.connection(), objectPath, playerInterface, "Seeked", "x",
                       std::int64_t{m_position.at(now).count()});
    m_bus.flush();
  }
}

void MprisMediaControls::setVolume(double volume) {
  if (std::exchange(m_volume, volume) != volume) {
    announce({"Volume"});
  }
}

void MprisMediaControls::appear() {
  m_retryDelay = std::clamp<Clock::duration>(2 * m_retryDelay, shortestRetryDelay, longestRetryDelay);
  m_nextTry = Clock::now() + m_retryDelay;
  if (!m_bus.open()) {
    return;
  }
  // The object first: whoever sees the name may ask at once.
  sd_bus* const bus = m_bus.connection();
  if (sd_bus_add_object_vtable(bus, nullptr, objectPath, applicationInterface, Bus::application, this) >= 0 &&
      sd_bus_add_object_vtable(bus, nullptr, objectPath, playerInterface, Bus::player, this) >= 0) {
    requestName(busNameOf(m_application));
  }
  m_bus.flush();
}

void MprisMediaControls::requestName(const QByteArray& name) {
  m_requestedName = name;
  sd_bus_request_name_async(m_bus.connection(), nullptr, name.constData(), 0, Bus::handleNameReply, this);
}

void MprisMediaControls::handleNameReply(NameReply reply) {
  if (reply == NameReply::primaryOwner) {
    m_hasName = true;
    m_retryDelay = {};
    return;
  }
  const char* uniqueName = nullptr;
  if (reply != NameReply::exists || sd_bus_get_unique_name(m_bus.connection(), &uniqueName) < 0) {
    return;
  }
  // Another copy runs. What distinguishes connections on this bus (":1.42") also distinguishes the copies.
  const QByteArray name =
      busNameOf(m_application) + ".instance" + QByteArray(uniqueName).mid(1).replace('.', '_');
  if (name != m_requestedName) {
    requestName(name);
  }
}

void MprisMediaControls::announce(PropertyNames changed) {
  if (!m_hasName || changed.empty()) {
    return;
  }
  changed.push_back(nullptr);
  // The interface for C takes the names as changeable texts, but leaves them as they are.
  sd_bus_emit_properties_changed_strv(m_bus.connection(), objectPath, playerInterface,
                                      const_cast<char**>(changed.data()));
  m_bus.flush();
}

const char* MprisMediaControls::playbackStatus() const {
  return !m_metadata ? "Stopped" : m_playing ? "Playing" : "Paused";
}

}  // namespace mireval
