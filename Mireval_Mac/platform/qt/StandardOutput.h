#pragma once

#include "platform/DebugOutput.h"

namespace mireval {

/// The process's standard output, as UTF-8, flushed after each line. The process ignores SIGPIPE, or ends
/// when nobody reads its output any more.
class StandardOutput final : public DebugOutput {
 public:
  void writeLine(QStringView line) override;
};

}  // namespace mireval
