#pragma once

#include <memory>

struct pa_context;
struct pa_operation;
struct pa_proplist;
struct pa_stream;
struct pa_threaded_mainloop;

namespace mireval {

/// Ends and releases objects of libpulse. All but the thread and the property list need its lock.
struct PulseDeleter {
  void operator()(pa_threaded_mainloop* mainloop) const;
  void operator()(pa_context* context) const;
  void operator()(pa_stream* stream) const;
  void operator()(pa_operation* operation) const;
  void operator()(pa_proplist* properties) const;
};

template <typename Object>
using PulsePointer = std::unique_ptr<Object, PulseDeleter>;

}  // namespace mireval
