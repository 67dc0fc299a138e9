#pragma once

#include <QDBusConnection>
#include <QDBusMessage>
#include <QObject>
#include <QString>
#include <QStringList>
#include <QVariantList>
#include <QVariantMap>

namespace mireval {

/// A client on a running message bus: calls an object, reads its properties and records its signals. Waiting
/// runs the event loop of the test, in which the object lives as well.
class BusClient final : public QObject {
  Q_OBJECT

 public:
  struct Object {
    /// The name that calls go to. Signals are recorded whoever sends them.
    QString service;
    QString path;
    QString interface;
  };

  BusClient(const QString& address, Object object);
  ~BusClient() override;

  void setService(const QString& service) { m_object.service = service; }

  /// Sends a call, which starts no service, and waits for the answer.
  QDBusMessage call(const QString& method, const QVariantList& arguments = {}) const;
  QDBusMessage call(const Object& object, const QString& method, const QVariantList& arguments = {}) const;

  /// The name of the error that answers a call; empty if it succeeds.
  QString error(const QString& method, const QVariantList& arguments = {}) const;

  QVariant property(const QString& name) const;
  /// The name of the error; empty if the value is taken.
  QString setProperty(const QString& name, const QVariant& value) const;
  QVariantMap properties() const;
  QVariantMap properties(const QString& interface) const;

  /// The methods and signals that have arguments, as introspection describes them: "Member(type name, ...)".
  QStringList membersWithArguments() const;

  /// Calls the bus itself and gives the first argument of the answer.
  QVariant askBus(const QString& method, const QVariantList& arguments = {}) const;
  bool hasOwner(const QString& name) const;
  /// The names on the bus that contain this.
  QStringList names(const QString& part) const;

  /// The signals since the last call: "<member> <arguments>", and "PropertiesChanged <names>" with the names
  /// in alphabetical order. Everything that the object sent before the call is included.
  QStringList takeSignals();

 private:
  Q_SLOT void record(const QDBusMessage& signal);

  Object m_object;
  const QString m_connectionName;
  QDBusConnection m_bus;
  QStringList m_signals;
};

/// The name of the error in an answer; empty if it is none, "no answer" if there is no answer.
QString errorIn(const QDBusMessage& answer);

}  // namespace mireval
