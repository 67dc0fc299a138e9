#include "platform/linux/media/MprisMediaControls.h"

#include "platform/linux/bus/BusFixture.h"

#include <QCoreApplication>
#include <QDBusArgument>
#include <QDBusObjectPath>
#include <QElapsedTimer>
#include <QSignalSpy>

#include <unistd.h>

#include <chrono>
#include <cmath>
#include <memory>

namespace mireval {
namespace {

using namespace Qt::StringLiterals;
using namespace std::chrono_literals;

const QString playerName = u"org.mpris.MediaPlayer2.mireval"_s;
const QString invalidArguments = u"org.freedesktop.DBus.Error.InvalidArgs"_s;
const QString applicationInterface = QLatin1StringView(MprisMediaControls::applicationInterface);
const BusClient::Object player{playerName, QLatin1StringView(MprisMediaControls::objectPath),
                               QLatin1StringView(MprisMediaControls::playerInterface)};

NowPlayingInfo makeInfo(const QString& title = u"Rain Veil"_s) {
  return {.title = title,
          .albumTitle = u"Mireval"_s,
          .artist = u"Mireval \u2022 Focus"_s,
          .playbackDurationSeconds = 180,
          .elapsedPlaybackSeconds = 0,
          .playbackRate = 1,
          .artwork = std::nullopt};
}

class MprisMediaControlsTest : public BusFixture {
 protected:
  MprisMediaControlsTest() : BusFixture(player) {}

  static std::unique_ptr<MprisMediaControls> makeControls(MessageBus& bus) {
    return std::make_unique<MprisMediaControls>(
        bus, MprisMediaControls::Application{
                 .identity = "Mireval", .busName = "mireval", .desktopEntry = "org.mireval.Mireval"});
  }

  /// Does what the controller does at its first track.
  void registerCommands(MprisMediaControls& controls) {
    int number = 0;
    for (RemoteCommand* const command :
         {&controls.playCommand(), &controls.pauseCommand(), &controls.togglePlayPauseCommand()}) {
      command->setEnabled(true);
      command->addHandler([this, number] {
        ++m_commands[number];
        return m_answer;
      });
      ++number;
    }
  }

  /// Controls on a running bus.
  void appear() {
    startBus();
    m_controls = makeControls(m_connection);
    registerCommands(*m_controls);
    m_controls->setNowPlayingInfo(makeInfo());
    ASSERT_TRUE(comes());
    m_client->takeSignals();
  }

  bool comes() {
    return waitFor([this] { return m_client->hasOwner(playerName); });
  }

  QStringList players() const { return m_client->names(u"org.mpris.MediaPlayer2."_s); }
  QVariantMap metadata() const { return qdbus_cast<QVariantMap>(m_client->property(u"Metadata"_s)); }
  QVariant title() const { return metadata().value(u"xesam:title"_s); }

  // A limit against hanging, not a measurement.
  void expectAThousandPublicationsAtOnce() {
    QElapsedTimer timer;
    timer.start();
    for (int i = 0; i < 1000; ++i) {
      m_controls->setNowPlayingInfo(makeInfo(QString::number(i)));
      QCoreApplication::processEvents();
    }
    EXPECT_LT(timer.elapsed(), 5000);
  }

