#pragma once

#include <QObject>

namespace mireval {

/// Whether the desktop asks for dark windows. Lives and signals on the UI thread.
class ColorScheme : public QObject {
  Q_OBJECT
  Q_PROPERTY(bool dark READ isDark NOTIFY darkChanged)

 public:
  virtual bool isDark() const = 0;

 Q_SIGNALS:
  void darkChanged();
};

}  // namespace mireval
