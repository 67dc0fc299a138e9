#include "platform/linux/audio/Mp4SampleTables.h"

#include <algorithm>
#include <array>
#include <fstream>
#include <limits>
#include <system_error>
#include <vector>

namespace mireval {
namespace {

/// What remains of 64 MB without the decoder and the libraries.
constexpr double mostBytes = 56.0 * 1024 * 1024;
/// An entry of the index and the sample's times.
constexpr double bytesPerSample = 36;
/// An index that grows with each fragment is copied now and then.
constexpr double growth = 1.5;
/// Tables of offsets become twice as long in memory.
constexpr double bytesPerByte = 2;
/// Bounds the time that small boxes take.
constexpr double bytesPerBox = 100;
constexpr double bytesPerFragment = 48.0 * Mp4SampleTables::mostStreams;
constexpr double refused = std::numeric_limits<double>::infinity();
constexpr int mostBoxesInTheFile = 100'000;
constexpr double mostEdits = 1000;
constexpr int deepestBox = 10;
/// The smallest number of uncompressed samples that FFmpeg puts into one entry of the index.
constexpr std::uint32_t fewestSamplesInAPacket = 160;

constexpr std::uint32_t fourCharacters(const char (&name)[5]) {
  std::uint32_t type = 0;
  for (int i = 0; i < 4; ++i) {
    type = type << 8 | static_cast<std::uint8_t>(name[i]);
  }
  return type;
}

/// The boxes that contain boxes. FFmpeg reads a table in whichever of them it lies, so all are searched.
constexpr std::array containers{
    fourCharacters("dinf"), fourCharacters("edts"), fourCharacters("gmhd"), fourCharacters("hoov"),
    fourCharacters("ilst"), fourCharacters("ipco"), fourCharacters("iprp"), fourCharacters("mdia"),
    fourCharacters("minf"), fourCharacters("moof"), fourCharacters("moov"), fourCharacters("mvex"),
    fourCharacters("schi"), fourCharacters("sinf"), fourCharacters("stbl"), fourCharacters("tapt"),
    fourCharacters("traf"), fourCharacters("tref"), fourCharacters("udta"), fourCharacters("wave")};

/// Must not be in a sample description, where the boxes follow fields that depend on the codec.
constexpr std::array tables{fourCharacters("cmov"), fourCharacters("co64"), fourCharacters("elst"),
                            fourCharacters("sidx"), fourCharacters("stco"), fourCharacters("stsc"),
                            fourCharacters("stsz"), fourCharacters("stts"), fourCharacters("stz2"),
                            fourCharacters("trun")};

/// Media and free space, which FFmpeg does not read when it opens a file.
constexpr std::array unread{fourCharacters("free"), fourCharacters("mdat"), fourCharacters("skip"),
                            fourCharacters("wide")};

/// The big-endian number at `offset`; 0 beyond the end.
std::uint32_t numberAt(std::span<const std::uint8_t> bytes, std::size_t offset) {
  if (bytes.size() < 4 || offset > bytes.size() - 4) {
    return 0;
  }
  std::uint32_t number = 0;
  for (const std::uint8_t byte : bytes.subspan(offset, 4)) {
    number = number << 8 | byte;
  }
  return number;
}

}  // namespace

bool Mp4SampleTables::areAffordable(const std::filesystem::path& file) {
  std::error_code error;
  const std::uint64_t size = std::filesystem::file_size(file, error);
  std::ifstream stream(file, std::ios::binary);
  Mp4SampleTables claims;
  return !error && stream && claims.read(stream, size) && claims.m_hasMovie;
}

/// Reads the header of a box that has `room` bytes at most; false when nothing sensible follows.
bool Mp4SampleTables::parse(Bytes header, std::uint64_t room, Box& box) {
  if (room < 8 || header.size() < 8) {
    return false;
  }
  box = {.type = numberAt(header, 4), .begin = 8, .size = numberAt(header, 0)};
  if (box.size == 1 && room >= 16) {
    box.begin = 16;
    box.size = std::uint64_t{numberAt(header, 8)} << 32 | numberAt(header, 12);
  } else if (box.size == 0) {
    box.size = room;
  }
  if (box.size < box.begin) {
    return false;
  }
  box.size = std::min(box.size, room) - box.begin;
  return true;
}

/// Adds the boxes of the file; false when they cost too much.
bool Mp4SampleTables::read(std::istream& file, std::uint64_t size) {
  std::array<std::uint8_t, 16> header{};
  std::vector<std::uint8_t> content;
  std::uint64_t position = 0;
  Box box{};
  for (int boxes = 0;; ++boxes) {
    header.fill(0);
    file.clear();
    file.seekg(static_cast<std::streamoff>(position));
    file.read(reinterpret_cast<char*>(header.data()), header.size());
    if (!parse(header, size - position, box)) {
      return true;
    }
    if (boxes == mostBoxesInTheFile) {
      return false;
    }
    position += box.begin + box.size;
    if (std::ranges::find(unread, box.type) != unread.end()) {
      continue;
    }
    if (m_cost + bytesPerByte * static_cast<double>(box.size) > mostBytes) {
      return false;
    }
    content.resize(box.size);
    file.clear();
    file.seekg(static_cast<std::streamoff>(position - box.size));
    if (!file.read(reinterpret_cast<char*>(content.data()), static_cast<std::streamsize>(content.size()))) {
      return false;
    }
    addBox(box.type, content, 0);
    if (m_cost > mostBytes) {
      return false;
    }
    m_hasMovie = m_hasMovie || box.type == fourCharacters("moov");
    m_cost += bytesPerByte * static_cast<double>(box.size);
  }
}

void Mp4SampleTables::addBoxes(Bytes bytes, int depth) {
  if (depth > deepestBox) {
    m_cost = refused;
  }
  Box box{};
  while (m_cost <= mostBytes && parse(bytes, bytes.size(), box)) {
    addBox(box.type, bytes.subspan(box.begin, box.size), depth);
    bytes = bytes.subspan(box.begin + box.size);
  }
}

void Mp4SampleTables::addBox(std::uint32_t type, Bytes content, int depth) {
  m_cost += bytesPerBox;
  if (type == fourCharacters("moof")) {
    m_cost += bytesPerFragment;
  }
  if (type == fourCharacters("trak")) {
    addTrack(content, depth);
  } else if (type == fourCharacters("meta")) {
    addMetadata(content, depth);
  } else if (type == fourCharacters("stsd")) {
    addSampleDescription(content);
  } else if (std::ranges::find(containers, type) != containers.end()) {
    addBoxes(content, depth + 1);
  } else {
    addTable(type, content);
  }
}

void Mp4SampleTables::addTable(std::uint32_t type, Bytes content) {
  switch (type) {
    case fourCharacters("cmov"):
      // A compressed description, whose claims cannot be seen.
      m_cost = refused;
      break;
    case fourCharacters("stsz"):
    case fourCharacters("stz2"):
      m_track.samples += numberAt(content, 8);
      break;
    case fourCharacters("trun"):
      m_cost += growth * bytesPerSample * numberAt(content, 4);
      break;
    case fourCharacters("sidx"):
      // Each entry names a fragment.
      m_cost += bytesPerFragment * static_cast<double>(content.size()) / 12;
      break;
    case fourCharacters("stts"):
      ++m_track.timeTables;
      m_track.oneTickTables += numberAt(content, 4) == 1 && numberAt(content, 12) == 1 ? 1 : 0;
      break;
    case fourCharacters("stco"):
    case fourCharacters("co64"):
      m_track.chunks += numberAt(content, 4);
      break;
    case fourCharacters("stsc"):
      addChunkSizes(content);
      break;
    case fourCharacters("elst"):
      addEdits(content);
      break;
    case fourCharacters("hdlr"): {
      constexpr std::array others{fourCharacters("vide"), fourCharacters("subp"), fourCharacters("clcp")};
      m_track.isSound = m_track.isSound || numberAt(content, 8) == fourCharacters("soun");
      m_track.isOther = m_track.isOther || std::ranges::find(others, numberAt(content, 8)) != others.end();
      break;
    }
    default:
      break;
  }
}

void Mp4SampleTables::addEdits(Bytes content) {
  // FFmpeg heeds the size of the table if its stated length is wrong.
  const std::size_t entrySize = numberAt(content, 0) >> 24 == 1 ? 20 : 12;
  const std::size_t fitting = content.size() / entrySize;
  m_track.edits += static_cast<double>(std::max<std::size_t>(numberAt(content, 4), fitting));
}

void Mp4SampleTables::addTrack(Bytes content, int depth) {
  m_track = {};
  addBoxes(content, depth + 1);
  double entries = m_track.samples;
  if (m_track.isSound && !m_track.isOther && m_track.timeTables > 0 &&
      m_track.timeTables == m_track.oneTickTables) {
    // Uncompressed sound: FFmpeg puts many samples into one entry.
    const std::uint32_t entriesInAChunk = m_track.mostSamplesInAChunk / fewestSamplesInAPacket + 1;
    entries = m_track.chunks * entriesInAChunk;
  }
  if (m_track.edits > mostEdits) {
    m_cost = refused;
  }
  // Each edit may play the whole track again, and the index is copied to apply them.
  m_cost += bytesPerSample * entries * (1 + m_track.edits);
}

/// The boxes begin after fields that not all writers write. FFmpeg looks for the first box.
void Mp4SampleTables::addMetadata(Bytes content, int depth) {
  for (std::size_t offset = 4; offset + 4 <= content.size(); offset += 4) {
    if (numberAt(content, offset) == fourCharacters("hdlr")) {
      addBoxes(content.subspan(offset - 4), depth + 1);
      return;
    }
  }
}

void Mp4SampleTables::addSampleDescription(Bytes content) {
  for (std::size_t offset = 0; offset + 4 <= content.size(); ++offset) {
    if (std::ranges::find(tables, numberAt(content, offset)) != tables.end()) {
      m_cost = refused;
    }
  }
}

void Mp4SampleTables::addChunkSizes(Bytes content) {
  for (std::size_t offset = 8; offset + 12 <= content.size(); offset += 12) {
    m_track.mostSamplesInAChunk = std::max(m_track.mostSamplesInAChunk, numberAt(content, offset + 4));
  }
}

}  // namespace mireval
