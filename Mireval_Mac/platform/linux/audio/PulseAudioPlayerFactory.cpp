#include "platform/linux/audio/PulseAudioPlayerFactory.h"

#include "platform/linux/audio/AudioDecoder.h"
#include "platform/linux/audio/PulseAudioPlayer.h"
#include "platform/linux/audio/PulseOutput.h"

#include <utility>

namespace mireval {

PulseOutput& PulseAudioPlayerFactory::output() {
  if (!m_output) {
    m_output = std::make_shared<PulseOutput>(m_notices, m_kept);
  }
  return *m_output;
}

void PulseAudioPlayerFactory::warmUp() {
  const PulseServer::Lock lock(output().server());
  m_output->expectSound();
}

void PulseAudioPlayerFactory::coolDown() {
  const PulseServer::Lock lock(output().server());
  m_output->expectNoSound();
}

AudioPlayerResult PulseAudioPlayerFactory::create(const std::filesystem::path& file, const QString& title) {
  {
    // Connecting goes on in the background while the file is opened.
    const PulseServer::Lock lock(output().server());
    m_output->server().connect();
  }
  auto decoder = AudioDecoder::open(file);
  if (!decoder) {
    return tl::make_unexpected(decoder.error());
  }
  return std::make_unique<PulseAudioPlayer>(m_output, file, title, *std::move(decoder));
}

}  // namespace mireval
