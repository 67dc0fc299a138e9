#pragma once

#include <sys/socket.h>
#include <sys/un.h>

#include <cstring>
#include <optional>
#include <string_view>

namespace mireval {

/// The address of a socket in the file system; nothing when the path is too long for one.
inline std::optional<sockaddr_un> unixSocketAddress(std::string_view path) {
  sockaddr_un address{};
  address.sun_family = AF_UNIX;
  if (path.size() >= sizeof address.sun_path) {
    return std::nullopt;
  }
  std::memcpy(address.sun_path, path.data(), path.size());
  return address;
}

}  // namespace mireval
