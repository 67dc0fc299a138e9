#include "platform/linux/audio/PulseAudioPlayerFactory.h"

#include "platform/linux/audio/AudioDecoder.h"
#include "platform/linux/audio/PulseAudioPlayer.h"
#include "platform/linux/audio/PulseServer.h"

#include <utility>

namespace mireval {

void PulseAudioPlayerFactory::warmUp() {
  if (!m_server) {
    m_server = std::make_shared<PulseServer>(m_notices);
  }
  const PulseServer::Lock lock(*m_server);
  m_server->connect();
}

AudioPlayerResult PulseAudioPlayerFactory::create(const std::filesystem::path& file, const QString& title) {
  // Connecting goes on in the background while the file is opened.
  warmUp();
  auto decoder = AudioDecoder::open(file);
  if (!decoder) {
    return tl::make_unexpected(decoder.error());
  }
  return std::make_unique<PulseAudioPlayer>(m_server, file, title, *std::move(decoder));
}

}  // namespace mireval
