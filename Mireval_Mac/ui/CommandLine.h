#pragma once

#include <string>
#include <string_view>
#include <vector>

namespace mireval {

/// What the user asks for when starting the program.
struct CommandLine {
  /// `serve` also runs the player. The bus started it and is about to pass on a request.
  enum class Action { run, serve, showSettings, showHelp, showVersion, reject };

  /// `arguments` do not contain the program's name. The first of help, version and a mistake decides. Without
  /// these, `showSettings` wins over `serve`.
  static CommandLine parse(const std::vector<std::string_view>& arguments);

  /// What `--help` and `--version` print, ending with a newline.
  static std::string_view helpText();
  static std::string_view versionText();

  Action action = Action::run;
  /// What is wrong, in a few words. Only with Action::reject.
  std::string error = {};
};

}  // namespace mireval
