#pragma once

#include "platform/DropDown.h"
#include "platform/linux/windows/InvisibleWindow.h"

#include <QRegion>
#include <QWindow>

#include <memory>

namespace mireval {

/// A drop-down of the kind that the desktop allows.
class LinuxDropDown final : public DropDown {
  Q_OBJECT

 public:
  /// What a drop-down does differently from desktop to desktop.
  struct Kind {
    Qt::WindowFlags flags;
    /// Notices clicks that the desktop tells only to other windows.
    bool catchesClicks = false;
    /// Called each time before the window is shown.
    void (*prepare)(QWindow& window) = [](QWindow&) {};
    /// Asks for the keyboard. Called while the window is visible.
    void (*activate)(QWindow& window) = [](QWindow& window) { window.requestActivate(); };
    /// Called when the window has got the keyboard.
    void (*activated)(QWindow& window) = [](QWindow&) {};
    /// Grabs what the visible window needs of the input devices. Called until it succeeds, for a while.
    bool (*grab)(QWindow& window) = [](QWindow&) { return true; };
    /// Undoes `grab`.
    void (*release)(QWindow& window) = [](QWindow&) {};
  };

  /// For plain Wayland: the desktop chooses the place and tells nothing but the loss of the keyboard.
  static const Kind placedByDesktop;
  /// For X11 desktops: the window manager does not know the window. The pointer grab tells of clicks
  /// anywhere.
  static const Kind grabbing;
  /// For Wayland desktops that give the keyboard only to managed X11 windows, but leave those where they are
  /// put: KWin and GNOME Shell. The window is kept out of task bars and switchers.
  static const Kind managed;
  /// For Wayland desktops that put managed X11 windows in the middle of the screen, but give the keyboard to
  /// pop-ups: those that are built on wlroots.
  static const Kind popup;

  /// The window and the kind must outlive the drop-down.
  LinuxDropDown(QWindow& window, const Kind& kind);

  void moveTo(QScreen& screen, const QRect& workArea, QPoint position) override;
  void setShape(const QRegion& pixels, Outside outside) override;
  void show() override;
  void activate() override;
  void setExclusive(bool exclusive) override;

  bool eventFilter(QObject* watched, QEvent* event) override;

 private:
  void grabInput(int attemptsLeft);
  bool contains(QPointF place) const;

  QWindow& m_window;
  const Kind& m_kind;
  std::unique_ptr<InvisibleWindow> m_catcher;
  /// Of the window, in pixels of the screen.
  QRegion m_shape;
  bool m_exclusive = true;
  bool m_pressedOutside = false;
};

}  // namespace mireval
