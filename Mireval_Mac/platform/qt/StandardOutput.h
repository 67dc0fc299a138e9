#pragma once

#include "platform/DebugOutput.h"

namespace mireval {

/// The process's standard output, as UTF-8. Each line is written at once, or lost where that would block. The
/// process must ignore SIGPIPE, which ends it otherwise when nobody reads its output any more.
class StandardOutput final : public DebugOutput {
 public:
  void writeLine(QStringView line) override;
};

}  // namespace mireval
