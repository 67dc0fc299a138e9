#pragma once

#include "fakes/EventLog.h"
#include "platform/UserDefaults.h"

#include <map>
#include <memory>

namespace mireval {

/// Keeps the preferences in memory.
/// Events: "defaults: read <key>" for each look-up, "defaults: <key> = <value>" for each value to be stored.
class FakeUserDefaults final : public UserDefaults {
 public:
  explicit FakeUserDefaults(std::shared_ptr<EventLog> log = makeEventLog());

  /// What is stored, without an event.
  void put(const QString& key, const QString& value) { m_values[key] = value; }
  std::map<QString, QString> values() const { return m_values; }

  /// From now on nothing can be read, and what is to be stored is lost.
  void fail() { m_failing = true; }

  std::optional<QString> string(QStringView key) const override;
  void set(QStringView key, const QString& value) override;

 private:
  const std::shared_ptr<EventLog> m_log;
  std::map<QString, QString> m_values;
  bool m_failing = false;
};

}  // namespace mireval
