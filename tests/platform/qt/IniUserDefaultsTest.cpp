#include "platform/qt/IniUserDefaults.h"

#include "support/QtPrinters.h"
#include "support/TemporaryFolder.h"

#include <gtest/gtest.h>

#include <QLockFile>

#include <sys/resource.h>
#include <sys/stat.h>
#include <unistd.h>

#include <chrono>
#include <csignal>
#include <fstream>
#include <map>
#include <optional>
#include <string>
#include <thread>
#include <utility>

namespace mireval {
namespace {

namespace fs = std::filesystem;
using namespace Qt::StringLiterals;
using namespace std::string_literals;

constexpr QStringView optionKey = u"app.language.option";

/// While it exists, file permissions apply to the superuser too.
class WithoutPrivileges {
 public:
  WithoutPrivileges() {
    if (m_user == 0) {
      constexpr uid_t nobody = 65534;
      // access(2) checks the real user, so that one changes too.
      EXPECT_EQ(setresuid(nobody, nobody, m_user), 0);
    }
  }
  WithoutPrivileges(const WithoutPrivileges&) = delete;
  WithoutPrivileges& operator=(const WithoutPrivileges&) = delete;
  ~WithoutPrivileges() { EXPECT_EQ(setresuid(m_user, m_user, m_user), 0); }

 private:
  const uid_t m_user = geteuid();
};

/// While it exists, no file can grow beyond a size, as on a full disk.
class FileSizeLimit {
 public:
  explicit FileSizeLimit(rlim_t bytes) {
    EXPECT_EQ(getrlimit(RLIMIT_FSIZE, &m_before), 0);
    const rlimit limit{.rlim_cur = bytes, .rlim_max = m_before.rlim_max};
    EXPECT_EQ(setrlimit(RLIMIT_FSIZE, &limit), 0);
  }
  FileSizeLimit(const FileSizeLimit&) = delete;
  FileSizeLimit& operator=(const FileSizeLimit&) = delete;
  ~FileSizeLimit() {
    EXPECT_EQ(setrlimit(RLIMIT_FSIZE, &m_before), 0);
    std::signal(SIGXFSZ, m_handlerBefore);
  }

 private:
  rlimit m_before{};
  // The default action of the signal would end the test.
  void (*m_handlerBefore)(int) = std::signal(SIGXFSZ, SIG_IGN);
};

class IniUserDefaultsTest : public testing::Test {
 protected:
  IniUserDefaultsTest() {
    // Others may read it, but not write.
    fs::permissions(m_folder.path(), fs::perms(0755));
  }

  fs::path file() const { return m_folder.path() / "mireval.conf"; }
  IniUserDefaults defaults() const { return IniUserDefaults(file()); }
  std::optional<QString> option() const { return defaults().string(optionKey); }
  void set(const QString& text) const { defaults().set(optionKey, text); }

  void write(const std::string& content) const { std::ofstream(file(), std::ios::binary) << content; }

  static std::string contentOf(const fs::path& path) {
    std::ifstream stream(path, std::ios::binary);
    return {std::istreambuf_iterator<char>(stream), {}};
  }
  std::string content() const { return contentOf(file()); }

  /// All entries of the folder with content and time of the last change, to show that nobody wrote.
  std::map<fs::path, std::string> everything() const {
    std::map<fs::path, std::string> entries;
    for (const fs::directory_entry& entry : fs::recursive_directory_iterator(m_folder.path())) {
      struct stat status {};
      EXPECT_EQ(lstat(entry.path().c_str(), &status), 0);
      entries[entry.path()] = std::to_string(status.st_ino) + ' ' + std::to_string(status.st_mode) + ' ' +
                              std::to_string(status.st_ctim.tv_sec) + '.' +
                              std::to_string(status.st_ctim.tv_nsec) +
                              (S_ISREG(status.st_mode) ? contentOf(entry.path()) : "");
    }
    return entries;
  }

  void expectNoValueAndNoTrace() const {
    const auto before = everything();
    const fs::file_time_type folderTime = fs::last_write_time(m_folder.path());
    EXPECT_EQ(option(), std::nullopt);
    EXPECT_EQ(everything(), before);
    EXPECT_EQ(fs::last_write_time(m_folder.path()), folderTime);
  }

  /// Apart from a lock, which may have existed meanwhile.
  void expectNothingWritten() const {
    const auto before = everything();
    set(u"japanese"_s);
    EXPECT_EQ(everything(), before);
  }

