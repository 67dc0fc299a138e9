#include "platform/linux/windows/LayerPointerFinder.h"

#include <chrono>

namespace mireval {
namespace {

// labwc does not look what is under a resting pointer when a button is released, only when a layer changes.
// The search lasts no longer than a click.
constexpr auto stirringInterval = std::chrono::milliseconds(50);

}  // namespace

LayerPointerFinder::LayerPointerFinder(LayerShell& shell) : m_covers(ScreenCovers::of(shell)) {
  // Queued: the panel opens outside the handler of the compositor's event.
  connect(m_covers.get(), &ScreenCovers::entered, this, &PointerFinder::found, Qt::QueuedConnection);
  connect(m_covers.get(), &ScreenCovers::entered, &m_stirring, &QTimer::stop);
  connect(&m_stirring, &QTimer::timeout, m_covers.get(), &ScreenCovers::stir);
  m_stirring.start(stirringInterval);
}

}  // namespace mireval
