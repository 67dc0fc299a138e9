#include "ui/CommandLine.h"

#include <optional>

namespace mireval {
namespace {

using Action = CommandLine::Action;

std::string quoted(std::string_view text) {
  return "'" + std::string(text) + "'";
}

CommandLine rejected(std::string error) {
  return {.action = Action::reject, .error = std::move(error)};
}

std::optional<Action> longOption(std::string_view name) {
  if (name == "settings") {
    return Action::showSettings;
  }
  if (name == "service") {
    return Action::serve;
  }
  if (name == "help") {
    return Action::showHelp;
  }
  if (name == "version") {
    return Action::showVersion;
  }
  return std::nullopt;
}

std::optional<Action> shortOption(char letter) {
  switch (letter) {
    case 'h':
      return Action::showHelp;
    case 'v':
      return Action::showVersion;
    default:
      return std::nullopt;
  }
}

CommandLine parseLong(std::string_view argument) {
  const std::string_view option = argument.substr(0, argument.find('='));
  const auto action = longOption(option.substr(2));
  if (!action) {
    return rejected("unknown option " + quoted(option));
  }
  if (option != argument) {
    return rejected("option " + quoted(option) + " takes no value");
  }
  return {.action = *action};
}

/// Each short option ends the reading, so that only the first letter of several counts.
CommandLine parseShort(std::string_view argument) {
  const auto action = shortOption(argument[1]);
  return action ? CommandLine{.action = *action}
                : rejected("unknown option " + quoted(argument.substr(0, 2)));
}

}  // namespace

CommandLine CommandLine::parse(const std::vector<std::string_view>& arguments) {
  CommandLine result;
  bool optionsMayFollow = true;
  for (const std::string_view argument : arguments) {
    if (!optionsMayFollow || argument.size() < 2 || argument[0] != '-') {
      return rejected("unexpected argument " + quoted(argument));
    }
    if (argument == "--") {
      optionsMayFollow = false;
      continue;
    }
    CommandLine option = argument[1] == '-' ? parseLong(argument) : parseShort(argument);
    if (option.action != Action::showSettings && option.action != Action::serve) {
      return option;
    }
    if (result.action != Action::showSettings) {
      result = std::move(option);
    }
  }
  return result;
}

std::string_view CommandLine::helpText() {
  return "Usage: mireval [option]\n"
         "Music for work, from an icon in the tray. When the player runs already, its panel opens.\n"
         "\n"
         "  --settings     open the settings\n"
         "  --service      started by the message bus: wait for its request\n"
         "  -h, --help     print this text\n"
         "  -v, --version  print the version\n";
}

std::string_view CommandLine::versionText() {
  return "Mireval " MIREVAL_VERSION "\n";
}

}  // namespace mireval
