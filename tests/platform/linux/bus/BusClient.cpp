#include "platform/linux/bus/BusClient.h"

#include "platform/linux/bus/BusValues.h"
#include "platform/linux/bus/WaitFor.h"

#include <QDBusArgument>
#include <QDBusVariant>
#include <QUuid>
#include <QXmlStreamReader>

#include <utility>

namespace mireval {
namespace {

using namespace Qt::StringLiterals;

const QString standardProperties = QLatin1StringView(propertiesInterface);

}  // namespace

BusClient::BusClient(const QString& address, Object object)
    : m_object(std::move(object)),
      m_connectionName(QUuid::createUuid().toString()),
      m_bus(QDBusConnection::connectToBus(address, m_connectionName)) {
  for (const QString& interface : {m_object.interface, standardProperties}) {
    m_bus.connect({}, m_object.path, interface, {}, this, SLOT(record(QDBusMessage)));
  }
}

BusClient::~BusClient() {
  QDBusConnection::disconnectFromBus(m_connectionName);
}

QDBusMessage BusClient::call(const QString& method, const QVariantList& arguments) const {
  return call(m_object, method, arguments);
}

QDBusMessage BusClient::call(const Object& object, const QString& method,
                             const QVariantList& arguments) const {
  QDBusMessage message =
      QDBusMessage::createMethodCall(object.service, object.path, object.interface, method);
  message.setAutoStartService(false);
  message.setArguments(arguments);
  return waitForAnswer(m_bus.asyncCall(message));
}

QString BusClient::error(const QString& method, const QVariantList& arguments) const {
  return errorIn(call(method, arguments));
}

QVariant BusClient::property(const QString& name) const {
  const QDBusMessage answer =
      call({m_object.service, m_object.path, standardProperties}, u"Get"_s, {m_object.interface, name});
  return answer.arguments().value(0).value<QDBusVariant>().variant();
}

QString BusClient::setProperty(const QString& name, const QVariant& value) const {
  return errorIn(call({m_object.service, m_object.path, standardProperties}, u"Set"_s,
                      {m_object.interface, name, QVariant::fromValue(QDBusVariant(value))}));
}

QVariantMap BusClient::properties() const {
  return properties(m_object.interface);
}

QVariantMap BusClient::properties(const QString& interface) const {
  return qdbus_cast<QVariantMap>(
      call({m_object.service, m_object.path, standardProperties}, u"GetAll"_s, {interface})
          .arguments()
          .value(0));
}

QStringList BusClient::membersWithArguments() const {
  QXmlStreamReader xml(
      call({m_object.service, m_object.path, u"org.freedesktop.DBus.Introspectable"_s}, u"Introspect"_s)
          .arguments()
          .value(0)
          .toString());
  QStringList members;
  bool isOurs = false;
  QString member;
  QStringList arguments;
  while (!xml.atEnd()) {
    xml.readNext();
    const QString name = xml.attributes().value("name"_L1).toString();
    if (xml.isStartElement() && xml.name() == "interface"_L1) {
      isOurs = name == m_object.interface;
    } else if (xml.isStartElement() && (xml.name() == "method"_L1 || xml.name() == "signal"_L1)) {
      member = name;
      arguments.clear();
    } else if (xml.isStartElement() && xml.name() == "arg"_L1) {
      arguments.append(u"%1 %2"_s.arg(xml.attributes().value("type"_L1), name));
    } else if (xml.isEndElement() && (xml.name() == "method"_L1 || xml.name() == "signal"_L1)) {
      if (isOurs && !arguments.isEmpty()) {
        members.append(u"%1(%2)"_s.arg(member, arguments.join(", "_L1)));
      }
    }
  }
  return members;
}

QVariant BusClient::askBus(const QString& method, const QVariantList& arguments) const {
  const Object bus{u"org.freedesktop.DBus"_s, u"/org/freedesktop/DBus"_s, u"org.freedesktop.DBus"_s};
  return call(bus, method, arguments).arguments().value(0);
}

bool BusClient::hasOwner(const QString& name) const {
  return askBus(u"NameHasOwner"_s, {name}).toBool();
}

QStringList BusClient::names(const QString& part) const {
  return askBus(u"ListNames"_s).toStringList().filter(part);
}

QStringList BusClient::takeSignals() {
  // An answer comes after everything that was sent before it.
  call({m_object.service, m_object.path, u"org.freedesktop.DBus.Peer"_s}, u"Ping"_s);
  return std::exchange(m_signals, {});
}

void BusClient::record(const QDBusMessage& signal) {
  QStringList words{signal.member()};
  if (signal.interface() == standardProperties) {
    words.append(qdbus_cast<QVariantMap>(signal.arguments().value(1)).keys());
  } else {
    for (const QVariant& argument : signal.arguments()) {
      words.append(argument.toString());
    }
  }
  m_signals.append(words.join(u' '));
}

QString errorIn(const QDBusMessage& answer) {
  return answer.type() == QDBusMessage::ReplyMessage   ? QString()
         : answer.type() == QDBusMessage::ErrorMessage ? answer.errorName()
                                                       : u"no answer"_s;
}

}  // namespace mireval
