#pragma once

#include <QObject>
#include <QString>

namespace mireval {

/// Tells what somebody outside wants the running application to show or to play, or that it should end: later
/// copies of it, the message bus, the desktop's media controls. Lives and signals on the UI thread.
class ShowRequests : public QObject {
  Q_OBJECT

 Q_SIGNALS:
  void panelRequested();
  void settingsRequested();
  /// By the mode's raw value.
  void modeRequested(const QString& mode);
  void quitRequested();
};

}  // namespace mireval
