#pragma once

#include <QRect>
#include <QSize>

#include <cstdint>
#include <optional>
#include <vector>

namespace mireval {

/// The space that a bar reserves: the twelve numbers of its property _NET_WM_STRUT_PARTIAL, in pixels, as the
/// Extended Window Manager Hints define them. Any other count of numbers reserves nothing.
using Strut = std::vector<std::uint32_t>;

/// The part of a screen that bars leave to windows. `screen` and the result are in pixels on the desktop,
/// which is as large as `desktop`. Reserved space counts only along this screen's own edges. Bars that
/// together leave nothing are ignored.
QRect workArea(const QRect& screen, QSize desktop, const std::vector<Strut>& struts);

/// What bars leave of a screen when only its size is known: the bars are taken to be where the icon is, or at
/// the bottom if that is not known. All in the same pixels.
QRect workAreaOfSize(const QRect& screen, QSize size, const std::optional<QRect>& icon);

}  // namespace mireval
