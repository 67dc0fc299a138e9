#pragma once

#include "platform/Compositor.h"

namespace mireval {

/// Blends windows until the test says otherwise.
class FakeCompositor final : public Compositor {
 public:
  bool blendsWindows() const override { return m_blendsWindows; }
  void setBlendsWindows(bool blendsWindows) { m_blendsWindows = blendsWindows; }

 private:
  bool m_blendsWindows = true;
};

}  // namespace mireval
