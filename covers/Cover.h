#pragma once

#include "library/Mood.h"

#include <QImage>

namespace mireval {

/// The pictures that the desktop's media controls show for the tracks of a mode.
class Cover {
 public:
  static constexpr int sidePixels = 1200;

  /// The picture of a mode with a number from 1 to `coversPerMood`. The same at each call.
  static QImage draw(Mood mood, int number);
};

}  // namespace mireval
