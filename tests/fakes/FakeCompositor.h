#pragma once

#include "platform/Compositor.h"

namespace mireval {

/// Blends until the test says otherwise.
class FakeCompositor final : public Compositor {
 public:
  bool blendsWindows() const override { return m_blends; }

  void setBlends(bool blends) { m_blends = blends; }

 private:
  bool m_blends = true;
};

}  // namespace mireval
