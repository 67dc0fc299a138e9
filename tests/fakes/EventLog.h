#pragma once

#include <QString>

#include <memory>
#include <mutex>
#include <string>
#include <vector>

namespace mireval {

/// What happened, one line per event, in order. The fakes of one test share one, so that the test can
/// compare the order of effects across services. Callable on any thread.
class EventLog {
 public:
  void add(const QString& event);

  std::vector<std::string> events() const;

  /// The events so far; the list is empty afterwards.
  std::vector<std::string> take();

 private:
  mutable std::mutex m_mutex;
  std::vector<std::string> m_events;
};

/// For a fake that nobody listens to.
std::shared_ptr<EventLog> makeEventLog();

/// A number as the events show it: the shortest text that reads back as the same number.
QString eventNumber(double number);

}  // namespace mireval
