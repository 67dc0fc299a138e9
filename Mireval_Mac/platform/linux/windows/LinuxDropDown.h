#pragma once

#include "platform/DropDown.h"
#include "platform/linux/windows/ClickCatcher.h"

#include <QWindow>

#include <memory>

namespace mireval {

/// What all kinds of drop-downs do alike.
class LinuxDropDown : public DropDown {
  Q_OBJECT

 public:
  void moveTo(QScreen& screen, QPoint position) override;
  void show() override;

  bool eventFilter(QObject* watched, QEvent* event) override;

 protected:
  LinuxDropDown(QWindow& window, Qt::WindowFlags flags);

  /// Notices clicks that the desktop tells only to other windows.
  void catchClicks();

  /// Grabs what the visible window needs of the input devices. Called until it succeeds, for a while.
  virtual bool grab() { return true; }

  QWindow& window() { return m_window; }

 private:
  void grabInput(int attemptsLeft);

  QWindow& m_window;
  std::unique_ptr<ClickCatcher> m_catcher;
  bool m_pressedOutside = false;
};

}  // namespace mireval
