#pragma once

#include "ui/SettingsWindow.h"

#include <QObject>

#include <filesystem>
#include <memory>

namespace mireval {

class AppLocalization;
class ColorScheme;
class Notices;
class WindowSystem;

/// The settings. Their window exists only while it is open, and there is one at most.
class SettingsScene final : public QObject {
  Q_OBJECT

 public:
  /// What the scene uses. Not owned; must outlive the scene.
  struct Services {
    ColorScheme& colorScheme;
    const WindowSystem& windowSystem;
    AppLocalization& localization;
    Notices& notices;
  };

  /// The window has the icon in the file.
  SettingsScene(Services services, std::filesystem::path icon);
  ~SettingsScene() override;

  /// Opens the window. An open one comes to the front.
  void show();

  /// The open window, or nullptr.
  SettingsWindow* window() const { return m_window.get(); }

 Q_SIGNALS:
  /// The window is about to open, or to come to the front.
  void windowWillShow();

  /// The window is gone, with all that it held.
  void windowDidClose();

 private:
  void release();

  const Services m_services;
  const std::filesystem::path m_icon;
  std::unique_ptr<SettingsWindow> m_window;
};

}  // namespace mireval
