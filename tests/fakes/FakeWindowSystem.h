#pragma once

#include "platform/WindowSystem.h"

#include <QGuiApplication>
#include <QScreen>

namespace mireval {

/// Has the application's real screens, with a bar at the top, and what else the test says.
class FakeWindowSystem final : public WindowSystem {
 public:
  static constexpr int barHeight = 26;

  DropDown dropDown() const override { return m_dropDown; }
  bool blendsWindows() const override { return m_blends; }
  void keepOutOfLists(QWindow& window) const override { m_unlisted = &window; }

  std::vector<ScreenArea> screens() const override {
    std::vector<ScreenArea> areas;
    for (const QScreen* const screen : QGuiApplication::screens()) {
      areas.push_back({.geometry = screen->geometry(),
                       .workArea = screen->geometry().adjusted(0, barHeight, 0, 0),
                       .scale = screen->devicePixelRatio()});
    }
    return areas;
  }

  /// The last window that was to be kept out of lists; only for comparisons.
  const QWindow* unlisted() const { return m_unlisted; }

  void setDropDown(DropDown dropDown) { m_dropDown = dropDown; }
  void setBlends(bool blends) { m_blends = blends; }

 private:
  DropDown m_dropDown = DropDown::grabbing;
  bool m_blends = true;
  mutable const QWindow* m_unlisted = nullptr;
};

}  // namespace mireval
