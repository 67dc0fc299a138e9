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

namespace mireval {
namespace {

namespace fs = std::filesystem;
using namespace Qt::StringLiterals;

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

  void write(const std::string& content) const { std::ofstream(file(), std::ios::binary) << content; }

  static std::string contentOf(const fs::path& path) {
    std::ifstream stream(path, std::ios::binary);
    return {std::istreambuf_iterator<char>(stream), {}};
  }
  std::string content() const { return contentOf(file()); }

  /// All entries of the folder with content and time of the last change, to show that nobody wrote.
  std::map<fs::path, std::string> everything() const {
    std::map<fs::path, std::string> entries;
    const auto add = [&entries](const fs::path& path) {
      struct stat status {};
      EXPECT_EQ(lstat(path.c_str(), &status), 0);
      entries[path] = std::to_string(status.st_ino) + ' ' + std::to_string(status.st_mode) + ' ' +
                      std::to_string(status.st_ctim.tv_sec) + '.' + std::to_string(status.st_ctim.tv_nsec) +
                      (S_ISREG(status.st_mode) ? contentOf(path) : "");
    };
    add(m_folder.path());
    for (const fs::directory_entry& entry : fs::recursive_directory_iterator(m_folder.path())) {
      add(entry.path());
    }
    return entries;
  }

  void expectNoValueAndNoTrace() const {
    const auto before = everything();
    EXPECT_EQ(option(), std::nullopt);
    EXPECT_EQ(everything(), before);
  }

  /// Apart from a lock, which may have existed meanwhile.
  void expectNothingWritten() const {
    auto before = everything();
    defaults().set(optionKey, u"japanese"_s);
    auto after = everything();
    before.erase(m_folder.path());
    after.erase(m_folder.path());
    EXPECT_EQ(after, before);
  }

  /// The folder holds only the one file: no lock and no half-written copy.
  void expectOnlyTheFile() const {
    EXPECT_EQ(std::distance(fs::directory_iterator(m_folder.path()), {}), 1);
    EXPECT_TRUE(fs::is_regular_file(file()));
  }

