#include "platform/qt/FolderResourceBundle.h"

#include "support/TemporaryFolder.h"
#include "support/TestApplication.h"

#include <gtest/gtest.h>

#include <filesystem>
#include <optional>

namespace mireval {
namespace {

namespace fs = std::filesystem;
using namespace Qt::StringLiterals;

class FolderResourceBundleTest : public testing::Test {
 protected:
  std::optional<fs::path> find(const QString& name, const QString& extension,
                               const QString& subdirectory = u"PreviewAudio"_s) const {
    return m_bundle.urlForResource(name, extension, subdirectory);
  }

  const TemporaryFolder m_folder;
  const FolderResourceBundle m_bundle{m_folder.path()};
};

TEST_F(FolderResourceBundleTest, FindsAFileAndNothingElse) {
  const fs::path file = m_folder.makeFile("PreviewAudio/focus-1.m4a");
  const fs::path icon = m_folder.makeFile("MenuBarIcon.svg");
  EXPECT_EQ(find(u"focus-1"_s, u"m4a"_s), file);
  EXPECT_EQ(find(u"MenuBarIcon"_s, u"svg"_s, u""_s), icon);
  EXPECT_EQ(find(u"MenuBarIcon"_s, u"svg"_s), std::nullopt);
  EXPECT_EQ(find(u"focus-1"_s, u"mp3"_s), std::nullopt);
  EXPECT_EQ(find(u"focus-1"_s, u"m4a"_s, u"CoverImages"_s), std::nullopt);
  EXPECT_EQ(find(u"Focus-1"_s, u"m4a"_s), std::nullopt);
  EXPECT_EQ(find(u"focus-1"_s, u""_s), std::nullopt);
  EXPECT_EQ(find(u""_s, u"m4a"_s), std::nullopt);
  EXPECT_EQ(FolderResourceBundle("/nowhere").urlForResource(u"a"_s, u"b"_s, u""_s), std::nullopt);
}

TEST_F(FolderResourceBundleTest, AFileThatAppearsLaterIsFound) {
  EXPECT_EQ(find(u"late"_s, u"m4a"_s), std::nullopt);
  const fs::path file = m_folder.makeFile("PreviewAudio/late.m4a");
  EXPECT_EQ(find(u"late"_s, u"m4a"_s), file);
}

TEST_F(FolderResourceBundleTest, NamesWithASeparatorOrANulAreNotFound) {
  m_folder.makeFile("PreviewAudio/deep/focus-1.m4a");
  m_folder.makeFile("outside.m4a");
  m_folder.makeFile("PreviewAudio/odd.x/m4a");
  m_folder.makeFile("PreviewAudio/focus");
  EXPECT_EQ(find(u"deep/focus-1"_s, u"m4a"_s), std::nullopt);
  EXPECT_EQ(find(u"../outside"_s, u"m4a"_s), std::nullopt);
  EXPECT_EQ(find(u"odd"_s, u"x/m4a"_s), std::nullopt);
  EXPECT_EQ(find(QString::fromUtf16(u"focus\0", 6), u"m4a"_s), std::nullopt);
}

TEST_F(FolderResourceBundleTest, NamesBeyondAsciiAreFound) {
  const fs::path file = m_folder.makeFile(fs::path(u8"PreviewAudio/\u96e8 \u00e9.m4a"));
  EXPECT_EQ(find(u"\u96e8 \u00e9"_s, u"m4a"_s), file);
}

TEST_F(FolderResourceBundleTest, OnlyFilesAreFoundAlsoBehindLinks) {
  const fs::path file = m_folder.makeFile("elsewhere/real.m4a");
  const fs::path folder = m_folder.path() / "PreviewAudio";
  fs::create_directories(folder / "folder.m4a");
  fs::create_symlink(file, folder / "link.m4a");
  fs::create_symlink(m_folder.path() / "gone.m4a", folder / "dangling.m4a");
  fs::create_symlink("loop.m4a", folder / "loop.m4a");
  fs::create_directory_symlink(m_folder.path() / "elsewhere", m_folder.path() / "Linked");
  EXPECT_EQ(find(u"link"_s, u"m4a"_s), folder / "link.m4a");
  EXPECT_EQ(find(u"real"_s, u"m4a"_s, u"Linked"_s), m_folder.path() / "Linked/real.m4a");
  EXPECT_EQ(find(u"folder"_s, u"m4a"_s), std::nullopt);
  EXPECT_EQ(find(u"dangling"_s, u"m4a"_s), std::nullopt);
  EXPECT_EQ(find(u"loop"_s, u"m4a"_s), std::nullopt);
}

TEST_F(FolderResourceBundleTest, TheApplicationsIsNamedByTheEnvironmentOrFoundFromTheExecutable) {
  constexpr const char* variable = "MIREVAL_RESOURCES";
  qputenv(variable, QByteArray::fromStdString(m_folder.path().string()));
  EXPECT_EQ(FolderResourceBundle::forApplication().folder(), m_folder.path());

  TestApplication application;
  const fs::path programFolder = fs::read_symlink("/proc/self/exe").parent_path();
  const fs::path besideProgram = programFolder / "resources";
  ASSERT_FALSE(fs::exists(besideProgram));
  qputenv(variable, "");
  EXPECT_EQ(FolderResourceBundle::forApplication().folder(), programFolder.parent_path() / "share/mireval");
  qunsetenv(variable);
  EXPECT_EQ(FolderResourceBundle::forApplication().folder(), programFolder.parent_path() / "share/mireval");
  fs::create_directory(besideProgram);
  EXPECT_EQ(FolderResourceBundle::forApplication().folder(), besideProgram);
  fs::remove(besideProgram);
}

}  // namespace
}  // namespace mireval
