#pragma once

#include <xkbcommon/xkbcommon.h>

#include <cstdint>
#include <memory>
#include <optional>
#include <string>

namespace mireval::test {

/// A keyboard with the American layout.
class Keymap final {
 public:
  /// Throws std::runtime_error without the system's keyboard data.
  Keymap();

  /// The form in which a keyboard passes it to the desktop.
  std::string text() const;

  /// The kernel's code of the key that gives this symbol by itself, such as "Escape", "space" or "a".
  std::optional<std::uint32_t> keyCode(const std::string& symbol) const;

 private:
  template <auto unref>
  struct Unref {
    void operator()(auto* object) const { unref(object); }
  };

  std::unique_ptr<xkb_context, Unref<xkb_context_unref>> m_context;
  std::unique_ptr<xkb_keymap, Unref<xkb_keymap_unref>> m_keymap;
};

}  // namespace mireval::test
