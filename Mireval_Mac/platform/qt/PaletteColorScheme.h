#pragma once

#include "platform/ColorScheme.h"

namespace mireval {

/// Takes the scheme from the application's palette: dark when its text is lighter than its windows.
class PaletteColorScheme final : public ColorScheme {
  Q_OBJECT

 public:
  /// Needs the application object.
  PaletteColorScheme();

  bool isDark() const override { return m_dark; }

 protected:
  bool eventFilter(QObject* watched, QEvent* event) override;

 private:
  bool m_dark;
};

}  // namespace mireval
