#include "platform/linux/settings/SystemLocale.h"

#include "platform/linux/bus/BusHandlers.h"
#include "platform/linux/bus/BusValues.h"

#include <QtGlobal>

#include <systemd/sd-bus.h>

#include <string_view>
#include <utility>

namespace mireval {
namespace {

constexpr const char* localeService = "org.freedesktop.locale1";
constexpr MessageBus::Method getProperty{localeService, "/org/freedesktop/locale1", propertiesInterface,
                                         "Get"};
constexpr const char* localeProperty = "Locale";
constexpr const char* announcementRule =
    "type='signal',sender='org.freedesktop.locale1',path='/org/freedesktop/locale1',"
    "interface='org.freedesktop.DBus.Properties',member='PropertiesChanged',arg0='org.freedesktop.locale1'";

/// Nothing unless a variant with texts comes next; then the rest of the message cannot be read.
std::optional<QByteArrayList> readTextsOfVariant(sd_bus_message* message) {
  if (sd_bus_message_enter_container(message, 'v', "as") <= 0) {
    return std::nullopt;
  }
  QByteArrayList texts = readTexts(message);
  sd_bus_message_exit_container(message);
  return texts;
}

}  // namespace

SystemLocale::SystemLocale() {
  m_bus.attach(this, [this] {
    m_rule = m_bus.listen(announcementRule, messageHandler<&SystemLocale::handleAnnouncement>, this);
  });
}

void SystemLocale::handleAnnouncement(sd_bus_message* message) {
  // The bus checks the sender of broadcasts only.
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
    setAnnounced(*std::move(announced));
  } else if (readTexts(message).contains(localeProperty)) {
    ask();
  }
}

void SystemLocale::handleAnswer(sd_bus_message* reply) {
  if (std::optional<QByteArrayList> answered = readTextsOfVariant(reply)) {
    setAnnounced(*std::move(answered));
  }
}

void SystemLocale::ask() {
  m_question = m_bus.call(getProperty, {localeService, localeProperty}, MessageBus::Start::yes,
                          messageHandler<&SystemLocale::handleAnswer>, this);
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
