#pragma once

#include <chrono>
#include <functional>

namespace mireval {

/// Runs the event loop until the condition holds; false when it does not in time.
bool waitFor(const std::function<bool()>& condition,
             std::chrono::milliseconds limit = std::chrono::seconds(10));

}  // namespace mireval
