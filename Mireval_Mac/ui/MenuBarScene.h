#pragma once

#include "platform/PointerFinder.h"
#include "ui/PanelWindow.h"

#include <QElapsedTimer>
#include <QObject>
#include <QRect>
#include <QTimer>

#include <filesystem>
#include <memory>
#include <optional>

namespace mireval {

class AppLocalization;
class AudioPlayerController;
class ColorScheme;
class MenuBarExtra;
class Notices;
class WindowSystem;

/// The icon and the panel that it opens. The panel exists only while it is open, and beside the icon only
/// while that has its place. Where the desktop has no place for the icon, the panel is shown as a framed
/// window instead, and closing that ends the application. If the icon gets its place later, a window that
/// opened by itself and was not used is closed.
class MenuBarScene final : public QObject {
  Q_OBJECT

 public:
  /// What the scene uses. Not owned; must outlive the scene.
  struct Services {
    MenuBarExtra& menuBarExtra;
    ColorScheme& colorScheme;
    const WindowSystem& windowSystem;
    AudioPlayerController& audioPlayer;
    AppLocalization& localization;
    Notices& notices;
  };

  explicit MenuBarScene(Services services);
  ~MenuBarScene() override;

  /// Shows the image file as the icon, also of a framed window.
  void show(const std::filesystem::path& icon);

  /// Opens the panel where it was opened last or, without an icon, as a framed window. An open panel comes to
  /// the front.
  void showPanel();

  /// Tells the open panel, which shares the keyboard with the settings.
  void setSettingsOpen(bool open);

  /// The open panel, or nullptr.
  PanelWindow* panel() const { return m_panel.get(); }

 Q_SIGNALS:
  void panelWillOpen();

  /// The panel is gone, with all that it held.
  void panelDidClose();

  /// The user wants to see the settings.
  void settingsRequested();

  /// The user wants the application to end.
  void quitRequested();

 private:
  bool canOpen() const;
  void toggle(const std::optional<QRect>& place);
  bool findIcon();
  void endSearch();
  void openDropDown();
  void openFramed();
  void open(std::unique_ptr<PanelWindow> panel);
  void close();
  void handlePlacedIcon();
  void handleLostIcon();
  void handleMissingMenuBar();
  void updateToolTip();

  const Services m_services;
  std::filesystem::path m_icon;
  std::unique_ptr<PanelWindow> m_panel;
  /// The panel opened by itself, and nobody has asked for it since.
  bool m_panelIsUnasked = false;
  /// The icon's last known place, as for `placePanel`.
  std::optional<QRect> m_place;
  /// Only while the icon's place is looked for.
  std::unique_ptr<PointerFinder> m_finder;
  QTimer m_finderPatience;
  QElapsedTimer m_sinceTurningAway;
};

}  // namespace mireval
