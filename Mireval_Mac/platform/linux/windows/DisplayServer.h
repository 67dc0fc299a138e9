#pragma once

namespace mireval {

/// Whether a display that Qt could use answers. Ask before the application object is made, because Qt ends
/// the process when there is none. True when the user chose a platform that needs no display server
/// (QT_QPA_PLATFORM). Takes a few milliseconds with a local server.
bool displayServerAnswers();

}  // namespace mireval
