#pragma once

#include "platform/linux/tray/EmbeddedIcon.h"

#include <QAbstractNativeEventFilter>
#include <QByteArray>
#include <QSystemTrayIcon>

#include <filesystem>
#include <memory>

namespace mireval {

/// An icon in an X11 tray, drawn by Qt. Any click activates it; there is no menu.
class XEmbedIcon final : public EmbeddedIcon, private QAbstractNativeEventFilter {
  Q_OBJECT

 public:
  /// Shows the image file as the icon; nothing where windows are not X11's. To be called only while no status
  /// notifier host is on the bus: Qt looks for one once, waiting for the answer, and would use it for ever.
  static std::unique_ptr<EmbeddedIcon> make(const std::filesystem::path& image);

  void setToolTip(const QString& text) override { m_icon.setToolTip(text); }
  bool isPlaced() const override;

 private:
  explicit XEmbedIcon(const std::filesystem::path& image);

  std::optional<QRect> place() const;
  bool nativeEventFilter(const QByteArray& type, void* message, qintptr* result) override;

  QSystemTrayIcon m_icon;
};

}  // namespace mireval
