#pragma once

#include "platform/linux/bus/MessageBus.h"
#include "platform/linux/tray/IconImages.h"
#include "platform/linux/tray/StatusNotifierMenu.h"
#include "platform/linux/tray/TrayHost.h"

#include <QByteArray>
#include <QObject>
#include <QPoint>
#include <QString>

#include <filesystem>
#include <optional>

namespace mireval {

/// The application's icon on the session bus, for trays that show status notifier items.
///
/// It announces itself to the watcher, which the hosts of such items ask, as soon as there is one, and again
/// to each later one. No call waits, and no watcher is started. After a loss of the bus this connects once
/// more, at once; where that fails, the icon is nowhere from then on.
class StatusNotifierItem final : public QObject {
  Q_OBJECT

 public:
  enum class Placement {
    /// Neither the bus nor the watcher has said yet whether there is a host.
    unknown,
    nowhere,
    placed,
  };

  enum class ActivationTokens { unwanted, wanted };

  /// `image` is a file; the folder `icons` beside it may hold an icon theme that has the icon in several
  /// sizes, among them scalable. Hosts that are asked for activation tokens make one for each click. It has
  /// to be used up: GNOME Shell shows a busy pointer until then.
  StatusNotifierItem(std::filesystem::path image, ActivationTokens tokens);
  ~StatusNotifierItem() override;

  /// Begins to connect. Called once.
  void appear();

  /// What plays; empty for nothing.
  void setToolTip(const QString& text);

  Placement placement() const { return m_placement; }

  /// What shows the icon, while it is placed.
  const TrayHost& host() const { return m_host; }

 Q_SIGNALS:
  void placementChanged();

  /// The icon was clicked, with any button, or its menu's entry was chosen. `told` is what the host said
  /// about the position. Emitted while a message is being handled: to be connected in a queue.
  void activated(std::optional<QPoint> told);

 private:
  /// The callbacks of the bus.
  struct Bus;

  void introduce();
  void forgetWatcher();
  void findWatcher();
  void registerItem(QByteArray hostProcess);
  void askForHost();
  void setPlacement(Placement placement);
  void activate(std::optional<QPoint> told);

  const IconImages m_icon;
  const ActivationTokens m_tokens;
  QByteArray m_iconThemePath;
  QByteArray m_toolTip;
  QByteArray m_activationToken;
  Placement m_placement = Placement::unknown;
  TrayHost m_host;
  bool m_isRegistered = false;
  StatusNotifierMenu m_menu;
  MessageBus m_bus{MessageBus::Kind::session};
  MessageBus::Slot m_menuProperty;
  /// The call whose answer is the next step.
  MessageBus::Slot m_call;
};

}  // namespace mireval
