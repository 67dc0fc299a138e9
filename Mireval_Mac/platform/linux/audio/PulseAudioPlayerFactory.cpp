#include "platform/linux/audio/PulseAudioPlayerFactory.h"

#include "platform/linux/audio/AudioDecoder.h"
#include "platform/linux/audio/PulseAudioPlayer.h"
#include "platform/linux/audio/PulseServer.h"

#include <utility>

namespace mireval {

void PulseAudioPlayerFactory::warmUp() {
  connect();
}

tl::expected<void, QString> PulseAudioPlayerFactory::connect() {
  if (!m_server) {
    m_server = std::make_shared<PulseServer>();
  }
  const PulseServer::Lock lock(*m_server);
  return m_server->connect();
}

AudioPlayerResult PulseAudioPlayerFactory::create(const std::filesystem::path& file) {
  // Connecting goes on in the background while the file is opened.
  const auto connected = connect();
  auto decoder = AudioDecoder::open(file);
  if (!decoder) {
    return tl::make_unexpected(decoder.error());
  }
  if (!connected) {
    return tl::make_unexpected(connected.error());
  }
  return std::make_unique<PulseAudioPlayer>(m_server, file, *std::move(decoder));
}

}  // namespace mireval
