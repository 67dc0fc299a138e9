#include "platform/linux/media/MprisMediaControls.h"

#include "platform/linux/bus/BusHandlers.h"

#include <systemd/sd-bus.h>

#include <cstdint>
#include <string_view>
#include <utility>

namespace mireval {
namespace {

using Clock = MprisPosition::Clock;

// Clients learn of changes by PropertiesChanged.
constexpr std::uint64_t told = SD_BUS_VTABLE_PROPERTY_EMITS_CHANGE;

constexpr sd_bus_property_get_t normalRate = constantGetter<1, double>;

QByteArray busNameOf(const MprisMediaControls::Application& application) {
  return "org.mpris.MediaPlayer2." + application.busName;
}

}  // namespace

const sd_bus_vtable MprisMediaControls::applicationTable[] = {
    SD_BUS_VTABLE_START(0),
    SD_BUS_METHOD("Raise", "", "", methodHandler<&MprisMediaControls::raiseRequested>, 0),
    SD_BUS_METHOD("Quit", "", "", methodHandler<&MprisMediaControls::quitRequested>, 0),
    SD_BUS_PROPERTY("CanQuit", "b", constantGetter<true>, 0, told),
    SD_BUS_PROPERTY("CanRaise", "b", constantGetter<true>, 0, told),
    SD_BUS_PROPERTY("HasTrackList", "b", constantGetter<false>, 0, told),
    SD_BUS_PROPERTY("Identity", "s", propertyGetter<&MprisMediaControls::identity>, 0, told),
    SD_BUS_PROPERTY("DesktopEntry", "s", propertyGetter<&MprisMediaControls::desktopEntry>, 0, told),
    SD_BUS_PROPERTY("SupportedUriSchemes", "as", emptyArrayGetter<"as">, 0, told),
    SD_BUS_PROPERTY("SupportedMimeTypes", "as", emptyArrayGetter<"as">, 0, told),
    SD_BUS_VTABLE_END,
};

const sd_bus_vtable MprisMediaControls::playerTable[] = {
    SD_BUS_VTABLE_START(0),
    SD_BUS_METHOD("Next", "", "", ignoreCall, 0),
    SD_BUS_METHOD("Previous", "", "", ignoreCall, 0),
    SD_BUS_METHOD("Pause", "", "", methodHandler<&MprisMediaControls::pause>, 0),
    SD_BUS_METHOD("PlayPause", "", "", methodHandler<&MprisMediaControls::playPause>, 0),
    SD_BUS_METHOD("Stop", "", "", ignoreCall, 0),
    SD_BUS_METHOD("Play", "", "", methodHandler<&MprisMediaControls::play>, 0),
    SD_BUS_METHOD_WITH_ARGS("Seek", SD_BUS_ARGS("x", Offset), SD_BUS_NO_RESULT, ignoreCall, 0),
    SD_BUS_METHOD_WITH_ARGS("SetPosition", SD_BUS_ARGS("o", TrackId, "x", Position), SD_BUS_NO_RESULT,
                            ignoreCall, 0),
    SD_BUS_METHOD_WITH_ARGS("OpenUri", SD_BUS_ARGS("s", Uri), SD_BUS_NO_RESULT, ignoreCall, 0),
    SD_BUS_SIGNAL_WITH_ARGS("Seeked", SD_BUS_ARGS("x", Position), 0),
    SD_BUS_PROPERTY("PlaybackStatus", "s", propertyGetter<&MprisMediaControls::playbackStatus>, 0, told),
    SD_BUS_WRITABLE_PROPERTY("Rate", "d", normalRate, receiveRate, 0, told),
    SD_BUS_PROPERTY("Metadata", "a{sv}", propertyGetter<&MprisMediaControls::appendMetadata>, 0, told),
    SD_BUS_WRITABLE_PROPERTY("Volume", "d", propertyGetter<&MprisMediaControls::m_volume>, receiveVolume, 0,
                             told),
    SD_BUS_PROPERTY("Position", "x", propertyGetter<&MprisMediaControls::position>, 0, 0),
    SD_BUS_PROPERTY("MinimumRate", "d", normalRate, 0, told),
    SD_BUS_PROPERTY("MaximumRate", "d", normalRate, 0, told),
    SD_BUS_PROPERTY("CanGoNext", "b", constantGetter<false>, 0, told),
    SD_BUS_PROPERTY("CanGoPrevious", "b", constantGetter<false>, 0, told),
    SD_BUS_PROPERTY("CanPlay", "b", propertyGetter<&MprisMediaControls::canPlay>, 0, told),
    SD_BUS_PROPERTY("CanPause", "b", propertyGetter<&MprisMediaControls::canPause>, 0, told),
    SD_BUS_PROPERTY("CanSeek", "b", constantGetter<false>, 0, told),
    SD_BUS_PROPERTY("CanControl", "b", constantGetter<true>, 0, 0),
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

/// MPRIS wants a rate of 0 to pause. The music has no other rate than 1.
int MprisMediaControls::receiveRate(sd_bus*, const char*, const char*, const char*, sd_bus_message* value,
                                    void* controls, sd_bus_error* error) {
  const auto* const self = static_cast<const MprisMediaControls*>(controls);
  double rate = 1;
  sd_bus_message_read(value, "d", &rate);
  const bool pauses = rate == 0 && self->m_playing;
  return !pauses || self->m_pause.send()
             ? 0
             : sd_bus_error_set(error, SD_BUS_ERROR_FAILED, MprisCommand::failure);
}

/// Clients cannot change the volume. The announcement puts a slider back that a user has moved.
int MprisMediaControls::receiveVolume(sd_bus*, const char*, const char*, const char*, sd_bus_message* value,
                                      void* controls, sd_bus_error*) {
  // A value that is left unread would end the connection.
  const int result = sd_bus_message_skip(value, nullptr);
  static_cast<MprisMediaControls*>(controls)->announce({"Volume"});
  return result;
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
    m_bus.emitSignal(objectPath, playerInterface, "Seeked", "x", positionAt(now));
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
  // The objects come first, because a client that sees the name may call them at once.
  m_objects.push_back(m_bus.addObject(objectPath, applicationInterface, applicationTable, this));
  m_objects.push_back(m_bus.addObject(objectPath, playerInterface, playerTable, this));
  requestName(busNameOf(m_application));
}

void MprisMediaControls::requestName(const QByteArray& name) {
  m_requestedName = name;
  m_nameRequest = m_bus.requestName(name, MessageBus::IfTaken::fail,
                                    messageHandler<&MprisMediaControls::handleNameReply>, this);
}

void MprisMediaControls::handleNameReply(sd_bus_message* reply) {
  // Results of RequestName in the D-Bus Specification.
  constexpr std::uint32_t primaryOwner = 1;
  constexpr std::uint32_t exists = 3;
  std::uint32_t result = 0;
  sd_bus_message_read(reply, "u", &result);
  m_hasName = result == primaryOwner;
  if (result != exists) {
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

int MprisMediaControls::appendMetadata(sd_bus_message* reply) const {
  int result = sd_bus_message_open_container(reply, 'a', "{sv}");
  const auto append = [&result, reply](const char* key, const char* type, auto... value) {
    if (result >= 0) {
      result = sd_bus_message_append(reply, "{sv}", key, type, value...);
    }
  };
  if (!m_metadata) {
    append("mpris:trackid", "o", "/org/mpris/MediaPlayer2/TrackList/NoTrack");
  } else {
    append("mpris:trackid", "o", m_metadata->trackId().constData());
    if (m_metadata->length) {
      append("mpris:length", "x", *m_metadata->length);
    }
    append("xesam:title", "s", m_metadata->title.toUtf8().constData());
    append("xesam:album", "s", m_metadata->albumTitle.toUtf8().constData());
    append("xesam:artist", "as", 1U, m_metadata->artist.toUtf8().constData());
    if (!m_metadata->artFile.empty()) {
      append("mpris:artUrl", "s", m_metadata->artUrl().constData());
    }
  }
  return result < 0 ? result : sd_bus_message_close_container(reply);
}

}  // namespace mireval
