#include "platform/linux/audio/LazyAudioPlayerFactory.h"

#include "platform/linux/audio/AudioModule.h"
#include "platform/qt/ApplicationFile.h"

#include <dlfcn.h>

namespace mireval {
namespace {

namespace fs = std::filesystem;

constexpr const char* moduleName = "libmireval-audio.so";

}  // namespace

fs::path LazyAudioPlayerFactory::moduleOfApplication() {
  return applicationFile(moduleName, fs::path("../lib/mireval/modules") / moduleName);
}

void LazyAudioPlayerFactory::warmUp() {
  if (m_loading.valid() || m_loaded) {
    return;
  }
  m_loading = std::async(std::launch::async, [module = m_module] {
    Loaded loaded = load(module);
    if (loaded) {
      (*loaded)->warmUp();
    }
    return loaded;
  });
}

AudioPlayerResult LazyAudioPlayerFactory::create(const fs::path& file) {
  if (!m_loaded) {
    m_loaded = m_loading.valid() ? m_loading.get() : load(m_module);
  }
  return m_loaded ? (*m_loaded)->create(file) : tl::make_unexpected(m_loaded.error());
}

LazyAudioPlayerFactory::Loaded LazyAudioPlayerFactory::load(const fs::path& module) {
  void* const library = dlopen(module.c_str(), RTLD_NOW | RTLD_LOCAL);
  void* const entry = library != nullptr ? dlsym(library, audioModuleFunction) : nullptr;
  if (entry == nullptr) {
    return tl::make_unexpected(QString::fromLocal8Bit(dlerror()));
  }
  return Loaded(tl::in_place, reinterpret_cast<decltype(&mirevalMakeAudioPlayerFactory)>(entry)());
}

}  // namespace mireval
