#pragma once

namespace mireval {

/// The application: makes the one AudioPlayerController and the one AppLocalization, hands both to the
/// scenes, and chooses what the desktop supplies. The only place that names concrete services.
class MirevalMacApp final {
 public:
  /// Runs the application until the user quits; returns the process's exit status. Without a display it
  /// says so on standard error and returns 1.
  static int main(int argc, char** argv);
};

}  // namespace mireval
