#include "ChildProcess.h"

#include "measures/Recording.h"

#include <gtest/gtest.h>

#include <QTemporaryDir>

#include <cstddef>
#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <iterator>
#include <map>
#include <regex>
#include <sstream>
#include <string>
#include <utility>
#include <vector>

namespace mireval::soundtrack::test {
namespace {

using Environment = std::map<std::string, std::string>;
using Lines = std::vector<std::string>;

std::filesystem::path soundtrackFolder() {
  return SOUNDTRACK;
}

std::string contents(const std::filesystem::path& file) {
  std::ifstream stream(file, std::ios::binary);
  return {std::istreambuf_iterator<char>(stream), {}};
}

/// Eight seconds that are in order.
Lines shortPiece() {
  return {
      R"(; Short Piece - focus - four bars and a ring)",
      R"(#include "studio.orc")",
      R"(piece  "Short Piece", 120, "C minor")",
      R"(chords "A", "Cm9:1 Fm9:1")",
      R"(form   "AA", 1)",
      R"(wash   "pad", 57, "4 4")",
      R"(beat   "kick", "x...x...", "2 2", -6)",
      R"(keys   "felt", 62, "1.?.|3...", "5 5")",
  };
}

struct RenderResult {
  int status;
  std::string message;
};

/// A folder with a track, a folder for results and one for temporary files.
class RenderTest : public testing::Test {
 protected:
  RenderTest() {
    EXPECT_TRUE(m_folder.isValid());
    for (const char* name : {"out", "tmp", "bin"}) {
      std::filesystem::create_directory(path(name));
    }
  }

  std::filesystem::path path(const std::string& name) const {
    return std::filesystem::path(m_folder.path().toStdString()) / name;
  }
  std::filesystem::path trackFile() const { return path("piece.orc"); }
  std::filesystem::path outFile() const { return path("out") / "piece.m4a"; }

  void write(const Lines& lines) const {
    std::ofstream file(trackFile());
    for (const std::string& line : lines) {
      file << line << '\n';
    }
  }

  /// Puts a program before those of the system.
  void replaceProgram(const std::string& name, const std::string& script) const {
    const std::filesystem::path program = path("bin") / name;
    std::ofstream(program) << "#!/bin/sh\n" << script << '\n';
    std::filesystem::permissions(program, std::filesystem::perms::owner_all);
  }

  /// The original of a program that was replaced.
  static std::string original(const std::string& name) {
    std::istringstream folders(std::getenv("PATH"));
    for (std::string folder; std::getline(folders, folder, ':');) {
      if (const auto program = std::filesystem::path(folder) / name; std::filesystem::exists(program)) {
        return program.string();
      }
    }
    ADD_FAILURE() << name << " is not installed";
    return name;
  }

  /// From here on, only the cache can supply a result.
  void forbidPlaying() const {
    replaceProgram("csound", "[ \"$1\" = --version ] && exec " + original("csound") + " --version; exit 1");
  }

  RenderResult render(const std::vector<std::string>& options = {}, Environment environment = {}) const {
    const std::filesystem::path messages = path("messages");
    std::filesystem::remove(messages);
    environment.emplace("PATH", path("bin").string() + ":" + std::getenv("PATH"));
    environment.emplace("TMPDIR", path("tmp").string());
    std::vector<std::string> command{m_program.string()};
    command.insert(command.end(), options.begin(), options.end());
    command.push_back(trackFile().string());
    command.push_back(outFile().string());
    const int status = mireval::test::ChildProcess(command, environment, messages.string()).wait();
    return {status, contents(messages)};
  }

  RenderResult renderCached() const { return render({"-c", path("cache").string()}); }

  void expectNothingLeft() const {
    for (const char* name : {"out", "tmp", "cache"}) {
      if (std::filesystem::exists(path(name))) {
        EXPECT_TRUE(std::filesystem::is_empty(path(name))) << name;
      }
    }
  }

  void useLibraryCopy() {
    std::filesystem::create_directory(path("soundtrack"));
    std::filesystem::copy(soundtrackFolder() / "render", path("soundtrack/render"));
    std::filesystem::copy(soundtrackFolder() / "library", path("soundtrack/library"),
                          std::filesystem::copy_options::recursive);
    m_program = path("soundtrack/render");
  }

