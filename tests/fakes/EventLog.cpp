#include "fakes/EventLog.h"

#include <QLocale>

#include <utility>

namespace mireval {

void EventLog::add(const QString& event) {
  const std::lock_guard lock(m_mutex);
  m_events.push_back(event.toStdString());
}

std::vector<std::string> EventLog::events() const {
  const std::lock_guard lock(m_mutex);
  return m_events;
}

std::vector<std::string> EventLog::take() {
  const std::lock_guard lock(m_mutex);
  return std::exchange(m_events, {});
}

std::shared_ptr<EventLog> makeEventLog() {
  return std::make_shared<EventLog>();
}

QString eventNumber(double number) {
  return QString::number(number, 'g', QLocale::FloatingPointShortest);
}

}  // namespace mireval
