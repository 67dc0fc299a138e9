#include "VirtualInput.h"

#include "virtual-keyboard-client-protocol.h"
#include "virtual-pointer-client-protocol.h"

#include <linux/input-event-codes.h>
#include <sys/mman.h>
#include <unistd.h>

#include <chrono>
#include <stdexcept>

namespace mireval::test {
namespace {

// How far a window scrolls for one notch, as usual mice have it.
constexpr int notchLength = 15;

// Of any origin, as the protocols have it.
std::uint32_t now() {
  const auto time = std::chrono::steady_clock::now().time_since_epoch();
  return static_cast<std::uint32_t>(std::chrono::duration_cast<std::chrono::milliseconds>(time).count());
}

std::uint32_t codeOf(VirtualInput::Button button) {
  switch (button) {
    case VirtualInput::Button::left:
      return BTN_LEFT;
    case VirtualInput::Button::middle:
      return BTN_MIDDLE;
    case VirtualInput::Button::right:
      return BTN_RIGHT;
  }
  throw std::runtime_error("there is no such button");
}

template <typename Object>
Object* bind(wl_registry* registry, std::uint32_t name, const wl_interface& interface) {
  return static_cast<Object*>(wl_registry_bind(registry, name, &interface, 1));
}

}  // namespace

VirtualInput::VirtualInput() : m_display(wl_display_connect(nullptr)) {
  if (!m_display) {
    throw std::runtime_error("there is no Wayland desktop");
  }
  m_registry.reset(wl_display_get_registry(m_display.get()));
  static constexpr wl_registry_listener listener{
      .global =
          [](void* self, wl_registry* registry, std::uint32_t name, const char* interface, std::uint32_t) {
            static_cast<VirtualInput*>(self)->bindGlobal(registry, name, interface);
          },
      .global_remove = [](void*, wl_registry*, std::uint32_t) {}};
  wl_registry_add_listener(m_registry.get(), &listener, this);
  finish();
  if (!m_seat || !m_pointers || !m_keyboards) {
    throw std::runtime_error("the desktop has no virtual devices");
  }
  m_pointer.reset(zwlr_virtual_pointer_manager_v1_create_virtual_pointer(m_pointers.get(), m_seat.get()));
  m_keyboard.reset(zwp_virtual_keyboard_manager_v1_create_virtual_keyboard(m_keyboards.get(), m_seat.get()));
  sendKeymap();
}

void VirtualInput::bindGlobal(wl_registry* registry, std::uint32_t name, const std::string& interface) {
  if (interface == wl_seat_interface.name && !m_seat) {
    m_seat.reset(bind<wl_seat>(registry, name, wl_seat_interface));
  } else if (interface == zwlr_virtual_pointer_manager_v1_interface.name) {
    m_pointers.reset(
        bind<zwlr_virtual_pointer_manager_v1>(registry, name, zwlr_virtual_pointer_manager_v1_interface));
  } else if (interface == zwp_virtual_keyboard_manager_v1_interface.name) {
    m_keyboards.reset(
        bind<zwp_virtual_keyboard_manager_v1>(registry, name, zwp_virtual_keyboard_manager_v1_interface));
  }
}

void VirtualInput::sendKeymap() {
  const std::string text = m_keymap.text();
  const std::size_t size = text.size() + 1;
  const int file = memfd_create("keymap", MFD_CLOEXEC);
  const bool isWritten = file >= 0 && write(file, text.c_str(), size) == static_cast<ssize_t>(size);
  if (isWritten) {
    zwp_virtual_keyboard_v1_keymap(m_keyboard.get(), WL_KEYBOARD_KEYMAP_FORMAT_XKB_V1, file,
                                   static_cast<std::uint32_t>(size));
    wl_display_flush(m_display.get());
  }
  close(file);
  if (!isWritten) {
    throw std::runtime_error("cannot pass the keyboard layout");
  }
  finish();
}

void VirtualInput::move(std::uint32_t x, std::uint32_t y, std::uint32_t width, std::uint32_t height) {
  zwlr_virtual_pointer_v1_motion_absolute(m_pointer.get(), now(), x, y, width, height);
  zwlr_virtual_pointer_v1_frame(m_pointer.get());
  finish();
}

void VirtualInput::press(Button button) {
  setButton(button, WL_POINTER_BUTTON_STATE_PRESSED);
}

void VirtualInput::release(Button button) {
  setButton(button, WL_POINTER_BUTTON_STATE_RELEASED);
}

void VirtualInput::setButton(Button button, std::uint32_t state) {
  zwlr_virtual_pointer_v1_button(m_pointer.get(), now(), codeOf(button), state);
  zwlr_virtual_pointer_v1_frame(m_pointer.get());
  finish();
}

void VirtualInput::scroll(int notches) {
  zwlr_virtual_pointer_v1_axis_source(m_pointer.get(), WL_POINTER_AXIS_SOURCE_WHEEL);
  zwlr_virtual_pointer_v1_axis_discrete(m_pointer.get(), now(), WL_POINTER_AXIS_VERTICAL_SCROLL,
                                        wl_fixed_from_int(notches * notchLength), notches);
  zwlr_virtual_pointer_v1_frame(m_pointer.get());
  finish();
}

void VirtualInput::type(const std::string& symbol) {
  const auto key = m_keymap.keyCode(symbol);
  if (!key) {
    throw std::runtime_error("there is no key for " + symbol);
  }
  for (const auto state : {WL_KEYBOARD_KEY_STATE_PRESSED, WL_KEYBOARD_KEY_STATE_RELEASED}) {
    zwp_virtual_keyboard_v1_key(m_keyboard.get(), now(), *key, state);
    finish();
  }
}

void VirtualInput::finish() {
  if (wl_display_roundtrip(m_display.get()) < 0) {
    throw std::runtime_error("the desktop has gone or refuses the devices");
  }
}

}  // namespace mireval::test