  const TemporaryFolder m_folder;
};

TEST_F(IniUserDefaultsTest, WhatIsSetIsRead) {
  defaults().set(optionKey, u"chineseTraditional"_s);
  EXPECT_EQ(option(), u"chineseTraditional"_s);
  EXPECT_EQ(content(), "[General]\napp.language.option=chineseTraditional\n");
  defaults().set(optionKey, u"english"_s);
  EXPECT_EQ(option(), u"english"_s);
  EXPECT_EQ(content(), "[General]\napp.language.option=english\n");
  expectOnlyTheFile();
}

TEST_F(IniUserDefaultsTest, WhatCouldNotBeReadBackIsNotStored) {
  for (const QString& text : {u""_s, u"two  words"_s, u"日本語 🎵"_s, u"[General]"_s, u"a=b"_s}) {
    defaults().set(optionKey, text);
    EXPECT_EQ(option(), text);
  }
  for (const QString& text :
       {u" spaces "_s, u"a, b"_s, u"\"quoted\""_s, u"back\\slash"_s, u"semi;colon"_s, u"line\nbreak"_s}) {
    defaults().set(optionKey, text);
    EXPECT_EQ(option(), u"a=b"_s);
  }
}

TEST_F(IniUserDefaultsTest, ReadsWhatAPersonWrites) {
  for (const char* const text : {
           "[General]\napp.language.option=japanese\n",
           "[General]\napp.language.option=japanese",
           "[General]\r\napp.language.option=japanese\r\n",
           "\xEF\xBB\xBF[General]\napp.language.option=japanese\n",
           "[General]\n  app.language.option =  japanese  \n",
           "[General]\napp.language.option=\"japanese\"\n",
           "[general]\napp.language.option=japanese\n",
           "app.language.option=japanese\n",
           "\xEF\xBB\xBF\napp.language.option=japanese\n[Other]\n",
           "; mine\n[General]\n# app.language.option=english\napp.language.option=japanese\n",
           "[Other]\napp.language.option=english\n\n[General]\napp.language.option=japanese\n",
           "[General]\napp.language.option=english\napp.language.option=japanese\n",
       }) {
    write(text);
    EXPECT_EQ(option(), u"japanese"_s) << text;
  }
}

TEST_F(IniUserDefaultsTest, ReadsWhatWasWrittenSince) {
  const IniUserDefaults defaults(file());
  EXPECT_EQ(defaults.string(optionKey), std::nullopt);
  write("[General]\napp.language.option=japanese\n");
  const auto before = everything();
  EXPECT_EQ(defaults.string(optionKey), u"japanese"_s);
  EXPECT_EQ(everything(), before);
  write("[General]\napp.language.option=english\n");
  EXPECT_EQ(defaults.string(optionKey), u"english"_s);
  fs::remove(file());
  EXPECT_EQ(defaults.string(optionKey), std::nullopt);
}

TEST_F(IniUserDefaultsTest, NoFileIsNoValue) {
  expectNoValueAndNoTrace();
  EXPECT_EQ(IniUserDefaults(m_folder.path() / "missing/mireval.conf").string(optionKey), std::nullopt);
  EXPECT_TRUE(fs::is_empty(m_folder.path()));
}

TEST_F(IniUserDefaultsTest, NoTextIsNoValue) {
  using namespace std::string_literals;
  for (const std::string& value : {
           "a, b"s,
           "japanese,"s,
           "japanese ; mine"s,
           "japan\xFF\xFE"s,
           "\xE6\x97japanese"s,
           "\xC0\xAF"s,
           "japanese\0"s,
           "\"\xFF\""s,
           "\""s,
           "\"japanese"s,
           "japanese\""s,
           "\"a\" \"b\""s,
           "japanese\\"s,
           "japa\\nese"s,
           "\"japa\\qnese\""s,
       }) {
    write("[General]\napp.language.option=" + value + '\n');
    expectNoValueAndNoTrace();
  }
}

TEST_F(IniUserDefaultsTest, AFileWithoutTheKeyIsNoValue) {
  using namespace std::string_literals;
  std::string noise;
  for (int byte = 0; byte < 4096; ++byte) {
    noise += static_cast<char>(byte * 37 % 251);
  }
  for (const std::string& text : {
           ""s,
           "\n"s,
           noise,
           "\0\0\0\0"s,
           "\xEF\xBB\xBF"s,
           "=\n"s,
           "[\n"s,
           "[Other]\napp.language.option=japanese\n"s,
           "\xEF\xBB\xBF[Other]\napp.language.option=japanese\n"s,
           "[General\napp.language.option=japanese\n"s,
           "[General]\n;app.language.option=japanese\n"s,
           "[General]\n# app.language.option=japanese\n"s,
           "[General]\napp.language.options=japanese\n"s,
           "[General]\nApp.Language.Option=japanese\n"s,
           "[General]\napp.language.option\n"s,
           "[General]\napp.language.option japanese\n"s,
           "[General]\n=japanese\n"s,
       }) {
    write(text);
    expectNoValueAndNoTrace();
  }
}

TEST_F(IniUserDefaultsTest, GarbageElsewhereDoesNotMatter) {
  using namespace std::string_literals;
  write(
      "\x7F"
      "ELF\0\xFF\"\n[]\n[General]\nbad\n\"=\xFF\napp.language.option=japanese\n\0"s);
  EXPECT_EQ(option(), u"japanese"_s);
}

TEST_F(IniUserDefaultsTest, UpToOneMebibyteIsRead) {
  std::string text = "[General]\napp.language.option=japanese\n[Z]\nz=";
  text.resize(1 << 20, 'z');
  write(text);
  EXPECT_EQ(option(), u"japanese"_s);
  write(text + 'z');
  expectNoValueAndNoTrace();
  expectNothingWritten();
}

// Sparse: reading it would take minutes and all memory.
TEST_F(IniUserDefaultsTest, AHugeFileIsNotRead) {
  write("[General]\napp.language.option=japanese\n");
  fs::resize_file(file(), std::uintmax_t{1} << 40);
  EXPECT_EQ(option(), std::nullopt);
  defaults().set(optionKey, u"english"_s);
  EXPECT_EQ(fs::file_size(file()), std::uintmax_t{1} << 40);
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
  defaults().set(optionKey, u"japanese"_s);
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
  defaults().set(optionKey, u"japanese"_s);
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

TEST_F(IniUserDefaultsTest, AReadOnlyFileStays) {
  fs::permissions(m_folder.path(), fs::perms(0777));
  write("[General]\napp.language.option=english\n");
  fs::permissions(file(), fs::perms(0444));
  const auto before = everything();
  {
    const WithoutPrivileges ordinary;
    defaults().set(optionKey, u"japanese"_s);
    EXPECT_EQ(option(), u"english"_s);
  }
  fs::permissions(file(), fs::perms(0444));
  EXPECT_EQ(option(), u"english"_s);
  EXPECT_EQ(content(), "[General]\napp.language.option=english\n");
  EXPECT_EQ(everything().size(), before.size());
}

TEST_F(IniUserDefaultsTest, AReadOnlyFolderStays) {
  write("[General]\napp.language.option=english\n");
  fs::permissions(file(), fs::perms(0666));
  fs::permissions(m_folder.path(), fs::perms(0555));
  const auto before = everything();
  {
    const WithoutPrivileges ordinary;
    defaults().set(optionKey, u"japanese"_s);
    EXPECT_EQ(option(), u"english"_s);
    IniUserDefaults(m_folder.path() / "new/mireval.conf").set(optionKey, u"japanese"_s);
  }
  EXPECT_EQ(everything(), before);
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
      defaults().set(optionKey, u"japanese"_s);
    }
    EXPECT_TRUE(content() == text) << limit;
    EXPECT_EQ(option(), u"english"_s);
    expectOnlyTheFile();
  }
}

