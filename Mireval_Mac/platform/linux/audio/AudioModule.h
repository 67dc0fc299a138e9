#pragma once

namespace mireval {
class AudioPlayerFactory;
class Notices;
}  // namespace mireval

/// The one function of the audio module, which `LazyAudioPlayerFactory` finds by its name when it has loaded
/// the module. The caller owns the factory, which the notices must outlive.
extern "C" __attribute__((visibility("default"))) mireval::AudioPlayerFactory* mirevalMakeAudioPlayerFactory(
    mireval::Notices& notices);

namespace mireval {
constexpr const char* audioModuleFunction = "mirevalMakeAudioPlayerFactory";
}
