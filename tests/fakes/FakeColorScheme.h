#pragma once

#include "platform/ColorScheme.h"

namespace mireval {

/// Light until the test says otherwise.
class FakeColorScheme final : public ColorScheme {
  Q_OBJECT

 public:
  bool isDark() const override { return m_dark; }

  void setDark(bool dark) {
    m_dark = dark;
    Q_EMIT darkChanged();
  }

 private:
  bool m_dark = false;
};

}  // namespace mireval
