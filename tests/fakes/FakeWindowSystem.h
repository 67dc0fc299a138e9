#pragma once

#include "fakes/FakeDropDown.h"
#include "platform/WindowSystem.h"

#include <QGuiApplication>
#include <QPointer>
#include <QScreen>

namespace mireval {

/// Has the application's real screens, with a bar at the top, and what else the test says.
class FakeWindowSystem final : public WindowSystem {
 public:
  static constexpr int barHeight = 26;

  bool hasRoomForWindow() const override { return m_hasRoomForWindow; }

  std::unique_ptr<DropDown> makeDropDown(QWindow& window) const override {
    auto dropDown = std::make_unique<FakeDropDown>(window);
    m_dropDown = dropDown.get();
    return dropDown;
  }

  std::unique_ptr<PointerFinder> findPointer() const override {
    auto finder = m_findsPointer ? std::make_unique<PointerFinder>() : nullptr;
    m_finder = finder.get();
    return finder;
  }

  bool blendsWindows() const override { return m_blends; }

  std::vector<ScreenArea> screens(const std::optional<QRect>&) const override {
    std::vector<ScreenArea> areas;
    for (const QScreen* const screen : QGuiApplication::screens()) {
      areas.push_back({.geometry = screen->geometry(),
                       .workArea = screen->geometry().adjusted(0, barHeight, 0, 0),
                       .scale = screen->devicePixelRatio()});
    }
    return areas;
  }

  /// The last one that was made, or nullptr once it is deleted.
  FakeDropDown* dropDown() const { return m_dropDown; }
  PointerFinder* finder() const { return m_finder; }

  void setHasRoomForWindow(bool hasRoom) { m_hasRoomForWindow = hasRoom; }
  void setBlends(bool blends) { m_blends = blends; }
  void setFindsPointer(bool findsPointer) { m_findsPointer = findsPointer; }

 private:
  bool m_hasRoomForWindow = true;
  bool m_blends = true;
  bool m_findsPointer = false;
  mutable QPointer<FakeDropDown> m_dropDown;
  mutable QPointer<PointerFinder> m_finder;
};

}  // namespace mireval
