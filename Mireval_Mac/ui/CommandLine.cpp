#include "ui/CommandLine.h"

#include <algorithm>
#include <array>
#include <utility>

namespace mireval {
namespace {

using Action = CommandLine::Action;

struct Option {
  std::string_view name;
  Action action;
  bool takesMode = false;
};

constexpr std::array options{
    Option{"--settings", Action::showSettings}, Option{"--mode", Action::playMode, true},
    Option{"--autostart", Action::run},         Option{"--service", Action::serve},
    Option{"--help", Action::showHelp},         Option{"-h", Action::showHelp},
    Option{"--version", Action::showVersion},   Option{"-v", Action::showVersion}};

CommandLine rejected(std::string_view reason, std::string_view argument, std::string_view end = "") {
  return {.action = Action::reject,
          .error = std::string(reason) + " '" + std::string(argument) + "'" + std::string(end)};
}

/// `reason` is followed by the modes.
CommandLine rejectedMode(const std::string& reason) {
  return {.action = Action::reject,
          .error = reason + " focus, tempo, creative or relaxation",
          .errorNamesTheChoices = true};
}

/// The action of an option without a value, added to what was asked for before.
CommandLine withAction(CommandLine before, Action action) {
  if (action == Action::showHelp || action == Action::showVersion) {
    return {.action = action};
  }
  if (action == Action::showSettings && before.mode) {
    return rejected("option", "--settings", " does not go with --mode");
  }
  if (action == Action::run) {
    before.startedBySession = true;
  } else if (before.action == Action::run || before.action == Action::serve) {
    before.action = action;
  }
  return before;
}

CommandLine withMode(CommandLine before, std::optional<std::string_view> word) {
  if (!word) {
    return rejectedMode("option '--mode' needs");
  }
  before.mode = moodFromRawValue(QString::fromUtf8(word->data(), static_cast<qsizetype>(word->size())));
  if (!before.mode) {
    return rejectedMode("there is no mode '" + std::string(*word) + "', only");
  }
  if (before.action == Action::showSettings) {
    return rejected("option", "--mode", " does not go with --settings");
  }
  before.action = Action::playMode;
  return before;
}

bool decides(Action action) {
  return action == Action::showHelp || action == Action::showVersion || action == Action::reject;
}

}  // namespace

CommandLine CommandLine::parse(const std::vector<std::string_view>& arguments) {
  CommandLine result;
  bool optionsMayFollow = true;
  for (auto next = arguments.begin(); next != arguments.end() && !decides(result.action);) {
    const std::string_view argument = *next++;
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
    const bool hasValue = isLong && name != argument;
    if (hasValue && !option->takesMode) {
      return rejected("option", name, " takes no value");
    }
    if (!option->takesMode) {
      result = withAction(std::move(result), option->action);
    } else if (hasValue) {
      result = withMode(std::move(result), argument.substr(name.size() + 1));
    } else {
      result = withMode(std::move(result), next == arguments.end() ? std::nullopt : std::optional(*next++));
    }
  }
  return result;
}

std::string_view CommandLine::helpText() {
  return "Usage: mireval [option]...\n"
         "Music for work, from an icon in the tray. When the player runs already, its panel opens.\n"
         "\n"
         "  --mode MODE    play a mode and open nothing: focus, tempo, creative or relaxation\n"
         "  --settings     open the settings\n"
         "  --autostart    started by the session: wait longer for its tray\n"
         "  --service      started by the message bus: wait for its request\n"
         "  -h, --help     print this text\n"
         "  -v, --version  print the version\n";
}

std::string_view CommandLine::versionText() {
  return "Mireval " MIREVAL_VERSION "\n";
}

}  // namespace mireval
