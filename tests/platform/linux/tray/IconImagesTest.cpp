#include "platform/linux/tray/IconImages.h"
#include "support/TemporaryFolder.h"

#include <gtest/gtest.h>

#include <QByteArrayView>
#include <QImage>
#include <QString>

#include <filesystem>

namespace mireval {
namespace {

namespace fs = std::filesystem;

class IconImagesTest : public testing::Test {
 protected:
  void paint(const fs::path& file, QSize size, Qt::GlobalColor colour) {
    fs::create_directories((m_folder.path() / file).parent_path());
    QImage image(size, QImage::Format_ARGB32);
    image.fill(colour);
    ASSERT_TRUE(image.save(QString::fromStdString((m_folder.path() / file).string())));
  }

  const TemporaryFolder m_folder;
  const fs::path m_file = m_folder.path() / "share/mireval/MenuBarIcon.png";
  IconImages m_images{m_file};
};

TEST_F(IconImagesTest, FindsTheThemeBesideTheImageOrBesideItsFolder) {
  EXPECT_EQ(m_images.themeFolder(), fs::path());
  m_folder.makeFile("share/icons/hicolor/scalable/apps/mireval.svg");
  EXPECT_EQ(m_images.themeFolder(), m_folder.path() / "share/icons");
  m_folder.makeFile("share/mireval/icons/hicolor/scalable/apps/mireval.svg");
  EXPECT_EQ(m_images.themeFolder(), m_folder.path() / "share/mireval/icons");
}

TEST_F(IconImagesTest, AThemeWithoutTheIconIsNone) {
  m_folder.makeFile("share/icons/hicolor/scalable/apps/another.svg");
  m_folder.makeFile("share/icons/hicolor/48x48/apps/mireval.png");
  EXPECT_EQ(m_images.themeFolder(), fs::path());
}

TEST_F(IconImagesTest, ThePathOfTheThemeIsAbsolute) {
  m_folder.makeFile("icons/hicolor/scalable/apps/mireval.svg");
  const fs::path relative = fs::relative(m_folder.path() / "MenuBarIcon.png");
  ASSERT_TRUE(relative.is_relative());
  EXPECT_TRUE(IconImages(relative).themeFolder().is_absolute());
  EXPECT_TRUE(fs::equivalent(IconImages(relative).themeFolder(), m_folder.path() / "icons"));
}

TEST_F(IconImagesTest, ASizeThatTheThemeHasIsTaken) {
  paint("share/mireval/MenuBarIcon.png", {64, 64}, Qt::blue);
  m_folder.makeFile("share/icons/hicolor/scalable/apps/mireval.svg");
  paint("share/icons/hicolor/22x22/apps/mireval.png", {22, 22}, Qt::green);
  EXPECT_EQ(m_images.image(22).pixelColor(11, 11), QColor(Qt::green));
  EXPECT_EQ(m_images.image(22).size(), QSize(22, 22));
  EXPECT_EQ(m_images.image(24).pixelColor(12, 12), QColor(Qt::blue));
  EXPECT_EQ(m_images.image(24).size(), QSize(24, 24));
}

TEST_F(IconImagesTest, ADrawingOfAnotherSizeOrADamagedOneIsNot) {
  paint("share/mireval/MenuBarIcon.png", {64, 64}, Qt::blue);
  m_folder.makeFile("share/icons/hicolor/scalable/apps/mireval.svg");
  paint("share/icons/hicolor/22x22/apps/mireval.png", {48, 48}, Qt::green);
  m_folder.makeFile("share/icons/hicolor/24x24/apps/mireval.png");
  EXPECT_EQ(m_images.image(22).pixelColor(11, 11), QColor(Qt::blue));
  EXPECT_EQ(m_images.image(24).pixelColor(11, 11), QColor(Qt::blue));
}

TEST_F(IconImagesTest, WhatIsNotSquareKeepsItsShape) {
  paint("share/mireval/MenuBarIcon.png", {64, 32}, Qt::blue);
  EXPECT_EQ(m_images.image(16).size(), QSize(16, 8));
}

TEST_F(IconImagesTest, ThePixmapsAreMadeOnceThereIsAPicture) {
  EXPECT_TRUE(m_images.pixmaps().empty());
  paint("share/mireval/MenuBarIcon.png", {64, 64}, Qt::blue);
  ASSERT_EQ(m_images.pixmaps().size(), 6U);
  const uchar* const bytes = m_images.pixmaps().front().constBits();
  EXPECT_EQ(QByteArrayView(bytes, 4).toByteArray().toHex(), "ff0000ff");
  paint("share/mireval/MenuBarIcon.png", {64, 64}, Qt::green);
  EXPECT_EQ(m_images.pixmaps().front().constBits(), bytes);
}

TEST_F(IconImagesTest, WithoutAnythingThereIsNoPicture) {
  EXPECT_TRUE(m_images.image(22).isNull());
  m_folder.makeFile("share/mireval/MenuBarIcon.png");
  EXPECT_TRUE(m_images.image(22).isNull());
}

}  // namespace
}  // namespace mireval
