#pragma once

#include <pulse/operation.h>
#include <pulse/proplist.h>
#include <pulse/stream.h>
#include <pulse/thread-mainloop.h>

#include <memory>

namespace mireval {

/// Ends and releases objects of libpulse. All but the thread and the property list need its lock.
struct PulseDeleter {
  void operator()(pa_threaded_mainloop* mainloop) const;
  void operator()(pa_context* context) const;
  void operator()(pa_stream* stream) const;
  void operator()(pa_operation* operation) const { pa_operation_unref(operation); }
  void operator()(pa_proplist* properties) const { pa_proplist_free(properties); }
};

template <typename Object>
using PulsePointer = std::unique_ptr<Object, PulseDeleter>;

}  // namespace mireval
