#pragma once

#include "platform/linux/bus/MockService.h"

#include <QDBusConnection>
#include <QDBusMessage>
#include <QObject>
#include <QString>
#include <QStringList>
#include <QVariantList>
#include <QVariantMap>

#include <memory>

namespace mireval {

/// A tray on a running message bus, played by the test: the watcher that items announce themselves to, and
/// the host that shows the last one. Waiting runs the event loop of the test, in which the item lives as
/// well.
class MockTrayHost final : public QObject {
  Q_OBJECT

 public:
  explicit MockTrayHost(const QString& address);
  ~MockTrayHost() override;

  /// How the watcher answers. `answerWaiting` does it for calls that came while it was silent.
  enum class Manner { polite, silent, refusing, odd };
  void setManner(Manner manner);
  void answerWaiting() { m_watcher.answerUnanswered(); }

  void appear() { m_watcher.appear(); }
  void disappear() { m_watcher.disappear(); }
  bool isListenedTo() const { return m_watcher.isListenedTo(); }

  /// What it says when it is asked whether a host shows items; nobody is told.
  void setHasHost(bool hasHost) { m_hasHost = hasHost; }
  void tellHostCame();
  void tellHostWent();

  /// "<member> <arguments>" of each call to the watcher so far.
  const QStringList& calls() const { return m_watcher.calls(); }
  /// The names by which items announced themselves.
  QStringList registrations() const;

  /// Calls the last item that announced itself, and gives its answer.
  QDBusMessage callItem(const QString& method, const QVariantList& arguments = {}) const;
  QVariantMap itemProperties() const;
  QDBusMessage itemProperty(const QString& name) const;
  QDBusMessage call(const QString& path, const QString& interface, const QString& method,
                    const QVariantList& arguments) const;

  /// The names of the signals that items sent since the last call. Everything that was sent before the call
  /// is included.
  QStringList takeSignals();

 private:
  QDBusMessage answer(const QDBusMessage& call) const;
  Q_SLOT void recordSignal(const QDBusMessage& message);

  MockService m_watcher;
  Manner m_manner = Manner::polite;
  bool m_hasHost = true;
  const QString m_connectionName;
  QDBusConnection m_bus;
  QStringList m_signals;
};

}  // namespace mireval
