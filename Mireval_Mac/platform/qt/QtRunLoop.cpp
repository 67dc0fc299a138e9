#include "platform/qt/QtRunLoop.h"

#include <QTimer>

#include <utility>
#include <vector>

namespace mireval {

class QtRunLoop::Timer final : public RepeatingTimer {
 public:
  Timer(std::chrono::milliseconds interval, std::function<void()> block) : m_block(std::move(block)) {
    m_timer.setTimerType(Qt::CoarseTimer);
    m_timer.setInterval(interval);
    // The copy keeps the block alive while it runs, even if it invalidates its own timer.
    QObject::connect(&m_timer, &QTimer::timeout, &m_timer, [this] {
      const auto block = m_block;
      block();
    });
    m_timer.start();
  }

  void invalidate() override { m_timer.stop(); }

  bool isValid() const { return m_timer.isActive(); }

 private:
  std::function<void()> m_block;
  QTimer m_timer;
};

std::shared_ptr<RepeatingTimer> QtRunLoop::scheduleRepeatingTimer(std::chrono::milliseconds interval,
                                                                  std::function<void()> block) {
  std::erase_if(m_timers, [](const auto& timer) { return !timer->isValid(); });
  return m_timers.emplace_back(std::make_shared<Timer>(interval, std::move(block)));
}

}  // namespace mireval
