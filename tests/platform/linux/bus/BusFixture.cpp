#include "platform/linux/bus/BusFixture.h"

namespace mireval {

using namespace Qt::StringLiterals;

BusFixture::BusFixture(MessageBus::Kind kind) : m_bus(kind), m_connection(kind) {}

BusFixture::~BusFixture() {
  QDBusConnection::disconnectFromBus(u"client"_s);
}

void BusFixture::startBus() {
  m_bus.start();
  QDBusConnection::disconnectFromBus(u"client"_s);
  m_client = QDBusConnection::connectToBus(m_bus.address(), u"client"_s);
}

QDBusMessage BusFixture::call(const QString& service, const QString& path, const QString& interface,
                              const QString& method, const QVariantList& arguments) const {
  QDBusMessage message = QDBusMessage::createMethodCall(service, path, interface, method);
  message.setAutoStartService(false);
  message.setArguments(arguments);
  return waitForAnswer(m_client->asyncCall(message));
}

QDBusMessage BusFixture::callBus(const QString& method, const QVariantList& arguments) const {
  return call(u"org.freedesktop.DBus"_s, u"/org/freedesktop/DBus"_s, u"org.freedesktop.DBus"_s, method,
              arguments);
}

bool BusFixture::hasOwner(const QString& name) const {
  return callBus(u"NameHasOwner"_s, {name}).arguments().value(0).toBool();
}

}  // namespace mireval
