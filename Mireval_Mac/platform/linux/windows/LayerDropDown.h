#pragma once

#include "platform/DropDown.h"
#include "platform/linux/wayland/LayerShell.h"
#include "platform/linux/wayland/LayerSurface.h"
#include "platform/linux/wayland/ScreenCovers.h"

#include <QWindow>

#include <memory>

namespace mireval {

/// A drop-down on a Wayland desktop that has layers: above all windows, at its place beside the bar, with the
/// keyboard. Invisible layers notice clicks elsewhere.
class LayerDropDown final : public DropDown {
  Q_OBJECT

 public:
  /// The window and the shell must outlive the drop-down.
  LayerDropDown(QWindow& window, LayerShell& shell);
  ~LayerDropDown() override;

  void moveTo(QScreen& screen, const QRect& workArea, QPoint position) override;
  void setShape(const QRegion& pixels, Outside outside) override;
  void show() override;
  void activate() override;
  void setExclusive(bool exclusive) override;

  bool eventFilter(QObject* watched, QEvent* event) override;

 private:
  LayerSurface::Placement placement() const;
  void cover();
  void endRole();

  QWindow& m_window;
  LayerShell& m_shell;
  /// What the compositor takes to be the edges.
  QRect m_layerArea;
  QPoint m_position;
  /// In the window, in device-independent pixels.
  QRect m_panel;
  bool m_exclusive = true;
  /// Older than the window's role, and so below it with some compositors, but above it with others.
  std::shared_ptr<ScreenCovers> m_covers;
  std::unique_ptr<LayerSurface> m_role;
};

}  // namespace mireval
