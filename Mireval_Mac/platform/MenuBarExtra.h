#pragma once

#include <QRect>
#include <QString>

#include <filesystem>
#include <functional>
#include <optional>

namespace mireval {

/// The application's icon in the desktop's menu bar or tray. Used on the UI thread, which also makes all
/// calls to the handlers.
class MenuBarExtra {
 public:
  struct Handlers {
    /// The user wants the panel. `place` is where the icon is, in the window system's own pixels, as far as
    /// the desktop tells: the icon's rectangle or the one pixel that was clicked, or nothing. Called for each
    /// click, also while the panel is open; once for a double click.
    std::function<void(std::optional<QRect> place)> activated;

    /// The icon has got a place. Called once for each.
    std::function<void()> placed;

    /// The icon has lost its place. It appears again as soon as it gets another.
    std::function<void()> lost;

    /// The icon has had no place for a while, after the start or after a loss. Called once for each.
    std::function<void()> missing;
  };

  virtual ~MenuBarExtra() = default;

  /// Shows the image file as the icon, in its own colours. Called once.
  virtual void show(const std::filesystem::path& image, Handlers handlers) = 0;

  /// The text beside the application's name when the pointer rests on the icon: what plays. Empty for none.
  virtual void setToolTip(const QString& text) = 0;

  /// True while the icon has a place on the desktop.
  virtual bool isPlaced() const = 0;
};

}  // namespace mireval
