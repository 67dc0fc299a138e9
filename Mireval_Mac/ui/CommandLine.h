#pragma once

#include <string>
#include <string_view>
#include <vector>

namespace mireval {

/// What the user asks for when starting the program.
struct CommandLine {
  /// `serve` is to run, too: for a request that the bus is about to pass on.
  enum class Action { run, serve, showSettings, showHelp, showVersion, reject };

  /// `arguments` come without the program's name. The first of help, version and a mistake decides; without
  /// these, the settings win over the bus's request.
  static CommandLine parse(const std::vector<std::string_view>& arguments);

  /// What `--help` and `--version` print, ending with a newline.
  static std::string_view helpText();
  static std::string_view versionText();

  Action action = Action::run;
  /// What is wrong, in a few words, with Action::reject.
  std::string error = {};
};

}  // namespace mireval
