#pragma once

#include <QObject>

namespace mireval {

/// Tells that the system's languages have changed. Lives on the UI thread.
class LocaleChanges : public QObject {
  Q_OBJECT

 Q_SIGNALS:
  /// SystemLanguages answers differently from now on.
  void currentLocaleDidChange();
};

}  // namespace mireval
