#pragma once

#include "platform/WindowSystem.h"
#include "ui/ClickCatcher.h"
#include "ui/ViewWindow.h"

#include <QRect>

#include <memory>
#include <optional>

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

  /// The objects are not owned and must outlive the window.
  PanelWindow(Style style, const WindowSystem& windowSystem, AudioPlayerController& audioPlayer,
              AppLocalization& localization, ColorScheme& colorScheme);
  ~PanelWindow() override;

  Style style() const { return m_style; }

  /// Shows a framed window, where the desktop puts it.
  void open();

  /// Shows a drop-down beside the icon's place, which is as for `placePanel`. `catcher` is one that is shown
  /// already, or nullptr.
  void open(const std::optional<QRect>& icon, std::unique_ptr<ClickCatcher> catcher = nullptr);

  /// Whether clicks beside a drop-down of this kind take a ClickCatcher to be noticed.
  static bool needsCatcher(WindowSystem::DropDown dropDown);

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
  void hideEvent(QHideEvent* event) override;
  void keyPressEvent(QKeyEvent* event) override;
  void mousePressEvent(QMouseEvent* event) override;
  void mouseReleaseEvent(QMouseEvent* event) override;
  void resizeEvent(QResizeEvent* event) override;

 private:
  void cutCornersOff();
  void dismiss(Dismissal how);
  void grabInput(int attemptsLeft);
  void place();
  void setDropDown();

  const Style m_style;
  const WindowSystem& m_windowSystem;
  const WindowSystem::DropDown m_dropDown;
  const bool m_blended;
  std::optional<QRect> m_icon;
  std::unique_ptr<ClickCatcher> m_catcher;
  bool m_pressedOutside = false;
};

}  // namespace mireval
