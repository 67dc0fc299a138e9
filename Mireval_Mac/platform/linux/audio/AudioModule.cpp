#include "platform/linux/audio/AudioModule.h"

#include "platform/linux/audio/PulseAudioPlayerFactory.h"

mireval::AudioPlayerFactory* mirevalMakeAudioPlayerFactory() {
  return new mireval::PulseAudioPlayerFactory;
}
