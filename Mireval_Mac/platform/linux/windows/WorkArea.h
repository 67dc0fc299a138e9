#pragma once

#include <QRect>
#include <QSize>

#include <cstdint>
#include <vector>

namespace mireval {

/// What a bar keeps free of other windows: the numbers of its property _NET_WM_STRUT_PARTIAL, in pixels, as
/// the Extended Window Manager Hints define them. A property that does not have twelve numbers keeps nothing
/// free.
using Strut = std::vector<std::uint32_t>;

/// The part of a screen that bars leave to windows. `screen` and the result are in pixels on the desktop,
/// which is as large as `desktop`. What a bar on another screen keeps free counts only as far as it lies
/// along this screen's own edge; bars that together leave nothing count as none.
QRect workArea(const QRect& screen, QSize desktop, const std::vector<Strut>& struts);

}  // namespace mireval
