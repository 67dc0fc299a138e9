#pragma once

#include "ui/ViewWindow.h"

#include <QPoint>

namespace mireval {

class AppLocalization;
class AudioPlayerController;
class ColorScheme;

/// The window that shows the panel.
class PanelWindow final : public ViewWindow {
  Q_OBJECT

 public:
  enum class Style {
    /// Frameless, above all other windows; dismissed by a click outside, by losing the keyboard focus and by
    /// Escape.
    dropDown,
    /// With the desktop's own frame; dismissed by closing it.
    framed,
  };

  enum class Dismissal {
    /// By closing the window or by Escape.
    deliberate,
    /// By turning to something else, which may be the icon.
    turnedAway,
  };

  /// The objects are not owned and must outlive the window. `blended` tells whether a drop-down's corners
  /// may be transparent; otherwise they are cut off.
  PanelWindow(Style style, bool blended, AudioPlayerController& audioPlayer, AppLocalization& localization,
              ColorScheme& colorScheme);

  /// Shows the window: a drop-down beside `click`, a framed window where the desktop puts it.
  void open(QPoint click);

 Q_SIGNALS:
  /// The user is done with the window. It is hidden already and may be deleted, though not in a direct
  /// connection.
  void dismissed(mireval::PanelWindow::Dismissal how);

  /// The user pressed the desktop's usual key for an application's settings.
  void settingsRequested();

  /// The user pressed Quit. The window must not be deleted in a direct connection.
  void quitRequested();

 protected:
  bool event(QEvent* event) override;
  void focusOutEvent(QFocusEvent* event) override;
  void keyPressEvent(QKeyEvent* event) override;
  void mousePressEvent(QMouseEvent* event) override;
  void mouseReleaseEvent(QMouseEvent* event) override;
  void resizeEvent(QResizeEvent* event) override;

 private:
  void cutCornersOff();
  void dismiss(Dismissal how);
  void grabPointer(int attemptsLeft);
  void place();

  const Style m_style;
  const bool m_blended;
  QPoint m_click;
  bool m_pressedOutside = false;
};

}  // namespace mireval
