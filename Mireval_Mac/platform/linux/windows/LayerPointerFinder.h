#pragma once

#include "platform/PointerFinder.h"
#include "platform/linux/wayland/ScreenCovers.h"

#include <QTimer>

#include <memory>

namespace mireval {

/// Finds the pointer on a Wayland desktop that has layers: it comes over an invisible one as soon as no
/// button is pressed any more.
class LayerPointerFinder final : public PointerFinder {
  Q_OBJECT

 public:
  /// The shell must outlive the finder.
  explicit LayerPointerFinder(LayerShell& shell);

 private:
  const std::shared_ptr<ScreenCovers> m_covers;
  QTimer m_stirring;
};

}  // namespace mireval
