#pragma once

#include "platform/Notices.h"

namespace mireval {

/// The process's standard error, after the program's name. What would block is lost. The process must ignore
/// SIGPIPE.
class StandardError final : public Notices {
 public:
  void say(std::string_view text) override;

  /// From now on Qt's own messages are written in the same way, without the program's name.
  static void takeQtMessages();
};

}  // namespace mireval
