#include "platform/qt/StandardError.h"

#include <cstdio>

namespace mireval {

void StandardError::say(std::string_view text) {
  std::fprintf(stderr, "mireval: %.*s\n", static_cast<int>(text.size()), text.data());
}

}  // namespace mireval
