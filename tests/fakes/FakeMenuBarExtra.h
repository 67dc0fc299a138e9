#pragma once

#include "platform/MenuBarExtra.h"

#include <utility>

namespace mireval {

/// An icon that the test clicks, or that finds no place.
class FakeMenuBarExtra final : public MenuBarExtra {
 public:
  void show(const std::filesystem::path& image, ActivationHandler activated,
            MissingHandler missing) override {
    m_image = image;
    m_activated = std::move(activated);
    m_missing = std::move(missing);
  }

  bool isPlaced() const override { return m_placed; }

  const std::filesystem::path& image() const { return m_image; }

  void click(QPoint where) const { m_activated(where); }

  void place() { m_placed = true; }

  void findNoPlace() {
    m_placed = false;
    m_missing();
  }

 private:
  std::filesystem::path m_image;
  ActivationHandler m_activated;
  MissingHandler m_missing;
  bool m_placed = true;
};

}  // namespace mireval
