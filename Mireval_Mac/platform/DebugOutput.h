#pragma once

#include <QStringView>

namespace mireval {

/// Where debug lines go: standard output.
class DebugOutput {
 public:
  virtual ~DebugOutput() = default;

  /// Writes the text and a newline. Never fails: output without a reader is lost.
  virtual void writeLine(QStringView line) = 0;
};

}  // namespace mireval
