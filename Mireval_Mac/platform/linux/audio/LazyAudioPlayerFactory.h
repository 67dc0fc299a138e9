#pragma once

#include "platform/AudioPlayerFactory.h"
#include "platform/linux/posix/FileDescriptor.h"

#include <QString>

#include <filesystem>
#include <future>
#include <memory>

namespace mireval {

class Notices;

/// Loads the audio module when sound is wanted for the first time. The decoder's and the sound server's
/// libraries take tens of milliseconds and megabytes, which a program that only shows its icon need not
/// spend.
class LazyAudioPlayerFactory final : public AudioPlayerFactory {
 public:
  /// `module` is the shared object that makes the real factory. It is opened now, so that a program that is
  /// upgraded while it runs still loads its own module, and never unloaded. The notices must outlive the
  /// factory and its players.
  LazyAudioPlayerFactory(std::filesystem::path module, Notices& notices);

  /// The module of the running program: beside the executable (a build tree), else in
  /// `../lib/mireval/modules` (an installed tree). Needs the application object.
  static std::filesystem::path moduleOfApplication();

  /// Loads the module on a thread of its own. The destructor waits for that.
  void warmUp() override;
  void coolDown() override;

  /// Waits for the module if it is still being loaded. A module that cannot be loaded is an ordinary error.
  AudioPlayerResult create(const std::filesystem::path& file, const QString& title) override;

 private:
  using Loaded = tl::expected<std::unique_ptr<AudioPlayerFactory>, QString>;

  Loaded load() const;
  void onceLoaded(void (AudioPlayerFactory::*step)());

  const std::filesystem::path m_module;
  const FileDescriptor m_openModule;
  Notices& m_notices;
  std::future<Loaded> m_loading;
  Loaded m_loaded = tl::make_unexpected(QString());
};

}  // namespace mireval
