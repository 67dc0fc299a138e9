#pragma once

namespace mireval {
class AudioPlayerFactory;
}

/// The one function of the audio module, which `LazyAudioPlayerFactory` finds by its name when it has loaded
/// the module. The caller owns the factory.
extern "C" __attribute__((visibility("default"))) mireval::AudioPlayerFactory*
mirevalMakeAudioPlayerFactory();

namespace mireval {
constexpr const char* audioModuleFunction = "mirevalMakeAudioPlayerFactory";
}
