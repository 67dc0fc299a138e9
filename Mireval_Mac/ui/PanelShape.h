#pragma once

#include <QRegion>
#include <QSize>

namespace mireval {

/// The pixels of the panel's window where nothing blends windows, from its top left corner: those whose
/// middle lies inside of the outer edge of the panel's outline. The outline is kept all the way round, and
/// the corners are mirror images of each other.
///
/// `window` is the window's size in pixels of the screen, `scale` the number of those per point. `margin` is
/// the room between the window's edge and the panel, `radius` that of the panel's corners, both in points.
QRegion panelShape(const QSize& window, double scale, double margin, double radius);

}  // namespace mireval
