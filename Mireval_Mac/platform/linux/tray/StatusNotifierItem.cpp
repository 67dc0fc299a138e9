#include "platform/linux/tray/StatusNotifierItem.h"

#include <QCoreApplication>
#include <QFile>
#include <QImage>
#include <QtEndian>

#include <systemd/sd-bus.h>

#include <cstdint>
#include <string>
#include <system_error>
#include <utility>

namespace mireval {
namespace {

constexpr const char* objectPath = "/StatusNotifierItem";
constexpr const char* itemInterface = "org.kde.StatusNotifierItem";
constexpr const char* watcher = "org.kde.StatusNotifierWatcher";
constexpr const char* watcherInterface = "org.kde.StatusNotifierWatcher";
constexpr MessageBus::Method getProcess{.service = "org.freedesktop.DBus",
                                        .path = "/org/freedesktop/DBus",
                                        .interface = "org.freedesktop.DBus",
                                        .name = "GetConnectionUnixProcessID"};
constexpr MessageBus::Method registerWithWatcher{.service = watcher,
                                                 .path = "/StatusNotifierWatcher",
                                                 .interface = watcherInterface,
                                                 .name = "RegisterStatusNotifierItem"};
constexpr MessageBus::Method getFromWatcher{.service = watcher,
                                            .path = "/StatusNotifierWatcher",
                                            .interface = "org.freedesktop.DBus.Properties",
                                            .name = "Get"};
constexpr const char* ownerRule =
    "type='signal',sender='org.freedesktop.DBus',path='/org/freedesktop/DBus',"
    "interface='org.freedesktop.DBus',member='NameOwnerChanged',arg0='org.kde.StatusNotifierWatcher'";
// What else the watcher tells, about the items of others, does not wake this process up.
constexpr const char* hostCameRule =
    "type='signal',sender='org.kde.StatusNotifierWatcher',path='/StatusNotifierWatcher',"
    "interface='org.kde.StatusNotifierWatcher',member='StatusNotifierHostRegistered'";
constexpr const char* hostWentRule =
    "type='signal',sender='org.kde.StatusNotifierWatcher',path='/StatusNotifierWatcher',"
    "interface='org.kde.StatusNotifierWatcher',member='StatusNotifierHostUnregistered'";

QByteArray processName(std::uint32_t process) {
  QFile file(QStringLiteral("/proc/%1/comm").arg(process));
  return file.open(QIODevice::ReadOnly) ? file.readAll().trimmed() : QByteArray();
}

/// The picture in all sizes that trays use, as bytes of alpha, red, green and blue.
int appendPixmaps(sd_bus_message* reply, const IconImages& icon) {
  int result = sd_bus_message_open_container(reply, 'a', "(iiay)");
  for (const int side : {16, 22, 24, 32, 48, 64}) {
    const QImage image = icon.image(side).convertToFormat(QImage::Format_ARGB32);
    if (result < 0 || image.isNull()) {
      break;
    }
    QByteArray bytes(image.sizeInBytes(), Qt::Uninitialized);
    qToBigEndian<std::uint32_t>(image.constBits(), bytes.size() / 4, bytes.data());
    if ((result = sd_bus_message_open_container(reply, 'r', "iiay")) >= 0 &&
        (result = sd_bus_message_append(reply, "ii", image.width(), image.height())) >= 0 &&
        (result = sd_bus_message_append_array(reply, 'y', bytes.constData(), bytes.size())) >= 0) {
      result = sd_bus_message_close_container(reply);
    }
  }
  return result < 0 ? result : sd_bus_message_close_container(reply);
}

}  // namespace

struct StatusNotifierItem::Bus {
  using Self = StatusNotifierItem;

  template <int (*append)(sd_bus_message* reply, Self& self)>
  static int get(sd_bus*, const char*, const char*, const char*, sd_bus_message* reply, void* userdata,
                 sd_bus_error*) {
    return append(reply, *static_cast<Self*>(userdata));
  }

