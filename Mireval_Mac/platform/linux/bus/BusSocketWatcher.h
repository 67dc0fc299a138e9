#pragma once

#include <QFileSystemWatcher>
#include <QObject>

#include <optional>

namespace mireval {

/// Watches the folders of the sockets of the session's or the system's bus, as far as the sockets are files:
/// a bus that starts makes its socket there.
class BusSocketWatcher final : public QObject {
  Q_OBJECT

 public:
  /// True if a watch has begun; false if there is one already, or no folder that can be watched.
  bool start(bool ofSystem);
  void stop() { m_watcher.reset(); }

 Q_SIGNALS:
  void changed();

 private:
  std::optional<QFileSystemWatcher> m_watcher;
};

}  // namespace mireval
