#include "platform/linux/audio/PulseAudioPlayerFactory.h"

#include "platform/linux/audio/AudioDecoder.h"
#include "platform/linux/audio/PulseAudioPlayer.h"
#include "platform/linux/audio/PulseServer.h"

#include <utility>

namespace mireval {

PulseAudioPlayerFactory::PulseAudioPlayerFactory() = default;

PulseAudioPlayerFactory::~PulseAudioPlayerFactory() = default;

void PulseAudioPlayerFactory::warmUp() {
  connect();
}

bool PulseAudioPlayerFactory::connect() {
  if (!m_server) {
    m_server = std::make_shared<PulseServer>();
  }
  const PulseServer::Lock lock(*m_server);
  return m_server->connect();
}

AudioPlayerResult PulseAudioPlayerFactory::create(const std::filesystem::path& file) {
  // Connecting goes on in the background while the file is opened.
  const bool serverMayAnswer = connect();
  AudioDecoderResult opened = AudioDecoder::open(file);
  if (!opened.decoder) {
    return {.player = nullptr, .error = opened.error};
  }
  if (!serverMayAnswer) {
    const PulseServer::Lock lock(*m_server);
    return {.player = nullptr, .error = m_server->error()};
  }
  return {.player = std::make_unique<PulseAudioPlayer>(m_server, file, std::move(opened.decoder)),
          .error = {}};
}

}  // namespace mireval
