#include "platform/linux/settings/SystemLocale.h"

#include <QtGlobal>

#include <systemd/sd-bus.h>

#include <string_view>
#include <utility>

namespace mireval {
namespace {

constexpr const char* service = "org.freedesktop.locale1";
constexpr const char* objectPath = "/org/freedesktop/locale1";
constexpr const char* propertiesInterface = "org.freedesktop.DBus.Properties";
constexpr const char* localeInterface = "org.freedesktop.locale1";
constexpr const char* localeProperty = "Locale";
constexpr const char* announcementRule =
    "type='signal',sender='org.freedesktop.locale1',path='/org/freedesktop/locale1',"
    "interface='org.freedesktop.DBus.Properties',member='PropertiesChanged',arg0='org.freedesktop.locale1'";

QByteArrayList readTexts(sd_bus_message* message) {
  QByteArrayList texts;
  const char* text = nullptr;
  sd_bus_message_enter_container(message, 'a', "s");
  while (sd_bus_message_read_basic(message, 's', &text) > 0) {
    texts.append(text);
  }
  sd_bus_message_exit_container(message);
  return texts;
}

/// Nothing when what comes next is no variant with texts; the rest of the message cannot be read then.
std::optional<QByteArrayList> readTextsOfVariant(sd_bus_message* message) {
  if (sd_bus_message_enter_container(message, 'v', "as") <= 0) {
    return std::nullopt;
  }
  QByteArrayList texts = readTexts(message);
  sd_bus_message_exit_container(message);
  return texts;
}

}  // namespace

struct SystemLocale::Bus {
  using Self = SystemLocale;

  static void handleAnnouncement(sd_bus_message* message, Self& self) {
    // Only of what is sent to everybody has the bus checked that it comes from the service.
    if (sd_bus_message_get_destination(message) != nullptr ||
        sd_bus_message_has_signature(message, "sa{sv}as") <= 0) {
      return;
    }
    sd_bus_message_skip(message, "s");
    std::optional<QByteArrayList> announced;
    sd_bus_message_enter_container(message, 'a', "{sv}");
    while (sd_bus_message_enter_container(message, 'e', "sv") > 0) {
      const char* name = nullptr;
      if (sd_bus_message_read_basic(message, 's', &name) > 0 && std::string_view(name) == localeProperty) {
        announced = readTextsOfVariant(message);
      } else {
        sd_bus_message_skip(message, "v");
      }
      sd_bus_message_exit_container(message);
    }
    sd_bus_message_exit_container(message);
    if (announced) {
      self.setAnnounced(*std::move(announced));
    } else if (readTexts(message).contains(localeProperty)) {
      self.ask();
    }
  }

  static int handleAnswer(sd_bus_message* reply, void* userdata, sd_bus_error*) {
    if (std::optional<QByteArrayList> answered = readTextsOfVariant(reply)) {
      static_cast<Self*>(userdata)->setAnnounced(*std::move(answered));
    }
    return 0;
  }
};

SystemLocale::SystemLocale() {
  connect(&m_bus, &MessageBus::opened, this, [this] {
    m_bus.listen(announcementRule,
                 [this](sd_bus_message* message) { Bus::handleAnnouncement(message, *this); });
    m_bus.flush();
  });
  m_bus.keepOpen();
}

SystemLocale::~SystemLocale() = default;

void SystemLocale::ask() {
  sd_bus_call_method_async(m_bus.connection(), nullptr, service, objectPath, propertiesInterface, "Get",
                           Bus::handleAnswer, this, "ss", localeInterface, localeProperty);
  m_bus.flush();
}

LocaleVariables SystemLocale::variables() const {
  return LocaleVariables([this](const char* name) {
    if (!m_announced) {
      return qgetenv(name);
    }
    const QByteArray start = QByteArray(name) + '=';
    for (const QByteArray& assignment : *m_announced) {
      if (assignment.startsWith(start)) {
        return assignment.mid(start.size());
      }
    }
    return QByteArray();
  });
}

void SystemLocale::setAnnounced(QByteArrayList assignments) {
  m_announced = std::move(assignments);
  Q_EMIT currentLocaleDidChange();
}

}  // namespace mireval
