#include "platform/qt/FolderResourceBundle.h"
#include "support/TemporaryFolder.h"

#include <gtest/gtest.h>

#include <QCoreApplication>

#include <filesystem>
#include <optional>

namespace mireval {
namespace {

namespace fs = std::filesystem;
using namespace Qt::StringLiterals;

class FolderResourceBundleTest : public testing::Test {
 protected:
  std::optional<fs::path> find(const QString& name, const QString& extension, const QString& subdirectory) {
    return FolderResourceBundle(m_folder.path()).urlForResource(name, extension, subdirectory);
  }

  const TemporaryFolder m_folder;
};

TEST_F(FolderResourceBundleTest, FindsAFile) {
  const fs::path file = m_folder.makeFile("PreviewAudio/focus-1.m4a");
  EXPECT_EQ(find(u"focus-1"_s, u"m4a"_s, u"PreviewAudio"_s), file);
}

TEST_F(FolderResourceBundleTest, FindsNothingElse) {
  m_folder.makeFile("PreviewAudio/focus-1.m4a");
  m_folder.makeFile("focus-2.m4a");
  EXPECT_EQ(find(u"focus-2"_s, u"m4a"_s, u"PreviewAudio"_s), std::nullopt);
  EXPECT_EQ(find(u"focus-1"_s, u"mp3"_s, u"PreviewAudio"_s), std::nullopt);
  EXPECT_EQ(find(u"focus-1"_s, u"m4a"_s, u"CoverImages"_s), std::nullopt);
  EXPECT_EQ(find(u"Focus-1"_s, u"m4a"_s, u"PreviewAudio"_s), std::nullopt);
  EXPECT_EQ(find(u"focus-1"_s, u""_s, u"PreviewAudio"_s), std::nullopt);
  EXPECT_EQ(find(u""_s, u"m4a"_s, u"PreviewAudio"_s), std::nullopt);
}

TEST_F(FolderResourceBundleTest, EmptySubdirectoryIsTheFolderItself) {
  const fs::path file = m_folder.makeFile("MenuBarIcon.svg");
  EXPECT_EQ(find(u"MenuBarIcon"_s, u"svg"_s, u""_s), file);
}

TEST_F(FolderResourceBundleTest, AFileThatAppearsLaterIsFound) {
  const FolderResourceBundle bundle(m_folder.path());
  EXPECT_EQ(bundle.urlForResource(u"late"_s, u"m4a"_s, u"PreviewAudio"_s), std::nullopt);
  const fs::path file = m_folder.makeFile("PreviewAudio/late.m4a");
  EXPECT_EQ(bundle.urlForResource(u"late"_s, u"m4a"_s, u"PreviewAudio"_s), file);
}

TEST_F(FolderResourceBundleTest, FoldersAreNotResources) {
  fs::create_directories(m_folder.path() / "PreviewAudio/focus-1.m4a");
  EXPECT_EQ(find(u"focus-1"_s, u"m4a"_s, u"PreviewAudio"_s), std::nullopt);
}

TEST_F(FolderResourceBundleTest, NamesWithASeparatorOrANulAreNotFound) {
  m_folder.makeFile("PreviewAudio/deep/focus-1.m4a");
  m_folder.makeFile("outside.m4a");
  m_folder.makeFile("PreviewAudio/odd.x/m4a");
  EXPECT_EQ(find(u"deep/focus-1"_s, u"m4a"_s, u"PreviewAudio"_s), std::nullopt);
  EXPECT_EQ(find(u"../outside"_s, u"m4a"_s, u"PreviewAudio"_s), std::nullopt);
  EXPECT_EQ(find(u"odd"_s, u"x/m4a"_s, u"PreviewAudio"_s), std::nullopt);
  m_folder.makeFile("PreviewAudio/focus");
  EXPECT_EQ(find(QString::fromUtf16(u"focus\0", 6), u"m4a"_s, u"PreviewAudio"_s), std::nullopt);
}

TEST_F(FolderResourceBundleTest, NamesBeyondAsciiAreFound) {
  const fs::path file = m_folder.makeFile(fs::path(u8"PreviewAudio/\u96e8 \u00e9.m4a"));
  EXPECT_EQ(find(u"\u96e8 \u00e9"_s, u"m4a"_s, u"PreviewAudio"_s), file);
}

TEST_F(FolderResourceBundleTest, LinksToFilesAreFollowed) {
  const fs::path file = m_folder.makeFile("elsewhere/real.m4a");
  fs::create_directories(m_folder.path() / "PreviewAudio");
  const fs::path link = m_folder.path() / "PreviewAudio/focus-1.m4a";
  fs::create_symlink(file, link);
  EXPECT_EQ(find(u"focus-1"_s, u"m4a"_s, u"PreviewAudio"_s), link);

  fs::create_directory_symlink(m_folder.path() / "elsewhere", m_folder.path() / "Linked");
  EXPECT_EQ(find(u"real"_s, u"m4a"_s, u"Linked"_s), m_folder.path() / "Linked/real.m4a");
}

TEST_F(FolderResourceBundleTest, LinksToNothingAreNotFound) {
  fs::create_directories(m_folder.path() / "PreviewAudio");
  fs::create_symlink(m_folder.path() / "gone.m4a", m_folder.path() / "PreviewAudio/focus-1.m4a");
  fs::create_symlink("loop.m4a", m_folder.path() / "PreviewAudio/loop.m4a");
  EXPECT_EQ(find(u"focus-1"_s, u"m4a"_s, u"PreviewAudio"_s), std::nullopt);
  EXPECT_EQ(find(u"loop"_s, u"m4a"_s, u"PreviewAudio"_s), std::nullopt);
}

TEST_F(FolderResourceBundleTest, MissingFolderHasNoResources) {
  EXPECT_EQ(FolderResourceBundle(m_folder.path() / "gone").urlForResource(u"a"_s, u"b"_s, u""_s),
            std::nullopt);
}

/// Restores the environment variable.
class BundleOfApplicationTest : public FolderResourceBundleTest {
 protected:
  static constexpr const char* variable = "MIREVAL_RESOURCES";

