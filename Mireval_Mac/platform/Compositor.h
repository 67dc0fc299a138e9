#pragma once

namespace mireval {

/// What draws the windows onto the screen. Used on the UI thread.
class Compositor {
 public:
  virtual ~Compositor() = default;

  /// True when transparent parts of a window show what lies behind it; without a compositor they are black.
  /// May change while the desktop runs.
  virtual bool blendsWindows() const = 0;
};

}  // namespace mireval
