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
/// The portal is asked at the start, which starts it where it does not run yet: the panel's colours then do
/// not depend on whether some other program has needed the portal before. It is never started again when it
/// ends, but asked anew when it comes back. No call waits; until it answers, the palette decides. After a
/// loss of the bus this connects once more, at once; where that fails, the palette decides from then on.
class PortalColorScheme final : public ColorScheme {
  Q_OBJECT

 public:
  /// Needs the application object.
  PortalColorScheme();
  ~PortalColorScheme() override;

  bool isDark() const override { return m_dark; }

 private:
  /// The callbacks of the bus.
  struct Bus;

  void follow();
  void ask(MessageBus::Start start);
  void setPreference(std::optional<bool> dark);
  void update();

  PaletteColorScheme m_palette;
  std::optional<bool> m_prefersDark;
  bool m_dark = m_palette.isDark();
  MessageBus m_bus{MessageBus::Kind::session};
  MessageBus::Slot m_question;
};

}  // namespace mireval
