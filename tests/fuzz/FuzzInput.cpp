#include "FuzzInput.h"

#include <QString>

#include <algorithm>

namespace mireval {

std::string FuzzInput::text() {
  const auto end = std::ranges::find(m_bytes, std::uint8_t{0});
  const auto bytes = take(static_cast<std::size_t>(end - m_bytes.begin()));
  take(1);
  return {bytes.begin(), bytes.end()};
}

std::string FuzzInput::utf8Text() {
  return QString::fromStdString(text()).toStdString();
}

std::span<const std::uint8_t> FuzzInput::take(std::size_t count) {
  const auto taken = m_bytes.first(std::min(count, m_bytes.size()));
  m_bytes = m_bytes.subspan(taken.size());
  return taken;
}

}  // namespace mireval
