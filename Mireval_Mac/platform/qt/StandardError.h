#pragma once

#include "platform/Notices.h"

namespace mireval {

/// The process's standard error, after the program's name.
class StandardError final : public Notices {
 public:
  void say(std::string_view text) override;
};

}  // namespace mireval
