#pragma once

#include "ui/PanelWindow.h"

#include <QElapsedTimer>
#include <QPoint>
#include <QRect>

#include <memory>
#include <optional>

namespace mireval {

class DropDown;
class WindowSystem;

/// The panel without a frame, above all other windows, beside the icon. Dismissed by a click outside, by
/// losing the keyboard focus, unless to the settings, and by Escape. The second click of a double click on
/// the icon does not dismiss it.
class DropDownPanel final : public PanelWindow {
  Q_OBJECT

 public:
  /// `icon` is the icon's place as for `placePanel`. The objects are not owned and must outlive the window.
  DropDownPanel(const std::optional<QRect>& icon, const WindowSystem& windowSystem,
                AudioPlayerController& audioPlayer, AppLocalization& localization, ColorScheme& colorScheme);
  ~DropDownPanel() override;

  void open() override;
  void setSettingsOpen(bool open) override;

 protected:
  void focusOutEvent(QFocusEvent* event) override;
  void keyPressEvent(QKeyEvent* event) override;
  void resizeEvent(QResizeEvent* event) override;
  void prepareSmallerFrame() override;

 private:
  void handleClickOutside();
  void dismiss(Dismissal how);
  void place();
  void shape();

  const std::optional<QRect> m_icon;
  const WindowSystem& m_windowSystem;
  const bool m_blended;
  const std::unique_ptr<DropDown> m_dropDown;
  bool m_settingsOpen = false;
  QElapsedTimer m_sinceSettings;
  QElapsedTimer m_sinceOpening;
  /// Of the pointer at the opening.
  QPoint m_openedAt;
};

}  // namespace mireval
