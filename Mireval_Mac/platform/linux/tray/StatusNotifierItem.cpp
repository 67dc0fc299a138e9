#include "platform/linux/tray/StatusNotifierItem.h"

#include "platform/linux/bus/BusHandlers.h"
#include "platform/linux/bus/BusValues.h"

#include <QCoreApplication>
#include <QFile>
#include <QImage>

#include <systemd/sd-bus.h>

#include <cstdint>
#include <utility>

namespace mireval {
namespace {

using namespace Qt::StringLiterals;

constexpr std::uint64_t constant = SD_BUS_VTABLE_PROPERTY_CONST;
constexpr const char* watcherName = StatusNotifierItem::watcherName;
constexpr const char* watcherPath = StatusNotifierItem::watcherPath;

constexpr MessageBus::Method getProcess{"org.freedesktop.DBus", "/org/freedesktop/DBus",
                                        "org.freedesktop.DBus", "GetConnectionUnixProcessID"};
constexpr MessageBus::Method registerWithWatcher{watcherName, watcherPath, watcherName,
                                                 "RegisterStatusNotifierItem"};
constexpr MessageBus::Method getFromWatcher{watcherName, watcherPath, propertiesInterface, "Get"};
// The watcher's other signals are about the items of other programs and would only wake this process.
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

}  // namespace

const sd_bus_vtable StatusNotifierItem::itemTable[] = {
    SD_BUS_VTABLE_START(0),
    SD_BUS_METHOD_WITH_ARGS("Activate", SD_BUS_ARGS("i", x, "i", y), SD_BUS_NO_RESULT,
                            methodHandler<&StatusNotifierItem::handleClick>, 0),
    SD_BUS_METHOD_WITH_ARGS("SecondaryActivate", SD_BUS_ARGS("i", x, "i", y), SD_BUS_NO_RESULT,
                            methodHandler<&StatusNotifierItem::handleClick>, 0),
    SD_BUS_METHOD_WITH_ARGS("ContextMenu", SD_BUS_ARGS("i", x, "i", y), SD_BUS_NO_RESULT,
                            methodHandler<&StatusNotifierItem::handleClick>, 0),
    SD_BUS_METHOD_WITH_ARGS("Scroll", SD_BUS_ARGS("i", delta, "s", orientation), SD_BUS_NO_RESULT, ignoreCall,
                            0),
    SD_BUS_SIGNAL("NewToolTip", "", 0),
    SD_BUS_PROPERTY("Category", "s", textGetter<"ApplicationStatus">, 0, constant),
    SD_BUS_PROPERTY("Id", "s", textGetter<"mireval">, 0, constant),
    SD_BUS_PROPERTY("Title", "s", propertyGetter<&StatusNotifierItem::title>, 0, constant),
    SD_BUS_PROPERTY("Status", "s", textGetter<"Active">, 0, constant),
    SD_BUS_PROPERTY("WindowId", "i", constantGetter<0>, 0, constant),
    SD_BUS_PROPERTY("IconName", "s", propertyGetter<&StatusNotifierItem::iconName>, 0, constant),
    SD_BUS_PROPERTY("IconThemePath", "s", propertyGetter<&StatusNotifierItem::m_iconThemePath>, 0, constant),
    SD_BUS_PROPERTY("IconPixmap", "a(iiay)", propertyGetter<&StatusNotifierItem::appendPixmaps>, 0, constant),
    SD_BUS_PROPERTY("OverlayIconName", "s", textGetter<"">, 0, constant),
    SD_BUS_PROPERTY("OverlayIconPixmap", "a(iiay)", emptyArrayGetter<"a(iiay)">, 0, constant),
    SD_BUS_PROPERTY("AttentionIconName", "s", textGetter<"">, 0, constant),
    SD_BUS_PROPERTY("AttentionIconPixmap", "a(iiay)", emptyArrayGetter<"a(iiay)">, 0, constant),
    SD_BUS_PROPERTY("AttentionMovieName", "s", textGetter<"">, 0, constant),
    SD_BUS_PROPERTY("ToolTip", "(sa(iiay)ss)", propertyGetter<&StatusNotifierItem::appendToolTip>, 0, 0),
    SD_BUS_PROPERTY("ItemIsMenu", "b", constantGetter<false>, 0, constant),
    SD_BUS_VTABLE_END,
};

const sd_bus_vtable StatusNotifierItem::menuPropertyTable[] = {
    SD_BUS_VTABLE_START(0),
    SD_BUS_PROPERTY("Menu", "o", propertyGetter<&StatusNotifierItem::appendMenu>, 0, constant),
    SD_BUS_VTABLE_END,
};

const sd_bus_vtable StatusNotifierItem::tokenMethodTable[] = {
    SD_BUS_VTABLE_START(0),
    SD_BUS_METHOD_WITH_ARGS("ProvideXdgActivationToken", SD_BUS_ARGS("s", token), SD_BUS_NO_RESULT,
                            methodHandler<&StatusNotifierItem::handleToken>, 0),
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

void StatusNotifierItem::appear() {
  m_bus.attach(this, [this] { introduce(); });
  if (!m_bus.isOpen()) {
    setPlacement(Placement::nowhere);
  }
}

void StatusNotifierItem::setToolTip(const QString& text) {
  // Hosts read it as markup.
  const QByteArray markup = text.toHtmlEscaped().toUtf8();
  if (std::exchange(m_toolTip, markup) != markup && m_registration == Registration::done) {
    m_bus.emitSignal(objectPath, itemInterface, "NewToolTip", "");
  }
}

void StatusNotifierItem::introduce() {
  m_registrations.push_back(m_bus.addObject(objectPath, itemInterface, itemTable, this));
  if (m_tokens == ActivationTokens::wanted) {
    m_registrations.push_back(m_bus.addObject(objectPath, itemInterface, tokenMethodTable, this));
  }
  m_menu.appearOn(m_bus);
  // The rules come before the question, so that no change after the answer is missed.
  m_registrations.push_back(
      m_bus.listenToOwner(watcherName, messageHandler<&StatusNotifierItem::handleOwner>, this));
  for (const char* const rule : {hostCameRule, hostWentRule}) {
    m_registrations.push_back(
        m_bus.listen(rule, messageHandler<&StatusNotifierItem::handleHostChange>, this));
  }
  findWatcher();
}

void StatusNotifierItem::handleOwner(sd_bus_message* change) {
  forgetWatcher();
  if (nameHasOwner(change)) {
    findWatcher();
  } else {
    setPlacement(Placement::nowhere);
  }
}

void StatusNotifierItem::forgetWatcher() {
  m_call.reset();
  m_menuProperty.reset();
  m_registration = Registration::none;
}

void StatusNotifierItem::findWatcher() {
  // The answer also tells whether there is a watcher.
  m_call = m_bus.call(getProcess, {watcherName}, MessageBus::Start::no,
                      messageHandler<&StatusNotifierItem::handleProcess>, this);
}

void StatusNotifierItem::handleProcess(sd_bus_message* reply) {
  if (sd_bus_message_is_method_error(reply, SD_BUS_ERROR_NAME_HAS_NO_OWNER) != 0) {
    setPlacement(Placement::nowhere);
    return;
  }
  // After any other error there is a watcher, but its process is not known.
  std::uint32_t process = 0;
  m_host = TrayHost(sd_bus_message_read(reply, "u", &process) > 0 ? processName(process) : QByteArray());
  if (m_host.needsMenu()) {
    m_menuProperty = m_bus.addObject(objectPath, itemInterface, menuPropertyTable, this);
  }
  askForHost();
}

void StatusNotifierItem::registerItem() {
  // The unique name, because GNOME Shell does not show items that register another one.
  m_call = m_bus.call(registerWithWatcher, {m_bus.uniqueName().constData()}, MessageBus::Start::no,
                      messageHandler<&StatusNotifierItem::handleRegistered>, this);
}

void StatusNotifierItem::handleRegistered(sd_bus_message* reply) {
  if (sd_bus_message_is_method_error(reply, nullptr) == 0) {
    m_registration = Registration::done;
    // The host may have gone meanwhile.
    askForHost();
  } else {
    setPlacement(Placement::nowhere);
  }
}

void StatusNotifierItem::handleHostChange() {
  if (m_registration != Registration::none) {
    askForHost();
  }
}

void StatusNotifierItem::askForHost() {
  m_call = m_bus.call(getFromWatcher, {watcherName, "IsStatusNotifierHostRegistered"}, MessageBus::Start::no,
                      messageHandler<&StatusNotifierItem::handleHost>, this);
}

void StatusNotifierItem::handleHost(sd_bus_message* reply) {
  // Some watchers lack the property; all of those have a host.
  int hasHost = 1;
  sd_bus_message_read(reply, "v", "b", &hasHost);
  if (hasHost == 0) {
    if (m_registration == Registration::none) {
      m_registration = Registration::waitsForHost;
    }
    setPlacement(Placement::nowhere);
  } else if (m_registration == Registration::done) {
    setPlacement(Placement::placed);
  } else {
    m_registration = Registration::none;
    registerItem();
  }
}

void StatusNotifierItem::setPlacement(Placement placement) {
  if (std::exchange(m_placement, placement) != placement) {
    Q_EMIT placementChanged();
  }
}

QByteArray StatusNotifierItem::title() const {
  return QCoreApplication::applicationName().toUtf8();
}

int StatusNotifierItem::appendPixmaps(sd_bus_message* reply) {
  int result = sd_bus_message_open_container(reply, 'a', "(iiay)");
  for (const QImage& pixmap : m_icon.pixmaps()) {
    if (result >= 0 && (result = sd_bus_message_open_container(reply, 'r', "iiay")) >= 0 &&
        (result = sd_bus_message_append(reply, "ii", pixmap.width(), pixmap.height())) >= 0 &&
        (result = sd_bus_message_append_array(reply, 'y', pixmap.constBits(), pixmap.sizeInBytes())) >= 0) {
      result = sd_bus_message_close_container(reply);
    }
  }
  return result < 0 ? result : sd_bus_message_close_container(reply);
}

int StatusNotifierItem::appendToolTip(sd_bus_message* reply) const {
  return sd_bus_message_append(reply, "(sa(iiay)ss)", iconName(), 0U, title().constData(),
                               m_toolTip.constData());
}

int StatusNotifierItem::appendMenu(sd_bus_message* reply) const {
  return sd_bus_message_append(reply, "o", StatusNotifierMenu::objectPath);
}

void StatusNotifierItem::handleClick(sd_bus_message* call) {
  QPoint told;
  sd_bus_message_read(call, "ii", &told.rx(), &told.ry());
  activate(told);
}

void StatusNotifierItem::handleToken(sd_bus_message* call) {
  const char* token = nullptr;
  sd_bus_message_read(call, "s", &token);
  m_activationToken = token;
}

void StatusNotifierItem::activate(std::optional<QPoint> told) {
  setActivationToken(std::exchange(m_activationToken, {}));
  Q_EMIT activated(told);
}

}  // namespace mireval
