#include "ui/CommandLine.h"

#include <algorithm>
#include <array>

namespace mireval {
namespace {

using Action = CommandLine::Action;

struct Option {
  std::string_view name;
  Action action;
};

constexpr std::array options{Option{"--settings", Action::showSettings}, Option{"--service", Action::serve},
                             Option{"--help", Action::showHelp},         Option{"-h", Action::showHelp},
                             Option{"--version", Action::showVersion},   Option{"-v", Action::showVersion}};

CommandLine rejected(std::string_view reason, std::string_view argument, std::string_view end = "") {
  return {.action = Action::reject,
          .error = std::string(reason) + " '" + std::string(argument) + "'" + std::string(end)};
}

}  // namespace

CommandLine CommandLine::parse(const std::vector<std::string_view>& arguments) {
  CommandLine result;
  bool optionsMayFollow = true;
  for (const std::string_view argument : arguments) {
    if (!optionsMayFollow || argument.size() < 2 || argument[0] != '-') {
      return rejected("unexpected argument", argument);
    }
    if (argument == "--") {
      optionsMayFollow = false;
      continue;
    }
    // Every short option ends the parsing. So only the first of several joined letters counts.
    const bool isLong = argument[1] == '-';
    const std::string_view name = argument.substr(0, isLong ? argument.find('=') : 2);
    const auto* const option = std::ranges::find(options, name, &Option::name);
    if (option == options.end()) {
      return rejected("unknown option", name);
    }
    if (isLong && name != argument) {
      return rejected("option", name, " takes no value");
    }
    if (option->action == Action::showHelp || option->action == Action::showVersion) {
      return {.action = option->action};
    }
    if (result.action != Action::showSettings) {
      result.action = option->action;
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
