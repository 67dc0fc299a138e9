#pragma once

#include <QStringList>

namespace mireval {

/// The folders of the sockets of the system's or the session's bus, as far as the sockets are files. A bus
/// that is started makes its socket there.
QStringList busSocketFolders(bool ofSystem);

}  // namespace mireval
