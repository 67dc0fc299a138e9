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
/// It registers with the watcher, which knows the items for the hosts, as soon as that has a host, and again
/// with each later watcher. It starts no watcher.
class StatusNotifierItem final : public QObject {
  Q_OBJECT

 public:
  static constexpr const char* objectPath = "/StatusNotifierItem";
  static constexpr const char* itemInterface = "org.kde.StatusNotifierItem";
  /// The watcher's interface has the same name.
  static constexpr const char* watcherName = "org.kde.StatusNotifierWatcher";
  static constexpr const char* watcherPath = "/StatusNotifierWatcher";

  /// Unknown until the bus or the watcher has said whether there is a host.
  enum class Placement { unknown, nowhere, placed };

  enum class ActivationTokens { unwanted, wanted };

  /// The bus has to outlive it. `image` is a file; the folder `icons` beside it may hold an icon theme that
  /// has the icon in several sizes, among them scalable. With `ActivationTokens::wanted`, hosts make an
  /// activation token for each click, and GNOME Shell shows a busy pointer until a window uses it.
  StatusNotifierItem(MessageBus& sessionBus, std::filesystem::path image, ActivationTokens tokens);

  /// Looks for a watcher from now on. Called once.
  void appear();

  /// What plays; empty for nothing.
  void setToolTip(const QString& text);

  Placement placement() const { return m_placement; }

  /// The program that shows the icon, while it is placed.
  const TrayHost& host() const { return m_host; }

 Q_SIGNALS:
  void placementChanged();

  /// The icon was clicked, with any button, or its menu's entry was chosen. `told` is the position that the
  /// host gave. Emitted while a message is being handled, so connect it queued.
  void activated(std::optional<QPoint> told);

 private:
  /// Bars that read their own watcher's list before they listen to it, such as waybar, would miss an item
  /// that registers while they start, so it waits until there is a host.
  enum class Registration { none, waitsForHost, done };

  // What hosts call.
  static const sd_bus_vtable itemTable[];
  static const sd_bus_vtable menuPropertyTable[];
  static const sd_bus_vtable tokenMethodTable[];
  QByteArray title() const;
  /// Empty unless the theme has the icon: some hosts show nothing then, and do not ask for the pixels either.
  const char* iconName() const { return m_iconThemePath.isEmpty() ? "" : IconImages::name; }
  int appendPixmaps(sd_bus_message* reply);
  int appendToolTip(sd_bus_message* reply) const;
  int appendMenu(sd_bus_message* reply) const;
  void handleClick(sd_bus_message* call);
  void handleToken(sd_bus_message* call);

  // What the bus and the watcher tell.
  void handleOwner(sd_bus_message* change);
  void handleProcess(sd_bus_message* reply);
  void handleRegistered(sd_bus_message* reply);
  void handleHostChange();
  void handleHost(sd_bus_message* reply);

  void introduce();
  void forgetWatcher();
  void findWatcher();
  void registerItem();
  void askForHost();
  void setPlacement(Placement placement);
  void activate(std::optional<QPoint> told);

  IconImages m_icon;
  const ActivationTokens m_tokens;
  QByteArray m_iconThemePath;
  QByteArray m_toolTip;
  QByteArray m_activationToken;
  Placement m_placement = Placement::unknown;
  TrayHost m_host;
  Registration m_registration = Registration::none;
  StatusNotifierMenu m_menu;
  MessageBus& m_bus;
  MessageBus::Slots m_registrations;
  MessageBus::Slot m_menuProperty;
  /// The call whose answer leads to the next step.
  MessageBus::Slot m_call;
};

}  // namespace mireval
