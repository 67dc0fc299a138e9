#pragma once

namespace mireval {

/// The application: makes the one AudioPlayerController and the one AppLocalization, hands both to the
/// scenes, and chooses what the desktop supplies. The only place that names concrete services.
class MirevalMacApp final {
 public:
  /// Does what the command line asks for and returns the process's exit status. Runs the application until
  /// the user quits, unless another copy runs already: that one is asked to show itself. Without a display,
  /// or when the other copy does not answer, it says so on standard error and returns 1; 2 for a mistaken
  /// command line.
  static int main(int argc, char** argv);
};

}  // namespace mireval
