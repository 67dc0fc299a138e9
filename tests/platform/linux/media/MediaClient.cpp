#include "platform/linux/media/MediaClient.h"

#include "platform/linux/bus/WaitFor.h"

#include <QDBusArgument>
#include <QDBusVariant>
#include <QUuid>

#include <utility>

namespace mireval {
namespace {

using namespace Qt::StringLiterals;

const QString objectPath = u"/org/mpris/MediaPlayer2"_s;
const QString playerInterface = u"org.mpris.MediaPlayer2.Player"_s;
const QString propertiesInterface = u"org.freedesktop.DBus.Properties"_s;

}  // namespace

MediaClient::MediaClient(const QString& address)
    : m_connectionName(QUuid::createUuid().toString()),
      m_bus(QDBusConnection::connectToBus(address, m_connectionName)) {
  m_bus.connect({}, objectPath, propertiesInterface, u"PropertiesChanged"_s, this,
                SLOT(recordChange(QDBusMessage)));
  m_bus.connect({}, objectPath, playerInterface, u"Seeked"_s, this, SLOT(recordSeek(QDBusMessage)));
}

MediaClient::~MediaClient() {
  QDBusConnection::disconnectFromBus(m_connectionName);
}

QStringList MediaClient::players() const {
  const QDBusMessage names = waitForAnswer(m_bus.asyncCall(QDBusMessage::createMethodCall(
      u"org.freedesktop.DBus"_s, u"/org/freedesktop/DBus"_s, u"org.freedesktop.DBus"_s, u"ListNames"_s)));
  return names.arguments().value(0).toStringList().filter(u"org.mpris.MediaPlayer2."_s);
}

QDBusMessage MediaClient::call(const QString& player, const QString& interface, const QString& method,
                               const QVariantList& arguments) const {
  QDBusMessage message = QDBusMessage::createMethodCall(player, objectPath, interface, method);
  message.setArguments(arguments);
  return waitForAnswer(m_bus.asyncCall(message));
}

QDBusMessage MediaClient::command(const QString& player, const QString& method,
                                  const QVariantList& arguments) const {
  return call(player, playerInterface, method, arguments);
}

QVariant MediaClient::property(const QString& player, const QString& name) const {
  return call(player, propertiesInterface, u"Get"_s, {playerInterface, name})
      .arguments()
      .value(0)
      .value<QDBusVariant>()
      .variant();
}

QDBusMessage MediaClient::setProperty(const QString& player, const QString& name,
                                      const QVariant& value) const {
  return call(player, propertiesInterface, u"Set"_s,
              {playerInterface, name, QVariant::fromValue(QDBusVariant(value))});
}

QVariantMap MediaClient::allProperties(const QString& player, const QString& interface) const {
  return qdbus_cast<QVariantMap>(
      call(player, propertiesInterface, u"GetAll"_s, {interface}).arguments().value(0));
}

QVariantMap MediaClient::metadata(const QString& player) const {
  return qdbus_cast<QVariantMap>(property(player, u"Metadata"_s));
}

QStringList MediaClient::takeSignals(const QString& player) {
  // An answer comes after everything that was sent before it.
  call(player, u"org.freedesktop.DBus.Peer"_s, u"Ping"_s);
  return std::exchange(m_signals, {});
}

void MediaClient::recordChange(const QDBusMessage& message) {
  const QVariantMap changed = qdbus_cast<QVariantMap>(message.arguments().value(1));
  m_signals.append(u"PropertiesChanged "_s + changed.keys().join(u' '));
}

void MediaClient::recordSeek(const QDBusMessage& message) {
  m_signals.append(u"Seeked "_s + message.arguments().value(0).toString());
}

}  // namespace mireval
