#include "Keymap.h"

#include <cstdlib>
#include <stdexcept>

namespace mireval::test {
namespace {

// XKB counts from the first code that X has for a key.
constexpr xkb_keycode_t firstXkbCode = 8;

}  // namespace

Keymap::Keymap() : m_context(xkb_context_new(XKB_CONTEXT_NO_ENVIRONMENT_NAMES)) {
  const xkb_rule_names american{
      .rules = nullptr, .model = nullptr, .layout = "us", .variant = nullptr, .options = nullptr};
  m_keymap.reset(xkb_keymap_new_from_names(m_context.get(), &american, XKB_KEYMAP_COMPILE_NO_FLAGS));
  if (!m_keymap) {
    throw std::runtime_error("there is no keyboard layout");
  }
}

std::string Keymap::text() const {
  const std::unique_ptr<char, Unref<std::free>> text(
      xkb_keymap_get_as_string(m_keymap.get(), XKB_KEYMAP_FORMAT_TEXT_V1));
  return text ? text.get() : "";
}

std::optional<std::uint32_t> Keymap::keyCode(const std::string& symbol) const {
  const xkb_keysym_t wanted = xkb_keysym_from_name(symbol.c_str(), XKB_KEYSYM_NO_FLAGS);
  if (wanted == XKB_KEY_NoSymbol) {
    return std::nullopt;
  }
  const xkb_keycode_t last = xkb_keymap_max_keycode(m_keymap.get());
  for (xkb_keycode_t key = xkb_keymap_min_keycode(m_keymap.get()); key <= last; ++key) {
    const xkb_keysym_t* symbols = nullptr;
    if (xkb_keymap_key_get_syms_by_level(m_keymap.get(), key, 0, 0, &symbols) == 1 && symbols[0] == wanted) {
      return key - firstXkbCode;
    }
  }
  return std::nullopt;
}

}  // namespace mireval::test
