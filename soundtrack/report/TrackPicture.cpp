#include "report/TrackPicture.h"

#include "measures/Chroma.h"
#include "measures/PowerSpectra.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <cstddef>
#include <span>
#include <utility>
#include <vector>

namespace mireval::soundtrack {
namespace {

constexpr int width = 1200;
constexpr int lowestNote = 24;
constexpr int highestNote = 132;
constexpr int rowsPerNote = 3;
constexpr int spectrumHeight = (highestNote - lowestNote) * rowsPerNote;
constexpr int pitchClasses = 12;
constexpr int rowsPerPitchClass = 7;
constexpr int chromaHeight = pitchClasses * rowsPerPitchClass;
constexpr int levelHeight = 70;
constexpr int gap = 4;
constexpr int chromaTop = spectrumHeight + gap;
constexpr int levelTop = chromaTop + chromaHeight + gap;
constexpr int height = levelTop + levelHeight;

/// Colours of the picture: heat from 0 to `hottest`, then those of the marks and of the level.
constexpr uchar hottest = 239;
constexpr uchar gapColor = 240;
constexpr uchar markColor = 241;
constexpr uchar levelColor = 242;
constexpr uchar loudnessColor = 243;

QList<QRgb> colorTable() {
  constexpr std::array<std::array<double, 3>, 6> stops{{
      {0, 0, 0},
      {40, 10, 80},
      {150, 30, 110},
      {230, 80, 50},
      {252, 180, 60},
      {255, 255, 230},
  }};
  QList<QRgb> colors;
  for (int heat = 0; heat <= hottest; ++heat) {
    const double position = static_cast<double>(heat) / hottest * (stops.size() - 1);
    const auto from = std::min(static_cast<std::size_t>(position), stops.size() - 2);
    const auto mixed = [&, part = position - static_cast<double>(from)](std::size_t channel) {
      return static_cast<int>(stops.at(from).at(channel) * (1 - part) +
                              stops.at(from + 1).at(channel) * part);
    };
    colors.append(qRgb(mixed(0), mixed(1), mixed(2)));
  }
  colors.append(qRgb(70, 70, 70));
  colors.append(qRgb(200, 200, 200));
  colors.append(qRgb(60, 110, 145));
  colors.append(qRgb(255, 230, 140));
  return colors;
}

/// From 0 (black) to 1.
uchar heat(double share) {
  return static_cast<uchar>(std::lround(std::clamp(share, 0.0, 1.0) * hottest));
}

void fill(QImage& image, int column, int top, int rows, uchar color) {
  for (int row = top; row < top + rows; ++row) {
    image.scanLine(row)[column] = color;
  }
}

/// Spectra around the times of the columns.
class ColumnSpectra {
 public:
  ColumnSpectra(std::span<const float> mono, std::size_t hop, std::size_t size)
      : m_size(size), m_spectra(padded(mono, size), size, hop) {}

  /// The amplitude of a sine of this frequency, in full scale.
  double amplitude(int column, double hertz, int sampleRate) const {
    const std::span<const float> power = m_spectra.frame(static_cast<std::size_t>(column));
    const double position = hertz * static_cast<double>(m_size) / sampleRate;
    const auto bin = std::min(static_cast<std::size_t>(position), power.size() - 2);
    const double part = std::min(position - static_cast<double>(bin), 1.0);
    const double amplitude = std::sqrt(power[bin]) * (1 - part) + std::sqrt(power[bin + 1]) * part;
    return amplitude * 4 / static_cast<double>(m_size);
  }

 private:
  static std::vector<float> padded(std::span<const float> mono, std::size_t size) {
    std::vector<float> samples(size / 2);
    samples.insert(samples.end(), mono.begin(), mono.end());
    samples.resize(samples.size() + size + width);
    return samples;
  }