  ~BundleOfApplicationTest() override {
    if (m_wasSet) {
      qputenv(variable, m_before);
    } else {
      qunsetenv(variable);
    }
  }

  const bool m_wasSet = qEnvironmentVariableIsSet(variable);
  const QByteArray m_before = qgetenv(variable);
};

TEST_F(BundleOfApplicationTest, TheEnvironmentNamesTheFolder) {
  const fs::path file = m_folder.makeFile("PreviewAudio/focus-1.m4a");
  qputenv(variable, QByteArray::fromStdString(m_folder.path().string()));
  const FolderResourceBundle bundle = FolderResourceBundle::forApplication();
  EXPECT_EQ(bundle.folder(), m_folder.path());
  EXPECT_EQ(bundle.urlForResource(u"focus-1"_s, u"m4a"_s, u"PreviewAudio"_s), file);
}

TEST_F(BundleOfApplicationTest, WithoutItTheFolderIsFoundFromTheExecutable) {
  int argumentCount = 1;
  char programName[] = "test";
  char* arguments[] = {programName, nullptr};
  const QCoreApplication application(argumentCount, arguments);
  const fs::path programFolder = fs::read_symlink("/proc/self/exe").parent_path();
  const fs::path besideProgram = programFolder / "resources";
  ASSERT_FALSE(fs::exists(besideProgram));
  for (const bool empty : {false, true}) {
    qunsetenv(variable);
    if (empty) {
      qputenv(variable, "");
    }
    EXPECT_EQ(FolderResourceBundle::forApplication().folder(),
              programFolder.parent_path() / "share" / "mireval");
  }
  fs::create_directory(besideProgram);
  EXPECT_EQ(FolderResourceBundle::forApplication().folder(), besideProgram);
  fs::remove(besideProgram);
}

}  // namespace
}  // namespace mireval