  static int text(sd_bus_message* reply, const char* value) {
    return sd_bus_message_append(reply, "s", value);
  }

  static int category(sd_bus_message* reply, Self&) { return text(reply, "ApplicationStatus"); }
  static int id(sd_bus_message* reply, Self&) { return text(reply, IconImages::name); }
  static int status(sd_bus_message* reply, Self&) { return text(reply, "Active"); }
  static int windowId(sd_bus_message* reply, Self&) { return sd_bus_message_append(reply, "i", 0); }
  static int no(sd_bus_message* reply, Self&) { return sd_bus_message_append(reply, "b", 0); }
  static int noText(sd_bus_message* reply, Self&) { return text(reply, ""); }
  static int noPixmaps(sd_bus_message* reply, Self&) { return sd_bus_message_append(reply, "a(iiay)", 0U); }
  static int menu(sd_bus_message* reply, Self&) {
    return sd_bus_message_append(reply, "o", StatusNotifierMenu::objectPath);
  }

  static int title(sd_bus_message* reply, Self&) {
    return text(reply, QCoreApplication::applicationName().toUtf8().constData());
  }

  /// Some hosts show nothing for an icon that is named and not there, and do not ask for its pixels either.
  static int themedIcon(sd_bus_message* reply, Self& self) {
    return text(reply, self.m_iconThemePath.isEmpty() ? "" : IconImages::name);
  }

  static int iconThemePath(sd_bus_message* reply, Self& self) {
    return text(reply, self.m_iconThemePath.constData());
  }

  static int iconPixmap(sd_bus_message* reply, Self& self) { return appendPixmaps(reply, self.m_icon); }

  static int toolTip(sd_bus_message* reply, Self& self) {
    return sd_bus_message_append(
        reply, "(sa(iiay)ss)", self.m_iconThemePath.isEmpty() ? "" : IconImages::name, 0U,
        QCoreApplication::applicationName().toUtf8().constData(), self.m_toolTip.constData());
  }

  static int handleClick(sd_bus_message* call, void* userdata, sd_bus_error*) {
    QPoint told;
    sd_bus_message_read(call, "ii", &told.rx(), &told.ry());
    static_cast<Self*>(userdata)->activate(told);
    return sd_bus_reply_method_return(call, nullptr);
  }

  static int handleScroll(sd_bus_message* call, void*, sd_bus_error*) {
    return sd_bus_reply_method_return(call, nullptr);
  }

  static int handleToken(sd_bus_message* call, void* userdata, sd_bus_error*) {
    const char* token = nullptr;
    sd_bus_message_read(call, "s", &token);
    static_cast<Self*>(userdata)->m_activationToken = token;
    return sd_bus_reply_method_return(call, nullptr);
  }

  static void handleOwner(sd_bus_message* message, Self& self) {
    const char* newOwner = nullptr;
    if (sd_bus_message_read(message, "sss", nullptr, nullptr, &newOwner) < 0) {
      return;
    }
    self.forgetWatcher();
    if (*newOwner != '\0') {
      self.findWatcher();
    } else {
      self.setPlacement(Placement::nowhere);
    }
  }

  static int handleProcess(sd_bus_message* reply, void* userdata, sd_bus_error*) {
    Self& self = *static_cast<Self*>(userdata);
    if (sd_bus_message_is_method_error(reply, SD_BUS_ERROR_NAME_HAS_NO_OWNER) != 0) {
      self.setPlacement(Placement::nowhere);
      return 0;
    }
    // Any other error: there is a watcher, whose process the bus does not know.
    std::uint32_t process = 0;
    self.registerItem(sd_bus_message_read(reply, "u", &process) > 0 ? processName(process) : QByteArray());
    return 0;
  }

  static int handleRegistered(sd_bus_message* reply, void* userdata, sd_bus_error*) {
    Self& self = *static_cast<Self*>(userdata);
    self.m_isRegistered = sd_bus_message_is_method_error(reply, nullptr) == 0;
    if (self.m_isRegistered) {
      self.askForHost();
    } else {
      self.setPlacement(Placement::nowhere);
    }
    return 0;
  }