  std::size_t m_size;
  PowerSpectra m_spectra;
};

void drawSpectrum(QImage& image, std::span<const float> mono, std::size_t hop, int sampleRate) {
  // Low notes need a long frame to be told apart, high ones a short frame to show when they begin.
  const ColumnSpectra slow(mono, hop, 16384);
  const ColumnSpectra quick(mono, hop, 2048);
  constexpr double quickFrom = 88;
  constexpr double quickNotes = 14;
  constexpr double floorDb = -92;
  constexpr double rangeDb = 80;
  constexpr double tiltFrom = 60;
  constexpr double tiltPerNoteDb = 0.25;
  for (int row = 0; row < spectrumHeight; ++row) {
    const double note = highestNote - static_cast<double>(row + 1) / rowsPerNote;
    const double hertz = 440 * std::pow(2, (note - 69) / 12);
    const double share = std::clamp((note - quickFrom) / quickNotes, 0.0, 1.0);
    const double tilt = std::max((note - tiltFrom) * tiltPerNoteDb, 0.0);
    uchar* const pixels = image.scanLine(row);
    for (int column = 0; column < width; ++column) {
      double amplitude = 0;
      if (share < 1) {
        amplitude += (1 - share) * slow.amplitude(column, hertz, sampleRate);
      }
      if (share > 0) {
        amplitude += share * quick.amplitude(column, hertz, sampleRate);
      }
      pixels[column] = heat((20 * std::log10(amplitude + 1e-9) + tilt - floorDb) / rangeDb);
    }
  }
}

void drawChroma(QImage& image, const Chroma& chroma, double secondsPerColumn) {
  if (chroma.frames.empty()) {
    return;
  }
  for (int column = 0; column < width; ++column) {
    const auto moment = static_cast<std::size_t>(column * secondsPerColumn / chroma.secondsPerFrame);
    const Chroma::Frame& frame = chroma.frames[std::min(moment, chroma.frames.size() - 1)];
    const double strongest = *std::max_element(frame.begin(), frame.end());
    for (int pitchClass = 0; pitchClass < pitchClasses; ++pitchClass) {
      const double value = frame.at(static_cast<std::size_t>(pitchClass));
      fill(image, column, chromaTop + (pitchClasses - 1 - pitchClass) * rowsPerPitchClass, rowsPerPitchClass,
           heat(strongest > 0 ? value / strongest : 0));
    }
  }
}

/// The height of a level in rows.
int levelRows(double decibels) {
  constexpr double lowest = -42;
  constexpr double highest = -10;
  const double share = std::clamp((decibels - lowest) / (highest - lowest), 0.0, 1.0);
  return static_cast<int>(std::lround(share * (levelHeight - 1)));
}

void drawLevel(QImage& image, std::span<const float> mono, std::size_t hop, const Loudness& loudness,
               double secondsPerColumn) {
  for (int column = 0; column < width; ++column) {
    const std::size_t start = std::min(static_cast<std::size_t>(column) * hop, mono.size());
    const std::span<const float> part = mono.subspan(start, std::min(hop, mono.size() - start));
    double energy = 0;
    for (const float sample : part) {
      energy += static_cast<double>(sample) * sample;
    }
    const int rows = levelRows(10 * std::log10(energy / static_cast<double>(hop) + 1e-12));
    fill(image, column, height - rows, rows, levelColor);

    // The first value belongs to the third second.
    const auto second = static_cast<std::ptrdiff_t>(column * secondsPerColumn) - 3;
    if (second >= 0 && std::cmp_less(second, loudness.shortTerm.size())) {
      const int line = levelRows(loudness.shortTerm[static_cast<std::size_t>(second)]);
      fill(image, column, height - 2 - std::min(line, levelHeight - 2), 2, loudnessColor);
    }
  }
}

void drawMarks(QImage& image, double secondsPerColumn) {
  constexpr int markLength = 8;
  constexpr int notesPerOctave = 12;
  for (int note = lowestNote; note < highestNote; note += notesPerOctave) {
    std::fill_n(image.scanLine((highestNote - note) * rowsPerNote - 1), markLength, markColor);
  }
  for (const int top : {spectrumHeight, chromaTop + chromaHeight}) {
    for (int column = 0; column < width; ++column) {
      fill(image, column, top, gap, gapColor);
    }
    constexpr double secondsPerMark = 30;
    for (double second = 0; second / secondsPerColumn < width - 2; second += secondsPerMark) {
      for (const int column : {0, 1, 2}) {
        fill(image, static_cast<int>(second / secondsPerColumn) + column, top, gap, markColor);
      }
    }
  }
}

}  // namespace

QImage trackPicture(const Recording& recording, const Loudness& loudness) {
  QImage image(width, height, QImage::Format_Indexed8);
  image.setColorTable(colorTable());
  image.fill(0);
  const std::vector<float> mono = recording.mono();
  const std::size_t hop = mono.size() / width + 1;
  const double secondsPerColumn = static_cast<double>(hop) / recording.sampleRate;
  drawSpectrum(image, mono, hop, recording.sampleRate);
  drawChroma(image, Chroma::of(mono, recording.sampleRate), secondsPerColumn);
  drawLevel(image, mono, hop, loudness, secondsPerColumn);
  drawMarks(image, secondsPerColumn);
  return image;
}

}  // namespace mireval::soundtrack
