#pragma once

#include "fakes/EventLog.h"
#include "platform/MenuBarExtra.h"

#include <filesystem>
#include <memory>

namespace mireval {

/// An icon that the test clicks, or for which there is no place. Event: "menuBar: show <file>".
class FakeMenuBarExtra final : public MenuBarExtra {
 public:
  explicit FakeMenuBarExtra(std::shared_ptr<EventLog> log = makeEventLog());

  void show(const std::filesystem::path& image, ActivationHandler activated, MissingHandler missing) override;
  bool isPlaced() const override { return m_placed; }

  /// A click on the icon, which must have been shown.
  void click(QPoint where) const { m_activated(where); }

  /// Finds that the desktop has no place for the icon, which must have been shown.
  void reportMissing();

 private:
  const std::shared_ptr<EventLog> m_log;
  ActivationHandler m_activated;
  MissingHandler m_missing;
  bool m_placed = false;
};

}  // namespace mireval
