#pragma once

#include "platform/MenuBarExtra.h"
#include "platform/linux/tray/EmbeddedIcon.h"
#include "platform/linux/tray/StatusNotifierItem.h"

#include <QElapsedTimer>
#include <QObject>
#include <QPoint>
#include <QRect>
#include <QString>
#include <QTimer>

#include <chrono>
#include <filesystem>
#include <functional>
#include <memory>
#include <optional>

namespace mireval {

/// The icon in the desktop's tray: a status notifier item where a host shows those, or else an icon that is
/// embedded into an X11 tray. Hosts and trays may come, go and take turns at any time.
///
/// A double click activates once. So do any number of presses without a pause of a double click's interval,
/// and those that come while the handler runs.
class TrayMenuBarExtra final : public QObject, public MenuBarExtra {
  Q_OBJECT

 public:
  /// What it needs of the window system.
  struct Services {
    /// Where the pointer is, in the window system's own pixels; nothing when the window system does not know.
    std::function<std::optional<QPoint>()> pointer;
    /// Makes an icon for trays that do not use the bus, showing the image; nothing where there are none.
    std::function<std::unique_ptr<EmbeddedIcon>(const std::filesystem::path& image)> embed;
    /// Whether hosts count in the window system's own pixels when they tell where the icon was clicked.
    bool hostsTellPlaces = true;
    /// How long the icon may be without a place after the start before it is missing. At the start of a
    /// session, bars may start after applications.
    std::chrono::milliseconds patienceAtStart = std::chrono::seconds(2);
    /// How long a lost icon may be away before it is missing.
    std::chrono::milliseconds patienceAfterLoss = std::chrono::seconds(30);
  };

  /// The bus has to outlive it.
  TrayMenuBarExtra(MessageBus& sessionBus, Services services);
  ~TrayMenuBarExtra() override;

  void show(const std::filesystem::path& image, Handlers handlers) override;
  void setToolTip(const QString& text) override;
  bool isPlaced() const override;

 private:
  void followItem();
  void embed();
  void followPlacement();
  void handleClickOnItem(std::optional<QPoint> told);
  void handleClickOnEmbedded(std::optional<QRect> place);
  void press(const std::function<std::optional<QRect>()>& findPlace);
  void tellToolTip();

  MessageBus& m_sessionBus;
  const Services m_services;
  Handlers m_handlers;
  std::filesystem::path m_image;
  QString m_toolTip;
  std::unique_ptr<StatusNotifierItem> m_item;
  bool m_itemHasBeenPlaced = false;
  std::unique_ptr<EmbeddedIcon> m_embedded;
  QTimer m_embedLater;
  bool m_wasPlaced = false;
  /// Runs while the icon waits for a place.
  QTimer m_patience;
  QElapsedTimer m_sinceLastPress;
};

}  // namespace mireval
