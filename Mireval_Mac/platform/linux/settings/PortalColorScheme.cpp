#include "platform/linux/settings/PortalColorScheme.h"

#include "platform/linux/bus/BusHandlers.h"
#include "platform/linux/bus/BusValues.h"

#include <systemd/sd-bus.h>

#include <cstdint>
#include <utility>

namespace mireval {
namespace {

constexpr const char* portal = "org.freedesktop.portal.Desktop";
constexpr MessageBus::Method readSetting{portal, "/org/freedesktop/portal/desktop",
                                         "org.freedesktop.portal.Settings", "Read"};
constexpr const char* settingsNamespace = "org.freedesktop.appearance";
constexpr const char* settingsKey = "color-scheme";
// Narrow, so that other settings do not wake this process.
constexpr const char* settingRule =
    "type='signal',sender='org.freedesktop.portal.Desktop',path='/org/freedesktop/portal/desktop',"
    "interface='org.freedesktop.portal.Settings',member='SettingChanged',arg0='org.freedesktop.appearance',"
    "arg1='color-scheme'";

/// Whether the user prefers dark windows; nothing without a preference.
std::optional<bool> readPreference(sd_bus_message* message) {
  // Read answers with a variant in a variant, SettingChanged with a single one.
  const char* contents = nullptr;
  char type = 0;
  while (sd_bus_message_peek_type(message, &type, &contents) > 0 && type == 'v') {
    if (sd_bus_message_enter_container(message, 'v', contents) <= 0) {
      return std::nullopt;
    }
  }
  std::uint32_t preference = 0;
  if (sd_bus_message_read_basic(message, 'u', &preference) <= 0) {
    return std::nullopt;
  }
  switch (preference) {
    case 1:
      return true;
    case 2:
      return false;
    default:
      return std::nullopt;
  }
}

}  // namespace

PortalColorScheme::PortalColorScheme(MessageBus& sessionBus) : m_bus(sessionBus) {
  connect(&m_palette, &ColorScheme::darkChanged, this, &PortalColorScheme::update);
  connect(&m_bus, &MessageBus::lost, this, [this] {
    m_rules.clear();
    m_question.reset();
    setPreference(std::nullopt);
  });
  m_bus.attach(this, [this] { introduce(); });
}

void PortalColorScheme::introduce() {
  // The rules before the question: no change after the answer is missed.
  m_rules.push_back(m_bus.listenToOwner(portal, messageHandler<&PortalColorScheme::handleOwner>, this));
  m_rules.push_back(m_bus.listen(settingRule, messageHandler<&PortalColorScheme::handleSetting>, this));
  ask(MessageBus::Start::yes);
}

void PortalColorScheme::ask(MessageBus::Start start) {
  // This drops an answer to the previous question.
  m_question = m_bus.call(readSetting, {settingsNamespace, settingsKey}, start,
                          messageHandler<&PortalColorScheme::handleAnswer>, this);
}

void PortalColorScheme::handleOwner(sd_bus_message* change) {
  if (nameHasOwner(change)) {
    ask(MessageBus::Start::no);
  } else {
    m_question.reset();
    setPreference(std::nullopt);
  }
}

void PortalColorScheme::handleSetting(sd_bus_message* signal) {
  if (sd_bus_message_read(signal, "ss", nullptr, nullptr) >= 0) {
    setPreference(readPreference(signal));
  }
}

void PortalColorScheme::handleAnswer(sd_bus_message* reply) {
  // An error holds no preference either.
  setPreference(readPreference(reply));
}

void PortalColorScheme::setPreference(std::optional<bool> dark) {
  m_prefersDark = dark;
  update();
}

void PortalColorScheme::update() {
  const bool dark = m_prefersDark.value_or(m_palette.isDark());
  if (std::exchange(m_dark, dark) != dark) {
    Q_EMIT darkChanged();
  }
}

}  // namespace mireval
