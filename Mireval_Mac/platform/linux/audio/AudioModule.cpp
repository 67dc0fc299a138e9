#include "platform/linux/audio/AudioModule.h"

#include "platform/linux/audio/PulseAudioPlayerFactory.h"

mireval::AudioPlayerFactory* mirevalMakeAudioPlayerFactory(mireval::Notices& notices) {
  return new mireval::PulseAudioPlayerFactory(notices);
}
