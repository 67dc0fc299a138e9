#include "platform/linux/audio/LazyAudioPlayerFactory.h"

#include "platform/linux/audio/AudioModule.h"
#include "platform/qt/ApplicationFile.h"

#include <dlfcn.h>
#include <fcntl.h>

#include <chrono>
#include <string>
#include <utility>

namespace mireval {
namespace {

namespace fs = std::filesystem;

constexpr const char* moduleName = "libmireval-audio.so";

}  // namespace

LazyAudioPlayerFactory::LazyAudioPlayerFactory(fs::path module, Notices& notices)
    : m_module(std::move(module)),
      m_openModule(open(m_module.c_str(), O_RDONLY | O_CLOEXEC)),
      m_notices(notices) {}

fs::path LazyAudioPlayerFactory::moduleOfApplication() {
  return applicationFile(moduleName, fs::path("../lib/mireval/modules") / moduleName);
}

void LazyAudioPlayerFactory::warmUp() {
  onceLoaded(&AudioPlayerFactory::warmUp);
}

void LazyAudioPlayerFactory::coolDown() {
  if (m_loading.valid() || m_loaded) {
    onceLoaded(&AudioPlayerFactory::coolDown);
  }
}

/// Does not wait for the module: if it is still being loaded, the step follows on another thread.
void LazyAudioPlayerFactory::onceLoaded(void (AudioPlayerFactory::*step)()) {
  if (m_loading.valid() && m_loading.wait_for(std::chrono::seconds(0)) == std::future_status::ready) {
    m_loaded = m_loading.get();
  }
  if (m_loaded) {
    ((**m_loaded).*step)();
    return;
  }
  m_loading = std::async(std::launch::async, [this, step, earlier = std::move(m_loading)]() mutable {
    Loaded loaded = earlier.valid() ? earlier.get() : load();
    if (loaded) {
      ((**loaded).*step)();
    }
    return loaded;
  });
}

AudioPlayerResult LazyAudioPlayerFactory::create(const fs::path& file, const QString& title) {
  if (!m_loaded) {
    m_loaded = m_loading.valid() ? m_loading.get() : load();
  }
  return m_loaded ? (*m_loaded)->create(file, title) : tl::make_unexpected(m_loaded.error());
}

LazyAudioPlayerFactory::Loaded LazyAudioPlayerFactory::load() const {
  const fs::path file =
      m_openModule.isOpen() ? fs::path("/proc/self/fd") / std::to_string(m_openModule.get()) : m_module;
  void* const library = dlopen(file.c_str(), RTLD_NOW | RTLD_LOCAL);
  void* const entry = library != nullptr ? dlsym(library, audioModuleFunction) : nullptr;
  if (entry == nullptr) {
    return tl::make_unexpected(QString::fromLocal8Bit(dlerror()));
  }
  return Loaded(tl::in_place, reinterpret_cast<decltype(&mirevalMakeAudioPlayerFactory)>(entry)(m_notices));
}

}  // namespace mireval
