#pragma once

#include "library/Mood.h"

#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace mireval {

/// What the user asks for when starting the program.
struct CommandLine {
  /// `serve` also runs the player. The bus started it and is about to pass on a request.
  enum class Action { run, serve, showSettings, playMode, showHelp, showVersion, reject };

  /// `arguments` do not contain the program's name. The first of help, version and a mistake decides. Without
  /// these, `showSettings` and `playMode`, which exclude each other, win over `serve`. The last mode counts.
  static CommandLine parse(const std::vector<std::string_view>& arguments);

  /// What `--help` and `--version` print, ending with a newline.
  static std::string_view helpText();
  static std::string_view versionText();

  Action action = Action::run;
  /// Only with Action::playMode.
  std::optional<Mood> mode = {};
  /// The session started the player, not its user. With any action but `serve`.
  bool startedBySession = false;
  /// What is wrong, in a few words. Only with Action::reject.
  std::string error = {};
  /// The error names all that would be right.
  bool errorNamesTheChoices = false;
};

}  // namespace mireval
