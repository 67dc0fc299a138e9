#pragma once

#include "Keymap.h"

#include <wayland-client.h>

#include <cstdint>
#include <memory>
#include <string>

struct zwlr_virtual_pointer_manager_v1;
struct zwlr_virtual_pointer_v1;
struct zwp_virtual_keyboard_manager_v1;
struct zwp_virtual_keyboard_v1;

namespace mireval::test {

/// A pointer and a keyboard that a Wayland desktop takes for real ones, for as long as this lives. Every call
/// returns when the desktop has had the event, and throws std::runtime_error when it cannot have it.
class VirtualInput final {
 public:
  enum class Button { left, middle, right };

  /// Connects to the desktop that WAYLAND_DISPLAY names; it must offer such devices.
  VirtualInput();

  /// The position is in the rectangle of this size that the desktop's screens take up together.
  void move(std::uint32_t x, std::uint32_t y, std::uint32_t width, std::uint32_t height);
  void press(Button button);
  void release(Button button);

  /// Turns the wheel by so many notches, down for positive ones.
  void scroll(int notches);

  /// Presses and releases the key with this symbol, as Keymap names it.
  void type(const std::string& symbol);

 private:
  struct Disconnect {
    void operator()(wl_display* display) const { wl_display_disconnect(display); }
  };
  struct Destroy {
    void operator()(auto* object) const { wl_proxy_destroy(reinterpret_cast<wl_proxy*>(object)); }
  };

  void bindGlobal(wl_registry* registry, std::uint32_t name, const std::string& interface);
  void setButton(Button button, std::uint32_t state);
  void sendKeymap();
  void finish();

  Keymap m_keymap;
  std::unique_ptr<wl_display, Disconnect> m_display;
  std::unique_ptr<wl_registry, Destroy> m_registry;
  std::unique_ptr<wl_seat, Destroy> m_seat;
  std::unique_ptr<zwlr_virtual_pointer_manager_v1, Destroy> m_pointers;
  std::unique_ptr<zwlr_virtual_pointer_v1, Destroy> m_pointer;
  std::unique_ptr<zwp_virtual_keyboard_manager_v1, Destroy> m_keyboards;
  std::unique_ptr<zwp_virtual_keyboard_v1, Destroy> m_keyboard;
};

}  // namespace mireval::test
