#pragma once

#include "platform/ColorScheme.h"
#include "platform/linux/bus/MessageBus.h"
#include "platform/qt/PaletteColorScheme.h"

#include <optional>

namespace mireval {

/// The scheme that the user has set for all applications, by the desktop's settings portal on the session
/// bus. The palette decides while the portal states no preference, or there is no portal, bus or sensible
/// answer.
///
/// The portal is asked at the start, which also starts it: otherwise the panel's colours would depend on
/// whether some other program has needed the portal before. When it ends, it is not started again, but it is
/// asked again when it comes back.
class PortalColorScheme final : public ColorScheme {
  Q_OBJECT

 public:
  /// Needs the application object. The bus has to outlive it.
  explicit PortalColorScheme(MessageBus& sessionBus);

  bool isDark() const override { return m_dark; }

 private:
  void introduce();
  void handleOwner(sd_bus_message* change);
  void handleSetting(sd_bus_message* signal);
  void handleAnswer(sd_bus_message* reply);
  void ask(MessageBus::Start start);
  void setPreference(std::optional<bool> dark);
  void update();

  PaletteColorScheme m_palette;
  std::optional<bool> m_prefersDark;
  bool m_dark = m_palette.isDark();
  MessageBus& m_bus;
  MessageBus::Slots m_rules;
  MessageBus::Slot m_question;
};

}  // namespace mireval
