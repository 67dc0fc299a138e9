#pragma once

#include <QByteArray>
#include <QPoint>
#include <QRegion>
#include <QSize>

#include <xcb/shape.h>
#include <xcb/xcb.h>

#include <cstdint>
#include <initializer_list>
#include <optional>
#include <string_view>
#include <vector>

namespace mireval {

/// Questions to the X server, over the application's own connection. They wait for the server's answer. A
/// property counts as absent when its window has just gone or when it has another type.
class X11Connection final {
 public:
  /// Nothing when the application does not show its windows on an X server.
  static std::optional<X11Connection> forApplication();

  bool hasExtension(std::string_view name) const;
  bool selectionHasOwner(std::string_view selection) const;

  /// Of the screen that shows the application's windows; a display may have several, each with its own root.
  int screenNumber() const { return m_screenNumber; }
  xcb_window_t root() const { return m_screen->root; }
  /// In pixels, over all screens.
  QSize rootSize() const { return {m_screen->width_in_pixels, m_screen->height_in_pixels}; }
  /// Of the pointer, in pixels on the root window.
  std::optional<QPoint> pointer() const;

  /// Whether it is inside of another window than the root.
  bool isEmbedded(xcb_window_t window) const;

  /// XCB_ATOM_NONE if nobody has used the name yet: then there is nothing to find under it.
  xcb_atom_t atom(std::string_view name) const { return atom(name, Make::no); }
  std::vector<xcb_window_t> windows(xcb_window_t window, xcb_atom_t property) const;
  std::vector<std::uint32_t> cardinals(xcb_window_t window, xcb_atom_t property) const;
  /// In UTF-8.
  QByteArray text(xcb_window_t window, xcb_atom_t property) const;

  /// Adds to a property that lists atoms.
  void addAtoms(xcb_window_t window, std::string_view property,
                std::initializer_list<std::string_view> added) const;

  void setCardinals(xcb_window_t window, std::string_view property,
                    std::initializer_list<std::uint32_t> values) const;

  /// At once, whoever has it. The window has to be viewable.
  void giveKeyboardTo(xcb_window_t window) const;

  /// The window is there only where the region is, for the eye and for the pointer. In pixels from its
  /// top-left corner.
  void setShape(xcb_window_t window, const QRegion& pixels) const;
  /// The same for the pointer only.
  void setInputShape(xcb_window_t window, const QRegion& pixels) const;

 private:
  X11Connection(xcb_connection_t* connection, const xcb_screen_t* screen, int screenNumber)
      : m_connection(connection), m_screen(screen), m_screenNumber(screenNumber) {}

  enum class Make : std::uint8_t { no, yes };

  xcb_atom_t atom(std::string_view name, Make make) const;
  void setShape(xcb_window_t window, const QRegion& pixels, xcb_shape_kind_t kind) const;
  QByteArray bytes(xcb_window_t window, xcb_atom_t property, xcb_atom_t type, int format) const;

  xcb_connection_t* m_connection;
  const xcb_screen_t* m_screen;
  int m_screenNumber;
};

}  // namespace mireval
