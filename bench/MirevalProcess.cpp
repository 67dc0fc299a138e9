// The player without its panel, as a process that is told by a socket what to do, as its peers are.
//
// usage: mireval_player FOLDER SOCKET
//
// FOLDER holds PreviewAudio/focus-1.m4a and focus-2.m4a. One client may connect; it sends the lines `play`
// and `stop`.

#include "MirevalPlayer.h"

#include "platform/linux/posix/FileDescriptor.h"
#include "platform/linux/posix/UnixSocketAddress.h"

#include <QCoreApplication>
#include <QSocketNotifier>

#include <sys/socket.h>
#include <unistd.h>

#include <array>
#include <cstdio>
#include <string>
#include <string_view>

namespace mireval::bench {
namespace {

/// Waits for a client. Not open when that fails.
FileDescriptor acceptAt(const char* path) {
  const FileDescriptor listener(socket(AF_UNIX, SOCK_STREAM | SOCK_CLOEXEC, 0));
  const auto address = unixSocketAddress(path);
  if (!listener.isOpen() || !address ||
      bind(listener.get(), reinterpret_cast<const sockaddr*>(&*address), sizeof *address) != 0 ||
      listen(listener.get(), 1) != 0) {
    return FileDescriptor();
  }
  return FileDescriptor(accept4(listener.get(), nullptr, nullptr, SOCK_CLOEXEC));
}

void obey(std::string_view line, Player& player) {
  if (line == "play") {
    player.play();
  } else if (line == "stop") {
    player.stop();
  }
}

int run(QCoreApplication& application, const char* folder, const char* socketPath) {
  MirevalPlayer player(folder);
  const FileDescriptor client = acceptAt(socketPath);
  if (!client.isOpen()) {
    std::perror("mireval_player");
    return 1;
  }
  std::string received;
  const QSocketNotifier notifier(client.get(), QSocketNotifier::Read);
  QObject::connect(&notifier, &QSocketNotifier::activated, [&] {
    std::array<char, 256> piece{};
    const ssize_t size = read(client.get(), piece.data(), piece.size());
    if (size <= 0) {
      application.quit();
      return;
    }
    received.append(piece.data(), static_cast<std::size_t>(size));
    for (std::size_t end = 0; (end = received.find('\n')) != std::string::npos; received.erase(0, end + 1)) {
      obey(std::string_view(received).substr(0, end), player);
    }
  });
  return QCoreApplication::exec();
}

}  // namespace
}  // namespace mireval::bench

int main(int argc, char** argv) {
  QCoreApplication application(argc, argv);
  if (argc != 3) {
    std::fprintf(stderr, "usage: mireval_player FOLDER SOCKET\n");
    return 2;
  }
  return mireval::bench::run(application, argv[1], argv[2]);
}