  std::unique_ptr<MprisMediaControls> m_controls;
  QList<int> m_commands{0, 0, 0};
  RemoteCommandHandlerStatus m_answer = RemoteCommandHandlerStatus::success;
};

TEST_F(MprisMediaControlsTest, OnTheBusFromTheFirstHandlerOfACommandToTheEnd) {
  startBus();
  m_controls = makeControls(m_connection);
  m_controls->setNowPlayingInfo(makeInfo());
  m_controls->playCommand().setEnabled(true);
  m_controls->setVolume(0.5);
  EXPECT_FALSE(waitFor([this] { return !players().isEmpty(); }, 200ms));
  m_controls->playCommand().addHandler([] { return RemoteCommandHandlerStatus::success; });
  EXPECT_TRUE(waitFor([this] { return players() == QStringList{playerName}; }));
  m_controls.reset();
  EXPECT_TRUE(waitFor([this] { return players().isEmpty(); }));
}

TEST_F(MprisMediaControlsTest, EveryPropertyAnswers) {
  appear();
  m_controls->setVolume(0.65);
  EXPECT_EQ(m_client->properties(applicationInterface),
            (QVariantMap{{u"CanQuit"_s, true},
                         {u"CanRaise"_s, true},
                         {u"DesktopEntry"_s, u"org.mireval.Mireval"_s},
                         {u"HasTrackList"_s, false},
                         {u"Identity"_s, u"Mireval"_s},
                         {u"SupportedMimeTypes"_s, QStringList()},
                         {u"SupportedUriSchemes"_s, QStringList()}}));
  QVariantMap properties = m_client->properties();
  properties.remove(u"Metadata"_s);
  EXPECT_EQ(properties.take(u"Position"_s).userType(), QMetaType::LongLong);
  EXPECT_EQ(properties, (QVariantMap{{u"CanControl"_s, true},
                                     {u"CanGoNext"_s, false},
                                     {u"CanGoPrevious"_s, false},
                                     {u"CanPause"_s, true},
                                     {u"CanPlay"_s, true},
                                     {u"CanSeek"_s, false},
                                     {u"MaximumRate"_s, 1.0},
                                     {u"MinimumRate"_s, 1.0},
                                     {u"PlaybackStatus"_s, u"Playing"_s},
                                     {u"Rate"_s, 1.0},
                                     {u"Volume"_s, 0.65}}));
}

TEST_F(MprisMediaControlsTest, MetadataOfTheTrack) {
  appear();
  NowPlayingInfo info = makeInfo();
  info.artwork = MediaItemArtwork{.boundsSize = {1, 1}, .requestHandler = {}, .file = "/a b.png"};
  m_controls->setNowPlayingInfo(info);
  QVariantMap metadata = this->metadata();
  EXPECT_EQ(metadata.take(u"mpris:trackid"_s).value<QDBusObjectPath>().path(),
            QString::fromLatin1(MprisMetadata(info).trackId()));
  EXPECT_EQ(metadata, (QVariantMap{{u"mpris:length"_s, 180'000'000LL},
                                   {u"mpris:artUrl"_s, u"file:///a%20b.png"_s},
                                   {u"xesam:title"_s, u"Rain Veil"_s},
                                   {u"xesam:album"_s, u"Mireval"_s},
                                   {u"xesam:artist"_s, QStringList{u"Mireval \u2022 Focus"_s}}}));
  info.playbackDurationSeconds = 0;
  info.artwork.reset();
  m_controls->setNowPlayingInfo(info);
  metadata = this->metadata();
  EXPECT_EQ(metadata.keys(),
            (QStringList{u"mpris:trackid"_s, u"xesam:album"_s, u"xesam:artist"_s, u"xesam:title"_s}));
}

TEST_F(MprisMediaControlsTest, ClearedInformationIsStoppedWithoutTrack) {
  appear();
  m_controls->setNowPlayingInfo(std::nullopt);
  EXPECT_EQ(m_client->takeSignals(), QStringList{u"PropertiesChanged Metadata PlaybackStatus"_s});
  EXPECT_EQ(m_client->property(u"PlaybackStatus"_s), u"Stopped"_s);
  const QVariantMap metadata = this->metadata();
  EXPECT_EQ(metadata.size(), 1);
  EXPECT_EQ(metadata.value(u"mpris:trackid"_s).value<QDBusObjectPath>().path(),
            u"/org/mpris/MediaPlayer2/TrackList/NoTrack"_s);
  EXPECT_EQ(m_client->property(u"Position"_s), 0);
}

TEST_F(MprisMediaControlsTest, OnlyWhatChangedIsTold) {
  appear();
  NowPlayingInfo info = makeInfo();
  for (int i = 1; i <= 5; ++i) {
    m_controls->setNowPlayingInfo(info);
  }
  EXPECT_EQ(m_client->takeSignals(), QStringList());

  info.playbackRate = 0;
  m_controls->setNowPlayingInfo(info);
  m_controls->setNowPlayingInfo(info);
  EXPECT_EQ(m_client->takeSignals(), QStringList{u"PropertiesChanged PlaybackStatus"_s});

  info.artwork = MediaItemArtwork{.boundsSize = {1, 1}, .requestHandler = {}, .file = "/a.png"};
  m_controls->setNowPlayingInfo(info);
  m_controls->setNowPlayingInfo(info);
  EXPECT_EQ(m_client->takeSignals(), QStringList{u"PropertiesChanged Metadata"_s});

  info.title = u"Other"_s;
  info.playbackRate = 1;
  m_controls->setNowPlayingInfo(info);
  EXPECT_EQ(m_client->takeSignals(), QStringList{u"PropertiesChanged Metadata PlaybackStatus"_s});

  m_controls->setVolume(0.25);
  m_controls->setVolume(0.25);
  EXPECT_EQ(m_client->takeSignals(), QStringList{u"PropertiesChanged Volume"_s});

  m_controls->playCommand().setEnabled(false);
  m_controls->pauseCommand().setEnabled(false);
  m_controls->pauseCommand().setEnabled(false);
  m_controls->togglePlayPauseCommand().setEnabled(false);
  EXPECT_EQ(m_client->takeSignals(),
            (QStringList{u"PropertiesChanged CanPlay"_s, u"PropertiesChanged CanPause"_s}));
  EXPECT_EQ(m_client->property(u"CanPlay"_s), false);
}

TEST_F(MprisMediaControlsTest, AJumpIsTold) {
  appear();
  NowPlayingInfo info = makeInfo();
  info.elapsedPlaybackSeconds = 42;
  m_controls->setNowPlayingInfo(info);
  EXPECT_EQ(m_client->takeSignals(), QStringList{u"Seeked 42000000"_s});
  info = makeInfo(u"Next"_s);
  m_controls->setNowPlayingInfo(info);
  EXPECT_EQ(m_client->takeSignals(), (QStringList{u"PropertiesChanged Metadata"_s, u"Seeked 0"_s}));
}

TEST_F(MprisMediaControlsTest, CommandsReachTheirHandlers) {
  appear();
  EXPECT_EQ(m_client->error(u"Play"_s), QString());
  EXPECT_EQ(m_commands, (QList{1, 0, 0}));
  EXPECT_EQ(m_client->error(u"Pause"_s), QString());
  EXPECT_EQ(m_commands, (QList{1, 1, 0}));
  EXPECT_EQ(m_client->error(u"PlayPause"_s), QString());
  EXPECT_EQ(m_commands, (QList{1, 1, 1}));

  m_answer = RemoteCommandHandlerStatus::commandFailed;
  EXPECT_EQ(m_client->error(u"Play"_s), u"org.freedesktop.DBus.Error.Failed"_s);
  EXPECT_EQ(m_commands, (QList{2, 1, 1}));

  m_controls->playCommand().setEnabled(false);
  EXPECT_EQ(m_client->error(u"Play"_s), QString());
  EXPECT_EQ(m_commands, (QList{2, 1, 1}));
}

TEST_F(MprisMediaControlsTest, WhatCannotBeDoneDoesNothing) {
  appear();
  m_controls->setVolume(0.65);
  m_client->takeSignals();
  QVariantMap before = m_client->properties();
  const QVariant path = QVariant::fromValue(QDBusObjectPath(u"/a"_s));
  EXPECT_EQ(m_client->error(u"Next"_s), QString());
  EXPECT_EQ(m_client->error(u"Previous"_s), QString());
  EXPECT_EQ(m_client->error(u"Stop"_s), QString());
  EXPECT_EQ(m_client->error(u"Seek"_s, {qlonglong{5}}), QString());
  EXPECT_EQ(m_client->error(u"SetPosition"_s, {path, qlonglong{5}}), QString());
  EXPECT_EQ(m_client->error(u"OpenUri"_s, {u"file:///a"_s}), QString());
  for (const double rate : {0.1, 1.0, 2.0, -1.0, std::nan("")}) {
    EXPECT_EQ(m_client->setProperty(u"Rate"_s, rate), QString());
  }
  EXPECT_EQ(m_commands, (QList{0, 0, 0}));
  EXPECT_EQ(m_client->takeSignals(), QStringList());
  for (const QString& name : {u"PlaybackStatus"_s, u"Volume"_s, u"Rate"_s}) {
    EXPECT_EQ(m_client->property(name), before.value(name)) << name.toStdString();
  }
}

TEST_F(MprisMediaControlsTest, AVolumeThatAClientWritesIsAnsweredWithTheRealOne) {
  appear();
  m_controls->setVolume(0.65);
  m_client->takeSignals();
  for (const double volume : {0.1, 0.65, 3.0}) {
    EXPECT_EQ(m_client->setProperty(u"Volume"_s, volume), QString());
    EXPECT_EQ(m_client->takeSignals(), QStringList{u"PropertiesChanged Volume"_s});
    EXPECT_EQ(m_client->property(u"Volume"_s), 0.65);
  }
}

TEST_F(MprisMediaControlsTest, ARateOfZeroPauses) {
  appear();
  EXPECT_EQ(m_client->setProperty(u"Rate"_s, 0.0), QString());
  EXPECT_EQ(m_commands, (QList{0, 1, 0}));
  EXPECT_EQ(m_client->property(u"Rate"_s), 1.0);

  m_answer = RemoteCommandHandlerStatus::commandFailed;
  EXPECT_EQ(m_client->setProperty(u"Rate"_s, 0.0), u"org.freedesktop.DBus.Error.Failed"_s);
  EXPECT_EQ(m_commands, (QList{0, 2, 0}));

  m_controls->pauseCommand().setEnabled(false);
  EXPECT_EQ(m_client->setProperty(u"Rate"_s, 0.0), QString());
  m_controls->pauseCommand().setEnabled(true);
  NowPlayingInfo info = makeInfo();
  info.playbackRate = 0;
  m_controls->setNowPlayingInfo(info);
  EXPECT_EQ(m_client->setProperty(u"Rate"_s, 0.0), QString());
  m_controls->setNowPlayingInfo(std::nullopt);
  EXPECT_EQ(m_client->setProperty(u"Rate"_s, 0.0), QString());
  EXPECT_EQ(m_commands, (QList{0, 2, 0}));
}

TEST_F(MprisMediaControlsTest, RaiseAndQuitArePassedOn) {
  appear();
  const QSignalSpy raised(m_controls.get(), &MprisMediaControls::raiseRequested);
  const QSignalSpy quit(m_controls.get(), &MprisMediaControls::quitRequested);
  EXPECT_EQ(errorIn(m_client->call({playerName, player.path, applicationInterface}, u"Raise"_s)), QString());
  EXPECT_EQ(raised.size(), 1);
  EXPECT_EQ(quit.size(), 0);
  EXPECT_EQ(errorIn(m_client->call({playerName, player.path, applicationInterface}, u"Quit"_s)), QString());
  EXPECT_EQ(raised.size(), 1);
  EXPECT_EQ(quit.size(), 1);
}

TEST_F(MprisMediaControlsTest, IntrospectionNamesTheArguments) {
  appear();
  EXPECT_EQ(m_client->membersWithArguments(),
            (QStringList{u"Seek(x Offset)"_s, u"SetPosition(o TrackId, x Position)"_s, u"OpenUri(s Uri)"_s,
                         u"Seeked(x Position)"_s}));
}

TEST_F(MprisMediaControlsTest, WrongRequestsAreOrdinaryErrors) {
  appear();
  EXPECT_EQ(m_client->setProperty(u"CanPlay"_s, true), u"org.freedesktop.DBus.Error.PropertyReadOnly"_s);
  EXPECT_EQ(m_client->setProperty(u"Volume"_s, u"loud"_s), invalidArguments);
  EXPECT_EQ(m_client->setProperty(u"Nothing"_s, 1), u"org.freedesktop.DBus.Error.UnknownProperty"_s);
  EXPECT_EQ(m_client->error(u"Seek"_s, {u"far"_s}), invalidArguments);
  EXPECT_EQ(m_client->error(u"Play"_s, {1}), invalidArguments);
  EXPECT_EQ(m_client->error(u"Dance"_s), u"org.freedesktop.DBus.Error.UnknownMethod"_s);
  EXPECT_EQ(m_commands, (QList{0, 0, 0}));
  EXPECT_EQ(players(), QStringList{playerName});
}

TEST_F(MprisMediaControlsTest, ASecondCopyHasANameOfItsOwn) {
  appear();
  MessageBus another(MessageBus::Kind::session);
  const auto second = makeControls(another);
  registerCommands(*second);
  second->setNowPlayingInfo(makeInfo(u"Second"_s));
  ASSERT_TRUE(waitFor([this] { return players().size() == 2; }));
  EXPECT_EQ(title(), u"Rain Veil"_s);
  const QStringList others = players().filter(playerName + u".instance"_s);
  ASSERT_EQ(others.size(), 1);
  m_client->setService(others.first());
  EXPECT_EQ(title(), u"Second"_s);
  m_controls.reset();
  EXPECT_TRUE(waitFor([&] { return players() == others; }));
}

TEST_F(MprisMediaControlsTest, ComesBackWithTheBus) {
  appear();
  m_bus.kill();
  EXPECT_TRUE(waitFor([this] { return !m_connection.isOpen(); }));
  m_controls->setNowPlayingInfo(makeInfo(u"Meanwhile"_s));
  m_controls->setVolume(0.5);
  startBus();
  ASSERT_TRUE(comes());
  EXPECT_EQ(title(), u"Meanwhile"_s);
  m_client->takeSignals();
  EXPECT_EQ(m_client->error(u"Pause"_s), QString());
  EXPECT_EQ(m_commands, (QList{0, 1, 0}));
  m_controls->setNowPlayingInfo(makeInfo(u"Told"_s));
  // Clients may have played on for more than a second meanwhile, and are told of the jump then, too.
  EXPECT_EQ(m_client->takeSignals().value(0), u"PropertiesChanged Metadata"_s);
}

TEST_F(MprisMediaControlsTest, APublicationLooksForABusThatCannotBeWatchedFor) {
  const QByteArray address = "unix:abstract=mireval-media-" + QByteArray::number(getpid());
  qputenv("DBUS_SESSION_BUS_ADDRESS", address);
  m_controls = makeControls(m_connection);
  registerCommands(*m_controls);
  m_bus.start(QString::fromLatin1(address));
  EXPECT_FALSE(waitFor([this] { return m_connection.isOpen(); }, 400ms));
  m_controls->setNowPlayingInfo(makeInfo());
  EXPECT_TRUE(waitFor([this] { return m_connection.isOpen(); }));
}

TEST_F(MprisMediaControlsTest, AFrozenBusHoldsNothingUp) {
  startBus();
  m_bus.freeze();
  m_controls = makeControls(m_connection);
  registerCommands(*m_controls);
  expectAThousandPublicationsAtOnce();
  m_bus.thaw();
  ASSERT_TRUE(comes());
  EXPECT_EQ(title(), u"999"_s);

  m_bus.freeze();
  expectAThousandPublicationsAtOnce();
  m_bus.thaw();
  EXPECT_EQ(m_client->takeSignals().size(), 1000);
}

}  // namespace
}  // namespace mireval
