#pragma once

#include <QDBusConnection>
#include <QDBusMessage>
#include <QList>
#include <QObject>
#include <QString>
#include <QStringList>
#include <QVariantMap>

namespace mireval {

/// A desktop's media control: reads a player, commands it and records its signals. Waiting runs the event
/// loop of the test, in which the player lives as well.
class MediaClient final : public QObject {
  Q_OBJECT

 public:
  explicit MediaClient(const QString& address);
  ~MediaClient() override;

  /// The names of all media players on the bus.
  QStringList players() const;

  QDBusMessage call(const QString& player, const QString& interface, const QString& method,
                    const QVariantList& arguments = {}) const;
  QDBusMessage command(const QString& player, const QString& method,
                       const QVariantList& arguments = {}) const;
  QVariant property(const QString& player, const QString& name) const;
  /// Sends the wanted value to Properties.Set and gives its reply.
  QDBusMessage setProperty(const QString& player, const QString& name, const QVariant& value) const;
  QVariantMap allProperties(const QString& player, const QString& interface) const;
  QVariantMap metadata(const QString& player) const;

  /// What the player told since the last call: "PropertiesChanged Metadata PlaybackStatus" with the names in
  /// alphabetical order, or "Seeked <microseconds>". Everything that was sent before the call is included.
  QStringList takeSignals(const QString& player);

 private:
  Q_SLOT void recordChange(const QDBusMessage& message);
  Q_SLOT void recordSeek(const QDBusMessage& message);

  const QString m_connectionName;
  QDBusConnection m_bus;
  QStringList m_signals;
};

}  // namespace mireval
