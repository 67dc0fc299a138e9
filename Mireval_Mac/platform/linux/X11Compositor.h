#pragma once

#include "platform/Compositor.h"

namespace mireval {

/// Asks the X server who manages its windows' compositing. Other display servers always blend.
class X11Compositor final : public Compositor {
 public:
  bool blendsWindows() const override;
};

}  // namespace mireval
