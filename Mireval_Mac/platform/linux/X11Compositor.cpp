#include "platform/linux/X11Compositor.h"

#include <QByteArray>
#include <QGuiApplication>

#include <xcb/xcb.h>

#include <cstdlib>
#include <memory>
#include <string_view>

namespace mireval {
namespace {

struct Free {
  void operator()(void* memory) const { std::free(memory); }
};

template <typename Reply>
using ReplyPointer = std::unique_ptr<Reply, Free>;

}  // namespace

bool X11Compositor::blendsWindows() const {
  const auto* const x11 = qGuiApp->nativeInterface<QNativeInterface::QX11Application>();
  // Other window systems blend always; one without a screen offers the interface but no connection.
  xcb_connection_t* const connection = x11 != nullptr ? x11->connection() : nullptr;
  if (connection == nullptr) {
    return true;
  }
  // A compositor owns this selection as long as it runs.
  constexpr std::string_view selection = "_NET_WM_CM_S0";
  const ReplyPointer<xcb_intern_atom_reply_t> atom(xcb_intern_atom_reply(
      connection, xcb_intern_atom(connection, 1, selection.size(), selection.data()), nullptr));
  if (!atom || atom->atom == XCB_ATOM_NONE) {
    return false;
  }
  const ReplyPointer<xcb_get_selection_owner_reply_t> owner(
      xcb_get_selection_owner_reply(connection, xcb_get_selection_owner(connection, atom->atom), nullptr));
  return owner && owner->owner != XCB_WINDOW_NONE;
}

}  // namespace mireval
