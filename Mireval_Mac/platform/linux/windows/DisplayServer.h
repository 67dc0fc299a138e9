#pragma once

namespace mireval {

/// Whether a display that Qt could use answers. To be asked before the application object is made, because
/// Qt ends the process when there is none. A platform that the user chose (QT_QPA_PLATFORM) is trusted if it
/// is none of the two that need a server. Takes a few milliseconds with a local server.
bool displayServerAnswers();

}  // namespace mireval
