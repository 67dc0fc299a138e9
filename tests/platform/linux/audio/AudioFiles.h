#pragma once

#include "Recording.h"

#include <filesystem>
#include <string>
#include <vector>

namespace mireval::test {

/// Audio files for tests, made by ffmpeg in a folder of their own.
class AudioFiles {
 public:
  AudioFiles();
  AudioFiles(const AudioFiles&) = delete;
  AudioFiles& operator=(const AudioFiles&) = delete;
  ~AudioFiles();

  struct Format {
    int sampleRate = 44100;
    int channels = 2;
  };

  /// A sine at a quarter of full scale (-15.05 dB rms).
  std::filesystem::path tone(double frequency, double seconds, Format format) const;
  std::filesystem::path tone(double frequency, double seconds) const { return tone(frequency, seconds, {}); }
  /// White noise, the same at each call: every moment of it can be told from every other.
  std::filesystem::path noise(double seconds) const;
  /// A file with these bytes.
  std::filesystem::path bytes(const std::string& name, const std::string& content) const;
  /// The first `share` (0...1) of another file; its index stands first when `indexFirst`.
  std::filesystem::path truncated(double share, bool indexFirst) const;

  /// Runs ffmpeg with these arguments and the output file last.
  std::filesystem::path make(const std::string& name, const std::vector<std::string>& arguments) const;

  /// What ffmpeg decodes from the file.
  Recording decoded(const std::filesystem::path& file) const;

  const std::filesystem::path& folder() const { return m_folder; }

  static std::string contentOf(const std::filesystem::path& file);

 private:
  std::filesystem::path m_folder;
};

}  // namespace mireval::test
