#include "platform/linux/tray/MockTrayHost.h"

#include "platform/linux/bus/WaitFor.h"

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

MockTrayHost::MockTrayHost(const QString& address)
    : m_watcher(address, watcherName, watcherPath),
      m_connectionName(QUuid::createUuid().toString()),
      m_bus(QDBusConnection::connectToBus(address, m_connectionName)) {
  setManner(Manner::polite);
  m_bus.connect({}, itemPath, itemInterface, {}, this, SLOT(recordSignal(QDBusMessage)));
}

MockTrayHost::~MockTrayHost() {
  QDBusConnection::disconnectFromBus(m_connectionName);
}

void MockTrayHost::setManner(Manner manner) {
  m_manner = manner;
  m_watcher.answer = nullptr;
  if (manner != Manner::silent) {
    m_watcher.answer = [this](const QDBusMessage& call) { return answer(call); };
  }
}

void MockTrayHost::tellHostCame() {
  m_watcher.sendSignal(watcherName, u"StatusNotifierHostRegistered"_s, {});
}

void MockTrayHost::tellHostWent() {
  m_watcher.sendSignal(watcherName, u"StatusNotifierHostUnregistered"_s, {});
}

QStringList MockTrayHost::registrations() const {
  const QString start = u"RegisterStatusNotifierItem "_s;
  return calls().filter(start).replaceInStrings(start, QString());
}

QDBusMessage MockTrayHost::callItem(const QString& method, const QVariantList& arguments) const {
  return call(itemPath, itemInterface, method, arguments);
}

QVariantMap MockTrayHost::itemProperties() const {
  return qdbus_cast<QVariantMap>(
      call(itemPath, propertiesInterface, u"GetAll"_s, {itemInterface}).arguments().value(0));
}

QDBusMessage MockTrayHost::itemProperty(const QString& name) const {
  return call(itemPath, propertiesInterface, u"Get"_s, {itemInterface, name});
}

QDBusMessage MockTrayHost::call(const QString& path, const QString& interface, const QString& method,
                                const QVariantList& arguments) const {
  QDBusMessage message = QDBusMessage::createMethodCall(registrations().value(registrations().size() - 1),
                                                        path, interface, method);
  message.setArguments(arguments);
  return waitForAnswer(m_bus.asyncCall(message));
}

QStringList MockTrayHost::takeSignals() {
  // An answer comes after everything that was sent before it.
  call(itemPath, u"org.freedesktop.DBus.Peer"_s, u"Ping"_s, {});
  return std::exchange(m_signals, {});
}

QDBusMessage MockTrayHost::answer(const QDBusMessage& call) const {
  if (m_manner == Manner::refusing) {
    return call.createErrorReply(QDBusError::AccessDenied, u"not you"_s);
  }
  if (m_manner == Manner::odd) {
    return call.createReply(QVariantList{QStringList{u"a list"_s}, 7});
  }
  return call.member() == u"Get"_s ? call.createReply(QVariant::fromValue(QDBusVariant(m_hasHost)))
                                   : call.createReply();
}

void MockTrayHost::recordSignal(const QDBusMessage& message) {
  m_signals.append(message.member());
}

}  // namespace mireval
