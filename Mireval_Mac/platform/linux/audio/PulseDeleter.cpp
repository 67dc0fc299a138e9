#include "platform/linux/audio/PulseDeleter.h"

namespace mireval {
namespace {

/// Closes a stream that the server had not yet confirmed when it was released.
void closeOnceConfirmed(pa_stream* stream, void*) {
  switch (pa_stream_get_state(stream)) {
    case PA_STREAM_READY:
      pa_stream_disconnect(stream);
      break;
    case PA_STREAM_FAILED:
    case PA_STREAM_TERMINATED:
      pa_stream_set_state_callback(stream, nullptr, nullptr);
      pa_stream_unref(stream);
      break;
    default:
      break;
  }
}

}  // namespace

void PulseDeleter::operator()(pa_threaded_mainloop* mainloop) const {
  pa_threaded_mainloop_stop(mainloop);
  pa_threaded_mainloop_free(mainloop);
}

void PulseDeleter::operator()(pa_context* context) const {
  pa_context_set_state_callback(context, nullptr, nullptr);
  pa_context_disconnect(context);
  pa_context_unref(context);
}

void PulseDeleter::operator()(pa_stream* stream) const {
  pa_stream_set_write_callback(stream, nullptr, nullptr);
  pa_stream_set_started_callback(stream, nullptr, nullptr);
  pa_stream_set_underflow_callback(stream, nullptr, nullptr);
  if (pa_stream_get_state(stream) == PA_STREAM_CREATING) {
    pa_stream_set_state_callback(stream, closeOnceConfirmed, nullptr);
    return;
  }
  pa_stream_set_state_callback(stream, nullptr, nullptr);
  pa_stream_disconnect(stream);
  pa_stream_unref(stream);
}

}  // namespace mireval
