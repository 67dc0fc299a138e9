#pragma once

#include <pulse/context.h>
#include <pulse/mainloop.h>
#include <pulse/operation.h>
#include <pulse/proplist.h>
#include <pulse/stream.h>
#include <pulse/thread-mainloop.h>

#include <memory>

namespace mireval {

/// From now on libpulse tells nobody about the stream.
inline void removeCallbacks(pa_stream* stream) {
  pa_stream_set_state_callback(stream, nullptr, nullptr);
  pa_stream_set_write_callback(stream, nullptr, nullptr);
  pa_stream_set_started_callback(stream, nullptr, nullptr);
  pa_stream_set_underflow_callback(stream, nullptr, nullptr);
}

/// Ends and releases objects of libpulse. Those of the server's thread need its lock.
struct PulseDeleter {
  void operator()(pa_operation* operation) const { pa_operation_unref(operation); }
  void operator()(pa_proplist* properties) const { pa_proplist_free(properties); }
  void operator()(pa_mainloop* mainloop) const { pa_mainloop_free(mainloop); }
  void operator()(pa_threaded_mainloop* mainloop) const {
    pa_threaded_mainloop_stop(mainloop);
    pa_threaded_mainloop_free(mainloop);
  }
  void operator()(pa_context* context) const {
    pa_context_set_state_callback(context, nullptr, nullptr);
    pa_context_disconnect(context);
    pa_context_unref(context);
  }
  void operator()(pa_stream* stream) const {
    removeCallbacks(stream);
    pa_stream_set_state_callback(stream, close, nullptr);
    close(stream, nullptr);
  }

 private:
  /// Closes the stream, unless the server has yet to confirm it: libpulse calls this again then.
  static void close(pa_stream* stream, void*) {
    if (pa_stream_get_state(stream) == PA_STREAM_CREATING) {
      return;
    }
    pa_stream_set_state_callback(stream, nullptr, nullptr);
    pa_stream_disconnect(stream);
    pa_stream_unref(stream);
  }
};

/// Owns an object of libpulse, or none.
template <typename Object>
using PulsePointer = std::unique_ptr<Object, PulseDeleter>;

}  // namespace mireval
