#pragma once

#include "platform/linux/wayland/WaylandProxy.h"

#include <QObject>
#include <QPoint>
#include <QRect>

#include <memory>
#include <vector>

class QScreen;
struct wl_display;

namespace mireval {

class LayerShell;

/// Invisible surfaces over all screens, bars included, for as long as this exists. Lives on the UI thread.
class ScreenCovers final : public QObject {
  Q_OBJECT

 public:
  /// The covers that are there, or else new ones. The shell must outlive them.
  static std::shared_ptr<ScreenCovers> of(LayerShell& shell);
  ~ScreenCovers() override;

  /// Makes the compositor look again what is under the pointer.
  void stir();

  /// Makes a hole: the covers do not take the pointer there. In the desktop's device-independent pixels.
  void leaveOut(const QRect& area);

 Q_SIGNALS:
  /// The pointer is over a cover and was not before; also if it was there when the covers came. The place is
  /// in the desktop's device-independent pixels. None of these signals may delete the covers directly.
  void entered(QPoint place);

  /// A button or a finger was put down on a cover and lifted again.
  void clicked();

 private:
  struct Listener;
  class Cover;

  explicit ScreenCovers(LayerShell& shell);
  void enter(wl_surface* surface, QPointF place);
  void press(bool onCover);
  void release();

  wl_display* m_connection;
  std::vector<std::unique_ptr<Cover>> m_covers;
  WaylandProxy<wl_pointer> m_pointer;
  WaylandProxy<wl_touch> m_touch;
  /// The pointer is over a cover.
  bool m_pointed = false;
  bool m_pressed = false;
};

}  // namespace mireval
