#include "platform/linux/windows/LayerPointerFinder.h"

namespace mireval {

LayerPointerFinder::LayerPointerFinder(LayerShell& shell) : m_covers(ScreenCovers::of(shell)) {
  // Queued: the panel opens outside the handler of the compositor's event.
  connect(m_covers.get(), &ScreenCovers::entered, this, &PointerFinder::found, Qt::QueuedConnection);
}

}  // namespace mireval