  static int handleHost(sd_bus_message* reply, void* userdata, sd_bus_error*) {
    // Not every watcher has the property; those that know of no host do.
    int hasHost = 1;
    sd_bus_message_read(reply, "v", "b", &hasHost);
    static_cast<Self*>(userdata)->setPlacement(hasHost != 0 ? Placement::placed : Placement::nowhere);
    return 0;
  }

  static const sd_bus_vtable item[];
  static const sd_bus_vtable menuProperty[];
  static const sd_bus_vtable tokenMethod[];
};

const sd_bus_vtable StatusNotifierItem::Bus::item[] = {
    SD_BUS_VTABLE_START(0),
    SD_BUS_METHOD("Activate", "ii", "", handleClick, 0),
    SD_BUS_METHOD("SecondaryActivate", "ii", "", handleClick, 0),
    SD_BUS_METHOD("ContextMenu", "ii", "", handleClick, 0),
    SD_BUS_METHOD("Scroll", "is", "", handleScroll, 0),
    SD_BUS_SIGNAL("NewToolTip", "", 0),
    SD_BUS_PROPERTY("Category", "s", get<category>, 0, SD_BUS_VTABLE_PROPERTY_CONST),
    SD_BUS_PROPERTY("Id", "s", get<id>, 0, SD_BUS_VTABLE_PROPERTY_CONST),
    SD_BUS_PROPERTY("Title", "s", get<title>, 0, SD_BUS_VTABLE_PROPERTY_CONST),
    SD_BUS_PROPERTY("Status", "s", get<status>, 0, SD_BUS_VTABLE_PROPERTY_CONST),
    SD_BUS_PROPERTY("WindowId", "i", get<windowId>, 0, SD_BUS_VTABLE_PROPERTY_CONST),
    SD_BUS_PROPERTY("IconName", "s", get<themedIcon>, 0, SD_BUS_VTABLE_PROPERTY_CONST),
    SD_BUS_PROPERTY("IconThemePath", "s", get<iconThemePath>, 0, SD_BUS_VTABLE_PROPERTY_CONST),
    SD_BUS_PROPERTY("IconPixmap", "a(iiay)", get<iconPixmap>, 0, SD_BUS_VTABLE_PROPERTY_CONST),
    SD_BUS_PROPERTY("OverlayIconName", "s", get<noText>, 0, SD_BUS_VTABLE_PROPERTY_CONST),
    SD_BUS_PROPERTY("OverlayIconPixmap", "a(iiay)", get<noPixmaps>, 0, SD_BUS_VTABLE_PROPERTY_CONST),
    SD_BUS_PROPERTY("AttentionIconName", "s", get<noText>, 0, SD_BUS_VTABLE_PROPERTY_CONST),
    SD_BUS_PROPERTY("AttentionIconPixmap", "a(iiay)", get<noPixmaps>, 0, SD_BUS_VTABLE_PROPERTY_CONST),
    SD_BUS_PROPERTY("AttentionMovieName", "s", get<noText>, 0, SD_BUS_VTABLE_PROPERTY_CONST),
    SD_BUS_PROPERTY("ToolTip", "(sa(iiay)ss)", get<toolTip>, 0, 0),
    SD_BUS_PROPERTY("ItemIsMenu", "b", get<no>, 0, SD_BUS_VTABLE_PROPERTY_CONST),
    SD_BUS_VTABLE_END,
};

const sd_bus_vtable StatusNotifierItem::Bus::menuProperty[] = {
    SD_BUS_VTABLE_START(0),
    SD_BUS_PROPERTY("Menu", "o", get<menu>, 0, SD_BUS_VTABLE_PROPERTY_CONST),
    SD_BUS_VTABLE_END,
};

const sd_bus_vtable StatusNotifierItem::Bus::tokenMethod[] = {
    SD_BUS_VTABLE_START(0),
    SD_BUS_METHOD("ProvideXdgActivationToken", "s", "", handleToken, 0),
    SD_BUS_VTABLE_END,
};

StatusNotifierItem::StatusNotifierItem(std::filesystem::path image, ActivationTokens tokens)
    : m_icon(std::move(image)),
      m_tokens(tokens),
      m_iconThemePath(QFile::decodeName(m_icon.themeFolder().c_str()).toUtf8()) {
  connect(&m_menu, &StatusNotifierMenu::chosen, this, [this] { activate(std::nullopt); });
  connect(&m_bus, &MessageBus::lost, this, [this] {
    forgetWatcher();
    setPlacement(Placement::nowhere);
  });
  connect(&m_bus, &MessageBus::opened, this, &StatusNotifierItem::introduce);
}

StatusNotifierItem::~StatusNotifierItem() = default;

void StatusNotifierItem::appear() {
  if (!m_bus.keepOpen()) {
    setPlacement(Placement::nowhere);
  }
}

void StatusNotifierItem::setToolTip(const QString& text) {
  // Hosts take it for markup.
  const QByteArray markup = text.toHtmlEscaped().toUtf8();
  if (std::exchange(m_toolTip, markup) != markup && m_isRegistered) {
    sd_bus_emit_signal(m_bus.connection(), objectPath, itemInterface, "NewToolTip", nullptr);
    m_bus.flush();
  }
}

void StatusNotifierItem::introduce() {
  sd_bus* const bus = m_bus.connection();
  sd_bus_add_object_vtable(bus, nullptr, objectPath, itemInterface, Bus::item, this);
  if (m_tokens == ActivationTokens::wanted) {
    sd_bus_add_object_vtable(bus, nullptr, objectPath, itemInterface, Bus::tokenMethod, this);
  }
  m_menu.appearOn(bus);
  // The rules first: nothing is missed between the answer and the first change.
  m_bus.listen(ownerRule, [this](sd_bus_message* message) { Bus::handleOwner(message, *this); });
  for (const char* const rule : {hostCameRule, hostWentRule}) {
    m_bus.listen(rule, [this](sd_bus_message*) {
      if (m_isRegistered) {
        askForHost();
      }
    });
  }
  findWatcher();
}

void StatusNotifierItem::forgetWatcher() {
  m_call.reset();
  m_menuProperty.reset();
  m_isRegistered = false;
}

void StatusNotifierItem::findWatcher() {
  // Also says whether there is one.
  m_call = m_bus.call(getProcess, {watcher}, MessageBus::Start::no, Bus::handleProcess, this);
}

void StatusNotifierItem::registerItem(QByteArray hostProcess) {
  m_host = TrayHost(std::move(hostProcess));
  if (m_host.needsMenu()) {
    sd_bus_slot* property = nullptr;
    sd_bus_add_object_vtable(m_bus.connection(), &property, objectPath, itemInterface, Bus::menuProperty,
                             this);
    m_menuProperty.reset(property);
  }
  // By the connection's own name: GNOME Shell does not show items that use another.
  const char* name = nullptr;
  sd_bus_get_unique_name(m_bus.connection(), &name);
  m_call = m_bus.call(registerWithWatcher, {name}, MessageBus::Start::no, Bus::handleRegistered, this);
}

void StatusNotifierItem::askForHost() {
  m_call = m_bus.call(getFromWatcher, {watcherInterface, "IsStatusNotifierHostRegistered"},
                      MessageBus::Start::no, Bus::handleHost, this);
}

void StatusNotifierItem::setPlacement(Placement placement) {
  if (std::exchange(m_placement, placement) != placement) {
    Q_EMIT placementChanged();
  }
}

void StatusNotifierItem::activate(std::optional<QPoint> told) {
  if (!m_activationToken.isEmpty()) {
    // Where Qt looks for it when the window asks for the keyboard.
    qputenv("XDG_ACTIVATION_TOKEN", std::exchange(m_activationToken, {}));
  }
  Q_EMIT activated(told);
}

}  // namespace mireval
