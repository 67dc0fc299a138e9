#pragma once

#include "platform/RunLoop.h"

#include <vector>

namespace mireval {

/// Timers of Qt's event loop. They are coarse (within 5 % of the interval), so the system can combine
/// wake-ups.
class QtRunLoop final : public RunLoop {
 public:
  std::shared_ptr<RepeatingTimer> scheduleRepeatingTimer(std::chrono::milliseconds interval,
                                                         std::function<void()> block) override;

 private:
  class Timer;

  std::vector<std::shared_ptr<Timer>> m_timers;
};

}  // namespace mireval
