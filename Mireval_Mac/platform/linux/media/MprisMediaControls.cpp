#include "platform/linux/media/MprisMediaControls.h"

#include "platform/linux/bus/BusValues.h"

#include <systemd/sd-bus.h>

#include <cstdint>
#include <string_view>
#include <utility>

namespace mireval {
namespace {

using Clock = MprisPosition::Clock;

constexpr const char* objectPath = "/org/mpris/MediaPlayer2";
constexpr const char* playerInterface = "org.mpris.MediaPlayer2.Player";
constexpr const char* applicationInterface = "org.mpris.MediaPlayer2";

QByteArray busNameOf(const MprisMediaControls::Application& application) {
  return "org.mpris.MediaPlayer2." + application.busName;
}

}  // namespace

struct MprisMediaControls::Callbacks {
  using Self = MprisMediaControls;

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
    // A value that is left unread would end the connection.
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

const sd_bus_vtable MprisMediaControls::Callbacks::application[] = {
    SD_BUS_VTABLE_START(0),
    SD_BUS_METHOD("Raise", "", "", raise, 0),
    SD_BUS_METHOD("Quit", "", "", doNothing, 0),
    SD_BUS_PROPERTY("CanQuit", "b", propertyGetter<no>, 0, SD_BUS_VTABLE_PROPERTY_EMITS_CHANGE),
    SD_BUS_PROPERTY("CanRaise", "b", propertyGetter<yes>, 0, SD_BUS_VTABLE_PROPERTY_EMITS_CHANGE),
    SD_BUS_PROPERTY("HasTrackList", "b", propertyGetter<no>, 0, SD_BUS_VTABLE_PROPERTY_EMITS_CHANGE),
    SD_BUS_PROPERTY("Identity", "s", propertyGetter<identity>, 0, SD_BUS_VTABLE_PROPERTY_EMITS_CHANGE),
    SD_BUS_PROPERTY("DesktopEntry", "s", propertyGetter<desktopEntry>, 0,
                    SD_BUS_VTABLE_PROPERTY_EMITS_CHANGE),
    SD_BUS_PROPERTY("SupportedUriSchemes", "as", propertyGetter<noTexts>, 0,
                    SD_BUS_VTABLE_PROPERTY_EMITS_CHANGE),
    SD_BUS_PROPERTY("SupportedMimeTypes", "as", propertyGetter<noTexts>, 0,
                    SD_BUS_VTABLE_PROPERTY_EMITS_CHANGE),
    SD_BUS_VTABLE_END,
};

const sd_bus_vtable MprisMediaControls::Callbacks::player[] = {
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
    SD_BUS_PROPERTY("PlaybackStatus", "s", propertyGetter<playbackStatus>, 0,
                    SD_BUS_VTABLE_PROPERTY_EMITS_CHANGE),
    SD_BUS_WRITABLE_PROPERTY("Rate", "d", propertyGetter<normalRate>, ignore, 0,
                             SD_BUS_VTABLE_PROPERTY_EMITS_CHANGE),
    SD_BUS_PROPERTY("Metadata", "a{sv}", propertyGetter<metadata>, 0, SD_BUS_VTABLE_PROPERTY_EMITS_CHANGE),
    SD_BUS_WRITABLE_PROPERTY("Volume", "d", propertyGetter<volume>, ignore, 0,
                             SD_BUS_VTABLE_PROPERTY_EMITS_CHANGE),
    SD_BUS_PROPERTY("Position", "x", propertyGetter<position>, 0, 0),
    SD_BUS_PROPERTY("MinimumRate", "d", propertyGetter<normalRate>, 0, SD_BUS_VTABLE_PROPERTY_EMITS_CHANGE),
    SD_BUS_PROPERTY("MaximumRate", "d", propertyGetter<normalRate>, 0, SD_BUS_VTABLE_PROPERTY_EMITS_CHANGE),
    SD_BUS_PROPERTY("CanGoNext", "b", propertyGetter<no>, 0, SD_BUS_VTABLE_PROPERTY_EMITS_CHANGE),
    SD_BUS_PROPERTY("CanGoPrevious", "b", propertyGetter<no>, 0, SD_BUS_VTABLE_PROPERTY_EMITS_CHANGE),
    SD_BUS_PROPERTY("CanPlay", "b", propertyGetter<canPlay>, 0, SD_BUS_VTABLE_PROPERTY_EMITS_CHANGE),
    SD_BUS_PROPERTY("CanPause", "b", propertyGetter<canPause>, 0, SD_BUS_VTABLE_PROPERTY_EMITS_CHANGE),
    SD_BUS_PROPERTY("CanSeek", "b", propertyGetter<no>, 0, SD_BUS_VTABLE_PROPERTY_EMITS_CHANGE),
    SD_BUS_PROPERTY("CanControl", "b", propertyGetter<yes>, 0, 0),
    SD_BUS_VTABLE_END,
};

MprisMediaControls::MprisMediaControls(MessageBus& sessionBus, Application application)
    : m_application(std::move(application)), m_bus(sessionBus) {
  connect(&m_bus, &MessageBus::lost, this, [this] {
    m_hasName = false;
    m_objects.clear();
    m_nameRequest.reset();
  });
}

MprisMediaControls::~MprisMediaControls() {
  if (!m_requestedName.isEmpty()) {
    m_bus.releaseName(m_requestedName);
  }
}

void MprisMediaControls::Command::setEnabled(bool enabled) {
  if (std::exchange(m_enabled, enabled) != enabled && m_property != nullptr) {
    m_controls.announce({m_property});
  }
}

void MprisMediaControls::Command::addHandler(Handler handler) {
  m_handlers.push_back(std::move(handler));
  m_controls.appear();
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
  m_bus.tryAgain();

  std::optional<MprisMetadata> metadata;
  MprisPosition::Publication publication;
  if (info) {
    metadata.emplace(*info);
    publication.elapsed =
        MprisPosition::Microseconds(toMicroseconds(info->elapsedPlaybackSeconds).value_or(0));
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
  announce(changed);
  if (jumped && m_metadata && m_hasName) {
    m_bus.emitSignal(objectPath, playerInterface, "Seeked", "x", std::int64_t{m_position.at(now).count()});
  }
}

void MprisMediaControls::setVolume(double volume) {
  if (std::exchange(m_volume, volume) != volume) {
    announce({"Volume"});
  }
}

void MprisMediaControls::appear() {
  if (!std::exchange(m_hasAppeared, true)) {
    m_bus.attach(this, [this] { introduce(); });
  }
}

void MprisMediaControls::introduce() {
  // The objects first: a client that sees the name may ask at once.
  m_objects.push_back(m_bus.addObject(objectPath, applicationInterface, Callbacks::application, this));
  m_objects.push_back(m_bus.addObject(objectPath, playerInterface, Callbacks::player, this));
  requestName(busNameOf(m_application));
}

void MprisMediaControls::requestName(const QByteArray& name) {
  m_requestedName = name;
  m_nameRequest = m_bus.requestName(name, MessageBus::IfTaken::fail, Callbacks::handleNameReply, this);
}

void MprisMediaControls::handleNameReply(NameReply reply) {
  m_hasName = reply == NameReply::primaryOwner;
  if (reply != NameReply::exists) {
    return;
  }
  // Another copy runs. The unique name of this connection (":1.42") distinguishes the copies.
  const QByteArray name =
      busNameOf(m_application) + ".instance" + m_bus.uniqueName().mid(1).replace('.', '_');
  if (name != m_requestedName) {
    requestName(name);
  }
}

void MprisMediaControls::announce(const PropertyNames& changed) {
  if (m_hasName && !changed.empty()) {
    m_bus.emitPropertiesChanged(objectPath, playerInterface, changed);
  }
}

const char* MprisMediaControls::playbackStatus() const {
  return !m_metadata ? "Stopped" : m_playing ? "Playing" : "Paused";
}

}  // namespace mireval
