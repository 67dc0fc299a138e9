#pragma once

#include "platform/MemoryPressure.h"

namespace mireval {

/// A system whose memory runs short when the test says so.
class FakeMemoryPressure final : public MemoryPressure {
 public:
  void runShort() { Q_EMIT memoryIsShort(); }
};

}  // namespace mireval
