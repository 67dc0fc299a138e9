#include "bus/PlayedTrayHost.h"

#include "bus/WaitForAnswer.h"

#include <QDBusArgument>
#include <QDBusError>
#include <QDBusVariant>
#include <QUuid>

#include <utility>

namespace mireval {
namespace {

using namespace Qt::StringLiterals;

const QString watcherName = u"org.kde.StatusNotifierWatcher"_s;
const QString watcherPath = u"/StatusNotifierWatcher"_s;
const QString itemPath = u"/StatusNotifierItem"_s;
const QString itemInterface = u"org.kde.StatusNotifierItem"_s;
const QString propertiesInterface = u"org.freedesktop.DBus.Properties"_s;

}  // namespace

PlayedTrayHost::PlayedTrayHost(const QString& address)
    : m_watcher(address, watcherName, watcherPath),
      m_connectionName(QUuid::createUuid().toString()),
      m_bus(QDBusConnection::connectToBus(address, m_connectionName)) {
  setManner(Manner::polite);
  m_bus.connect({}, itemPath, itemInterface, {}, this, SLOT(recordSignal(QDBusMessage)));
}

PlayedTrayHost::~PlayedTrayHost() {
  QDBusConnection::disconnectFromBus(m_connectionName);
}

void PlayedTrayHost::setManner(Manner manner) {
  m_manner = manner;
  m_watcher.answer = nullptr;
  if (manner != Manner::silent) {
    m_watcher.answer = [this](const QDBusMessage& call) { return answer(call); };
  }
}

void PlayedTrayHost::tellHostCame() {
  m_watcher.sendSignal(watcherName, u"StatusNotifierHostRegistered"_s, {});
}

void PlayedTrayHost::tellHostWent() {
  m_watcher.sendSignal(watcherName, u"StatusNotifierHostUnregistered"_s, {});
}

QStringList PlayedTrayHost::registrations() const {
  const QString start = u"RegisterStatusNotifierItem "_s;
  return calls().filter(start).replaceInStrings(start, QString());
}

QDBusMessage PlayedTrayHost::callItem(const QString& method, const QVariantList& arguments) const {
  return call(itemPath, itemInterface, method, arguments);
}

QVariantMap PlayedTrayHost::itemProperties() const {
  return qdbus_cast<QVariantMap>(
      call(itemPath, propertiesInterface, u"GetAll"_s, {itemInterface}).arguments().value(0));
}

QDBusMessage PlayedTrayHost::itemProperty(const QString& name) const {
  return call(itemPath, propertiesInterface, u"Get"_s, {itemInterface, name});
}

QDBusMessage PlayedTrayHost::call(const QString& path, const QString& interface, const QString& method,
                                  const QVariantList& arguments) const {
  QDBusMessage message = QDBusMessage::createMethodCall(registrations().value(registrations().size() - 1),
                                                        path, interface, method);
  message.setArguments(arguments);
  return waitForAnswer(m_bus.asyncCall(message));
}

QStringList PlayedTrayHost::takeSignals() {
  // An answer comes after everything that was sent before it.
  call(itemPath, u"org.freedesktop.DBus.Peer"_s, u"Ping"_s, {});
  return std::exchange(m_signals, {});
}

QDBusMessage PlayedTrayHost::answer(const QDBusMessage& call) const {
  if (m_manner == Manner::refusing) {
    return call.createErrorReply(QDBusError::AccessDenied, u"not you"_s);
  }
  if (m_manner == Manner::odd) {
    return call.createReply(QVariantList{QStringList{u"a list"_s}, 7});
  }
  return call.member() == u"Get"_s ? call.createReply(QVariant::fromValue(QDBusVariant(m_hasHost)))
                                   : call.createReply();
}

void PlayedTrayHost::recordSignal(const QDBusMessage& message) {
  m_signals.append(message.member());
}

}  // namespace mireval