 private:
  QTemporaryDir m_folder;
  std::filesystem::path m_program = soundtrackFolder() / "render";
};

Recording decoded(const std::filesystem::path& file) {
  const RecordingResult loaded = Recording::load(file);
  EXPECT_TRUE(loaded.recording) << loaded.error;
  return loaded.recording.value_or(Recording());
}

/// The names of the instruments in a file of the library, which lists them in strings.
std::vector<std::string> instruments(const std::filesystem::path& file) {
  static const std::regex list(R"re(\ngS\w+ = "([^"]+)")re");
  static const std::regex continuation(R"re(\\\s*\n)re");
  const std::string text = contents(file);
  std::vector<std::string> names;
  for (std::sregex_iterator match(text.begin(), text.end(), list); match != std::sregex_iterator(); ++match) {
    std::istringstream words(std::regex_replace((*match)[1].str(), continuation, " "));
    names.insert(names.end(), std::istream_iterator<std::string>(words), {});
  }
  return names;
}

/// A lane for an instrument, in a piece of one section.
std::string laneOf(const std::string& instrument, const std::string& libraryFile) {
  if (libraryFile == "weather") {
    return "veil \"" + instrument + R"(", "3")";
  }
  if (libraryFile == "percussion") {
    return "beat \"" + instrument + R"(", "x.o.X.o.", "3", -9)";
  }
  return "keys \"" + instrument + R"(", 60, "?...*...", "4", -6)";
}

TEST_F(RenderTest, PlaysATrackAsLongAsItIsWritten) {
  write(shortPiece());
  const RenderResult result = render();
  ASSERT_EQ(result.status, 0) << result.message;
  EXPECT_EQ(result.message, "");
  // Four bars of two seconds and a second of ring, in whole frames of the encoder.
  constexpr std::size_t atLeast = 9UL * 44100;
  const std::size_t frames = decoded(outFile()).left.size();
  EXPECT_GE(frames, atLeast);
  EXPECT_LT(frames, atLeast + 1024);
  EXPECT_TRUE(std::filesystem::is_empty(path("tmp")));
}

TEST_F(RenderTest, MakesTheSameOfTheSameSources) {
  std::size_t count = 0;
  for (const auto& entry : std::filesystem::directory_iterator(soundtrackFolder() / "library")) {
    const std::string libraryFile = entry.path().stem().string();
    const bool plays =
        libraryFile.starts_with("players") || libraryFile == "percussion" || libraryFile == "weather";
    const std::vector<std::string> all = plays ? instruments(entry.path()) : std::vector<std::string>();
    if (all.empty()) {
      continue;
    }
    SCOPED_TRACE(libraryFile);
    count += all.size();
    Lines lines = shortPiece();
    lines.resize(3);
    lines.insert(lines.end(), {R"(chords "A", "Cm9:1")", R"(form "A", 1)", R"(wash "pad", 57, "4")"});
    for (const std::string& instrument : all) {
      lines.push_back(laneOf(instrument, libraryFile));
    }
    write(lines);
    const RenderResult first = render();
    ASSERT_EQ(first.status, 0) << first.message;
    const std::string firstBytes = contents(outFile());
    const Recording firstSamples = decoded(outFile());
    const RenderResult second = render();
    ASSERT_EQ(second.status, 0) << second.message;
    EXPECT_FALSE(firstSamples.left.empty());
    EXPECT_TRUE(decoded(outFile()) == firstSamples);
    EXPECT_TRUE(contents(outFile()) == firstBytes);
  }
  EXPECT_GT(count, 40U) << "where does the library list its instruments?";
}

TEST_F(RenderTest, MakesSomethingElseOfAnotherTitle) {
  write(shortPiece());
  ASSERT_EQ(render().status, 0);
  const Recording samples = decoded(outFile());
  Lines lines = shortPiece();
  lines[2] = R"(piece  "Short Peace", 120, "C minor")";
  write(lines);
  ASSERT_EQ(render().status, 0);
  EXPECT_FALSE(decoded(outFile()) == samples);
}

/// Lines of the short piece with something else in their place, and what is then said about the track.
struct Mistake {
  /// Replaces these lines, counted from 1; one that is null removes the line.
  std::map<std::size_t, const char*> lines;
  std::size_t faultyLine;
  const char* message;
};

const std::vector<Mistake> mistakes{
    {{{1, "; H minor"}, {3, R"(piece "Short H minor", 120, "H minor")"}}, 3, R"(no such note: "H minor")"},
    {{{3, R"(piece "C minr", 120, "C minr")"}}, 3, R"(no such scale: "C minr")"},
    {{{3, R"(piece "Short Piece", 12, "C minor")"}}, 3, R"(a tempo outside 40..160: "Short Piece")"},
    {{{4, R"(chords "A", "Cm9:1 Fmin9:1")"}}, 4, R"(no such chord: "Fmin9:1")"},
    // The words in question are in the title, too, or in a comment, or in another chord.
    {{{1, R"(; "Fmin9:1")"}, {3, R"(piece "Fmin9:1", 120, "C minor")"}, {4, R"(chords "A", "Fmin9:1")"}},
     4,
     R"(no such chord: "Fmin9:1")"},
    {{{3, "piece \"Short Piece\", 120, \"C minor\"\n;chords \"A\", \"Fmin9\""},
      {4, R"(chords "A", "Fmin9")"}},
     5,
     R"(no such chord: "Fmin9")"},
    {{{4, "chords \"B\", \"Cm9 Fm:1\"\nchords \"A\", \"Fm\"\nchords \"C\", \"Cm99:2 F\""},
      {5, R"(form "ABC", 1)"}},
     6,
     R"(no such chord: "Cm99:2")"},
    {{{4, R"(chords "A", "Cm9:1 Xm9:2")"}}, 4, R"(no such note: "Xm9")"},
    {{{3, R"(piece "H", 120, "C minor")"}, {4, R"(chords "A", "Cm9:1 Fm9/H:2")"}}, 4, R"(no such note: "H")"},
    {{{4, R"(chords "A", "Cm9:1 Fm9:x")"}}, 4, R"(the bars of a chord: "x")"},
    {{{4, R"(chords "A", "Cm9:1 Fm9:")"}}, 4, R"(the bars of a chord: "Fm9:")"},
    {{{4, R"(chords "A", "Cm9:0 Fm9")"}}, 4, R"(the bars of a chord: "Cm9:0")"},
    // No section uses these chords.
    {{{4, "chords \"A\", \"Cm9\"\nchords \"B\", \"Dm99\""}}, 5, R"(no such chord: "Dm99")"},
    {{{3, nullptr}}, 4, R"(piece has to come before form: "AA")"},
    {{{6, R"(space "cellar", .8, 5000)"}}, 6, R"(no such room: "cellar")"},
    {{{6, R"(;keys "flet")"}, {8, R"(keys "flet", 62, "1...", "5 5")"}}, 8, R"(no such player here: "flet")"},
    {{{6, R"(wash "felt", 62, "4 4")"}, {7, R"(beat "felt", "x...", "2 2")"}},
     7,
     R"(no such player here: "felt")"},
    {{{7, R"(beat "kik", "x...", "2 2")"}}, 7, R"(no such player here: "kik")"},
    {{{8, R"(keys "kick", 60, "1...", "2 2")"}}, 8, R"(no such player here: "kick")"},
    {{{6, R"(veil "rian", "4 4")"}}, 6, R"(no such player here: "rian")"},
    {{{8, R"(keys "felt", 62, "1...", "5 5 5")"}}, 8, R"(3 levels for 2 sections: "5 5 5")"},
    {{{6, R"(wash "pad", 57, "4")"}}, 6, R"(1 levels for 2 sections: "4")"},
    // The columns are a pattern elsewhere.
    {{{6, R"(bass "sub", 36, "1.1", "4 4")"}, {8, R"(keys "felt", 62, "1.?.|3...", "1.1")"}},
     8,
     R"(3 levels for 2 sections: "1.1")"},
    {{{6, R"(wash "pad", 57, "4 x")"}}, 6, R"(a level is . or 1..9: "4 x")"},
    {{{8, R"(keys "felt", 62, "x...x...", "5 5")"}},
     8,
     R"(a figure this kind of lane does not know: "x...x...")"},
    {{{1, R"(; "1.?.|3..")"}, {8, R"(keys "felt", 62, "1.?.|3..", "5 5")"}},
     8,
     R"(a bar with a different number of steps: "1.?.|3..")"},
    {{{8, R"(keys "felt", 62, "", "5 5")"}}, 8, R"(an empty pattern: "")"},
    {{{5, nullptr}}, 5, R"(form has to come before the lanes: "pad")"},
    {{{4, nullptr}, {5, nullptr}, {6, nullptr}, {7, nullptr}, {8, nullptr}},
     3,
     R"(a track needs piece, chords and form: "form")"},
    {{{5, R"(form "AB", 1)"}}, 5, R"(a section without chords: "AB")"},
    {{{7, R"(beet "kick", "x...", "2 2")"}}, 7, R"(no such kind of line: "beet")"},
    // Lines of two parts.
    {{{6, "wash \"pad\", \\\n57, \"4 4\""}, {7, "beat \"kick\", \\\n\"x...\", \"2 2 2\""}},
     8,
     R"(3 levels for 2 sections: "2 2 2")"},
    {{{7, R"(beat "kick" "x...", "2 2")"}}, 7, "csound refused the track"},
    {{{7, R"(beat "kick", "x...", "2 2)"}}, 7, "csound refused the track"},
    {{{8, R"(keys "felt", "62", "1...", "5 5")"}}, 8, "csound refused the track"},
};

TEST_F(RenderTest, NamesAMistakeWithFileAndLine) {
  const Lines original = shortPiece();
  for (const Mistake& mistake : mistakes) {
    Lines lines;
    for (std::size_t i = 0; i < original.size(); ++i) {
      const auto changed = mistake.lines.find(i + 1);
      if (changed == mistake.lines.end()) {
        lines.push_back(original[i]);
      } else if (changed->second != nullptr) {
        lines.emplace_back(changed->second);
      }
    }
    write(lines);
    const RenderResult result = renderCached();
    EXPECT_GT(result.status, 0);
    const std::string expected =
        trackFile().string() + ":" + std::to_string(mistake.faultyLine) + ": " + mistake.message + "\n";
    EXPECT_TRUE(result.message.ends_with(expected)) << result.message << "instead of\n" << expected;
    expectNothingLeft();
  }
}

TEST_F(RenderTest, RefusesAMissingTrack) {
  const RenderResult result = render();
  EXPECT_GT(result.status, 0);
  EXPECT_EQ(result.message, trackFile().string() + ": no such track\n");
  expectNothingLeft();
}

TEST_F(RenderTest, AsksForTheSoundfont) {
  write(shortPiece());
  const RenderResult result = render({}, {{"SSDIR", path("tmp").string()}});
  EXPECT_GT(result.status, 0);
  EXPECT_NE(result.message.find("soundfont " + (path("tmp") / "FluidR3_GM.sf2").string()), std::string::npos)
      << result.message;
  expectNothingLeft();
}

TEST_F(RenderTest, RefusesSilenceAndWhatWouldPeakTooHigh) {
  for (const auto& [lane, fault] : {std::pair(R"(wash "pad", 57, ". .")", "the track is silent\n"),
                                    {R"(beat "rim", "X.......", "9 9")", "its true peak would be "}}) {
    Lines lines = shortPiece();
    lines.resize(5);
    lines.emplace_back(lane);
    write(lines);
    const RenderResult result = renderCached();
    EXPECT_GT(result.status, 0);
    EXPECT_TRUE(result.message.starts_with(trackFile().string() + ": " + fault)) << result.message;
    expectNothingLeft();
  }
}

TEST_F(RenderTest, RefusesAClickOfTheEncoder) {
  write(shortPiece());
  // A sample that sticks out by 0.1 after two seconds.
  replaceProgram("ffmpeg", R"sh(for option; do
shift
case $option in volume=*) option="$option,aeval=val(0)+.1*eq(n\\,88200)|val(1):c=same" ;; esac
set -- "$@" "$option"
done
exec )sh" + original("ffmpeg") +
                               R"sh( "$@")sh");
  const RenderResult result = renderCached();
  EXPECT_GT(result.status, 0);
  EXPECT_EQ(result.message, trackFile().string() + ": the encoder has made a click at 2.00 s\n");
  expectNothingLeft();
}

/// Each breaks off the render when half of a file is written.
class InterruptedRenderTest : public RenderTest, public testing::WithParamInterface<const char*> {};

TEST_P(InterruptedRenderTest, LeavesNoHalfFile) {
  write(shortPiece());
  const std::string interrupt = "touch " + path("reached").string() + "; kill -" + GetParam() + " $PPID";
  const auto expectInterrupted = [this] {
    EXPECT_GT(renderCached().status, 0);
    EXPECT_TRUE(std::filesystem::remove(path("reached")));
    expectNothingLeft();
  };
  replaceProgram("ffmpeg", "for last; do :; done\ncase \"$last\" in *.m4a) ;; *) exec " + original("ffmpeg") +
                               " \"$@\" ;; esac\necho half >\"$last\"; " + interrupt);
  expectInterrupted();
  replaceProgram("csound", "[ \"$1\" = --version ] && exec " + original("csound") +
                               " --version\n"
                               "while [ $# -gt 1 ]; do [ \"$1\" = -o ] && echo half >\"$2\"; shift; done\n" +
                               interrupt);
  expectInterrupted();
}

TEST_P(InterruptedRenderTest, KeepsTheFileOfTheLastTime) {
  write(shortPiece());
  std::ofstream(outFile()) << "whole";
  replaceProgram("csound", "kill -" + std::string(GetParam()) + " $PPID");
  EXPECT_GT(render().status, 0);
  EXPECT_EQ(contents(outFile()), "whole");
}

INSTANTIATE_TEST_SUITE_P(By, InterruptedRenderTest, testing::Values("INT", "TERM", "HUP"),
                         [](const auto& info) { return info.param; });

class RenderCacheTest : public RenderTest {
 protected:
  RenderCacheTest() {
    write(shortPiece());
    useLibraryCopy();
    const RenderResult result = renderCached();
    EXPECT_EQ(result.status, 0) << result.message;
    m_made = contents(outFile());
    std::filesystem::remove(outFile());
    forbidPlaying();
  }

