#pragma once

#include "platform/DebugOutput.h"

namespace mireval {

/// The process's standard output, as UTF-8, flushed after each line.
class StandardOutput final : public DebugOutput {
 public:
  void writeLine(QStringView line) override;
};

}  // namespace mireval
