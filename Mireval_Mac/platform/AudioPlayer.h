#pragma once

namespace mireval {

class AudioPlayer;

/// Told about the end of playback. The call comes once per play-through, when the last frame has been heard,
/// or at most 50 ms before, so that another track can follow without a gap; the last frame may be where the
/// file cannot be decoded any further. It never comes because of a pause, and never after the player has been
/// destroyed. It may come on any thread, must return quickly, and must neither call nor destroy the
/// player: hand the work to the main thread.
class AudioPlayerDelegate {
 public:
  /// `successfully` is false when decoding failed before the end of the file.
  virtual void audioPlayerDidFinishPlaying(AudioPlayer& player, bool successfully) = 0;

 protected:
  ~AudioPlayerDelegate() = default;
};

/// Plays one audio file from its start. Used on the UI thread only; no call waits for the sound system.
/// Destroying the player ends its sound. One player sounds at a time: another that plays then pauses.
class AudioPlayer {
 public:
  virtual ~AudioPlayer() = default;

  /// The delegate is not owned and must outlive the player, or be taken off with nullptr first.
  virtual void setDelegate(AudioPlayerDelegate* delegate) = 0;

  /// Linear gain, 0 (silent) to 1 (as recorded); values outside are clamped, NaN is 0. A change is heard at
  /// once, without a click. The desktop's own volume for the application is left alone.
  virtual void setVolume(float volume) = 0;
  virtual float volume() const = 0;

  /// Gets everything ready that `play` needs, so that sound follows it sooner. Optional.
  virtual void prepareToPlay() = 0;

  /// Starts, resumes at the very next sample, or, after the end, starts again from the beginning.
  virtual void play() = 0;

  /// Falls silent at once and keeps the position.
  virtual void pause() = 0;

  /// True from `play` until `pause` or the end.
  virtual bool isPlaying() const = 0;

  /// Length of the file in seconds, as the file states it.
  virtual double duration() const = 0;

  /// Position of what is being heard, in seconds from the start. Never runs backwards within one
  /// play-through, nor past what was handed to the sound system.
  virtual double currentTime() const = 0;
};

}  // namespace mireval