  /// The folder holds only the one file: no lock and no half-written copy.
  void expectOnlyTheFile() const {
    EXPECT_EQ(std::distance(fs::directory_iterator(m_folder.path()), {}), 1);
    EXPECT_TRUE(fs::is_regular_file(file()));
  }

  const TemporaryFolder m_folder;
};

TEST_F(IniUserDefaultsTest, WhatIsSetIsRead) {
  for (const QString& text : {u"chineseTraditional"_s, u"english"_s}) {
    set(text);
    EXPECT_EQ(option(), text);
    EXPECT_EQ(content(), "[General]\napp.language.option=" + text.toStdString() + '\n');
  }
  expectOnlyTheFile();
}

TEST_F(IniUserDefaultsTest, WhatCouldNotBeReadBackIsNotStored) {
  for (const QString& text : {u""_s, u"two  words"_s, u"日本語 🎵"_s, u"[General]"_s, u"a=b"_s}) {
    set(text);
    EXPECT_EQ(option(), text);
  }
  for (const QString& text :
       {u" spaces "_s, u"a, b"_s, u"\"quoted\""_s, u"back\\slash"_s, u"semi;colon"_s, u"line\nbreak"_s}) {
    set(text);
    EXPECT_EQ(option(), u"a=b"_s);
  }
}

TEST_F(IniUserDefaultsTest, ReadsWhatAPersonWrites) {
  for (const std::string& text : {
           "[General]\napp.language.option=japanese\n"s,
           "[General]\napp.language.option=japanese"s,
           "[General]\r\napp.language.option=japanese\r\n"s,
           "\xEF\xBB\xBF[General]\napp.language.option=japanese\n"s,
           "[General]\n  app.language.option =  japanese  \n"s,
           "[General]\napp.language.option=\"japanese\"\n"s,
           "[general]\napp.language.option=japanese\n"s,
           "app.language.option=japanese\n"s,
           "\xEF\xBB\xBF\napp.language.option=japanese\n[Other]\n"s,
           "; mine\n[General]\n# app.language.option=english\napp.language.option=japanese\n"s,
           "[Other]\napp.language.option=english\n\n[General]\napp.language.option=japanese\n"s,
           "[General]\napp.language.option=english\napp.language.option=japanese\n"s,
           // Garbage elsewhere.
           "\x7F\x45LF\0\xFF\"\n[]\n[General]\nbad\n\"=\xFF\napp.language.option=japanese\n\0"s,
       }) {
    write(text);
    EXPECT_EQ(option(), u"japanese"_s) << text;
  }
}

TEST_F(IniUserDefaultsTest, ReadsWhatWasWrittenSince) {
  const IniUserDefaults defaults(file());
  expectNoValueAndNoTrace();
  write("[General]\napp.language.option=japanese\n");
  const auto before = everything();
  EXPECT_EQ(defaults.string(optionKey), u"japanese"_s);
  EXPECT_EQ(everything(), before);
  write("[General]\napp.language.option=english\n");
  EXPECT_EQ(defaults.string(optionKey), u"english"_s);
  fs::remove(file());
  EXPECT_EQ(defaults.string(optionKey), std::nullopt);
}

TEST_F(IniUserDefaultsTest, NoTextIsNoValue) {
  for (const std::string& value :
       {"a, b"s, "japanese,"s, "japanese ; mine"s, "japan\xFF\xFE"s, "\xE6\x97japanese"s, "\xC0\xAF"s,
        "japanese\0"s, "\"\xFF\""s, "\""s, "\"japanese"s, "japanese\""s, "\"a\" \"b\""s, "japanese\\"s,
        "japa\\nese"s, "\"japa\\qnese\""s}) {
    write("[General]\napp.language.option=" + value + '\n');
    expectNoValueAndNoTrace();
  }
}

TEST_F(IniUserDefaultsTest, AFileWithoutTheKeyIsNoValue) {
  std::string noise;
  for (int byte = 0; byte < 4096; ++byte) {
    noise += static_cast<char>(byte * 37 % 251);
  }
  for (const std::string& text :
       {""s, "\n"s, noise, "\0\0\0\0"s, "\xEF\xBB\xBF"s, "=\n"s, "[\n"s, "[General]\n=japanese\n"s,
        "[Other]\napp.language.option=japanese\n"s, "\xEF\xBB\xBF[Other]\napp.language.option=japanese\n"s,
        "[General\napp.language.option=japanese\n"s, "[General]\n;app.language.option=japanese\n"s,
        "[General]\n# app.language.option=japanese\n"s, "[General]\napp.language.options=japanese\n"s,
        "[General]\nApp.Language.Option=japanese\n"s, "[General]\napp.language.option\n"s,
        "[General]\napp.language.option japanese\n"s}) {
    write(text);
    expectNoValueAndNoTrace();
  }
}

TEST_F(IniUserDefaultsTest, UpToOneMebibyteIsRead) {
  std::string text = "[General]\napp.language.option=japanese\n[Z]\nz=";
  text.resize(1 << 20, 'z');
  write(text);
  EXPECT_EQ(option(), u"japanese"_s);
  write(text + 'z');
  expectNoValueAndNoTrace();
  expectNothingWritten();
  // Sparse: reading it would take minutes and all memory.
  constexpr std::uintmax_t huge = std::uintmax_t{1} << 40;
  fs::resize_file(file(), huge);
  EXPECT_EQ(option(), std::nullopt);
  set(u"english"_s);
  EXPECT_EQ(fs::file_size(file()), huge);
}

TEST_F(IniUserDefaultsTest, WhatIsNoFileIsNotOpenedAndStays) {
  fs::create_directory(file());
  for (const mode_t next : {S_IFIFO, S_IFSOCK, 0}) {
    expectNoValueAndNoTrace();
    expectNothingWritten();
    fs::remove(file());
    ASSERT_TRUE(next == 0 || mknod(file().c_str(), next | 0600, 0) == 0);
  }
}

TEST_F(IniUserDefaultsTest, ALinkIsFollowedAndStays) {
  const fs::path target = m_folder.makeFile("dotfiles/mireval");
  std::ofstream(target) << "[General]\nvolume=3\n";
  fs::create_symlink("dotfiles/mireval", file());
  set(u"japanese"_s);
  EXPECT_EQ(option(), u"japanese"_s);
  EXPECT_EQ(fs::read_symlink(file()), "dotfiles/mireval");
  EXPECT_EQ(contentOf(target), "[General]\napp.language.option=japanese\n[General]\nvolume=3\n");
}

TEST_F(IniUserDefaultsTest, ALinkToNothingIsNoValue) {
  for (const char* const target : {"mireval.conf", "nowhere"}) {
    fs::remove(file());
    fs::create_symlink(target, file());
    expectNoValueAndNoTrace();
  }
  set(u"japanese"_s);
  EXPECT_EQ(option(), u"japanese"_s);
  EXPECT_EQ(fs::read_symlink(file()), "nowhere");
}

TEST_F(IniUserDefaultsTest, AnUnreadableFileIsNoValueAndStays) {
  write("[General]\napp.language.option=english\n");
  fs::permissions(file(), fs::perms(0));
  const WithoutPrivileges ordinary;
  expectNoValueAndNoTrace();
  expectNothingWritten();
}

TEST_F(IniUserDefaultsTest, AReadOnlyFileStaysAndSoDoesOneInAReadOnlyFolder) {
  write("[General]\napp.language.option=english\n");
  for (const auto& [folder, permissions] : {std::pair(0777, 0444), {0555, 0666}}) {
    fs::permissions(m_folder.path(), fs::perms(folder));
    fs::permissions(file(), fs::perms(permissions));
    const auto before = everything();
    {
      const WithoutPrivileges ordinary;
      expectNothingWritten();
      EXPECT_EQ(option(), u"english"_s);
      if (folder == 0555) {
        IniUserDefaults(m_folder.path() / "new/mireval.conf").set(optionKey, u"japanese"_s);
      }
    }
    EXPECT_EQ(everything(), before);
  }
  fs::permissions(m_folder.path(), fs::perms(0755));
}

TEST_F(IniUserDefaultsTest, AFolderThatCannotBeMadeIsNotMade) {
  write("");
  IniUserDefaults(file() / "below/mireval.conf").set(optionKey, u"japanese"_s);
  EXPECT_EQ(content(), "");
  expectOnlyTheFile();
}

TEST_F(IniUserDefaultsTest, AFullDiskLeavesTheFileAsItWas) {
  std::string text = "[General]\napp.language.option=english\nnotes=";
  text.resize(10'000, 'n');
  text += '\n';
  write(text);
  // No room at all; then room for the lock only.
  for (const rlim_t limit : {0, 4096}) {
    {
      const FileSizeLimit full(limit);
      set(u"japanese"_s);
    }
    EXPECT_TRUE(content() == text) << limit;
    EXPECT_EQ(option(), u"english"_s);
    expectOnlyTheFile();
  }
}

TEST_F(IniUserDefaultsTest, MakesTheFoldersForTheOwnerOnly) {
  IniUserDefaults defaults(m_folder.path() / "config/mireval/mireval.conf");
  EXPECT_EQ(defaults.string(optionKey), std::nullopt);
  EXPECT_TRUE(fs::is_empty(m_folder.path()));
  defaults.set(optionKey, u"japanese"_s);
  EXPECT_EQ(defaults.string(optionKey), u"japanese"_s);
  EXPECT_EQ(fs::status(m_folder.path() / "config").permissions(), fs::perms(0700));
  EXPECT_EQ(fs::status(m_folder.path() / "config/mireval").permissions(), fs::perms(0700));
  EXPECT_EQ(fs::status(m_folder.path()).permissions(), fs::perms(0755));
}

TEST_F(IniUserDefaultsTest, EverythingElseInTheFileStays) {
  const std::string added = "[General]\napp.language.option=japanese\n";
  const std::string settings = "; mine\n[General]\nvolume=3\nlist=a, b\n\n[Window]\ntitle=\"a;b\"\n";
  const std::string elsewhere = "[Window]\napp.language.option=wide\n";
  for (const auto& [before, after] : std::map<std::string, std::string>{
           {settings, added + settings},
           {elsewhere, added + elsewhere},
           {"\xEF\xBB\xBFvolume=3", "\xEF\xBB\xBF" + added + "volume=3"},
           {"[General]\nvolume=3\n  app.language.option =  \"a, b\"  \nbad\xFF\n",
            "[General]\nvolume=3\n  app.language.option =  japanese  \nbad\xFF\n"},
           {"[General]\r\napp.language.option=english\r\nvolume=3\r\n",
            "[General]\r\napp.language.option=japanese\r\nvolume=3\r\n"},
           {"[General]\napp.language.option=", "[General]\napp.language.option=japanese"},
           {"[General]\napp.language.option=a\napp.language.option=b\n",
            "[General]\napp.language.option=a\napp.language.option=japanese\n"},
       }) {
    write(before);
    fs::permissions(file(), fs::perms(0600));
    set(u"japanese"_s);
    EXPECT_EQ(content(), after);
    EXPECT_EQ(option(), u"japanese"_s);
    EXPECT_EQ(fs::status(file()).permissions(), fs::perms(0600));
  }
}

TEST_F(IniUserDefaultsTest, AnotherWriterIsWaitedForAndKeepsWhatItWrote) {
  QLockFile lock(QString::fromStdString(file().string() + ".lock"));
  ASSERT_TRUE(lock.tryLock(0));
  std::thread waiting([this] { set(u"japanese"_s); });
  std::this_thread::sleep_for(std::chrono::milliseconds(50));
  write("[General]\nvolume=3\n");
  lock.unlock();
  waiting.join();
  EXPECT_EQ(option(), u"japanese"_s);
  EXPECT_EQ(defaults().string(u"volume"), u"3"_s);
  expectOnlyTheFile();
}

TEST_F(IniUserDefaultsTest, ALockThatStaysIsNotWaitedForWithoutEnd) {
  write("[General]\napp.language.option=english\n");
  const fs::path place = file().string() + ".lock";
  {
    QLockFile lock(QString::fromStdString(place.string()));
    ASSERT_TRUE(lock.tryLock(0));
    expectNothingWritten();
  }
  fs::create_directory(place);
  expectNothingWritten();
}

TEST(UserConfigurationTest, IsWhereTheVariableSaysOrBelowTheHomeFolder) {
  const QByteArray home = qgetenv("HOME");
  qputenv("HOME", "/home/somebody");
  const auto file = [] { return IniUserDefaults::forCurrentUser().file(); };
  qunsetenv("XDG_CONFIG_HOME");
  EXPECT_EQ(file(), "/home/somebody/.config/mireval/mireval.conf");
  for (const char* const folder : {"/elsewhere/config", "/elsewhere/config/"}) {
    qputenv("XDG_CONFIG_HOME", folder);
    EXPECT_EQ(file(), "/elsewhere/config/mireval/mireval.conf") << folder;
  }
  for (const char* const noFolder : {"", "config", "./config", "~/config"}) {
    qputenv("XDG_CONFIG_HOME", noFolder);
    EXPECT_EQ(file(), "/home/somebody/.config/mireval/mireval.conf") << noFolder;
  }
  qunsetenv("XDG_CONFIG_HOME");
  qputenv("HOME", home);
}

}  // namespace
}  // namespace mireval
