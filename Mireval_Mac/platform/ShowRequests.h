#pragma once

#include <QObject>

namespace mireval {

/// Tells what somebody outside wants the running application to show, or that it should end: later copies of
/// it, the message bus, the desktop's media controls. Lives and signals on the UI thread.
class ShowRequests : public QObject {
  Q_OBJECT

 Q_SIGNALS:
  void panelRequested();
  void settingsRequested();
  void quitRequested();
};

}  // namespace mireval
