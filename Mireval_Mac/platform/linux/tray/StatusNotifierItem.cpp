#include "platform/linux/tray/StatusNotifierItem.h"

#include "platform/linux/bus/BusValues.h"

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

using namespace Qt::StringLiterals;

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
// No rule for the watcher's other signals: they are about the items of others and would only wake this
// process.
constexpr const char* hostCameRule =
    "type='signal',sender='org.kde.StatusNotifierWatcher',path='/StatusNotifierWatcher',"
    "interface='org.kde.StatusNotifierWatcher',member='StatusNotifierHostRegistered'";
constexpr const char* hostWentRule =
    "type='signal',sender='org.kde.StatusNotifierWatcher',path='/StatusNotifierWatcher',"
    "interface='org.kde.StatusNotifierWatcher',member='StatusNotifierHostUnregistered'";

QByteArray processName(std::uint32_t process) {
  QFile file(u"/proc/%1/comm"_s.arg(process));
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

struct StatusNotifierItem::Callbacks {
  using Self = StatusNotifierItem;

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

  /// Empty unless the theme has the icon: some hosts show nothing then, and do not ask for the pixels either.
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

  static int handleOwner(sd_bus_message* message, void* userdata, sd_bus_error*) {
    Self& self = *static_cast<Self*>(userdata);
    self.forgetWatcher();
    if (nameHasOwner(message)) {
      self.findWatcher();
    } else {
      self.setPlacement(Placement::nowhere);
    }
    return 0;
  }

  static int handleHostChange(sd_bus_message*, void* userdata, sd_bus_error*) {
    if (Self& self = *static_cast<Self*>(userdata); self.m_isRegistered) {
      self.askForHost();
    }
    return 0;
  }

  static int handleProcess(sd_bus_message* reply, void* userdata, sd_bus_error*) {
    Self& self = *static_cast<Self*>(userdata);
    if (sd_bus_message_is_method_error(reply, SD_BUS_ERROR_NAME_HAS_NO_OWNER) != 0) {
      self.setPlacement(Placement::nowhere);
      return 0;
    }
    // After any other error there is a watcher, but its process is not known.
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
    // Some watchers lack the property; all of those have a host.
    int hasHost = 1;
    sd_bus_message_read(reply, "v", "b", &hasHost);
    static_cast<Self*>(userdata)->setPlacement(hasHost != 0 ? Placement::placed : Placement::nowhere);
    return 0;
  }

  static const sd_bus_vtable item[];
  static const sd_bus_vtable menuProperty[];
  static const sd_bus_vtable tokenMethod[];
};

const sd_bus_vtable StatusNotifierItem::Callbacks::item[] = {
    SD_BUS_VTABLE_START(0),
    SD_BUS_METHOD("Activate", "ii", "", handleClick, 0),
    SD_BUS_METHOD("SecondaryActivate", "ii", "", handleClick, 0),
    SD_BUS_METHOD("ContextMenu", "ii", "", handleClick, 0),
    SD_BUS_METHOD("Scroll", "is", "", handleScroll, 0),
    SD_BUS_SIGNAL("NewToolTip", "", 0),
    SD_BUS_PROPERTY("Category", "s", propertyGetter<category>, 0, SD_BUS_VTABLE_PROPERTY_CONST),
    SD_BUS_PROPERTY("Id", "s", propertyGetter<id>, 0, SD_BUS_VTABLE_PROPERTY_CONST),
    SD_BUS_PROPERTY("Title", "s", propertyGetter<title>, 0, SD_BUS_VTABLE_PROPERTY_CONST),
    SD_BUS_PROPERTY("Status", "s", propertyGetter<status>, 0, SD_BUS_VTABLE_PROPERTY_CONST),
    SD_BUS_PROPERTY("WindowId", "i", propertyGetter<windowId>, 0, SD_BUS_VTABLE_PROPERTY_CONST),
    SD_BUS_PROPERTY("IconName", "s", propertyGetter<themedIcon>, 0, SD_BUS_VTABLE_PROPERTY_CONST),
    SD_BUS_PROPERTY("IconThemePath", "s", propertyGetter<iconThemePath>, 0, SD_BUS_VTABLE_PROPERTY_CONST),
    SD_BUS_PROPERTY("IconPixmap", "a(iiay)", propertyGetter<iconPixmap>, 0, SD_BUS_VTABLE_PROPERTY_CONST),
    SD_BUS_PROPERTY("OverlayIconName", "s", propertyGetter<noText>, 0, SD_BUS_VTABLE_PROPERTY_CONST),
    SD_BUS_PROPERTY("OverlayIconPixmap", "a(iiay)", propertyGetter<noPixmaps>, 0,
                    SD_BUS_VTABLE_PROPERTY_CONST),
    SD_BUS_PROPERTY("AttentionIconName", "s", propertyGetter<noText>, 0, SD_BUS_VTABLE_PROPERTY_CONST),
    SD_BUS_PROPERTY("AttentionIconPixmap", "a(iiay)", propertyGetter<noPixmaps>, 0,
                    SD_BUS_VTABLE_PROPERTY_CONST),
    SD_BUS_PROPERTY("AttentionMovieName", "s", propertyGetter<noText>, 0, SD_BUS_VTABLE_PROPERTY_CONST),
    SD_BUS_PROPERTY("ToolTip", "(sa(iiay)ss)", propertyGetter<toolTip>, 0, 0),
    SD_BUS_PROPERTY("ItemIsMenu", "b", propertyGetter<no>, 0, SD_BUS_VTABLE_PROPERTY_CONST),
    SD_BUS_VTABLE_END,
};

const sd_bus_vtable StatusNotifierItem::Callbacks::menuProperty[] = {
    SD_BUS_VTABLE_START(0),
    SD_BUS_PROPERTY("Menu", "o", propertyGetter<menu>, 0, SD_BUS_VTABLE_PROPERTY_CONST),
    SD_BUS_VTABLE_END,
};

const sd_bus_vtable StatusNotifierItem::Callbacks::tokenMethod[] = {
    SD_BUS_VTABLE_START(0),
    SD_BUS_METHOD("ProvideXdgActivationToken", "s", "", handleToken, 0),
    SD_BUS_VTABLE_END,
};

StatusNotifierItem::StatusNotifierItem(MessageBus& sessionBus, std::filesystem::path image,
                                       ActivationTokens tokens)
    : m_icon(std::move(image)),
      m_tokens(tokens),
      m_iconThemePath(QFile::decodeName(m_icon.themeFolder().c_str()).toUtf8()),
      m_bus(sessionBus) {
  connect(&m_menu, &StatusNotifierMenu::chosen, this, [this] { activate(std::nullopt); });
  connect(&m_bus, &MessageBus::lost, this, [this] {
    forgetWatcher();
    m_registrations.clear();
    setPlacement(Placement::nowhere);
  });
}

StatusNotifierItem::~StatusNotifierItem() = default;

void StatusNotifierItem::appear() {
  m_bus.attach(this, [this] { introduce(); });
  if (!m_bus.isOpen()) {
    setPlacement(Placement::nowhere);
  }
}

void StatusNotifierItem::setToolTip(const QString& text) {
  // Hosts read it as markup.
  const QByteArray markup = text.toHtmlEscaped().toUtf8();
  if (std::exchange(m_toolTip, markup) != markup && m_isRegistered) {
    m_bus.emitSignal(objectPath, itemInterface, "NewToolTip", "");
  }
}

void StatusNotifierItem::introduce() {
  m_registrations.push_back(m_bus.addObject(objectPath, itemInterface, Callbacks::item, this));
  if (m_tokens == ActivationTokens::wanted) {
    m_registrations.push_back(m_bus.addObject(objectPath, itemInterface, Callbacks::tokenMethod, this));
  }
  m_menu.appearOn(m_bus);
  // The rules before the question: no change after the answer is missed.
  m_registrations.push_back(m_bus.listenToOwner(watcher, Callbacks::handleOwner, this));
  for (const char* const rule : {hostCameRule, hostWentRule}) {
    m_registrations.push_back(m_bus.listen(rule, Callbacks::handleHostChange, this));
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
  m_call = m_bus.call(getProcess, {watcher}, MessageBus::Start::no, Callbacks::handleProcess, this);
}

void StatusNotifierItem::registerItem(QByteArray hostProcess) {
  m_host = TrayHost(std::move(hostProcess));
  if (m_host.needsMenu()) {
    m_menuProperty = m_bus.addObject(objectPath, itemInterface, Callbacks::menuProperty, this);
  }
  // By the unique name: GNOME Shell does not show items that register another.
  m_call = m_bus.call(registerWithWatcher, {m_bus.uniqueName().constData()}, MessageBus::Start::no,
                      Callbacks::handleRegistered, this);
}

void StatusNotifierItem::askForHost() {
  m_call = m_bus.call(getFromWatcher, {watcherInterface, "IsStatusNotifierHostRegistered"},
                      MessageBus::Start::no, Callbacks::handleHost, this);
}

void StatusNotifierItem::setPlacement(Placement placement) {
  if (std::exchange(m_placement, placement) != placement) {
    Q_EMIT placementChanged();
  }
}

void StatusNotifierItem::activate(std::optional<QPoint> told) {
  setActivationToken(std::exchange(m_activationToken, {}));
  Q_EMIT activated(told);
}

}  // namespace mireval
