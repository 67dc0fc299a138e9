#include "fakes/FakeRunLoop.h"

#include <algorithm>
#include <utility>

namespace mireval {

using namespace Qt::StringLiterals;

class FakeRunLoop::Timer final : public RepeatingTimer {
 public:
  Timer(std::size_t number, std::function<void()> block, std::shared_ptr<EventLog> log)
      : m_number(number), m_block(std::move(block)), m_log(std::move(log)) {}

  void invalidate() override {
    m_valid = false;
    m_log->add(u"runLoop: timer %1 invalidated"_s.arg(m_number));
  }

  bool isValid() const { return m_valid; }
  void fire() const { m_block(); }

 private:
  const std::size_t m_number;
  const std::function<void()> m_block;
  const std::shared_ptr<EventLog> m_log;
  bool m_valid = true;
};

FakeRunLoop::FakeRunLoop(std::shared_ptr<EventLog> log) : m_log(std::move(log)) {}

std::shared_ptr<RepeatingTimer> FakeRunLoop::scheduleRepeatingTimer(std::chrono::milliseconds interval,
                                                                    std::function<void()> block) {
  const std::size_t number = m_timers.size() + 1;
  m_log->add(u"runLoop: timer %1 every %2 ms"_s.arg(number).arg(interval.count()));
  return m_timers.emplace_back(std::make_shared<Timer>(number, std::move(block), m_log));
}

void FakeRunLoop::tick() const {
  const auto timers = m_timers;
  for (const auto& timer : timers) {
    if (timer->isValid()) {
      timer->fire();
    }
  }
}

std::size_t FakeRunLoop::runningTimers() const {
  return static_cast<std::size_t>(
      std::ranges::count_if(m_timers, [](const auto& timer) { return timer->isValid(); }));
}

}  // namespace mireval