  const std::string& made() const { return m_made; }

  void expectNotTakenFromTheCache() const {
    EXPECT_GT(renderCached().status, 0);
    EXPECT_FALSE(std::filesystem::exists(outFile()));
  }

 private:
  std::string m_made;
};

TEST_F(RenderCacheTest, SparesPlayingATrackAgainWhenAsked) {
  EXPECT_GT(render().status, 0);
  EXPECT_FALSE(std::filesystem::exists(outFile()));
  const RenderResult result = renderCached();
  EXPECT_EQ(result.status, 0) << result.message;
  EXPECT_FALSE(made().empty());
  EXPECT_TRUE(contents(outFile()) == made());
}

TEST_F(RenderCacheTest, DoesNotKnowChangedSources) {
  for (const char* const name : {"piece.orc", "soundtrack/library/desk.orc", "soundtrack/render"}) {
    const std::string before = contents(path(name));
    // A comment in the notation, and in the script.
    std::ofstream(path(name), std::ios::app) << (path(name).extension() == ".orc" ? "; more\n" : "# more\n");
    expectNotTakenFromTheCache();
    std::ofstream(path(name)) << before;
  }
  EXPECT_EQ(renderCached().status, 0);
  std::filesystem::remove(outFile());
  replaceProgram("csound", "[ \"$1\" = --version ] && echo 'Csound version 7.01'; exit 1");
  expectNotTakenFromTheCache();
}

TEST_F(RenderCacheTest, HoldsOneFileAndNoRemains) {
  std::vector<std::string> files;
  for (const auto& entry : std::filesystem::directory_iterator(path("cache"))) {
    files.push_back(entry.path().filename().string());
  }
  ASSERT_EQ(files.size(), 1U);
  EXPECT_TRUE(files.front().starts_with("piece-"));
  EXPECT_TRUE(contents(path("cache") / files.front()) == made());
}

}  // namespace
}  // namespace mireval::soundtrack::test
