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
  QList<std::uint32_t> characters = QString::fromStdString(text()).toUcs4();
  // Valid UTF-8, yet refused by sd-bus.
  characters.removeIf([](std::uint32_t character) { return QChar::isNonCharacter(character); });
  return QString::fromUcs4(reinterpret_cast<const char32_t*>(characters.constData()), characters.size())
      .toStdString();
}

std::span<const std::uint8_t> FuzzInput::take(std::size_t count) {
  const auto taken = m_bytes.first(std::min(count, m_bytes.size()));
  m_bytes = m_bytes.subspan(taken.size());
  return taken;
}

}  // namespace mireval
