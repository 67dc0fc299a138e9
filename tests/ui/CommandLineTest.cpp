#include "ui/CommandLine.h"

#include <gtest/gtest.h>

namespace mireval {
namespace {

using Action = CommandLine::Action;

Action actionOf(const std::vector<std::string_view>& arguments) {
  return CommandLine::parse(arguments).action;
}

std::string errorOf(const std::vector<std::string_view>& arguments) {
  const CommandLine commandLine = CommandLine::parse(arguments);
  EXPECT_EQ(commandLine.action, Action::reject);
  return commandLine.error;
}

TEST(CommandLineTest, WithoutArgumentsThePlayerRuns) {
  EXPECT_EQ(actionOf({}), Action::run);
  EXPECT_EQ(actionOf({"--"}), Action::run);
}

TEST(CommandLineTest, EachOption) {
  EXPECT_EQ(actionOf({"--settings"}), Action::showSettings);
  EXPECT_EQ(actionOf({"--service"}), Action::serve);
  EXPECT_EQ(actionOf({"--help"}), Action::showHelp);
  EXPECT_EQ(actionOf({"-h"}), Action::showHelp);
  EXPECT_EQ(actionOf({"--version"}), Action::showVersion);
  EXPECT_EQ(actionOf({"-v"}), Action::showVersion);
}

TEST(CommandLineTest, AnOptionMayComeTwice) {
  EXPECT_EQ(actionOf({"--settings", "--settings"}), Action::showSettings);
  EXPECT_EQ(actionOf({"--help", "--help"}), Action::showHelp);
}

TEST(CommandLineTest, SettingsWinOverTheRequestOfTheBus) {
  EXPECT_EQ(actionOf({"--service", "--settings"}), Action::showSettings);
  EXPECT_EQ(actionOf({"--settings", "--service"}), Action::showSettings);
}

TEST(CommandLineTest, AModeByItsExactName) {
  struct Row {
    std::string_view word;
    Mood mode;
  };
  for (const Row& row : {Row{"focus", Mood::focus}, Row{"tempo", Mood::tempo},
                         Row{"creative", Mood::creative}, Row{"relaxation", Mood::relaxation}}) {
    for (const auto& arguments : {std::vector<std::string_view>{"--mode", row.word},
                                  std::vector<std::string_view>{"--mode", row.word, "--service"},
                                  std::vector<std::string_view>{"--service", "--mode", row.word},
                                  std::vector<std::string_view>{"--mode", "focus", "--mode", row.word}}) {
      const CommandLine commandLine = CommandLine::parse(arguments);
      EXPECT_EQ(commandLine.action, Action::playMode);
      EXPECT_EQ(commandLine.mode, row.mode);
    }
    EXPECT_EQ(CommandLine::parse({"--mode=" + std::string(row.word)}).mode, row.mode);
  }
  EXPECT_EQ(CommandLine::parse({"--settings"}).mode, std::nullopt);
}

TEST(CommandLineTest, AWrongOrMissingModeIsToldTheRightOnes) {
  for (const char* const word :
       {"Focus", "focus ", "FOCUS", "relax", "create", "", "0", "--settings", "fo\xc3\xa7us"}) {
    EXPECT_EQ(errorOf({"--mode", word}),
              "there is no mode '" + std::string(word) + "', only focus, tempo, creative or relaxation");
    EXPECT_TRUE(CommandLine::parse({"--mode", word}).errorNamesTheChoices);
  }
  EXPECT_EQ(errorOf({"--mode="}), "there is no mode '', only focus, tempo, creative or relaxation");
  EXPECT_EQ(errorOf({"--mode"}), "option '--mode' needs focus, tempo, creative or relaxation");
  EXPECT_EQ(errorOf({"--mode", "focus", "--mode", "Tempo", "--help"}),
            "there is no mode 'Tempo', only focus, tempo, creative or relaxation");
  EXPECT_EQ(actionOf({"--help", "--mode", "Tempo"}), Action::showHelp);
  EXPECT_EQ(errorOf({"--mode", "focus", "tempo"}), "unexpected argument 'tempo'");
  EXPECT_FALSE(CommandLine::parse({"--loud"}).errorNamesTheChoices);
}

TEST(CommandLineTest, AModeAndTheSettingsExcludeEachOther) {
  EXPECT_EQ(errorOf({"--mode", "focus", "--settings"}), "option '--settings' does not go with --mode");
  EXPECT_EQ(errorOf({"--settings", "--mode", "focus"}), "option '--mode' does not go with --settings");
}

TEST(CommandLineTest, TheSessionMayHaveStartedIt) {
  EXPECT_FALSE(CommandLine::parse({}).startedBySession);
  const CommandLine alone = CommandLine::parse({"--autostart"});
  EXPECT_EQ(alone.action, Action::run);
  EXPECT_TRUE(alone.startedBySession);
  for (const auto& arguments : {std::vector<std::string_view>{"--autostart", "--mode", "tempo"},
                                std::vector<std::string_view>{"--mode", "tempo", "--autostart"}}) {
    const CommandLine commandLine = CommandLine::parse(arguments);
    EXPECT_TRUE(commandLine.startedBySession);
    EXPECT_EQ(commandLine.mode, Mood::tempo);
    EXPECT_EQ(commandLine.action, Action::playMode);
  }
  EXPECT_EQ(errorOf({"--autostart=yes"}), "option '--autostart' takes no value");
}

TEST(CommandLineTest, HelpAndVersionWinOverSettings) {
  EXPECT_EQ(actionOf({"--settings", "--help"}), Action::showHelp);
  EXPECT_EQ(actionOf({"--service", "--help"}), Action::showHelp);
  EXPECT_EQ(actionOf({"--version", "--settings"}), Action::showVersion);
}

TEST(CommandLineTest, TheFirstOfHelpVersionAndAMistakeDecides) {
  EXPECT_EQ(actionOf({"--help", "--version"}), Action::showHelp);
  EXPECT_EQ(actionOf({"--version", "--help"}), Action::showVersion);
  EXPECT_EQ(actionOf({"--help", "--loud"}), Action::showHelp);
  EXPECT_EQ(errorOf({"--loud", "--help"}), "unknown option '--loud'");
  EXPECT_EQ(errorOf({"--settings", "--loud"}), "unknown option '--loud'");
}

TEST(CommandLineTest, LettersMayBeJoined) {
  EXPECT_EQ(actionOf({"-hv"}), Action::showHelp);
  EXPECT_EQ(actionOf({"-vx"}), Action::showVersion);
  EXPECT_EQ(errorOf({"-xh"}), "unknown option '-x'");
}

TEST(CommandLineTest, UnknownOptions) {
  for (const char* const option : {"--Help", "--set", "--settingss", "---help", "-s", "-H"}) {
    EXPECT_EQ(errorOf({option}),
              "unknown option '" + std::string(option).substr(0, option[1] == '-' ? 99 : 2) + "'");
  }
  EXPECT_EQ(errorOf({"--=x"}), "unknown option '--'");
  // Those that Qt would take.
  EXPECT_EQ(errorOf({"-platform", "offscreen"}), "unknown option '-p'");
  EXPECT_EQ(errorOf({"--style=fusion"}), "unknown option '--style'");
}

TEST(CommandLineTest, NoOptionTakesAValue) {
  EXPECT_EQ(errorOf({"--settings=now"}), "option '--settings' takes no value");
  EXPECT_EQ(errorOf({"--help="}), "option '--help' takes no value");
}

TEST(CommandLineTest, StrayArguments) {
  EXPECT_EQ(errorOf({"focus"}), "unexpected argument 'focus'");
  EXPECT_EQ(errorOf({""}), "unexpected argument ''");
  EXPECT_EQ(errorOf({"-"}), "unexpected argument '-'");
  EXPECT_EQ(errorOf({"--settings", "song.m4a"}), "unexpected argument 'song.m4a'");
}

TEST(CommandLineTest, NothingIsAnOptionAfterTheDashes) {
  EXPECT_EQ(errorOf({"--", "--help"}), "unexpected argument '--help'");
  EXPECT_EQ(errorOf({"--settings", "--", "--"}), "unexpected argument '--'");
  EXPECT_EQ(actionOf({"--settings", "--"}), Action::showSettings);
}

TEST(CommandLineTest, HelpNamesEveryOption) {
  for (const char* const option :
       {"--mode MODE", "--settings", "--autostart", "--service", "-h, --help", "-v, --version"}) {
    EXPECT_NE(CommandLine::helpText().find(option), std::string_view::npos) << option;
  }
  EXPECT_EQ(CommandLine::helpText().back(), '\n');
  EXPECT_EQ(CommandLine::versionText().substr(0, 8), "Mireval ");
}

}  // namespace
}  // namespace mireval
