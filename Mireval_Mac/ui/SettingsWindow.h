#pragma once

#include "ui/ViewWindow.h"

#include <filesystem>

namespace mireval {

class AppLocalization;
class ColorScheme;

/// The window that shows the settings. Closed by its frame, Escape and the desktop's keys for closing. Lives
/// on the UI thread.
class SettingsWindow final : public ViewWindow {
  Q_OBJECT

 public:
  /// `icon` is the image file of the window's icon. The objects are not owned and must outlive the window.
  SettingsWindow(const std::filesystem::path& icon, AppLocalization& localization, ColorScheme& colorScheme);

  /// Shows the window where the desktop puts it. Its view decides about its size.
  void open();

 Q_SIGNALS:
  /// The user is done with the window. It must not be deleted in a direct connection.
  void closed();

 protected:
  bool event(QEvent* event) override;
  void keyPressEvent(QKeyEvent* event) override;
};

}  // namespace mireval
