#pragma once

#include "platform/MenuBarExtra.h"

#include <QObject>
#include <QSystemTrayIcon>

namespace mireval {

/// An icon in the desktop's tray. A left click activates it; there is no menu.
class SystemTrayMenuBarExtra final : public MenuBarExtra {
 public:
  /// Needs the application object.
  SystemTrayMenuBarExtra();

  void show(const std::filesystem::path& image, Handlers handlers) override;
  void setToolTip(const QString& text) override;
  bool isPlaced() const override;

 private:

  QSystemTrayIcon m_icon;
};

}  // namespace mireval
