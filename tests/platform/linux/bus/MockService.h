#pragma once

#include <QDBusConnection>
#include <QDBusMessage>
#include <QDBusVirtualObject>
#include <QList>
#include <QString>
#include <QStringList>
#include <QVariantList>

#include <functional>

namespace mireval {

/// A service on a running message bus, with one object. It records calls, answers as the test says and sends
/// signals.
class MockService final : public QDBusVirtualObject {
  Q_OBJECT

 public:
  MockService(const QString& address, const QString& name, const QString& path);
  ~MockService() override;

  /// Takes its name on the bus, and gives it back.
  void appear();
  void disappear();

  /// Whether somebody has asked the bus for signals of this name's owner.
  bool isListenedTo() const;

  /// "<member> <arguments>" of each call so far.
  const QStringList& calls() const { return m_calls; }

  /// Makes the answer to a call; without one, calls stay unanswered until `answerUnanswered`.
  std::function<QDBusMessage(const QDBusMessage& call)> answer;
  void answerUnanswered();

  void sendSignal(const QString& interface, const QString& member, const QVariantList& arguments);
  /// To this connection alone, whoever listens or does not.
  void sendSignalTo(const QString& destination, const QString& interface, const QString& member,
                    const QVariantList& arguments);

  bool handleMessage(const QDBusMessage& message, const QDBusConnection& connection) override;
  QString introspect(const QString&) const override { return {}; }

 private:
  const QString m_name;
  const QString m_path;
  const QString m_connectionName;
  QDBusConnection m_bus;
  QStringList m_calls;
  QList<QDBusMessage> m_unanswered;
};

/// For MockService::answer: each call is answered with this value.
inline auto answering(const QVariant& value) {
  return [value](const QDBusMessage& call) { return call.createReply(value); };
}

}  // namespace mireval