TEST_F(IniUserDefaultsTest, MakesTheFoldersForTheOwnerOnly) {
  const IniUserDefaults defaults(m_folder.path() / "config/mireval/mireval.conf");
  defaults.string(optionKey);
  EXPECT_TRUE(fs::is_empty(m_folder.path()));
  IniUserDefaults(defaults.file()).set(optionKey, u"japanese"_s);
  EXPECT_EQ(defaults.string(optionKey), u"japanese"_s);
  EXPECT_EQ(fs::status(m_folder.path() / "config").permissions(), fs::perms(0700));
  EXPECT_EQ(fs::status(m_folder.path() / "config/mireval").permissions(), fs::perms(0700));
  EXPECT_EQ(fs::status(m_folder.path()).permissions(), fs::perms(0755));
}

TEST_F(IniUserDefaultsTest, EverythingElseInTheFileStays) {
  struct Row {
    const char* before;
    const char* after;
  };
  for (const auto& [before, after] : {
           Row{"; mine\n[General]\nvolume=3\nlist=a, b\n\n[Window]\ntitle=\"a;b\"\n",
               "[General]\napp.language.option=japanese\n; mine\n[General]\nvolume=3\nlist=a, "
               "b\n\n[Window]\ntitle=\"a;b\"\n"},
           Row{"[General]\nvolume=3\n  app.language.option =  \"a, b\"  \nbad\xFF\n",
               "[General]\nvolume=3\n  app.language.option =  japanese  \nbad\xFF\n"},
           Row{"[General]\r\napp.language.option=english\r\nvolume=3\r\n",
               "[General]\r\napp.language.option=japanese\r\nvolume=3\r\n"},
           Row{"[Window]\napp.language.option=wide\n",
               "[General]\napp.language.option=japanese\n[Window]\napp.language.option=wide\n"},
           Row{"\xEF\xBB\xBFvolume=3", "\xEF\xBB\xBF[General]\napp.language.option=japanese\nvolume=3"},
           Row{"[General]\napp.language.option=", "[General]\napp.language.option=japanese"},
           Row{"[General]\napp.language.option=a\napp.language.option=b\n",
               "[General]\napp.language.option=a\napp.language.option=japanese\n"},
       }) {
    write(before);
    defaults().set(optionKey, u"japanese"_s);
    EXPECT_EQ(content(), after);
    EXPECT_EQ(option(), u"japanese"_s);
  }
}

