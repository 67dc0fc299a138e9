#pragma once

#include "Recording.h"

#include <QTemporaryDir>

#include <filesystem>
#include <string>
#include <vector>

namespace mireval::test {

/// Audio files for tests, made by ffmpeg in a folder of their own.
class AudioFiles {
 public:
  struct Format {
    int sampleRate = 44100;
    int channels = 2;
  };

  /// A sine at a quarter of full scale (-15.05 dB rms).
  std::filesystem::path tone(double frequency, double seconds, Format format) const;
  std::filesystem::path tone(double frequency, double seconds) const { return tone(frequency, seconds, {}); }
  /// White noise, the same at each call. Each moment of it differs from every other.
  std::filesystem::path noise(double seconds) const;
  /// A file with these bytes.
  std::filesystem::path bytes(const std::string& name, const std::string& content) const;
  /// The first `share` (0...1) of another file, whose index comes first if `indexFirst`.
  std::filesystem::path truncated(double share, bool indexFirst) const;

  /// Runs ffmpeg with these arguments and the output file last.
  std::filesystem::path make(const std::string& name, const std::vector<std::string>& arguments) const;

  /// What ffmpeg decodes from the file.
  Recording decoded(const std::filesystem::path& file) const;

  std::filesystem::path folder() const { return m_folder.path().toStdString(); }

  static std::string contentOf(const std::filesystem::path& file);

 private:
  QTemporaryDir m_folder;
};

}  // namespace mireval::test
