#pragma once

#include <gtest/gtest.h>

#include <QTemporaryDir>

#include <filesystem>
#include <fstream>

namespace mireval {

/// A folder that goes with the test.
class TemporaryFolder {
 public:
  TemporaryFolder() { EXPECT_TRUE(m_folder.isValid()); }

  std::filesystem::path path() const { return m_folder.path().toStdString(); }

  /// Makes a file, and the folders on the way to it; its path.
  std::filesystem::path makeFile(const std::filesystem::path& name) const {
    const std::filesystem::path file = path() / name;
    std::filesystem::create_directories(file.parent_path());
    std::ofstream(file) << "content";
    EXPECT_TRUE(std::filesystem::is_regular_file(file));
    return file;
  }

 private:
  QTemporaryDir m_folder;
};

}  // namespace mireval
