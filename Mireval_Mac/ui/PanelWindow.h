#pragma once

#include "ui/ViewWindow.h"

namespace mireval {

class AppLocalization;
class AudioPlayerController;
class ColorScheme;

/// A window that shows the panel. Lives on the UI thread.
class PanelWindow : public ViewWindow {
  Q_OBJECT

 public:
  enum class Dismissal {
    /// By closing the window or by Escape.
    deliberate,
    /// By turning to something else, which may be the icon.
    turnedAway,
  };

  /// Shows the window. Called once.
  virtual void open() = 0;

  /// The panel stays open beside the settings, and both can be used.
  virtual void setSettingsOpen(bool /*open*/) {}

  /// Whether somebody has clicked, touched or typed in the window.
  bool isUsed() const { return m_isUsed; }

 Q_SIGNALS:
  /// The user is done with the window. It is hidden already. It must not be deleted in a direct connection.
  void dismissed(mireval::PanelWindow::Dismissal how);

  /// The user pressed the desktop's usual key for an application's settings.
  void settingsRequested();

  /// The user pressed Quit. The window must not be deleted in a direct connection.
  void quitRequested();

 protected:
  /// The objects are not owned and must outlive the window.
  PanelWindow(AudioPlayerController& audioPlayer, AppLocalization& localization, ColorScheme& colorScheme);

  bool event(QEvent* event) override;
  void keyPressEvent(QKeyEvent* event) override;

 private:
  bool m_isUsed = false;
};

}  // namespace mireval
