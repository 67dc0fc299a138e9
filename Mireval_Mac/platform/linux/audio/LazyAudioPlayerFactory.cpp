#include "platform/linux/audio/LazyAudioPlayerFactory.h"

#include "platform/linux/audio/AudioModule.h"
#include "platform/qt/ApplicationFile.h"

#include <dlfcn.h>

#include <utility>

namespace mireval {
namespace {

namespace fs = std::filesystem;

constexpr const char* moduleName = "libmireval-audio.so";

}  // namespace

LazyAudioPlayerFactory::LazyAudioPlayerFactory(fs::path module) : m_module(std::move(module)) {}

LazyAudioPlayerFactory::~LazyAudioPlayerFactory() {
  if (m_loader.joinable()) {
    m_loader.join();
  }
}

fs::path LazyAudioPlayerFactory::moduleOfApplication() {
  return applicationFile(moduleName, fs::path("../lib/mireval/modules") / moduleName);
}

void LazyAudioPlayerFactory::warmUp() {
  // While the thread runs, only it may use the other members.
  if (!m_loader.joinable() && !m_factory) {
    m_loader = std::thread([this] {
      load();
      if (m_factory) {
        m_factory->warmUp();
      }
    });
  }
}

AudioPlayerResult LazyAudioPlayerFactory::create(const fs::path& file) {
  if (m_loader.joinable()) {
    m_loader.join();
  }
  if (!m_factory) {
    load();
  }
  return m_factory ? m_factory->create(file) : tl::make_unexpected(m_error);
}

void LazyAudioPlayerFactory::load() {
  void* const module = dlopen(m_module.c_str(), RTLD_NOW | RTLD_LOCAL);
  void* const entry = module != nullptr ? dlsym(module, audioModuleFunction) : nullptr;
  if (entry == nullptr) {
    m_error = QString::fromLocal8Bit(dlerror());
    return;
  }
  m_factory.reset(reinterpret_cast<decltype(&mirevalMakeAudioPlayerFactory)>(entry)());
}

}  // namespace mireval
