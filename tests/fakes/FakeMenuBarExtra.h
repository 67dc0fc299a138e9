#pragma once

#include "platform/MenuBarExtra.h"

#include <utility>

namespace mireval {

/// An icon that the test clicks, or that finds no place.
class FakeMenuBarExtra final : public MenuBarExtra {
 public:
  void show(const std::filesystem::path& image, Handlers handlers) override {
    m_image = image;
    m_handlers = std::move(handlers);
  }

  void setToolTip(const QString& text) override { m_toolTip = text; }

  bool isPlaced() const override { return m_placed; }

  const std::filesystem::path& image() const { return m_image; }

  const QString& toolTip() const { return m_toolTip; }

  void click(std::optional<QRect> place) const { m_handlers.activated(place); }

  void place() {
    m_placed = true;
    m_handlers.placed();
  }
  void removePlace() { m_placed = false; }

  void losePlace() {
    removePlace();
    m_handlers.lost();
  }

  void findNoPlace() {
    removePlace();
    m_handlers.missing();
  }

 private:
  std::filesystem::path m_image;
  Handlers m_handlers;
  QString m_toolTip;
  bool m_placed = true;
};

}  // namespace mireval
