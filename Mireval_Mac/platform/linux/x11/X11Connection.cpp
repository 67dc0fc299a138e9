#include "platform/linux/x11/X11Connection.h"

#include <QGuiApplication>

#include <cstdlib>
#include <cstring>
#include <memory>

namespace mireval {
namespace {

// The most that is read of a property, in units of four bytes: enough for a thousand windows. Any client can
// set properties, so there has to be a limit.
constexpr std::uint32_t propertyLimit = 1024;

struct Free {
  void operator()(void* memory) const { std::free(memory); }
};

/// To what libxcb has allocated.
template <typename Value>
using Pointer = std::unique_ptr<Value, Free>;

template <typename Value>
std::vector<Value> valuesIn(const QByteArray& bytes) {
  std::vector<Value> values(static_cast<std::size_t>(bytes.size()) / sizeof(Value));
  std::memcpy(values.data(), bytes.constData(), values.size() * sizeof(Value));
  return values;
}

}  // namespace

std::optional<X11Connection> X11Connection::forApplication() {
  const auto* const x11 = qGuiApp->nativeInterface<QNativeInterface::QX11Application>();
  // A platform without a screen offers the interface but no connection.
  xcb_connection_t* const connection = x11 != nullptr ? x11->connection() : nullptr;
  if (connection == nullptr || xcb_connection_has_error(connection) != 0) {
    return std::nullopt;
  }
  int number = 0;
  int display = 0;
  char* host = nullptr;
  xcb_parse_display(nullptr, &host, &display, &number);
  const Pointer<char> freed(host);
  xcb_screen_iterator_t screens = xcb_setup_roots_iterator(xcb_get_setup(connection));
  for (int i = 0; i < number && screens.rem > 1; ++i) {
    xcb_screen_next(&screens);
  }
  return X11Connection(connection, screens.data, number);
}

bool X11Connection::hasExtension(std::string_view name) const {
  const Pointer<xcb_query_extension_reply_t> reply(xcb_query_extension_reply(
      m_connection, xcb_query_extension(m_connection, static_cast<std::uint16_t>(name.size()), name.data()),
      nullptr));
  return reply && reply->present != 0;
}

bool X11Connection::selectionHasOwner(std::string_view selection) const {
  const xcb_atom_t name = atom(selection);
  const Pointer<xcb_get_selection_owner_reply_t> reply(
      xcb_get_selection_owner_reply(m_connection, xcb_get_selection_owner(m_connection, name), nullptr));
  return reply && reply->owner != XCB_WINDOW_NONE;
}

std::optional<QPoint> X11Connection::pointer() const {
  const Pointer<xcb_query_pointer_reply_t> reply(
      xcb_query_pointer_reply(m_connection, xcb_query_pointer(m_connection, root()), nullptr));
  if (!reply || reply->same_screen == 0) {
    return std::nullopt;
  }
  return QPoint(reply->root_x, reply->root_y);
}

bool X11Connection::isEmbedded(xcb_window_t window) const {
  const Pointer<xcb_query_tree_reply_t> reply(
      xcb_query_tree_reply(m_connection, xcb_query_tree(m_connection, window), nullptr));
  return reply && reply->parent != reply->root;
}

std::vector<xcb_window_t> X11Connection::windows(xcb_window_t window, xcb_atom_t property) const {
  return valuesIn<xcb_window_t>(bytes(window, property, XCB_ATOM_WINDOW, 32));
}

std::vector<std::uint32_t> X11Connection::cardinals(xcb_window_t window, xcb_atom_t property) const {
  return valuesIn<std::uint32_t>(bytes(window, property, XCB_ATOM_CARDINAL, 32));
}

QByteArray X11Connection::text(xcb_window_t window, xcb_atom_t property) const {
  return bytes(window, property, atom("UTF8_STRING"), 8);
}

void X11Connection::addAtoms(xcb_window_t window, std::string_view property,
                             std::initializer_list<std::string_view> added) const {
  std::vector<xcb_atom_t> atoms;
  for (const std::string_view name : added) {
    atoms.push_back(atom(name, Make::yes));
  }
  xcb_change_property(m_connection, XCB_PROP_MODE_APPEND, window, atom(property, Make::yes), XCB_ATOM_ATOM,
                      32, static_cast<std::uint32_t>(atoms.size()), atoms.data());
}

xcb_atom_t X11Connection::atom(std::string_view name, Make make) const {
  const Pointer<xcb_intern_atom_reply_t> reply(
      xcb_intern_atom_reply(m_connection,
                            xcb_intern_atom(m_connection, make == Make::no ? 1 : 0,
                                            static_cast<std::uint16_t>(name.size()), name.data()),
                            nullptr));
  return reply ? reply->atom : xcb_atom_t{XCB_ATOM_NONE};
}

QByteArray X11Connection::bytes(xcb_window_t window, xcb_atom_t property, xcb_atom_t type, int format) const {
  if (property == XCB_ATOM_NONE || type == XCB_ATOM_NONE) {
    return {};
  }
  const Pointer<xcb_get_property_reply_t> reply(xcb_get_property_reply(
      m_connection, xcb_get_property(m_connection, 0, window, property, type, 0, propertyLimit), nullptr));
  if (!reply || reply->type != type || reply->format != format) {
    return {};
  }
  return {static_cast<const char*>(xcb_get_property_value(reply.get())),
          xcb_get_property_value_length(reply.get())};
}

void X11Connection::setCardinals(xcb_window_t window, std::string_view property,
                                 std::initializer_list<std::uint32_t> values) const {
  xcb_change_property(m_connection, XCB_PROP_MODE_REPLACE, window, atom(property, Make::yes),
                      XCB_ATOM_CARDINAL, 32, static_cast<std::uint32_t>(values.size()), values.begin());
}

void X11Connection::giveKeyboardTo(xcb_window_t window) const {
  xcb_set_input_focus(m_connection, XCB_INPUT_FOCUS_PARENT, window, XCB_CURRENT_TIME);
  xcb_flush(m_connection);
}

void X11Connection::setShape(xcb_window_t window, const QRegion& pixels) const {
  setShape(window, pixels, XCB_SHAPE_SK_BOUNDING);
}

void X11Connection::setInputShape(xcb_window_t window, const QRegion& pixels) const {
  setShape(window, pixels, XCB_SHAPE_SK_INPUT);
}

void X11Connection::setShape(xcb_window_t window, const QRegion& pixels, xcb_shape_kind_t kind) const {
  if (!hasExtension("SHAPE")) {
    return;
  }
  std::vector<xcb_rectangle_t> rectangles;
  for (const QRect& part : pixels) {
    rectangles.push_back({.x = static_cast<std::int16_t>(part.x()),
                          .y = static_cast<std::int16_t>(part.y()),
                          .width = static_cast<std::uint16_t>(part.width()),
                          .height = static_cast<std::uint16_t>(part.height())});
  }
  xcb_shape_rectangles(m_connection, XCB_SHAPE_SO_SET, kind, XCB_CLIP_ORDERING_YX_BANDED, window, 0, 0,
                       static_cast<std::uint32_t>(rectangles.size()), rectangles.data());
}

}  // namespace mireval
