#pragma once

#include <QObject>
#include <QRect>
#include <QString>

#include <optional>

namespace mireval {

/// An icon that is embedded as a window into a tray, for trays that do not use the bus. It comes into a tray
/// by itself whenever there is one, and leaves it when it is destroyed.
class EmbeddedIcon : public QObject {
  Q_OBJECT

 public:
  virtual void setToolTip(const QString& text) = 0;

  /// True while a tray has it or is about to take it.
  virtual bool isPlaced() const = 0;

 Q_SIGNALS:
  /// `isPlaced` may have changed.
  void placementChanged();

  /// The icon was clicked. `place` is its rectangle in the window system's own pixels, if that is known.
  void activated(std::optional<QRect> place);
};

}  // namespace mireval
