#include "AudioFiles.h"

#include "measures/Chroma.h"
#include "measures/Clicks.h"
#include "measures/Figures.h"
#include "measures/Fingerprint.h"
#include "measures/Levels.h"
#include "measures/Loudness.h"
#include "measures/Measurement.h"
#include "measures/MelBank.h"
#include "measures/PowerSpectra.h"
#include "measures/Pulse.h"
#include "measures/Recording.h"
#include "measures/Silence.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <cmath>
#include <limits>
#include <numbers>
#include <random>
#include <utility>
#include <vector>

namespace mireval::soundtrack {
namespace {

constexpr int rate = 44100;

using Samples = std::vector<float>;

std::size_t framesOf(double seconds) {
  return static_cast<std::size_t>(std::lround(seconds * rate));
}

Samples silenceOf(double seconds) {
  return Samples(framesOf(seconds));
}

Samples sine(double hertz, double amplitude, double seconds, double phase = 0) {
  Samples samples(framesOf(seconds));
  for (std::size_t i = 0; i < samples.size(); ++i) {
    const double turn = 2 * std::numbers::pi * hertz * static_cast<double>(i) / rate;
    samples[i] = static_cast<float>(amplitude * std::sin(turn + phase));
  }
  return samples;
}

/// White noise, the same for the same seed.
Samples noise(double amplitude, double seconds, unsigned int seed) {
  std::mt19937 random(seed);
  Samples samples(framesOf(seconds));
  for (float& sample : samples) {
    sample = static_cast<float>(amplitude * (2 * static_cast<double>(random()) / std::mt19937::max() - 1));
  }
  return samples;
}

Samples operator+(Samples a, const Samples& b) {
  for (std::size_t i = 0; i < a.size(); ++i) {
    a[i] += b[i];
  }
  return a;
}

Samples operator*(double gain, Samples samples) {
  for (float& sample : samples) {
    sample *= static_cast<float>(gain);
  }
  return samples;
}

Samples joined(const std::vector<Samples>& parts) {
  Samples all;
  for (const Samples& part : parts) {
    all.insert(all.end(), part.begin(), part.end());
  }
  return all;
}

/// Equally loud tones of the equal temperament, 60 is middle C.
Samples chord(const std::vector<int>& notes, double seconds) {
  Samples sum = silenceOf(seconds);
  for (const int note : notes) {
    sum = std::move(sum) + sine(440 * std::exp2((note - 69) / 12.0), 0.1, seconds);
  }
  return sum;
}

Recording bothSides(const Samples& samples) {
  return {samples, samples, rate};
}

// Recording

TEST(RecordingTest, HoldsWhatTheFileHolds) {
  const test::AudioFiles files;
  const RecordingResult loaded = Recording::load(files.tone(441, 2));
  ASSERT_TRUE(loaded.recording) << loaded.error;
  EXPECT_EQ(loaded.error, "");
  EXPECT_EQ(loaded.recording->sampleRate, rate);
  EXPECT_DOUBLE_EQ(loaded.recording->seconds(), 2);
  ASSERT_EQ(loaded.recording->left.size(), framesOf(2));
  ASSERT_EQ(loaded.recording->right.size(), framesOf(2));
  EXPECT_NEAR(*std::max_element(loaded.recording->left.begin(), loaded.recording->left.end()), 0.25, 0.02);
}

TEST(RecordingTest, TellsWhyThereIsNone) {
  const test::AudioFiles files;
  for (const auto& file : {files.folder() / "nowhere.m4a", files.bytes("text.m4a", "no sound at all"),
                           // It ends before its length.
                           files.truncated(0.5, true)}) {
    const RecordingResult result = Recording::load(file);
    EXPECT_FALSE(result.recording);
    EXPECT_TRUE(result.error.starts_with(file.string() + ": ")) << result.error;
  }
}

TEST(RecordingTest, MixesToMono) {
  const Recording recording{{1, 0.5F, 0}, {0, 0.5F, -1}, rate};
  EXPECT_EQ(recording.mono(), (Samples{0.5F, 0.5F, -0.5F}));
  const Samples normalised = recording.normalisedMono();
  EXPECT_EQ(normalised, (Samples{1, 1, -1}));
  EXPECT_EQ(bothSides(silenceOf(0.001)).normalisedMono(), silenceOf(0.001));
}

// Levels

TEST(LevelsTest, FindsAnOffsetInOneChannel) {
  Recording recording = bothSides(sine(441, 0.5, 1));
  EXPECT_NEAR(Levels::of(recording).dcOffset, 0, 1e-6);
  for (float& sample : recording.right) {
    sample -= 0.01F;
  }
  EXPECT_NEAR(Levels::of(recording).dcOffset, 0.01, 1e-6);
}

TEST(LevelsTest, CountsClippedSamplesOfBothChannels) {
  Recording recording = bothSides(sine(441, 0.9, 1));
  EXPECT_EQ(Levels::of(recording).clippedSamples, 0U);
  recording.left[100] = 1;
  recording.left[200] = 1.5F;
  recording.right[300] = -1;
  recording.right[400] = 0.9998F;
  EXPECT_EQ(Levels::of(recording).clippedSamples, 3U);
}

TEST(LevelsTest, CorrelatesTheChannels) {
  const Samples tone = sine(441, 0.5, 1);
  EXPECT_NEAR(Levels::of({tone, tone, rate}).correlation, 1, 1e-6);
  EXPECT_NEAR(Levels::of({tone, -1 * tone, rate}).correlation, -1, 1e-6);
  EXPECT_NEAR(Levels::of({tone, sine(441, 0.2, 1, std::numbers::pi / 2), rate}).correlation, 0, 1e-6);
  EXPECT_NEAR(Levels::of({tone, sine(441, 0.2, 1, std::numbers::pi / 3), rate}).correlation, 0.5, 1e-6);
  EXPECT_EQ(Levels::of({tone, silenceOf(1), rate}).correlation, 0);
}

TEST(LevelsTest, WeighsTheChannels) {
  const Samples tone = sine(441, 0.5, 1);
  EXPECT_NEAR(Levels::of({tone, tone, rate}).balanceDb, 0, 1e-6);
  EXPECT_NEAR(Levels::of({tone, 0.5 * tone, rate}).balanceDb, 6.02, 0.01);
  EXPECT_NEAR(Levels::of({0.1 * tone, tone, rate}).balanceDb, -20, 0.01);
  EXPECT_GT(Levels::of({tone, silenceOf(1), rate}).balanceDb, 60);
  EXPECT_EQ(Levels::of({silenceOf(1), silenceOf(1), rate}).balanceDb, 0);
}

// Silence

TEST(SilenceTest, MeasuresBothEndsAndTheLongestGap) {
  const Samples tone = sine(441, 0.5, 4, 1);
  const Silence silence = Silence::of(
      bothSides(joined({silenceOf(0.2), tone, silenceOf(0.4), tone, silenceOf(0.8), tone, silenceOf(0.3)})));
  EXPECT_NEAR(silence.head, 0.2, 1e-4);
  EXPECT_NEAR(silence.tail, 0.3, 2e-3);
  EXPECT_NEAR(silence.longestInside, 0.8, 0.11);
}

TEST(SilenceTest, HearsEitherChannelAndNothingBelowItsThreshold) {
  const Samples tone = sine(441, 0.5, 5, 1);
  const Silence left = Silence::of({joined({silenceOf(1), tone}), joined({tone, silenceOf(1)}), rate});
  EXPECT_LT(left.head, 1e-3);
  EXPECT_LT(left.tail, 1e-3);
  const Samples below = sine(441, 0.0009, 1);
  EXPECT_NEAR(Silence::of(bothSides(joined({below, tone}))).head, 1, 1e-4);
  const Samples above = sine(441, 0.0011, 1);
  EXPECT_LT(Silence::of(bothSides(joined({above, tone}))).head, 1e-3);
}

TEST(SilenceTest, IsWholeWhenThereIsNoSound) {
  const Silence silence = Silence::of(bothSides(silenceOf(10)));
  EXPECT_DOUBLE_EQ(silence.head, 10);
  EXPECT_DOUBLE_EQ(silence.tail, 10);
  EXPECT_NEAR(silence.longestInside, 6, 0.01);
}

// Clicks

TEST(ClicksTest, CleanSoundHasNone) {
  EXPECT_LT(Clicks::of(bothSides(sine(220, 0.5, 3))).worstRatio, 1.2);
  EXPECT_LT(Clicks::of(bothSides(noise(0.3, 3, 1))).worstRatio, 2);
  EXPECT_EQ(Clicks::of(bothSides(silenceOf(3))).worstRatio, 0);
  EXPECT_EQ(Clicks::of({}).worstRatio, 0);
}

TEST(ClicksTest, FindsAStepInEitherChannel) {
  const Samples tone = sine(220, 0.3, 3);
  Samples stepped = tone;
  for (std::size_t i = framesOf(1.2); i < framesOf(1.3); ++i) {
    stepped[i] += 0.05F;
  }
  for (const Recording& recording : {Recording{stepped, tone, rate}, Recording{tone, stepped, rate}}) {
    const Clicks clicks = Clicks::of(recording);
    EXPECT_GT(clicks.worstRatio, 3.5);
    EXPECT_NEAR(std::abs(clicks.worstAtSeconds - 1.25), 0.05, 1e-3);
  }
}

TEST(ClicksTest, FindsACutAtEitherEnd) {
  const Samples whole = sine(220, 0.3, 3.01, 1.5);
  const Clicks clicks = Clicks::of(bothSides(whole));
  EXPECT_GT(clicks.worstRatio, 8);
  EXPECT_LT(clicks.worstAtSeconds, 0.001);
  const Samples fadedIn = joined({silenceOf(0.5), sine(220, 0.3, 2, 0), sine(220, 0.3, 0.001, 0)});
  const Clicks atTheEnd = Clicks::of(bothSides(fadedIn));
  EXPECT_GT(atTheEnd.worstRatio, 3.5);
  EXPECT_NEAR(atTheEnd.worstAtSeconds, 2.501, 0.001);
}

TEST(ClicksTest, PassesJumpsThatNobodyHears) {
  Samples samples = silenceOf(1);
  samples[1000] = 0.0039F;
  EXPECT_EQ(Clicks::of(bothSides(samples)).worstRatio, 0);
  samples[1000] = 0.0041F;
  EXPECT_GT(Clicks::of(bothSides(samples)).worstRatio, 100);
}

// Loudness: the signals and tolerances of EBU Tech 3341 and 3342.

TEST(LoudnessTest, MeasuresTheReferenceTone) {
  const Loudness loudness = Loudness::of(bothSides(sine(1000, std::pow(10, -23 / 20.0), 20)));
  EXPECT_NEAR(loudness.integrated, -23, 0.1);
  EXPECT_NEAR(loudness.range, 0, 0.1);
  EXPECT_NEAR(loudness.truePeak, -23, 0.2);
}

TEST(LoudnessTest, MeasuresTheRangeBetweenTwoLevels) {
  const Samples tone = sine(1000, 1, 20);
  const Loudness loudness = Loudness::of(bothSides(joined({0.1 * tone, std::pow(10, -1.5) * tone})));
  EXPECT_NEAR(loudness.range, 10, 1);
  ASSERT_EQ(loudness.shortTerm.size(), 38U);
  EXPECT_NEAR(loudness.shortTerm.front(), -20, 0.1);
  EXPECT_NEAR(loudness.shortTerm.at(17), -20, 0.1);
  EXPECT_NEAR(loudness.shortTerm.back(), -30, 0.1);
}

TEST(LoudnessTest, FindsThePeakBetweenTheSamples) {
  const Recording recording{sine(rate / 4.0, 0.5, 1, std::numbers::pi / 4), silenceOf(1), rate};
  EXPECT_NEAR(recording.left[0], 0.3536, 1e-3);
  EXPECT_NEAR(Loudness::of(recording).truePeak, -6.02, 0.4);
}

TEST(LoudnessTest, IsNotThereInSilence) {
  const Loudness loudness = Loudness::of(bothSides(silenceOf(5)));
  EXPECT_EQ(loudness.integrated, -std::numeric_limits<double>::infinity());
  EXPECT_EQ(loudness.truePeak, -std::numeric_limits<double>::infinity());
}

// Spectra

TEST(PowerSpectraTest, PutASineIntoItsBin) {
  constexpr std::size_t size = 1024;
  constexpr std::size_t bin = 64;
  const PowerSpectra spectra(sine(static_cast<double>(bin) * rate / size, 1, 1), size, 441);
  EXPECT_EQ(spectra.binCount(), 513U);
  ASSERT_EQ(spectra.frameCount(), 98U);
  for (const std::size_t index : {std::size_t{0}, std::size_t{97}}) {
    const auto frame = spectra.frame(index);
    EXPECT_NEAR(frame[bin], size * size / 16.0, 0.01 * size * size / 16.0);
    EXPECT_LT(frame[bin - 3], 1e-3 * frame[bin]);
    EXPECT_LT(frame[bin + 20], 1e-6 * frame[bin]);
  }
}

TEST(PowerSpectraTest, TakeOnlyWholeFrames) {
  for (const auto& [samples, frames] : {std::pair(1023, 0U), {1024, 1U}, {1535, 1U}, {1536, 2U}}) {
    EXPECT_EQ(PowerSpectra(Samples(samples), 1024, 512).frameCount(), frames) << samples;
  }
}

TEST(MelBankTest, SharesEachBinBetweenNeighbours) {
  constexpr std::size_t size = 4096;
  const MelBank bank(32, size, rate, 40, 12000);
  ASSERT_EQ(bank.bandCount(), 32U);
  std::vector<double> decibels(32);
  std::vector<float> power(size / 2 + 1);
  for (const double hertz : {150.0, 440.0, 1000.0, 8000.0}) {
    power.assign(power.size(), 0);
    power[static_cast<std::size_t>(hertz * size / rate)] = 1;
    bank.apply(power, 1e-12, decibels);
    double sum = 0;
    int bands = 0;
    for (const double value : decibels) {
      sum += std::pow(10, value / 10);
      bands += value > -60 ? 1 : 0;
    }
    EXPECT_NEAR(sum, 1, 1e-6) << hertz;
    EXPECT_LE(bands, 2) << hertz;
  }
}

TEST(MelBankTest, ReachesFromItsLowestToItsHighestFrequency) {
  constexpr std::size_t size = 4096;
  const MelBank bank(24, size, rate, 40, 12000);
  std::vector<double> decibels(24);
  std::vector<float> power(size / 2 + 1);
  power[3] = power[1115] = 1e6F;
  bank.apply(power, 0.01, decibels);
  EXPECT_EQ(decibels, std::vector<double>(24, -20));
}

// Chroma

TEST(ChromaTest, NamesTheNotesOfAChord) {
  const Chroma chroma = Chroma::of(chord({60, 64, 67}, 10), rate);
  ASSERT_EQ(chroma.frames.size(), 27U);
  EXPECT_NEAR(chroma.secondsPerFrame, 0.3696, 1e-4);
  EXPECT_GT(chroma.tonalShare, 0.9);
  for (const Chroma::Frame& frame : chroma.frames) {
    for (std::size_t i = 0; i < frame.size(); ++i) {
      EXPECT_NEAR(frame.at(i), i == 0 || i == 4 || i == 7 ? 1 / 3.0 : 0, 0.05) << i;
    }
  }
}

TEST(ChromaTest, HearsNoTonesInNoiseAndNothingInSilence) {
  EXPECT_LT(Chroma::of(noise(0.3, 20, 1), rate).tonalShare, 0.03);
  // Four tones of power 0.005 over a noise of power 0.03, of which a part of 1945 / 22050 lies in the middle.
  EXPECT_NEAR(Chroma::of(noise(0.3, 20, 1) + chord({57, 61, 64, 68}, 20), rate).tonalShare, 0.883, 0.01);
  const Chroma silence = Chroma::of(silenceOf(1), rate);
  EXPECT_EQ(silence.tonalShare, 0);
  EXPECT_EQ(silence.frames.at(0), Chroma::Frame{});
  EXPECT_TRUE(Chroma::of(silenceOf(0.1), rate).frames.empty());
}

TEST(ChromaTest, ListensToTheMiddleOnly) {
  EXPECT_GT(Chroma::of(sine(60, 0.3, 5), rate).tonalShare, 0.9);
  EXPECT_GT(Chroma::of(sine(1900, 0.3, 5), rate).tonalShare, 0.9);
  const Samples outside = sine(40, 0.3, 5) + sine(4000, 0.3, 5);
  EXPECT_LT(Chroma::of(outside + noise(0.01, 5, 1), rate).tonalShare, 0.1);
}

TEST(ChromaTest, ComparesFrames) {
  const Chroma::Frame major{1 / 3.0, 0, 0, 0, 1 / 3.0, 0, 0, 1 / 3.0};
  const Chroma::Frame higher{0, 1 / 3.0, 0, 0, 0, 1 / 3.0, 0, 0, 1 / 3.0};
  EXPECT_DOUBLE_EQ(difference(major, major), 0);
  EXPECT_DOUBLE_EQ(difference(major, higher), 1);
  EXPECT_DOUBLE_EQ(difference(higher, major, 1), 0);
  EXPECT_DOUBLE_EQ(difference(major, higher, 11), 0);
}

// Pulse

/// A short burst at each of these moments of a bar.
Samples bars(double secondsPerBar, const std::vector<double>& moments, int count) {
  const Samples burst = noise(0.3, 0.05, 1);
  Samples samples = noise(0.001, secondsPerBar * count, 2);
  for (int bar = 0; bar < count; ++bar) {
    for (const double moment : moments) {
      const std::size_t start = framesOf((bar + moment) * secondsPerBar);
      for (std::size_t i = 0; i < burst.size(); ++i) {
        samples.at(start + i) += burst[i];
      }
    }
  }
  return samples;
}

TEST(PulseTest, FindsTheBarOfARhythm) {
  const Pulse pulse(bothSides(bars(2, {0, 0.25, 0.375, 0.75}, 30)));
  EXPECT_GT(pulse.atPeriod(2), 0.9);
  EXPECT_GT(pulse.atPeriod(2.02), 0.9) << "within the tolerance";
  EXPECT_LT(pulse.atPeriod(2.1), 0.3);
  EXPECT_LT(pulse.atPeriod(1.37), 0.3);
  EXPECT_GT(pulse.atPeriod(4), 0.85);
}

TEST(PulseTest, AHeldSoundBeginsOnce) {
  std::vector<Samples> parts;
  for (int bar = 0; bar < 30; ++bar) {
    parts.insert(parts.end(), {noise(0.001, 1, 2), noise(0.3, 1, 1)});
  }
  const Pulse pulse(bothSides(joined(parts)));
  EXPECT_GT(pulse.atPeriod(2), 0.9);
  EXPECT_LT(pulse.atPeriod(2.1), 0.3);
}

TEST(PulseTest, FindsNoneWhereNothingRepeats) {
  EXPECT_LT(Pulse(bothSides(noise(0.3, 60, 1))).atPeriod(2), 0.1);
  EXPECT_EQ(Pulse(bothSides(silenceOf(10))).atPeriod(2), 0);
  EXPECT_EQ(Pulse(Recording{}).atPeriod(2), 0);
}

// Fingerprint

const std::vector<int> cMajor{60, 64, 67};
const std::vector<int> fSharpMajor{54, 58, 61};

TEST(FingerprintTest, ADroneDoesNotMove) {
  const Fingerprint print = Fingerprint::of(bothSides(chord(cMajor, 40)));
  EXPECT_LT(print.harmonicMovement, 0.01);
  EXPECT_LT(print.form, 0.1);
  EXPECT_GT(print.tonalShare, 0.9);
  EXPECT_NEAR(print.chromaOfParts.at(15).at(4), 1 / 3.0, 0.05);
}

TEST(FingerprintTest, ChangingChordsMove) {
  // As long as the steps of the measure, so that each of them has one chord.
  const double step = 11 * 16301.0 / rate;
  std::vector<Samples> parts;
  for (int i = 0; i < 5; ++i) {
    parts.insert(parts.end(), {chord(cMajor, step), chord(fSharpMajor, step)});
  }
  parts.push_back(silenceOf(0.01));
  EXPECT_NEAR(Fingerprint::of(bothSides(joined(parts))).harmonicMovement, 0.95, 0.05);
}

TEST(FingerprintTest, FormIsHowThePartsDiffer) {
  // Two halves 12 dB apart: each is 6 dB off the mean in every band that sounds.
  const Samples whole = noise(0.3, 16, 1);
  const double louder = Fingerprint::of(bothSides(joined({whole, 0.25 * whole}))).form;
  EXPECT_NEAR(louder, 6, 0.3);
  EXPECT_LT(Fingerprint::of(bothSides(joined({whole, whole}))).form, 0.5);
}

TEST(FingerprintTest, DoesNotDependOnLevel) {
  const Samples music = chord(cMajor, 10) + noise(0.05, 10, 1);
  const Fingerprint print = Fingerprint::of(bothSides(music));
  const Fingerprint softer = Fingerprint::of(bothSides(0.1 * music));
  EXPECT_NEAR(distance(print, softer), 0, 1e-3);
}

TEST(FingerprintTest, ATranspositionIsNear) {
  const auto song = [](int semitones) {
    return bothSides(joined({chord({60 + semitones, 64 + semitones, 67 + semitones}, 10),
                             chord({53 + semitones, 57 + semitones, 60 + semitones}, 10)}) +
                     noise(0.1, 20, 1));
  };
  const Fingerprint original = Fingerprint::of(song(0));
  EXPECT_EQ(distance(original, original), 0);
  EXPECT_LT(distance(original, Fingerprint::of(song(3))), 3);
  EXPECT_DOUBLE_EQ(distance(original, Fingerprint::of(song(3))),
                   distance(Fingerprint::of(song(3)), original));
}

TEST(FingerprintTest, OtherTimbreAndOtherHarmonyAreFar) {
  const Samples hiss = noise(0.1, 20, 1);
  const Fingerprint original = Fingerprint::of(bothSides(chord(cMajor, 20) + hiss));
  const Fingerprint darker = Fingerprint::of(bothSides(chord(cMajor, 20) + 0.05 * hiss));
  EXPECT_GT(distance(original, darker), 10);
  const Fingerprint otherChord = Fingerprint::of(bothSides(chord({60, 61, 66}, 20) + hiss));
  EXPECT_GT(distance(original, otherChord), 6);
}

TEST(FingerprintTest, CopesWithSilenceAndNothing) {
  const Fingerprint silence = Fingerprint::of(bothSides(silenceOf(10)));
  EXPECT_EQ(silence.form, 0);
  EXPECT_EQ(silence.harmonicMovement, 0);
  EXPECT_EQ(distance(silence, Fingerprint::of(Recording{})), 0);
}

// Figures

Measurement goodMeasurement(Mood mood) {
  Measurement good;
  good.seconds = 175;
  good.loudness.integrated = -18;
  good.loudness.range = 5;
  good.loudness.truePeak = -4;
  good.levels.correlation = 0.5;
  good.clicks.worstRatio = 2;
  good.fingerprint.tonalShare = 0.8;
  good.fingerprint.harmonicMovement = 0.25;
  good.fingerprint.form = 3;
  good.pulseAtBar = mood == Mood::tempo ? 0.8 : 0.3;
  return good;
}

std::vector<std::string> unmet(const Measurement& measurement, Mood mood) {
  std::vector<std::string> names;
  for (const Figure& figure : figuresOf(measurement, mood)) {
    if (!figure.isMet()) {
      names.push_back(figure.name);
    }
  }
  return names;
}

TEST(FiguresTest, AreAllMetByAGoodPiece) {
  for (const Mood mood : allMoods) {
    EXPECT_EQ(figuresOf(goodMeasurement(mood), mood).size(), 16U);
    EXPECT_EQ(unmet(goodMeasurement(mood), mood), std::vector<std::string>{});
  }
}

TEST(FiguresTest, EachFaultIsNamed) {
  using Fault = std::pair<const char*, void (*)(Measurement&)>;
  const std::vector<Fault> faults{
      {"loudness", [](Measurement& m) { m.loudness.integrated = -18.31; }},
      {"loudness", [](Measurement& m) { m.loudness.integrated = -17.69; }},
      {"loudness", [](Measurement& m) { m.loudness.integrated = std::nan(""); }},
      {"true peak", [](Measurement& m) { m.loudness.truePeak = -1.49; }},
      {"loudness range", [](Measurement& m) { m.loudness.range = 2.4; }},
      {"loudness range", [](Measurement& m) { m.loudness.range = 9.1; }},
      {"length", [](Measurement& m) { m.seconds = 149.9; }},
      {"length", [](Measurement& m) { m.seconds = 200.1; }},
      {"clipped samples", [](Measurement& m) { m.levels.clippedSamples = 1; }},
      {"DC offset", [](Measurement& m) { m.levels.dcOffset = 1.1e-4; }},
      {"click ratio", [](Measurement& m) { m.clicks.worstRatio = 3.51; }},
      {"silence at the head", [](Measurement& m) { m.silence.head = 0.051; }},
      {"silence at the tail", [](Measurement& m) { m.silence.tail = 0.151; }},
      {"silence inside", [](Measurement& m) { m.silence.longestInside = 0.6; }},
      {"correlation of the channels", [](Measurement& m) { m.levels.correlation = 0.19; }},
      {"correlation of the channels", [](Measurement& m) { m.levels.correlation = 0.96; }},
      {"balance of the channels", [](Measurement& m) { m.levels.balanceDb = 2.1; }},
      {"balance of the channels", [](Measurement& m) { m.levels.balanceDb = -2.1; }},
      {"tonal share", [](Measurement& m) { m.fingerprint.tonalShare = 0.39; }},
      {"harmonic movement", [](Measurement& m) { m.fingerprint.harmonicMovement = 0.149; }},
      {"form", [](Measurement& m) { m.fingerprint.form = 1.99; }},
  };
  for (const Mood mood : allMoods) {
    for (const auto& [name, spoil] : faults) {
      Measurement spoiled = goodMeasurement(mood);
      spoil(spoiled);
      EXPECT_EQ(unmet(spoiled, mood), std::vector<std::string>{name});
    }
  }
}

TEST(FiguresTest, RangeAndPulseDependOnTheMood) {
  struct Limits {
    Mood mood;
    Range loudnessRange;
    Range pulse;
  };
  constexpr double outside = 0.01;
  for (const auto& [mood, range, pulse] : {Limits{Mood::relaxation, {2.5, 9}, {-1, 0.5}},
                                           {Mood::focus, {3, 8}, {-1, 1}},
                                           {Mood::creative, {4, 9}, {-1, 1}},
                                           {Mood::tempo, {3, 7}, {0.6, 1}}}) {
    const auto isMet = [mood = mood](double loudnessRange, double pulseAtBar) {
      Measurement measurement = goodMeasurement(mood);
      measurement.loudness.range = loudnessRange;
      measurement.pulseAtBar = pulseAtBar;
      return unmet(measurement, mood).empty();
    };
    EXPECT_TRUE(isMet(range.least, pulse.least));
    EXPECT_TRUE(isMet(range.most, pulse.most));
    EXPECT_FALSE(isMet(range.least - outside, pulse.least));
    EXPECT_FALSE(isMet(range.most + outside, pulse.least));
    EXPECT_EQ(isMet(range.least, pulse.least - outside), mood != Mood::tempo);
    EXPECT_EQ(isMet(range.least, pulse.most + outside), mood != Mood::relaxation);
  }
}

TEST(FiguresTest, SayNameValueAndLimit) {
  EXPECT_EQ((Figure{"loudness range", "LU", 1.25, {3, 7}}).text(),
            "loudness range: 1.25 LU, allowed 3..7 LU");
  EXPECT_EQ((Figure{"form", "dB", 1.5, {.least = 2}}).text(), "form: 1.5 dB, allowed at least 2 dB");
  EXPECT_EQ((Figure{"click ratio", "", 4, {.most = 3.5}}).text(), "click ratio: 4, allowed at most 3.5");
  EXPECT_EQ((Figure{"clipped samples", "", 7, {0, 0}}).text(), "clipped samples: 7, allowed 0");
}

}  // namespace
}  // namespace mireval::soundtrack
