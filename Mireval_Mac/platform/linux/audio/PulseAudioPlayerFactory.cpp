#include "platform/linux/audio/PulseAudioPlayerFactory.h"

#include "platform/linux/audio/AudioDecoder.h"
#include "platform/linux/audio/PulseAudioPlayer.h"
#include "platform/linux/audio/PulseOutput.h"

#include <cerrno>
#include <cstring>
#include <utility>

namespace mireval {

/// False when the process has no descriptors left.
bool PulseAudioPlayerFactory::makeOutput() {
  if (!m_output) {
    if (auto mainloop = PulseServer::makeMainloop()) {
      m_output = std::make_shared<PulseOutput>(std::move(mainloop), m_notices, m_kept);
    }
  }
  return m_output != nullptr;
}

void PulseAudioPlayerFactory::warmUp() {
  if (makeOutput()) {
    const PulseServer::Lock lock(m_output->server());
    m_output->expectSound();
  }
}

void PulseAudioPlayerFactory::coolDown() {
  if (makeOutput()) {
    const PulseServer::Lock lock(m_output->server());
    m_output->expectNoSound();
  }
}

AudioPlayerResult PulseAudioPlayerFactory::create(const std::filesystem::path& file, const QString& title) {
  if (!makeOutput()) {
    return tl::make_unexpected(QString::fromLocal8Bit(std::strerror(EMFILE)));
  }
  {
    // Connecting goes on in the background while the file is opened.
    const PulseServer::Lock lock(m_output->server());
    m_output->server().connect();
  }
  auto decoder = AudioDecoder::open(file);
  if (!decoder) {
    return tl::make_unexpected(decoder.error());
  }
  return std::make_unique<PulseAudioPlayer>(m_output, file, title, *std::move(decoder));
}

}  // namespace mireval
