#pragma once

#include <string_view>

namespace mireval {

/// Where the application tells whoever started it what its windows cannot tell. Callable on any thread.
class Notices {
 public:
  virtual ~Notices() = default;

  /// Says the text, which is one line or more without the newline at the end. Never fails: what nobody takes
  /// is lost.
  virtual void say(std::string_view text) = 0;
};

}  // namespace mireval
