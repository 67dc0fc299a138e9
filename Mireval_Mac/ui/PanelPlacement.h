#pragma once

#include <QPoint>
#include <QRect>
#include <QSize>

namespace mireval {

/// Where the panel's top-left corner goes: centred on the click, on the inner side of the nearer horizontal
/// screen edge, and inside `available`. A panel that does not fit keeps its top-left corner inside. All in
/// device-independent pixels of the desktop.
QPoint panelPosition(QPoint click, QSize panel, QRect screen, QRect available);

}  // namespace mireval