TEST_F(IniUserDefaultsTest, TheFileKeepsItsPermissions) {
  write("");
  fs::permissions(file(), fs::perms(0600));
  defaults().set(optionKey, u"japanese"_s);
  EXPECT_EQ(fs::status(file()).permissions(), fs::perms(0600));
}

TEST_F(IniUserDefaultsTest, AnotherWriterIsWaitedForAndKeepsWhatItWrote) {
  QLockFile lock(QString::fromStdString(file().string() + ".lock"));
  ASSERT_TRUE(lock.tryLock(0));
  std::thread waiting([this] { defaults().set(optionKey, u"japanese"_s); });
  std::this_thread::sleep_for(std::chrono::milliseconds(50));
  write("[General]\nvolume=3\n");
  lock.unlock();
  waiting.join();
  EXPECT_EQ(option(), u"japanese"_s);
  EXPECT_EQ(defaults().string(u"volume"), u"3"_s);
  expectOnlyTheFile();
}

TEST_F(IniUserDefaultsTest, AWriterThatNeverEndsIsNotWaitedForWithoutEnd) {
  write("[General]\napp.language.option=english\n");
  QLockFile lock(QString::fromStdString(file().string() + ".lock"));
  ASSERT_TRUE(lock.tryLock(0));
  defaults().set(optionKey, u"japanese"_s);
  EXPECT_EQ(option(), u"english"_s);
}

TEST_F(IniUserDefaultsTest, AFolderInThePlaceOfTheLockIsNotWaitedFor) {
  write("[General]\napp.language.option=english\n");
  fs::create_directory(file().string() + ".lock");
  expectNothingWritten();
}

class UserConfigurationTest : public testing::Test {
 protected:
  UserConfigurationTest() { qputenv("HOME", "/home/somebody"); }
  ~UserConfigurationTest() override {
    restore("HOME", m_home);
    restore("XDG_CONFIG_HOME", m_configHome);
  }

  static void restore(const char* name, const std::optional<QByteArray>& value) {
    value ? qputenv(name, *value) : qunsetenv(name);
  }
  static std::optional<QByteArray> variable(const char* name) {
    return qEnvironmentVariableIsSet(name) ? std::optional(qgetenv(name)) : std::nullopt;
  }

  const std::optional<QByteArray> m_home = variable("HOME");
  const std::optional<QByteArray> m_configHome = variable("XDG_CONFIG_HOME");
};

TEST_F(UserConfigurationTest, IsWhereTheVariableSays) {
  qputenv("XDG_CONFIG_HOME", "/elsewhere/config");
  EXPECT_EQ(IniUserDefaults::forCurrentUser().file(), "/elsewhere/config/mireval/mireval.conf");
  qputenv("XDG_CONFIG_HOME", "/elsewhere/config/");
  EXPECT_EQ(IniUserDefaults::forCurrentUser().file(), "/elsewhere/config/mireval/mireval.conf");
}

TEST_F(UserConfigurationTest, IsBelowTheHomeFolderElse) {
  qunsetenv("XDG_CONFIG_HOME");
  EXPECT_EQ(IniUserDefaults::forCurrentUser().file(), "/home/somebody/.config/mireval/mireval.conf");
  qputenv("XDG_CONFIG_HOME", "");
  EXPECT_EQ(IniUserDefaults::forCurrentUser().file(), "/home/somebody/.config/mireval/mireval.conf");
  for (const char* const relative : {"config", "./config", "~/config"}) {
    qputenv("XDG_CONFIG_HOME", relative);
    EXPECT_EQ(IniUserDefaults::forCurrentUser().file(), "/home/somebody/.config/mireval/mireval.conf")
        << relative;
  }
}

}  // namespace
}  // namespace mireval
