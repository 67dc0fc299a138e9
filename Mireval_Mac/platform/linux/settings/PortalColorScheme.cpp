#include "platform/linux/settings/PortalColorScheme.h"

#include <systemd/sd-bus.h>

#include <cstdint>
#include <utility>

namespace mireval {
namespace {

constexpr MessageBus::Method readSetting{.service = "org.freedesktop.portal.Desktop",
                                         .path = "/org/freedesktop/portal/desktop",
                                         .interface = "org.freedesktop.portal.Settings",
                                         .name = "Read"};
constexpr const char* settingsNamespace = "org.freedesktop.appearance";
constexpr const char* settingsKey = "color-scheme";
constexpr const char* ownerRule =
    "type='signal',sender='org.freedesktop.DBus',path='/org/freedesktop/DBus',"
    "interface='org.freedesktop.DBus',member='NameOwnerChanged',arg0='org.freedesktop.portal.Desktop'";
// Other settings do not wake this process up.
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

struct PortalColorScheme::Bus {
  using Self = PortalColorScheme;

  static void handleOwner(sd_bus_message* message, Self& self) {
    const char* newOwner = nullptr;
    if (sd_bus_message_read(message, "sss", nullptr, nullptr, &newOwner) < 0) {
      return;
    }
    if (*newOwner != '\0') {
      self.ask(MessageBus::Start::no);
    } else {
      self.m_question.reset();
      self.setPreference(std::nullopt);
    }
  }

  static void handleSetting(sd_bus_message* message, Self& self) {
    if (sd_bus_message_read(message, "ss", nullptr, nullptr) >= 0) {
      self.setPreference(readPreference(message));
    }
  }

  static int handleAnswer(sd_bus_message* reply, void* userdata, sd_bus_error*) {
    // An error holds no preference either.
    static_cast<Self*>(userdata)->setPreference(readPreference(reply));
    return 0;
  }
};

PortalColorScheme::PortalColorScheme() {
  connect(&m_palette, &ColorScheme::darkChanged, this, &PortalColorScheme::update);
  connect(&m_bus, &MessageBus::lost, this, [this] {
    m_question.reset();
    setPreference(std::nullopt);
  });
  connect(&m_bus, &MessageBus::opened, this, &PortalColorScheme::follow);
  m_bus.keepOpen();
}

PortalColorScheme::~PortalColorScheme() = default;

void PortalColorScheme::follow() {
  // The rules first: nothing is missed between the answer and the first change.
  m_bus.listen(ownerRule, [this](sd_bus_message* message) { Bus::handleOwner(message, *this); });
  m_bus.listen(settingRule, [this](sd_bus_message* message) { Bus::handleSetting(message, *this); });
  ask(MessageBus::Start::yes);
}

void PortalColorScheme::ask(MessageBus::Start start) {
  // An answer to the question before is not waited for any more.
  m_question = m_bus.call(readSetting, {settingsNamespace, settingsKey}, start, Bus::handleAnswer, this);
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
