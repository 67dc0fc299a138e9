#pragma once

#include "platform/ColorScheme.h"

namespace mireval {

/// A desktop whose colour scheme the test changes.
class FakeColorScheme final : public ColorScheme {
 public:
  bool isDark() const override { return m_dark; }

  /// Signals the change, if it is one.
  void setDark(bool dark);

 private:
  bool m_dark = false;
};

}  // namespace mireval
