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

/// Empty where the variable is not among the assignments.
QByteArray valueIn(const QByteArrayList& assignments, const char* name) {
  const QByteArray start = QByteArray(name) + '=';
  for (const QByteArray& assignment : assignments) {
    if (assignment.startsWith(start)) {
      return assignment.mid(start.size());
    }
  }
  return {};
}

}  // namespace

SystemLocale::SystemLocale() {
  m_bus.attach(this, [this] {
    m_rule = m_bus.listen(announcementRule, messageHandler<&SystemLocale::handleAnnouncement>, this);
    if (!m_announced && (isUsers("LANGUAGE") || isUsers("LC_ALL"))) {
      m_initialQuestion = m_bus.call(getProperty, {localeService, localeProperty}, MessageBus::Start::yes,
                                     messageHandler<&SystemLocale::handleInitialLocale>, this);
    }
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
    m_question = m_bus.call(getProperty, {localeService, localeProperty}, MessageBus::Start::yes,
                            messageHandler<&SystemLocale::handleAnswer>, this);
  }
}

void SystemLocale::handleAnswer(sd_bus_message* reply) {
  if (std::optional<QByteArrayList> answered = readTextsOfVariant(reply)) {
    setAnnounced(*std::move(answered));
  }
}

void SystemLocale::handleInitialLocale(sd_bus_message* reply) {
  if (m_announced) {
    return;
  }
  if (std::optional<QByteArrayList> initial = readTextsOfVariant(reply)) {
    m_initial = *std::move(initial);
  }
}

/// Whether the environment's variable overrides the system's.
bool SystemLocale::isUsers(const char* name) const {
  const QByteArray value = qgetenv(name);
  return !value.isEmpty() && value != valueIn(m_initial, name);
}

LocaleVariables SystemLocale::variables() const {
  return LocaleVariables([this](const char* name) {
    const bool canBeUsers = qstrcmp(name, "LANGUAGE") == 0 || qstrcmp(name, "LC_ALL") == 0;
    const bool isOfEnvironment = !m_announced || (canBeUsers && isUsers(name));
    return isOfEnvironment ? qgetenv(name) : valueIn(*m_announced, name);
  });
}

void SystemLocale::setAnnounced(QByteArrayList assignments) {
  m_announced = std::move(assignments);
  Q_EMIT currentLocaleDidChange();
}

}  // namespace mireval
