#pragma once

#include "ui/ClosedWindows.h"
#include "ui/PanelWindow.h"

#include <QElapsedTimer>
#include <QObject>
#include <QPoint>

#include <filesystem>
#include <memory>
#include <optional>

namespace mireval {

class AppLocalization;
class AudioPlayerController;
class ColorScheme;
class Compositor;
class MenuBarExtra;

/// The icon and the panel that it opens. The panel exists only while it is open. Where the desktop has no
/// place for the icon, the panel is shown as a framed window instead, and closing that ends the application.
class MenuBarScene final : public QObject {
  Q_OBJECT

 public:
  /// What the scene shows and stands on. Not owned; must outlive the scene.
  struct Surroundings {
    MenuBarExtra& menuBarExtra;
    ColorScheme& colorScheme;
    Compositor& compositor;
    AudioPlayerController& audioPlayer;
    AppLocalization& localization;
  };

  explicit MenuBarScene(Surroundings surroundings);
  ~MenuBarScene() override;

  /// Shows the image file as the icon.
  void show(const std::filesystem::path& icon);

  /// Opens the panel where it was opened last, or as a framed window where there is no such place. An open
  /// panel comes to the front.
  void showPanel();

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
  void toggle(QPoint where);
  void open(PanelWindow::Style style, QPoint where);
  void close();
  void handleDismissal(PanelWindow::Dismissal how);
  void handleMissingMenuBar();

  const Surroundings m_surroundings;
  std::unique_ptr<PanelWindow> m_panel;
  std::optional<QPoint> m_lastPlace;
  ClosedWindows m_closedPanels;
  QElapsedTimer m_sinceTurningAway;
};

}  // namespace mireval
