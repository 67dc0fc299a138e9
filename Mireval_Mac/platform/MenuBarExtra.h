#pragma once

#include <QPoint>

#include <filesystem>
#include <functional>

namespace mireval {

/// The application's icon in the desktop's menu bar or tray. Used on the UI thread, which also makes both
/// calls to the handlers.
class MenuBarExtra {
 public:
  /// Told about a click: where it was, in device-independent pixels of the desktop.
  using ActivationHandler = std::function<void(QPoint where)>;
  using MissingHandler = std::function<void()>;

  virtual ~MenuBarExtra() = default;

  /// Shows the image file as the icon, in its own colours. `missing` is called once, a short while later, if
  /// the desktop has no place for the icon; should it get one after that, the icon may still appear.
  virtual void show(const std::filesystem::path& image, ActivationHandler activated,
                    MissingHandler missing) = 0;

  /// True while the icon has a place on the desktop.
  virtual bool isPlaced() const = 0;
};

}  // namespace mireval
