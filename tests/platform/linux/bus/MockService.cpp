#include "platform/linux/bus/MockService.h"

#include <QDBusArgument>
#include <QMap>
#include <QUuid>

#include <algorithm>
#include <utility>

namespace mireval {

using namespace Qt::StringLiterals;

MockService::MockService(const QString& address, const QString& name, const QString& path)
    : m_name(name),
      m_path(path),
      m_connectionName(QUuid::createUuid().toString()),
      m_bus(QDBusConnection::connectToBus(address, m_connectionName)) {
  m_bus.registerVirtualObject(m_path, this);
}

MockService::~MockService() {
  m_bus.unregisterObject(m_path);
  QDBusConnection::disconnectFromBus(m_connectionName);
}

void MockService::appear() {
  if (!m_bus.registerService(m_name)) {
    qFatal("the mock service has no name");
  }
}

void MockService::disappear() {
  m_bus.unregisterService(m_name);
}

bool MockService::isListenedTo() const {
  const QDBusMessage rules = m_bus.call(
      QDBusMessage::createMethodCall(u"org.freedesktop.DBus"_s, u"/org/freedesktop/DBus"_s,
                                     u"org.freedesktop.DBus.Debug.Stats"_s, u"GetAllMatchRules"_s));
  const auto byConnection = qdbus_cast<QMap<QString, QStringList>>(rules.arguments().value(0));
  const QString sender = u"sender='%1'"_s.arg(m_name);
  return std::any_of(byConnection.begin(), byConnection.end(),
                     [&sender](const QStringList& ofOne) { return !ofOne.filter(sender).isEmpty(); });
}

void MockService::answerUnanswered() {
  for (const QDBusMessage& call : std::exchange(m_unanswered, {})) {
    m_bus.send(answer(call));
  }
}

void MockService::sendSignal(const QString& interface, const QString& member, const QVariantList& arguments) {
  QDBusMessage signal = QDBusMessage::createSignal(m_path, interface, member);
  signal.setArguments(arguments);
  m_bus.send(signal);
}

void MockService::sendSignalTo(const QString& destination, const QString& interface, const QString& member,
                               const QVariantList& arguments) {
  QDBusMessage signal = QDBusMessage::createTargetedSignal(destination, m_path, interface, member);
  signal.setArguments(arguments);
  m_bus.send(signal);
}

bool MockService::handleMessage(const QDBusMessage& message, const QDBusConnection& connection) {
  QStringList words{message.member()};
  for (const QVariant& argument : message.arguments()) {
    words.append(argument.toString());
  }
  m_calls.append(words.join(u' '));
  message.setDelayedReply(true);
  if (answer) {
    connection.send(answer(message));
  } else {
    m_unanswered.append(message);
  }
  return true;
}

}  // namespace mireval
