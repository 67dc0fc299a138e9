#pragma once

#include <cstddef>
#include <cstdint>
#include <filesystem>
#include <istream>
#include <span>

namespace mireval {

/// Estimates what it costs to open an MPEG-4 file. FFmpeg builds an index of all samples when it opens one,
/// and a few bytes can claim millions of samples. Reads the boxes that describe the media, not the media.
class Mp4SampleTables {
 public:
  /// FFmpeg opens no more tracks and covers than this, if the caller tells it so. The estimate relies on it.
  static constexpr unsigned int mostStreams = 16;

  /// Whether FFmpeg can open the file and play it to the end with less than 64 MB and without keeping the
  /// caller for longer than a second. False also for what is no MPEG-4 file or cannot be read.
  static bool areAffordable(const std::filesystem::path& file);

 private:
  using Bytes = std::span<const std::uint8_t>;

  /// The kind of a box, four characters, and where its content lies.
  struct Box {
    std::uint32_t type;
    std::uint64_t begin;
    std::uint64_t size;
  };

  /// The claims of one track.
  struct Track {
    double samples = 0;
    double edits = 0;
    double chunks = 0;
    std::uint32_t mostSamplesInAChunk = 0;
    bool isSound = false;
    bool isOther = false;
    int timeTables = 0;
    /// Those that say that each sample lasts one tick of the clock.
    int oneTickTables = 0;
  };

  Mp4SampleTables() = default;

  static bool parse(Bytes header, std::uint64_t room, Box& box);
  bool read(std::istream& file, std::uint64_t size);
  void addBoxes(Bytes bytes, int depth);
  void addBox(std::uint32_t type, Bytes content, int depth);
  void addTable(std::uint32_t type, Bytes content);
  void addTrack(Bytes content, int depth);
  void addMetadata(Bytes content, int depth);
  void addSampleDescription(Bytes content);
  void addEdits(Bytes content);
  void addChunkSizes(Bytes content);

  /// A number of bytes that FFmpeg is likely to need. Not an integer, since false claims add up to any size.
  double m_cost = 0;
  bool m_hasMovie = false;
  Track m_track;
};

}  // namespace mireval
