#include "platform/linux/audio/PulseAudioPlayerFactory.h"

/// The one symbol of the audio module; see LazyAudioPlayerFactory. The caller owns what it returns.
extern "C" __attribute__((visibility("default"))) mireval::AudioPlayerFactory*
mirevalMakeAudioPlayerFactory() {
  return new mireval::PulseAudioPlayerFactory;
}
