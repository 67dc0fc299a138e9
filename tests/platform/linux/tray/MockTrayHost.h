#pragma once

#include "platform/linux/bus/BusClient.h"
#include "platform/linux/bus/MockService.h"

#include <QDBusMessage>
#include <QString>
#include <QStringList>

namespace mireval {

/// A tray on a running message bus: the watcher that items announce themselves to, and the host that shows
/// the last one.
class MockTrayHost final {
 public:
  explicit MockTrayHost(const QString& address);

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

  /// A client of the item that announced itself last.
  BusClient& item();

 private:
  QDBusMessage answer(const QDBusMessage& call) const;

  MockService m_watcher;
  Manner m_manner = Manner::polite;
  bool m_hasHost = true;
  BusClient m_item;
};

}  // namespace mireval
